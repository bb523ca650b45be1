#pragma once

#include "kernel/data/ZoneAddition.h"
#include "kernel/operations/AxialOperation.h"

namespace veldraw::kernel {

/// The angles of the copies of a zone about an axis: copy k, from 1 on, is at offset + k * angle.
struct AxialCopies
{
    double angle = 0.0;  ///< degrees
    double offset = 0.0; ///< degrees
    int count = 1;
    bool addToStrands = true; ///< false: each strand of the sources gets a new strand for each k
};

/// Appends copies of zones, rotated about an axis as AxialOperation says: first a copy of each zone at offset + angle, then
/// a copy of each at offset + 2 * angle, and so on. "Axial Duplication"; event 4 with the copies. The sources are not
/// changed.
///
/// A copy is like one of DuplicateZones, with rotated values as by RotateZones. What the rotation does not change is shared
/// with the source. Also refused: fewer than one copy, and more zones than can be counted.
class DuplicateZonesAxially : public AxialOperation
{
public:
    /// @param zones one-based numbers
    DuplicateZonesAxially(DataSet const& dataSet, NumberSet zones, SpatialVariables const& variables,
                          RotationAxis const& axis, AxialCopies const& copies)
        : AxialOperation(dataSet, std::move(zones), variables, axis)
        , m_arrangement(copies)
    {
    }

    std::string name() const override { return "Axial Duplication"; }
    CommandText command() const override;
    std::string reasonAgainst() const override;
    std::shared_ptr<DeferredLoad> needs() override;
    void compute(Progress& progress) override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    AxialCopies m_arrangement;
    std::vector<ZoneAddition::Copy> m_copies;
};

} // namespace veldraw::kernel
