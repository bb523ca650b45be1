#pragma once

#include "kernel/compute/Rotation.h"
#include "kernel/operations/DataSetOperation.h"
#include "kernel/operations/SpatialVariables.h"

namespace veldraw::kernel {

/// Rotates zones and their vectors about an axis: what RotateZones and DuplicateZonesAxially have in common.
///
/// Results are computed in double precision and stored as float or double; integer types become a floating-point type that
/// holds all their values. A passive component counts as 0 and stays passive where it stays 0. Points and vectors that are
/// not finite keep their values.
///
/// Refused: a locked data set, an empty set of zones, zones or variables that do not exist, variables named twice, an axis
/// without direction or not finite, a plane that would be rotated out of itself, an angle that is not finite, a vector (or
/// point) whose components have their values at different places.
class AxialOperation : public DataSetOperation
{
public:
    std::string reasonAgainst() const override;
    bool isLong() const override { return true; }
    std::string remark() const override { return m_remark; }

protected:
    AxialOperation(DataSet const& dataSet, NumberSet zones, SpatialVariables const& variables,
                   RotationAxis const& axis);

    NumberSet const& zones() const { return m_zones; }
    SpatialVariables const& variables() const { return m_variables; }
    RotationAxis const& axis() const { return m_axis; }

    /// Adds axis, origin and variables to a command.
    CommandText withRotation(CommandText text) const;

    /// The load of everything that @p rotation involves. Also notes for remark() the vectors that are not rotated.
    std::shared_ptr<DeferredLoad> prepare(Rotation const& rotation);
    DeferredLoad const& load() const { return *m_load; }

    void dropRemark() { m_remark.clear(); }

private:
    NumberSet m_zones;
    SpatialVariables m_variables;
    RotationAxis m_axis;
    std::shared_ptr<DeferredLoad> m_load;
    std::string m_remark;
};

} // namespace veldraw::kernel
