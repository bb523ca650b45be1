#include "dialogs/zoneops/CreateMirrorZonePropertiesManager.h"

#include "platform/vdsdkbase/VelUtilDataOperation.h"
#include "platform/vdsdkbase/VelUtilDialog.h"
#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkcommon/ActionReporter.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkcommon/FrameQueries.h"
#include "platform/vdsdkcommon/WaitState.h"
#include "platform/vdtoolbox/Set.h"

#include <boost/make_shared.hpp>

namespace veldraw::sdk::ui::propertymanager {

namespace {

// Made when the library is loaded; every dialog that comes shows the last choice.
boost::shared_ptr<Property<char>> const mirrorVarIn2D = boost::make_shared<Property<char>>('Y');
boost::shared_ptr<Property<char>> const mirrorVarIn3D = boost::make_shared<Property<char>>('Z');

char mirrorVarOf(int plotType)
{
    switch (plotType) {
    case PlotType_Cartesian3D:
        return mirrorVarIn3D->value();
    case PlotType_Cartesian2D:
        return mirrorVarIn2D->value();
    default:
        return 'X';
    }
}

// No plot type is also the answer to a question that has failed.
bool isAnswered(int plotType)
{
    return plotType != 0 || plotTypeOfActiveFrame() == 0;
}

} // namespace

CreateMirrorZonePropertiesManager::CreateMirrorZonePropertiesManager()
    : m_sourceZones(boost::make_shared<Property<std::set<int>>>())
    , m_zonesListModel(boost::make_shared<ZonesListModel>(getEnabledZonesForFrame, false))
    , m_is2DPlot(boost::make_shared<PlotTypeDependentRelevance>(PlotType_Cartesian2D))
    , m_is3DPlot(boost::make_shared<PlotTypeDependentRelevance>(PlotType_Cartesian3D))
{
}

CreateMirrorZonePropertiesManager::~CreateMirrorZonePropertiesManager() = default;

boost::shared_ptr<Property<char>> CreateMirrorZonePropertiesManager::mirrorVar2D()
{
    return mirrorVarIn2D;
}

boost::shared_ptr<Property<char>> CreateMirrorZonePropertiesManager::mirrorVar3D()
{
    return mirrorVarIn3D;
}

boost::shared_ptr<Property<std::set<int>>> CreateMirrorZonePropertiesManager::sourceZones() const
{
    return m_sourceZones;
}

boost::shared_ptr<CreateMirrorZonePropertiesManager::ZonesListModel>
CreateMirrorZonePropertiesManager::zonesListModel() const
{
    return m_zonesListModel;
}

boost::shared_ptr<PlotTypeDependentRelevance> CreateMirrorZonePropertiesManager::is2DPlot() const
{
    return m_is2DPlot;
}

boost::shared_ptr<PlotTypeDependentRelevance> CreateMirrorZonePropertiesManager::is3DPlot() const
{
    return m_is3DPlot;
}

void CreateMirrorZonePropertiesManager::createMirrorZones()
{
    AppLock const lock(AppLock::RecordAsUsual);
    if (m_sourceZones->value().empty()) {
        VelUtilDialogErrMsg("No source zones were specified");
        return;
    }
    WaitState const busy;
    int const plotType = VelUtilFrameGetPlotType();
    char const mirrorVar = mirrorVarOf(plotType);
    toolbox::Set const zones(m_sourceZones->value());
    // The failure text is that of duplicating zones, on purpose.
    velUtilActionReporter(
        [&zones, plotType, mirrorVar] {
            return static_cast<char>(isAnswered(plotType) && VelUtilCreateMirrorZones(zones.getRef(), mirrorVar));
        },
        "Error duplicating zone(s)", "Mirror zone creation successful.");
}

} // namespace veldraw::sdk::ui::propertymanager
