#include "dialogs/interpolation/LinearInterpPropertiesManager.h"

#include "dialogs/property/PropertyDependentRelevance.h"
#include "platform/vdsdkbase/VelUtilDataOperation.h"
#include "platform/vdsdkbase/VelUtilDialog.h"
#include "platform/vdsdkcommon/ActionReporter.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkcommon/WaitState.h"
#include "platform/vdtoolbox/Set.h"

#include <boost/make_shared.hpp>

namespace veldraw::dialogs::data {

using sdk::AppLock;
using sdk::ui::propertymanager::PropertyDependentRelevance;
using sdk::ui::propertymanager::RelevanceInterface;
using toolbox::Set;

namespace {

// Made when the library is loaded; every dialog that comes shows what was set last.
boost::shared_ptr<Property<double>> const theOutsidePointValue = boost::make_shared<Property<double>>(0.0);
boost::shared_ptr<Property<LinearInterpMode_e>> const theLinearInterpMode =
    boost::make_shared<Property<LinearInterpMode_e>>(LinearInterpMode_DontChange);

// Null for a selection that can be interpolated. Among several sources the destination may be one.
char const* reasonAgainstSelection(Set const& sources, int destination, Set const& variables)
{
    if (sources.isEmpty())
        return "No source zones were specified.";
    if (variables.isEmpty())
        return "No variables were specified.";
    if (sources.size() == 1 && sources.isMember(destination))
        return "Source zone is the same as destination zone.";
    return nullptr;
}

void interpolateLinearly(Set const& sources, int destination, Set const& variables)
{
    sdk::WaitState const busy;
    auto const callKernel = [&] {
        return static_cast<char>(VelUtilLinearInterpolate(sources.getRef(), destination, variables.getRef(),
                                                          theOutsidePointValue->value(), theLinearInterpMode->value()));
    };
    if (sdk::velUtilActionReporter(callKernel, "Linear interpolation error", ""))
        VelUtilDialogMessageBox("Linear interpolation successful.", MessageBoxType_Information);
}

} // namespace

struct LinearInterpPropertiesManager::Impl
{
    boost::shared_ptr<Property<std::set<int>>> sourceZones = boost::make_shared<Property<std::set<int>>>();
    boost::shared_ptr<Property<std::set<int>>> variables = boost::make_shared<Property<std::set<int>>>();
    boost::shared_ptr<Property<int>> destinationZone = boost::make_shared<Property<int>>(1);
    boost::shared_ptr<Property<std::string>> constantValueLabelText = boost::make_shared<Property<std::string>>();
    boost::shared_ptr<ZonesListModel> sourceZonesModel =
        boost::make_shared<ZonesListModel>(sdk::getNonLinearEnabledZonesForFrame, false);
    boost::shared_ptr<VariablesListModel> variablesModel = boost::make_shared<VariablesListModel>();
    boost::shared_ptr<ZonesListModel> destinationZoneModel =
        boost::make_shared<ZonesListModel>(sdk::getEnabledZonesForFrame, false);
    boost::shared_ptr<RelevanceInterface const> constantRelevance =
        boost::make_shared<PropertyDependentRelevance<LinearInterpMode_e>>(
            boost::shared_ptr<PropertyAbstract<LinearInterpMode_e> const>(theLinearInterpMode),
            LinearInterpMode_SetToConstant);
};

LinearInterpPropertiesManager::LinearInterpPropertiesManager()
    : m_impl(std::make_unique<Impl>())
{
}

LinearInterpPropertiesManager::~LinearInterpPropertiesManager() = default;

boost::shared_ptr<Property<double>> LinearInterpPropertiesManager::outsidePointValue()
{
    return theOutsidePointValue;
}

boost::shared_ptr<Property<LinearInterpMode_e>> LinearInterpPropertiesManager::linearInterpMode()
{
    return theLinearInterpMode;
}

boost::shared_ptr<Property<std::set<int>>> LinearInterpPropertiesManager::sourceZones() const
{
    return m_impl->sourceZones;
}

boost::shared_ptr<Property<std::set<int>>> LinearInterpPropertiesManager::variables() const
{
    return m_impl->variables;
}

boost::shared_ptr<Property<int>> LinearInterpPropertiesManager::destinationZone() const
{
    return m_impl->destinationZone;
}

boost::shared_ptr<Property<std::string>> LinearInterpPropertiesManager::constantValueLabelText() const
{
    return m_impl->constantValueLabelText;
}

boost::shared_ptr<LinearInterpPropertiesManager::ZonesListModel> LinearInterpPropertiesManager::sourceZonesModel() const
{
    return m_impl->sourceZonesModel;
}

boost::shared_ptr<LinearInterpPropertiesManager::VariablesListModel>
LinearInterpPropertiesManager::variablesModel() const
{
    return m_impl->variablesModel;
}

boost::shared_ptr<LinearInterpPropertiesManager::ZonesListModel>
LinearInterpPropertiesManager::destinationZoneModel() const
{
    return m_impl->destinationZoneModel;
}

boost::shared_ptr<RelevanceInterface const> LinearInterpPropertiesManager::constantRelevance() const
{
    return m_impl->constantRelevance;
}

void LinearInterpPropertiesManager::interpolate()
{
    AppLock const lock(AppLock::RecordAsUsual);
    Set const sources(m_impl->sourceZones->value());
    Set const variables(m_impl->variables->value());
    int const destination = m_impl->destinationZone->value();
    if (char const* const reason = reasonAgainstSelection(sources, destination, variables))
        VelUtilDialogMessageBox(reason, MessageBoxType_Error);
    else
        interpolateLinearly(sources, destination, variables);
    // Equal to itself, it tells nobody.
    m_impl->sourceZones->setValue(m_impl->sourceZones->value());
}

} // namespace veldraw::dialogs::data
