#include "dialogs/datasetinfo/VarRangeActiveZonesLabelProperty.h"

#include "dialogs/property/CurrentFrame.h"
#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkuicommon/StateChangePredicates.h"

#include <boost/make_shared.hpp>

namespace veldraw::sdk::ui::propertymanager {

namespace {

constexpr char referencedZonesTitle[] = "Var Range -- Referenced Zones:";
constexpr char activeZonesTitle[] = "Var Range -- Active Zones:";

} // namespace

VarRangeActiveZonesLabelProperty::VarRangeActiveZonesLabelProperty()
    : m_text(boost::make_shared<UILocalStyleProperty<std::string>>(referencedZonesTitle))
    , m_performer([this] { update(); }, common::isPlotTypeStateChange)
{
    update();
}

VarRangeActiveZonesLabelProperty::~VarRangeActiveZonesLabelProperty() = default;

void VarRangeActiveZonesLabelProperty::update()
{
    AppLock const lock(AppLock::RecordAsUsual);
    if (!hasCurrentFrame())
        return;
    bool const isLinePlot = isValidLinePlotType(static_cast<PlotType_e>(VelUtilFrameGetPlotType()));
    m_text->setValue(isLinePlot ? referencedZonesTitle : activeZonesTitle);
}

} // namespace veldraw::sdk::ui::propertymanager
