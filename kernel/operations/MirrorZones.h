#pragma once

#include "kernel/data/ZoneAddition.h"
#include "kernel/operations/DataSetOperation.h"
#include "kernel/operations/FrameOperation.h"

namespace veldraw::kernel {

/// Appends a mirrored copy of each zone of a frame's data set. "Create Mirror Zone"; event 4 with the copies.
///
/// A copy is like one of DuplicateZones, but one coordinate and the component of the frame's vector along it have the opposite
/// sign, unless they are passive. Connectivity is shared with the source, so the corners of the mirrored cells are in the
/// opposite sense of rotation.
///
/// Refused: as DuplicateZones; a coordinate that is not assigned; a component of the vector that is another coordinate.
class MirrorZones : public FrameDataOperation
{
public:
    /// @param zones one-based numbers; @param coordinate 'X', 'Y' or 'Z' as the frame's axes have them
    MirrorZones(UniqueId frame, NumberSet zones, char coordinate)
        : FrameDataOperation(frame)
        , m_zones(std::move(zones))
        , m_coordinate(coordinate)
    {
    }

    std::string name() const override { return "Create Mirror Zone"; }
    CommandText command() const override;
    std::string reasonAgainst() const override;
    bool isLong() const override { return true; }
    std::shared_ptr<DeferredLoad> needs() override;
    void compute(Progress& progress) override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;
    std::string remark() const override { return m_remark; }

private:
    NumberSet mirroredVariables() const;

    NumberSet m_zones;
    char m_coordinate;
    std::shared_ptr<DeferredLoad> m_load;
    std::vector<ZoneAddition::Copy> m_copies;
    std::string m_remark;
};

} // namespace veldraw::kernel
