#include "dialogs/smoothing/SmoothPropertiesManager.h"

#include "dialogs/models/EnumerationLabels.h"
#include "dialogs/property/BoundedProperty.h"
#include "dialogs/property/PropertyPredicateDependentRelevance.h"
#include "dialogs/property/RelevanceExpression.h"
#include "dialogs/property/StateChangeDependentRelevance.h"
#include "dialogs/smoothing/SmoothVariables.h"
#include "dialogs/widgets/OverrideCursor.h"
#include "platform/styleproperties/CheckedStyleValue.h"
#include "platform/vdsdkbase/StateChange.h"
#include "platform/vdsdkbase/VelUtilDataOperation.h"
#include "platform/vdsdkbase/VelUtilDataSet.h"
#include "platform/vdsdkbase/VelUtilQuery.h"
#include "platform/vdsdkbase/VelUtilZone.h"
#include "platform/vdsdkcommon/ActionReporter.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkuicommon/StateChangeActionPerformer.h"
#include "platform/vdsdkuicommon/StateChangePredicates.h"

#include <boost/make_shared.hpp>

#include <limits>
#include <utility>

namespace veldraw::dialogs::data {

using sdk::AppLock;
using sdk::ui::common::StateChangeActionPerformer;
using sdk::ui::common::StateChangeEventInterface;
using sdk::ui::dialogs::propertybindings::models::ListModelInterface;
using sdk::ui::propertymanager::PropertyPredicateDependentRelevance;
using sdk::ui::propertymanager::RelevanceExpression;
using sdk::ui::propertymanager::StateChangeDependentRelevance;

namespace {

// Not ordered is also the answer to a question that has failed.
bool isUnordered(int zone)
{
    return !VelUtilZoneIsOrdered(zone) && !sdk::isOrderedZone(zone);
}

/// The zone to smooth. A zone that is not ordered forces the fixed boundary when it is chosen.
class SelectedZoneProperty : public PropertyAbstract<int>
{
public:
    SelectedZoneProperty(int zone, boost::shared_ptr<PropertyAbstract<BoundaryCondition_e>> boundaryCondition)
        : m_zone(zone)
        , m_boundaryCondition(std::move(boundaryCondition))
    {
    }
    ~SelectedZoneProperty() override = default;

protected:
    void storeValue(int const& zone) override
    {
        m_zone = zone;
        if (isUnordered(zone)) {
            m_savedBoundaryCondition = m_boundaryCondition->value();
            m_boundaryCondition->setValue(BoundaryCondition_Fixed);
        } else if (m_savedBoundaryCondition != nothingSaved) {
            m_boundaryCondition->setValue(static_cast<BoundaryCondition_e>(m_savedBoundaryCondition));
            m_savedBoundaryCondition = nothingSaved;
        }
    }

private:
    static constexpr int nothingSaved = 255;

    int retrieveValue() const override { return m_zone; }

    int m_zone;
    boost::shared_ptr<PropertyAbstract<BoundaryCondition_e>> const m_boundaryCondition;
    int m_savedBoundaryCondition = nothingSaved;
};

// Made when the library is loaded, in this order: the zone holds the boundary condition. Every dialog that comes shows what was
// set last.
boost::shared_ptr<Property<int>> const theSelectedVariable = boost::make_shared<Property<int>>(1);
boost::shared_ptr<Property<int>> const theNumberOfPasses = boundedProperty(1, 1, std::numeric_limits<int>::max());
// No coefficient of 0, which would smooth nothing: the smallest one is the smallest normal number of single precision.
boost::shared_ptr<Property<double>> const theSmoothWeight =
    boundedProperty(0.5, double{std::numeric_limits<float>::min()}, 0.95);
boost::shared_ptr<Property<BoundaryCondition_e>> const theBoundaryCondition =
    boost::make_shared<Property<BoundaryCondition_e>>(BoundaryCondition_Fixed);
boost::shared_ptr<SelectedZoneProperty> const theSelectedZone =
    boost::make_shared<SelectedZoneProperty>(1, theBoundaryCondition);

bool areStyleValuesUnread = true;

/// What the current frame offers to smooth. It also follows what the frame draws.
class SmoothDialogVariableListModel : public sdk::ui::dialogs::propertybindings::models::EnabledVariablesListModel
{
public:
    SmoothDialogVariableListModel()
        : EnabledVariablesListModel(smoothVariablesForFrame, false)
        // The reset tells what has changed.
        , m_drawingListener([this] { resetListModelState(); }, &isSmoothVariableStateChange)
    {
    }

private:
    StateChangeActionPerformer const m_drawingListener;
};

bool isSmoothStateChange(StateChangeEventInterface const& event)
{
    using namespace sdk::ui::common;
    return isNewActiveFrameStateChange(event) || isZoneStateChange(event) || isFieldStyleStateChange(event) ||
           isDataRelatedStateChange(event) || event.kind() == StateChange_StateRestored;
}

bool isSelectedZoneEnabled()
{
    return VelUtilDataSetIsAvailable() && VelUtilZoneIsEnabled(theSelectedZone->value());
}

bool isSelectedZoneOrdered()
{
    return isSelectedZoneEnabled() && VelUtilZoneIsOrdered(theSelectedZone->value());
}

// The zone may have become another one under the same number, without being chosen: nothing is saved.
void forceFixedBoundaryForUnorderedZone()
{
    if (isSelectedZoneEnabled() && isUnordered(theSelectedZone->value()))
        theBoundaryCondition->setValue(BoundaryCondition_Fixed);
}

void ensureSelectionInModel(ListModelInterface<int> const& model, PropertyAbstract<int>& property)
{
    if (model.size() > 0 && model.indexOf(property.value()) < 0)
        property.setValue(model.get(0));
}

// Once in a process, also if a value is refused. What cannot be read stays as it is.
void readStyleValuesOnce()
{
    if (!std::exchange(areStyleValuesUnread, false))
        return;
    long long boundary = theBoundaryCondition->value();
    long long passes = theNumberOfPasses->value();
    double weight = theSmoothWeight->value();
    toolbox::CheckedStyleValue const data("Interface", "Data", nullptr, nullptr, nullptr, nullptr, nullptr);
    data.read("SmoothBndryCond", boundary);
    data.read("NumSmoothPasses", passes);
    data.read("SmoothWeight", weight);
    if (boundary >= BoundaryCondition_Fixed && boundary <= BoundaryCondition_SecondOrder)
        theBoundaryCondition->setValue(static_cast<BoundaryCondition_e>(boundary));
    theNumberOfPasses->setValue(static_cast<int>(passes));
    theSmoothWeight->setValue(weight);
}

SmoothPropertiesManager::Rule ruleOfBoundary()
{
    auto const rule = boost::make_shared<RelevanceExpression>(
        boost::make_shared<PropertyPredicateDependentRelevance>(theSelectedZone, &isSelectedZoneOrdered));
    rule->aand(boost::make_shared<StateChangeDependentRelevance>(&isSmoothStateChange, &isSelectedZoneOrdered));
    return *rule;
}

bool smoothSelected()
{
    veldraw::ui::OverrideCursor const busy(Qt::WaitCursor);
    return VelUtilSmooth(theSelectedZone->value(), theSelectedVariable->value(), theNumberOfPasses->value(),
                         theSmoothWeight->value(), theBoundaryCondition->value());
}

} // namespace

struct SmoothPropertiesManager::Impl
{
    Impl();

    boost::shared_ptr<ZonesListModel> zoneModel =
        boost::make_shared<ZonesListModel>(sdk::getEnabledZonesForFrame, false);
    boost::shared_ptr<SmoothDialogVariableListModel> variableModel =
        boost::make_shared<SmoothDialogVariableListModel>();
    boost::shared_ptr<BoundaryListModel> boundaryModel =
        boost::make_shared<BoundaryListModel>(sdk::ui::dialogs::propertybindings::models::boundaryConditionLabels);
    StateChangeActionPerformer stateChangePerformer{&forceFixedBoundaryForUnorderedZone, &isSmoothStateChange};
    Rule boundaryRelevance;
};

SmoothPropertiesManager::Impl::Impl()
{
    readStyleValuesOnce();
    ensureSelectionInModel(*zoneModel, *theSelectedZone);
    ensureSelectionInModel(*variableModel, *theSelectedVariable);
    forceFixedBoundaryForUnorderedZone();
    boundaryRelevance = ruleOfBoundary();
}

SmoothPropertiesManager::SmoothPropertiesManager()
    : m_impl(std::make_unique<Impl>())
{
}

SmoothPropertiesManager::~SmoothPropertiesManager() = default;

SmoothPropertiesManager::Rule SmoothPropertiesManager::relevance()
{
    static Rule const rule = boost::make_shared<StateChangeDependentRelevance>(&VelUtilQueryOkToSmooth);
    return rule;
}

boost::shared_ptr<PropertyAbstract<int>> SmoothPropertiesManager::selectedVariable()
{
    return theSelectedVariable;
}

boost::shared_ptr<PropertyAbstract<int>> SmoothPropertiesManager::numberOfPasses()
{
    return theNumberOfPasses;
}

boost::shared_ptr<PropertyAbstract<double>> SmoothPropertiesManager::smoothWeight()
{
    return theSmoothWeight;
}

boost::shared_ptr<PropertyAbstract<BoundaryCondition_e>> SmoothPropertiesManager::boundaryCondition()
{
    return theBoundaryCondition;
}

boost::shared_ptr<PropertyAbstract<int>> SmoothPropertiesManager::selectedZone()
{
    return theSelectedZone;
}

boost::shared_ptr<SmoothPropertiesManager::ZonesListModel> SmoothPropertiesManager::zoneModel() const
{
    return m_impl->zoneModel;
}

boost::shared_ptr<SmoothPropertiesManager::VariablesListModel> SmoothPropertiesManager::variableModel() const
{
    return m_impl->variableModel;
}

boost::shared_ptr<SmoothPropertiesManager::BoundaryListModel> SmoothPropertiesManager::boundaryModel() const
{
    return m_impl->boundaryModel;
}

SmoothPropertiesManager::Rule SmoothPropertiesManager::boundaryRelevance() const
{
    return m_impl->boundaryRelevance;
}

void SmoothPropertiesManager::smooth()
{
    AppLock const lock(AppLock::RecordAsUsual);
    sdk::velUtilActionReporter([] { return static_cast<char>(smoothSelected()); }, "Error while computing smooth.",
                               "Smoothing was successful.");
}

} // namespace veldraw::dialogs::data
