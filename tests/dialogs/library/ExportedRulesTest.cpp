#include "dialogs/bindings/RelevanceApplier.h"
#include "dialogs/bindings/SimpleToolTipProvider.h"
#include "dialogs/property/BooleanPropertyDependentRelevance.h"
#include "dialogs/property/DataSetExistsRelevance.h"
#include "dialogs/property/FieldPlotTypeDependentRelevance.h"
#include "dialogs/property/InvertingRelevance.h"
#include "dialogs/property/LinePlotTypeDependentRelevance.h"
#include "dialogs/property/PlotTypeDependentRelevance.h"
#include "dialogs/property/PropertyPredicateDependentRelevance.h"
#include "dialogs/property/RelevanceExpression.h"
#include "dialogs/property/SimpleBooleanRelevance.h"
#include "tests/dialogs/library/ApplicationProperty.h"
#include "tests/support/FakeStateChange.h"

#include <QPushButton>

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::propertymanager;
using sdk::ui::dialogs::propertybindings::RelevanceApplier;
using sdk::ui::dialogs::propertybindings::SimpleToolTipProvider;
using Rule = boost::shared_ptr<RelevanceInterface const>;

boost::shared_ptr<ApplicationProperty<bool>> makeSwitch()
{
    return boost::make_shared<ApplicationProperty<bool>>(false);
}

int changesHeard(RelevanceInterface const& rule, std::function<void()> const& change)
{
    int heard = 0;
    boost::signals2::scoped_connection const connection = rule.connectRelevanceChanged([&heard] { ++heard; });
    change();
    return heard;
}

TEST(ExportedRules, FollowPropertiesOfTheApplication)
{
    auto const isOn = makeSwitch();
    BooleanPropertyDependentRelevance const on(isOn);
    PropertyDependentRelevance<bool> off(isOn, false);
    PropertyPredicateDependentRelevance const predicate(isOn, [&] { return isOn->value(); });
    EXPECT_EQ(changesHeard(on, [&] { isOn->setValue(true); }), 1);
    EXPECT_TRUE(on.isRelevant());
    EXPECT_FALSE(off.isRelevant());
    EXPECT_TRUE(predicate.isRelevant());
    off.addRelevantValue(true);
    EXPECT_TRUE(off.isRelevant());

    ApplicationUIProperty<bool> control(true);
    PropertyDependentRelevance<bool> const usable(control, true, true);
    EXPECT_TRUE(usable.isRelevant());
    control.setSensitive(false);
    EXPECT_FALSE(usable.isRelevant());
}

TEST(ExportedRules, CanBeDerivedFromByTheApplication)
{
    class Negative : public PropertyDependentRelevanceAbstract<bool>
    {
    public:
        using PropertyDependentRelevanceAbstract<bool>::PropertyDependentRelevanceAbstract;

    protected:
        bool isRelevantValue(bool const& value) const override { return !value; }
    };
    boost::shared_ptr<PropertyAbstract<bool> const> const isOn = makeSwitch();
    EXPECT_TRUE(Negative(isOn).isRelevant());
}

TEST(ExportedRules, Combine)
{
    Rule const yes = boost::make_shared<SimpleBooleanRelevance>(true);
    Rule const no = boost::make_shared<InvertingRelevance>(yes);
    auto const expression = boost::make_shared<RelevanceExpression>(yes);
    expression->aand(no).oor(yes);
    Rule const asRule = *expression;
    EXPECT_TRUE(asRule->isRelevant());
    EXPECT_FALSE(boost::make_shared<RelevanceExpression>(no)->isRelevant());
}

TEST(ExportedRules, AskTheKernel)
{
    EXPECT_FALSE(DataSetExistsRelevance().isRelevant());
    EXPECT_FALSE(FieldPlotTypeDependentRelevance().isRelevant());
    EXPECT_FALSE(LinePlotTypeDependentRelevance().isRelevant());
    EXPECT_FALSE(PlotTypeDependentRelevance(PlotType_XYLine).isRelevant());
    bool answer = false;
    StateChangeDependentRelevance const own([&answer] { return answer; });
    EXPECT_EQ(changesHeard(own, [] { FakeStateChange(StateChange_ZonesAdded).send(); }), 1);
    answer = true;
    EXPECT_TRUE(own.isRelevant());
}

TEST(ExportedRules, SwitchWidgetsAndExplainThemselves)
{
    auto const isOn = makeSwitch();
    Rule const rule = boost::make_shared<BooleanPropertyDependentRelevance>(isOn);
    QPushButton button;
    RelevanceApplier const applier(rule, &button, RelevanceApplier::EnableDisable, RelevanceApplier::UpdateImmediately);
    SimpleToolTipProvider::installDisabledToolTip(rule, {&button}, QStringLiteral("Switch it on first."));
    SimpleToolTipProvider::installDynamicDisabledToolTip(rule, {&button}, [] { return QString(); });
    isOn->setValue(true);
    EXPECT_TRUE(button.isEnabled());
    isOn->setValue(false);
    EXPECT_FALSE(button.isEnabled());
}

} // namespace
} // namespace veldraw::tests
