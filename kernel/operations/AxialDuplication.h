#pragma once

#include "kernel/compute/Rotation.h"
#include "kernel/data/StrandNumbers.h"
#include "kernel/data/ZoneAddition.h"
#include "kernel/operations/AxialCopies.h"
#include "kernel/operations/FieldRotation.h"

namespace veldraw::kernel {

/// Makes the copies of zones that an axial duplication appends.
class AxialDuplication
{
public:
    /// @param zones that exist
    AxialDuplication(DataSet const& dataSet, NumberSet const& zones, SpatialVariables const& variables,
                     RotationAxis const& axis, AxialCopies const& copies);

    /// Where the values are that are not loaded in the data set; to be told before run().
    void setDeferred(DeferredLoad const& deferred) { m_deferred = &deferred; }

    /// Makes all copies with their values. May run on any thread as long as the data set stays as it is.
    /// @throws Interrupted, std::bad_alloc, std::invalid_argument with a reason
    void run(Progress& progress);

    std::vector<ZoneAddition::Copy> takeCopies() { return std::move(m_copies); }

private:
    using Rotations = std::vector<std::unique_ptr<FieldRotation>>;

    std::unique_ptr<FieldRotation> rotationOfCopy(int number) const;
    void requireMemoryForAll(Progress& progress) const;
    void addCopies(FieldRotation& rotation, Progress& progress);

    std::vector<std::shared_ptr<Zone const>> m_sources;
    SpatialVariables m_variables;
    RotationAxis m_axis;
    AxialCopies m_spread;
    StrandNumbers m_strands;
    DeferredLoad const* m_deferred = nullptr;
    std::vector<ZoneAddition::Copy> m_copies;
};

} // namespace veldraw::kernel
