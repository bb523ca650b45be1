#include "dialogs/datasetinfo/VarRangeActiveZonesProperties.h"

#include "dialogs/datasetinfo/NumberProperty.h"
#include "platform/vdsdkcommon/DataSetQueries.h"

#include <boost/make_shared.hpp>

namespace veldraw::sdk::ui::propertymanager {

VarRangeActiveZonesProperties::VarRangeActiveZonesProperties(Selection const& selectedZones,
                                                             Selection const& selectedVars,
                                                             boost::shared_ptr<ActiveZoneAnswers> const& answers)
    : VarPropertyAbstract(selectedZones, selectedVars)
    , m_answers(answers)
    , m_min(boost::make_shared<UILocalStyleProperty<double>>(0.0))
    , m_max(boost::make_shared<UILocalStyleProperty<double>>(0.0))
    , m_isKnown(boost::make_shared<UILocalStyleProperty<bool>>(false))
{
    refresh();
}

VarRangeActiveZonesProperties::~VarRangeActiveZonesProperties() = default;

void VarRangeActiveZonesProperties::updateInZone(int, int var)
{
    bool const isAnswered = var == m_askedVar && m_answers->revision() == m_askedRevision;
    if (isAnswered || !okToQueryForVarInfo(var))
        return;
    m_askedVar = var;
    m_askedRevision = m_answers->revision();
    double min = 0.0;
    double max = 0.0;
    toolbox::Set const& zones = m_answers->zones();
    m_isKnown->setValue(!zones.isEmpty() && getVarMinMaxForZoneSet(var, zones, false, min, max));
    if (!m_isKnown->value())
        return;
    setNumber(*m_min, min);
    setNumber(*m_max, max);
}

} // namespace veldraw::sdk::ui::propertymanager
