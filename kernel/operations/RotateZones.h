#pragma once

#include "kernel/data/FieldReplacement.h"
#include "kernel/operations/AxialOperation.h"

namespace veldraw::kernel {

/// Turns zones in place about an axis, as AxialOperation says. "Axial Rotation"; event 0 with the zones and the variables that got
/// other values. Without an event and a step when no value changes, as after a full turn.
///
/// The new values stand on storage of their own; what the given zones shared among themselves they go on sharing, and zones that are
/// not given keep what they have.
class RotateZones : public AxialOperation
{
public:
    /// @param zones one-based numbers
    RotateZones(DataSet const& dataSet, NumberSet zones, SpatialVariables const& variables, RotationAxis const& axis,
                double degrees)
        : AxialOperation(dataSet, std::move(zones), variables, axis)
        , m_degrees(degrees)
    {
    }

    std::string name() const override { return "Axial Rotation"; }
    std::string reasonAgainst() const override;
    std::shared_ptr<DeferredLoad> needs() override { return prepare(Rotation(axis(), m_degrees)); }
    void compute(Progress& progress) override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    double m_degrees;
    std::vector<FieldReplacement::ZonePart> m_parts;
};

} // namespace veldraw::kernel
