#include "dialogs/zoneops/AxialRotationPropertiesManager.h"

#include "dialogs/models/EnumerationLabels.h"
#include "dialogs/property/AngleDecorator.h"
#include "dialogs/property/PlotTypeDependentRelevance.h"
#include "dialogs/zoneops/RotationAxisTemplates.h"
#include "platform/exception/ExceptionBase.h"
#include "platform/vdsdkbase/VelUtilAxis.h"
#include "platform/vdsdkbase/VelUtilDataOperation.h"
#include "platform/vdsdkbase/VelUtilDataSet.h"
#include "platform/vdsdkbase/VelUtilDialog.h"
#include "platform/vdsdkbase/VelUtilFieldMap.h"
#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkbase/VelUtilPick.h"
#include "platform/vdsdkbase/VelUtilVar.h"
#include "platform/vdsdkcommon/ActionReporter.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkcommon/FrameQueries.h"
#include "platform/vdsdkuicommon/StateChangePredicates.h"

#include <boost/make_shared.hpp>

#include <algorithm>

namespace veldraw::dialogs::data {

using sdk::AppLock;
using sdk::ui::propertymanager::AngleDecorator;
using sdk::ui::propertymanager::PlotTypeDependentRelevance;
using sdk::ui::propertymanager::RelevanceInterface;
using toolbox::Set;

namespace {

using RotationAxis = AxialRotationPropertiesManager::RotationAxis;

constexpr int pickedZone = 15;

auto const theRotationAngleUnits = boost::make_shared<Property<ThetaMode_e>>(ThetaMode_Degrees);
boost::shared_ptr<PropertyAbstract<double>> const theRotationAngle = boost::make_shared<Property<double>>(360.0);
auto const theAngleUnitsListModel = boost::make_shared<AxialRotationPropertiesManager::AngleUnitsListModel>(
    sdk::ui::dialogs::propertybindings::models::thetaModeLabels);
auto const theRotationAxis = boost::make_shared<Property<RotationAxis>>(AxialRotationPropertiesManager::zRotationAxis);
std::map<int, boost::shared_ptr<PropertyAbstract<double>>> const theRotationOrigin{
    {0, boost::make_shared<Property<double>>(0.0)},
    {1, boost::make_shared<Property<double>>(0.0)},
    {2, boost::make_shared<Property<double>>(0.0)},
};

// In two dimensions there is nothing but the axis out of the plane.
void followPlotType()
{
    AppLock const lock(AppLock::RecordAsUsual);
    if (VelUtilFrameGetPlotType() == PlotType_Cartesian2D)
        theRotationAxis->setValue(AxialRotationPropertiesManager::zRotationAxis);
}

// A number that is 0 stands for no variable, which is equal to no other.
bool isSameVariable(int first, int second)
{
    return first != 0 && first == second;
}

// Only the third may be missing: it does not count in the plane. Two that are missing are not distinct.
bool areDistinct(int const numbers[3])
{
    return numbers[0] != numbers[1] && !isSameVariable(numbers[0], numbers[2]) &&
           !isSameVariable(numbers[1], numbers[2]);
}

bool shareAVariable(int const first[3], int const second[3])
{
    return std::any_of(first, first + 3, [second](int number) {
        return std::any_of(second, second + 3, [number](int other) { return isSameVariable(number, other); });
    });
}

void requireUsableVector(std::string const& title, int const xyz[3], int const uvw[3])
{
    if (!areDistinct(uvw))
        throw ExceptionBase(title + " requires that the vector variables are unique.");
    if (shareAVariable(uvw, xyz))
        throw ExceptionBase(title + " requires that the vector and spatial variables are unique.");
    if (xyz[2] != 0 && uvw[2] == 0)
        throw ExceptionBase(title + " requires that if Z is given then W must be also.");
    if (xyz[2] == 0 && uvw[2] != 0)
        throw ExceptionBase(title + " requires that if W is given then Z must be also.");
}

// Zero is also the answer to a question that has failed.
void requireAnswer(std::string const& title, bool isZero, bool isZeroIndeed)
{
    if (isZero && !isZeroIndeed)
        throw ExceptionBase(title + " could not find out what the frame shows.");
}

int plotTypeOfFrame(std::string const& title)
{
    int const plotType = VelUtilFrameGetPlotType();
    requireAnswer(title, plotType == 0, sdk::plotTypeOfActiveFrame() == 0);
    return plotType;
}

int assignedVariable(std::string const& title, char assignment)
{
    int const variable = VelUtilVarGetNumByAssignment(assignment);
    requireAnswer(title, variable == 0, sdk::variableAssignedInActiveFrame(assignment) == 0);
    return variable;
}

// The position itself counts as no vector: it is rotated anyway.
bool readVector(std::string const& title, int const xyz[3], bool is3D, int uvw[3])
{
    uvw[0] = assignedVariable(title, 'U');
    uvw[1] = assignedVariable(title, 'V');
    uvw[2] = is3D ? assignedVariable(title, 'W') : 0;
    if (uvw[0] == 0 || uvw[1] == 0 || std::equal(uvw, uvw + 3, xyz))
        return false;
    requireUsableVector(title, xyz, uvw);
    return true;
}

} // namespace

AxialRotationPropertiesManager::AxialRotationPropertiesManager()
    : m_displayedAngle(boost::make_shared<AngleDecorator>(theRotationAngle, theRotationAngleUnits))
    , m_zoneListModel(boost::make_shared<ZonesListModel>())
    , m_selectedZones(boost::make_shared<Property<std::set<int>>>(std::set<int>{1}))
    , m_cartesian3DRelevance(boost::make_shared<PlotTypeDependentRelevance>(PlotType_Cartesian3D))
    , m_plotTypeWatcher(followPlotType, sdk::ui::common::isPlotTypeStateChange)
{
    // The watcher hears of later changes only.
    followPlotType();
    readPickList();
}

AxialRotationPropertiesManager::~AxialRotationPropertiesManager() = default;

boost::shared_ptr<Property<ThetaMode_e>> AxialRotationPropertiesManager::rotationAngleUnits()
{
    return theRotationAngleUnits;
}

boost::shared_ptr<PropertyAbstract<double>> AxialRotationPropertiesManager::rotationAngle()
{
    return theRotationAngle;
}

boost::shared_ptr<AxialRotationPropertiesManager::AngleUnitsListModel>
AxialRotationPropertiesManager::angleUnitsListModel()
{
    return theAngleUnitsListModel;
}

boost::shared_ptr<Property<AxialRotationPropertiesManager::RotationAxis>> AxialRotationPropertiesManager::rotationAxis()
{
    return theRotationAxis;
}

std::map<int, boost::shared_ptr<PropertyAbstract<double>>> const& AxialRotationPropertiesManager::rotationOrigin()
{
    return theRotationOrigin;
}

boost::shared_ptr<PropertyAbstract<double>> AxialRotationPropertiesManager::displayedAngle() const
{
    return m_displayedAngle;
}

boost::shared_ptr<AxialRotationPropertiesManager::ZonesListModel> AxialRotationPropertiesManager::zoneListModel() const
{
    return m_zoneListModel;
}

boost::shared_ptr<PropertyAbstract<std::set<int>>> AxialRotationPropertiesManager::selectedZones() const
{
    return m_selectedZones;
}

boost::shared_ptr<RelevanceInterface const> AxialRotationPropertiesManager::cartesian3DRelevance() const
{
    return m_cartesian3DRelevance;
}

void AxialRotationPropertiesManager::readPickList()
{
    std::set<int> zones;
    int const count = VelUtilPickListGetCount();
    for (int number = 1; number <= count; ++number)
        if (VelUtilPickListGetType(number) == pickedZone)
            zones.insert(VelUtilPickListGetZoneNumber(number));
    // What a zone is called that was picked and has gone since.
    zones.erase(0);
    m_selectedZones->setValue(zones);
}

Set AxialRotationPropertiesManager::getZonesToProcess() const
{
    if (!m_zoneListModel->groupByTimeStrand()->value())
        return Set(m_selectedZones->value());
    Set zones;
    for (int const fieldMap : m_selectedZones->value()) {
        Set_s* zonesOfMap = nullptr;
        VelUtilFieldMapGetZones(fieldMap, &zonesOfMap);
        if (!zonesOfMap && sdk::getActiveFieldMaps().isMember(fieldMap))
            throw ExceptionBase("The zones of a strand could not be found out.");
        zones.add(Set::Take(zonesOfMap));
    }
    return zones;
}

void AxialRotationPropertiesManager::requireZones(std::string const& title) const
{
    if (!getZonesToProcess().isEmpty())
        return;
    bool const isGrouped = m_zoneListModel->groupByTimeStrand()->value();
    throw ExceptionBase(title + (isGrouped ? " requires selection of one or more strands."
                                           : " requires selection of one or more zones."));
}

void AxialRotationPropertiesManager::getRotationInputs(std::string const& title, int xyz[3], int uvw[3], bool& is3D,
                                                       bool& hasVector, double origin[3], double axis[3]) const
{
    requireZones(title);
    is3D = plotTypeOfFrame(title) == PlotType_Cartesian3D;
    VelUtilAxisGetVarAssignments(&xyz[0], &xyz[1], &xyz[2]);
    if (!is3D)
        xyz[2] = 0;
    if (!areDistinct(xyz))
        throw ExceptionBase(title + " requires that the spatial variables are unique.");
    hasVector = readVector(title, xyz, is3D, uvw);
    for (int dimension = 0; dimension < 3; ++dimension) {
        origin[dimension] = theRotationOrigin.at(dimension)->value();
        axis[dimension] = theRotationAxis->value() == dimension ? 1.0 : 0.0;
    }
}

void AxialRotationPropertiesManager::rotateZones()
{
    try {
        int xyz[3] = {};
        int uvw[3] = {};
        bool is3D = false;
        bool hasVector = false;
        double origin[3] = {};
        double axis[3] = {};
        getRotationInputs("Axial Rotation", xyz, uvw, is3D, hasVector, origin, axis);
        AppLock const lock(AppLock::RecordAsUsual);
        auto const rotate = [&] {
            Set const zones = getZonesToProcess();
            return static_cast<char>(VelUtilDataRotate(VelUtilDataSetGetUniqueID(), zones.getRef(), xyz, is3D, &uvw[0],
                                                       &uvw[1], &uvw[2], hasVector, theRotationAngle->value(), origin,
                                                       axis));
        };
        sdk::velUtilActionReporter(rotate, "Failed to perform axial rotation.", "");
    } catch (std::exception const& refusal) {
        VelUtilDialogMessageBox(refusal.what(), MessageBoxType_Error);
    }
}

} // namespace veldraw::dialogs::data
