#include "dialogs/spreadsheet/SpreadsheetRules.h"

#include "dialogs/property/PropertyPredicateDependentRelevance.h"
#include "dialogs/property/RelevanceExpression.h"
#include "dialogs/property/StateChangeDependentRelevance.h"
#include "dialogs/spreadsheet/DataSpreadsheetPropertiesManager.h"
#include "dialogs/spreadsheet/SpreadsheetZone.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkuicommon/StateChangePredicates.h"

#include <boost/make_shared.hpp>

namespace veldraw::sdk::ui::propertymanager::spreadsheet {

using toolbox::StateChangeEventInterface;

namespace {

using Choices = DataSpreadsheetPropertiesManager;
using Question = boost::function<bool()>;

bool mayAlterZones(StateChangeEventInterface const& event)
{
    return common::isNewActiveFrameStateChange(event) || common::isZoneStateChange(event);
}

bool mayAlterZonesOrVariables(StateChangeEventInterface const& event)
{
    return mayAlterZones(event) || common::isVariableStateChange(event);
}

Rule onChangeOf(boost::shared_ptr<PropertyItemInterface const> const& property, Question const& question)
{
    return boost::make_shared<PropertyPredicateDependentRelevance>(property, question);
}

Rule onEvents(bool (*filter)(StateChangeEventInterface const&), Question const& question)
{
    return boost::make_shared<StateChangeDependentRelevance>(
        boost::function<bool(StateChangeEventInterface const&)>(filter), question);
}

Rule onZoneAndEvents(bool (*filter)(StateChangeEventInterface const&), Question const& question)
{
    auto const rule = boost::make_shared<RelevanceExpression>(onChangeOf(Choices::spreadsheetZone(), question));
    rule->aand(onEvents(filter, question));
    return rule;
}

bool canAlterShared()
{
    return Choices::dataSetExists()->isRelevant() && sharesValues(Choices::spreadsheetZone()->value());
}

bool hasPlaneToChoose()
{
    int const zone = Choices::spreadsheetZone()->value();
    return Choices::dataSetExists()->isRelevant() && getEnabledZones().isMember(zone) && isOrderedVolumeZone(zone);
}

bool showsOneVariable()
{
    return Choices::dataSetExists()->isRelevant() && !isLineOrFiniteElement(Choices::spreadsheetZone()->value());
}

bool hasLocationToChoose()
{
    int const zone = Choices::spreadsheetZone()->value();
    return Choices::dataSetExists()->isRelevant() && isLineOrFiniteElement(zone) &&
           hasMixedValueLocations(zone, getEnabledVars());
}

bool showsAllVariables()
{
    return isLineOrFiniteElement(Choices::spreadsheetZone()->value());
}

bool usesPrecision()
{
    return Choices::spreadsheetFormat()->value() == NumberFormat_Float ||
           Choices::spreadsheetFormat()->value() == NumberFormat_Exponent;
}

} // namespace

// Every part of a rule asks the same question; together they ask it again whenever the answer may be another one.

Rule alterRule()
{
    auto const rule = boost::make_shared<RelevanceExpression>(onChangeOf(Choices::spreadsheetZone(), canAlterShared));
    rule->aand(onChangeOf(Choices::spreadsheetVariable(), canAlterShared));
    rule->aand(onEvents(mayAlterZonesOrVariables, canAlterShared));
    return rule;
}

Rule planeIndexRule()
{
    return onZoneAndEvents(mayAlterZones, hasPlaneToChoose);
}

Rule variableRule()
{
    return onZoneAndEvents(mayAlterZonesOrVariables, showsOneVariable);
}

Rule precisionRule()
{
    return boost::make_shared<RelevanceExpression>(onChangeOf(Choices::spreadsheetFormat(), usesPrecision));
}

Rule valueLocationRule()
{
    return onZoneAndEvents(mayAlterZonesOrVariables, hasLocationToChoose);
}

Rule lineOrFiniteElementRule()
{
    return onZoneAndEvents(mayAlterZonesOrVariables, showsAllVariables);
}

} // namespace veldraw::sdk::ui::propertymanager::spreadsheet
