#include "dialogs/datasetinfo/ZoneTimeProperties.h"

#include "dialogs/datasetinfo/NumberProperty.h"
#include "dialogs/property/AskedAgain.h"
#include "platform/vdsdkbase/VelUtilZone.h"

#include <boost/make_shared.hpp>

namespace veldraw::sdk::ui::propertymanager {

namespace {

constexpr int noTimeStrand = 2147483646;

} // namespace

ZoneTimeProperties::ZoneTimeProperties(Selection const& selectedZones)
    : ZonePropertyAbstract(selectedZones)
    , m_solutionTime(boost::make_shared<UILocalStyleProperty<double>>(0.0))
    , m_strand(boost::make_shared<UILocalStyleProperty<int>>(noTimeStrand))
{
    refresh();
}

ZoneTimeProperties::~ZoneTimeProperties() = default;

bool ZoneTimeProperties::isStrand(int number)
{
    return number >= 0 && number < noTimeStrand;
}

bool ZoneTimeProperties::isStatic(int number)
{
    return number == noTimeStrand;
}

int ZoneTimeProperties::strandOf(int zone)
{
    return askedAgain([=] { return VelUtilZoneGetStrandID(zone); });
}

void ZoneTimeProperties::update(int zone)
{
    setNumber(*m_solutionTime, VelUtilZoneGetSolutionTime(zone));
    m_strand->setValue(strandOf(zone));
}

} // namespace veldraw::sdk::ui::propertymanager
