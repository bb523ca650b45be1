#include "dialogs/datasetinfo/NoActiveMapDecorator.h"

#include "dialogs/datasetinfo/NumberProperty.h"
#include "dialogs/datasetinfo/ZoneVarInfoStateChange.h"
#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/DataSetQueries.h"

#include <utility>

namespace veldraw::sdk::ui::propertymanager {

namespace {

bool hasActiveMaps()
{
    AppLock const lock(AppLock::RecordAsUsual);
    bool const isLinePlot = isValidLinePlotType(static_cast<PlotType_e>(VelUtilFrameGetPlotType()));
    return !(isLinePlot ? getActiveLineMaps() : getActiveFieldMaps()).isEmpty();
}

} // namespace

NoActiveMapDecorator::NoActiveMapDecorator(boost::shared_ptr<UIStylePropertyAbstract<double>> limit,
                                           boost::shared_ptr<PropertyAbstract<bool> const> isKnown,
                                           Selection const& selectedVars)
    : UIStylePropertyDecoratorAbstract<std::string, double>(std::move(limit))
    , m_isKnown(std::move(isKnown))
    , m_selectedVars(selectedVars)
    , m_performer([this] { tellListeners(); }, isZoneVarInfoStateChange)
{
    m_connections.add(m_isKnown->connectValueChanged([this](bool) { tellListeners(); }));
    m_connections.add(m_selectedVars->connectValueChanged([this](std::set<int> const&) { tellListeners(); }));
}

NoActiveMapDecorator::~NoActiveMapDecorator() = default;

void NoActiveMapDecorator::storeValue(std::string const&) {}

std::string NoActiveMapDecorator::retrieveValue() const
{
    // A range that is not known leaves the limits of another variable behind, which nobody may take for this one's.
    bool const isShown = hasActiveMaps() && m_isKnown->value();
    return isShown ? numberText(decoratedValue()) : "--------";
}

} // namespace veldraw::sdk::ui::propertymanager
