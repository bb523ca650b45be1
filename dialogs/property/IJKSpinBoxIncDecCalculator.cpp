#include "dialogs/property/IJKSpinBoxIncDecCalculator.h"

#include "platform/vdsdkbase/VelUtilDataValue.h"
#include "platform/vdsdkbase/VelUtilZone.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <algorithm>

namespace veldraw::sdk::ui::propertymanager {

IJKSpinBoxIncDecCalculator::IJKSpinBoxIncDecCalculator(
    boost::shared_ptr<PropertyAbstract<IJKPlanes_e> const> const& plane,
    boost::shared_ptr<PropertyAbstract<int> const> const& zone,
    boost::shared_ptr<PropertyAbstract<int> const> const& variable)
    : m_plane(plane)
    , m_zone(zone)
    , m_variable(variable)
{
}

double IJKSpinBoxIncDecCalculator::increment(double value)
{
    return withinPlane(value + delta());
}

double IJKSpinBoxIncDecCalculator::decrement(double value)
{
    return withinPlane(value - delta());
}

double IJKSpinBoxIncDecCalculator::withinPlane(double index) const
{
    return std::max(1.0, std::min(index, static_cast<double>(lastIndex())));
}

long long IJKSpinBoxIncDecCalculator::lastIndex() const
{
    AppLock const lock(AppLock::RecordAsUsual);
    int const zone = m_zone->value();
    long long i = -1;
    long long j = -1;
    long long k = -1;
    VelUtilZoneGetIJK(zone, &i, &j, &k);
    IJKPlanes_e const plane = m_plane->value();
    long long const dimension = plane == IJKPlanes_I ? i : plane == IJKPlanes_J ? j : k;
    bool const isCellCentred = VelUtilDataValueGetLocation(zone, m_variable->value()) == ValueLocation_CellCentered;
    return isCellCentred ? dimension - 1 : dimension;
}

} // namespace veldraw::sdk::ui::propertymanager
