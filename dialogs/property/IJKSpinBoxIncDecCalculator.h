#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/PropertyAbstract.h"
#include "dialogs/property/SpinBoxIncDecCalculatorBase.h"

namespace veldraw::sdk::ui::propertymanager {

/// Steps the one-based index of a plane of an ordered zone by 1, from 1 to the last index that the plane's direction has
/// for the variable: the dimension for nodal values, one less for cell-centred ones, never less than 1.
///
/// Dimensions are asked of the kernel at each step, under the application's lock. A zone whose dimensions can't be had
/// has the one index 1.
class VDSDKDIALOGS_DATA_QT_API IJKSpinBoxIncDecCalculator : public SpinBoxIncDecCalculatorBase
{
public:
    /// Keeps the properties alive.
    /// @param plane the direction that the index counts in
    /// @param zone one-based number
    /// @param variable one-based number
    IJKSpinBoxIncDecCalculator(boost::shared_ptr<PropertyAbstract<IJKPlanes_e> const> const& plane,
                               boost::shared_ptr<PropertyAbstract<int> const> const& zone,
                               boost::shared_ptr<PropertyAbstract<int> const> const& variable);

    double increment(double value) override;
    double decrement(double value) override;

private:
    double withinPlane(double index) const;
    long long lastIndex() const;

    boost::shared_ptr<PropertyAbstract<IJKPlanes_e> const> const m_plane;
    boost::shared_ptr<PropertyAbstract<int> const> const m_zone;
    boost::shared_ptr<PropertyAbstract<int> const> const m_variable;
};

} // namespace veldraw::sdk::ui::propertymanager
