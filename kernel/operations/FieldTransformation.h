#pragma once

#include "kernel/base/Progress.h"
#include "kernel/data/DeferredLoad.h"
#include "kernel/data/Field.h"
#include "kernel/data/FieldReplacement.h"
#include "kernel/data/Zone.h"

#include <vector>

namespace veldraw::kernel {

/// Computes new values for fields of zones, in new storage. First every zone is prepared, then everything is computed.
///
/// Zones that shared values before share the new ones afterwards; they are computed once.
class FieldTransformation
{
public:
    FieldTransformation() = default;
    virtual ~FieldTransformation() = default;

    /// Sets the load that has the values which are not in the data set yet. To be called before the first prepare(), when
    /// everything that is needed has been loaded.
    void setDeferred(DeferredLoad const& deferred) { m_deferred = &deferred; }

    /// The fields of @p zone that change, on storage that has yet to be filled.
    /// @throws std::invalid_argument with a reason when the zone cannot be transformed, std::bad_alloc
    virtual std::vector<NewField> prepare(Zone const& zone) = 0;

    /// Fills the storage of all that has been prepared. @throws Interrupted
    virtual void compute(Progress& progress) const = 0;

    /// Units of work that compute() adds to the progress.
    virtual std::int64_t work() const = 0;

    /// Bytes of the storage of all fields that have been prepared.
    virtual std::int64_t bytes() const = 0;

    FieldTransformation(FieldTransformation const&) = delete;
    FieldTransformation& operator=(FieldTransformation const&) = delete;

protected:
    std::shared_ptr<Buffer const> valuesOf(ShareGroup const& group) const
    {
        return m_deferred != nullptr ? m_deferred->valuesOf(group) : group.buffer();
    }

    std::int64_t valueCount(Zone const& zone, ValueLocation_e location) const
    {
        return m_deferred != nullptr ? m_deferred->valueCount(zone, location) : zone.valueCount(location);
    }

private:
    DeferredLoad const* m_deferred = nullptr;
};

/// Prepares zones, then computes them. @param zones one-based numbers that exist. @return one part for each zone, in their
/// order
/// @throws what prepare() and compute() throw; NotEnoughMemory before anything is computed
std::vector<FieldReplacement::ZonePart> transformZones(DataSet const& dataSet, NumberSet const& zones,
                                                       FieldTransformation& transformation, Progress& progress);

} // namespace veldraw::kernel
