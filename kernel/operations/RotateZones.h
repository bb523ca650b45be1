#pragma once

#include "kernel/data/FieldReplacement.h"
#include "kernel/operations/AxialOperation.h"

namespace veldraw::kernel {

/// Rotates zones in place about an axis, as AxialOperation says. "Axial Rotation"; event 0 with the zones and the variables
/// that got other values. No event and no step when no value changes, as in a rotation by 360 degrees.
///
/// The new values are in new storage. What the given zones shared among themselves they still share; zones that are not
/// given keep their values.
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
    CommandText command() const override;
    std::string reasonAgainst() const override;
    std::shared_ptr<DeferredLoad> needs() override { return prepare(Rotation(axis(), m_degrees)); }
    void compute(Progress& progress) override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    double m_degrees;
    std::vector<FieldReplacement::ZonePart> m_parts;
};

} // namespace veldraw::kernel
