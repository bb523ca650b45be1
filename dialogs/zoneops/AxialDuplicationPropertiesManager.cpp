#include "dialogs/zoneops/AxialDuplicationPropertiesManager.h"

#include "dialogs/property/AngleDecorator.h"
#include "dialogs/property/PropertyDependentRelevance.h"
#include "dialogs/property/PropertyTypeAdapter.h"
#include "dialogs/zoneops/AxialRotationPropertiesManager.h"
#include "platform/exception/InvalidArgumentException.h"
#include "platform/vdsdkbase/VelUtilDataOperation.h"
#include "platform/vdsdkbase/VelUtilDataSet.h"
#include "platform/vdsdkbase/VelUtilDialog.h"
#include "platform/vdsdkcommon/ActionReporter.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cmath>
#include <limits>

namespace veldraw::dialogs::data {

using sdk::AppLock;
using sdk::ui::propertymanager::AngleDecorator;
using sdk::ui::propertymanager::PropertyDependentRelevance;
using sdk::ui::propertymanager::RelevanceInterface;
using toolbox::Set;

namespace {

constexpr double wholeCircle = 360.0;

boost::shared_ptr<PropertyAbstract<double>> const theOffsetAngle = boost::make_shared<Property<double>>(0.0);
auto const theOffsetAngleUnits = boost::make_shared<Property<ThetaMode_e>>(ThetaMode_Degrees);
auto const theFullRotation = boost::make_shared<Property<bool>>(false);
auto const theNumInstances = boost::make_shared<Property<int>>(2);
auto const theAddZonesToExistingStrands = boost::make_shared<Property<bool>>(true);

int segmentsOf(double angle)
{
    if (angle == 0.0)
        return 1;
    // The quotient of n segments may come out a rounding error below n.
    double const segments = wholeCircle / std::abs(angle) * (1.0 + 4.0 * std::numeric_limits<double>::epsilon());
    constexpr int most = std::numeric_limits<int>::max();
    return segments < most ? static_cast<int>(segments) : most;
}

double angleOf(int segments)
{
    if (segments == 0)
        throw InvalidArgumentException("No angle has no segments.");
    return wholeCircle / segments;
}

} // namespace

AxialDuplicationPropertiesManager::AxialDuplicationPropertiesManager()
    : m_rotationManager(std::make_unique<AxialRotationPropertiesManager>())
    , m_numberOfSegmentsProperty(boost::make_shared<PropertyTypeAdapter<int, double>>(
          AxialRotationPropertiesManager::rotationAngle(), segmentsOf, angleOf))
    , m_displayedOffsetAngle(boost::make_shared<AngleDecorator>(theOffsetAngle, theOffsetAngleUnits))
    , m_partialRotationRelevance(boost::make_shared<PropertyDependentRelevance<bool>>(theFullRotation, false))
{
}

AxialDuplicationPropertiesManager::~AxialDuplicationPropertiesManager() = default;

boost::shared_ptr<PropertyAbstract<double>> AxialDuplicationPropertiesManager::offsetAngle()
{
    return theOffsetAngle;
}

boost::shared_ptr<Property<ThetaMode_e>> AxialDuplicationPropertiesManager::offsetAngleUnits()
{
    return theOffsetAngleUnits;
}

boost::shared_ptr<Property<bool>> AxialDuplicationPropertiesManager::fullRotation()
{
    return theFullRotation;
}

boost::shared_ptr<Property<int>> AxialDuplicationPropertiesManager::numInstances()
{
    return theNumInstances;
}

boost::shared_ptr<Property<bool>> AxialDuplicationPropertiesManager::addZonesToExistingStrands()
{
    return theAddZonesToExistingStrands;
}

AxialRotationPropertiesManager& AxialDuplicationPropertiesManager::rotationManager() const
{
    return *m_rotationManager;
}

boost::shared_ptr<PropertyAbstract<int>> AxialDuplicationPropertiesManager::numberOfSegmentsProperty() const
{
    return m_numberOfSegmentsProperty;
}

boost::shared_ptr<PropertyAbstract<double>> AxialDuplicationPropertiesManager::displayedOffsetAngle() const
{
    return m_displayedOffsetAngle;
}

boost::shared_ptr<RelevanceInterface const> AxialDuplicationPropertiesManager::partialRotationRelevance() const
{
    return m_partialRotationRelevance;
}

// The source is one of the segments and of the instances.
int AxialDuplicationPropertiesManager::numberOfCopies() const
{
    if (theFullRotation->value())
        return std::max(m_numberOfSegmentsProperty->value() - 1, 1);
    return theNumInstances->value() - 1;
}

void AxialDuplicationPropertiesManager::duplicateZones()
{
    try {
        int xyz[3] = {};
        int uvw[3] = {};
        bool is3D = false;
        bool hasVector = false;
        double origin[3] = {};
        double axis[3] = {};
        m_rotationManager->getRotationInputs("Axial Duplication", xyz, uvw, is3D, hasVector, origin, axis);
        int const copies = numberOfCopies();
        AppLock const lock(AppLock::RecordAsUsual);
        auto const duplicate = [&] {
            Set const zones = m_rotationManager->getZonesToProcess();
            return static_cast<char>(VelUtilDataAxialDuplicate(
                VelUtilDataSetGetUniqueID(), zones.getRef(), xyz, is3D, &uvw[0], &uvw[1], &uvw[2], hasVector,
                AxialRotationPropertiesManager::rotationAngle()->value(), theOffsetAngle->value(), copies, origin, axis,
                theAddZonesToExistingStrands->value()));
        };
        sdk::velUtilActionReporter(duplicate, "Failed to perform axial duplication.", "");
    } catch (std::exception const& refusal) {
        VelUtilDialogMessageBox(refusal.what(), MessageBoxType_Error);
    }
}

} // namespace veldraw::dialogs::data
