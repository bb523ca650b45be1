#include "dialogs/property/BooleanPropertyDependentRelevance.h"
#include "dialogs/property/InvertingRelevance.h"
#include "dialogs/property/Property.h"
#include "dialogs/property/PropertyDependentRelevance.h"
#include "dialogs/property/PropertyPredicateDependentRelevance.h"
#include "dialogs/property/RelevanceExpression.h"
#include "dialogs/property/SimpleBooleanRelevance.h"
#include "dialogs/property/UIProperty.h"
#include "dialogs/property/UIStylePropertyAbstract.h"
#include "tests/dialogs/property/IgnoredSignals.h"
#include "tests/dialogs/support/SwitchedRelevance.h"

#include <boost/function.hpp>
#include <boost/make_shared.hpp>
#include <boost/smart_ptr/bad_weak_ptr.hpp>

#include <gtest/gtest.h>
#include <string>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::propertymanager;

using Rule = boost::shared_ptr<RelevanceInterface const>;

Rule constant(bool answer)
{
    return boost::make_shared<SimpleBooleanRelevance>(answer);
}

// A value with a control that a test enables and hides.
class ControlledBool : public UIStylePropertyAbstract<bool>
{
public:
    void setVisible(bool visible) override
    {
        m_visible = visible;
        signalVisibilityChanged();
    }
    void setVisibilityRelevance(boost::shared_ptr<RelevanceInterface const> const&) override {}
    bool isVisible() const override { return m_visible; }
    void setSensitive(bool sensitive) override
    {
        m_sensitive = sensitive;
        signalSensitivityChanged();
    }
    void setSensitivityRelevance(boost::shared_ptr<RelevanceInterface const> const&) override {}
    bool isSensitive() const override { return m_sensitive; }

protected:
    void storeValue(bool const& newValue) override { m_value = newValue; }

private:
    bool retrieveValue() const override { return m_value; }

    bool m_value = false;
    bool m_visible = true;
    bool m_sensitive = true;
};

// The same, noting the order in which it is asked and listened to.
class NotingControl : public ControlledBool
{
public:
    bool isVisible() const override
    {
        notes += "visible? ";
        return ControlledBool::isVisible();
    }
    bool isSensitive() const override
    {
        notes += "sensitive? ";
        return ControlledBool::isSensitive();
    }

    mutable std::string notes;

private:
    void signalVisibilityChangedConnected() const override { notes += "visibility "; }
    void signalSensitivityChangedConnected() const override { notes += "sensitivity "; }
};

TEST(SimpleBooleanRelevance, AnswersItsConstant)
{
    EXPECT_TRUE(SimpleBooleanRelevance(true).isRelevant());
    EXPECT_FALSE(SimpleBooleanRelevance(false).isRelevant());
}

TEST(Relevance, RunsItsHookAfterEachConnection)
{
    SwitchedRelevance const rule(true);
    rule.connectRelevanceChanged(&ignoreSignal);
    rule.connectRelevanceChanged(&ignoreSignal);
    EXPECT_EQ(rule.hookRuns, 2);
}

TEST(InvertingRelevance, AnswersTheOppositeAndPassesTheSignalOn)
{
    EXPECT_FALSE(InvertingRelevance(constant(true)).isRelevant());
    auto const inner = boost::make_shared<SwitchedRelevance>(false);
    InvertingRelevance const rule(inner);
    int signals = 0;
    rule.connectRelevanceChanged([&] { ++signals; });
    EXPECT_TRUE(rule.isRelevant());
    inner->set(true);
    EXPECT_EQ(signals, 1);
    EXPECT_FALSE(rule.isRelevant());
}

TEST(InvertingRelevance, LeavesNothingBehindOnTheInnerRule)
{
    auto const inner = boost::make_shared<SwitchedRelevance>(false);
    {
        InvertingRelevance const rule(inner);
        EXPECT_EQ(inner->listenerCount(), 1u);
    }
    EXPECT_EQ(inner->listenerCount(), 0u);
    inner->set(true);
}

TEST(RelevanceExpression, OfOneOperandAnswersAsThatOperand)
{
    EXPECT_TRUE(RelevanceExpression(constant(true)).isRelevant());
    EXPECT_FALSE(RelevanceExpression(constant(false)).isRelevant());
}

TEST(RelevanceExpression, JoinsByAndAndByOr)
{
    for (bool const a : {false, true}) {
        for (bool const b : {false, true}) {
            EXPECT_EQ(RelevanceExpression(constant(a)).aand(constant(b)).isRelevant(), a && b) << a << b;
            EXPECT_EQ(RelevanceExpression(constant(a)).oor(constant(b)).isRelevant(), a || b) << a << b;
        }
    }
}

TEST(RelevanceExpression, ReadsAMixedChainFromLeftToRight)
{
    for (int bits = 0; bits < 8; ++bits) {
        bool const a = bits & 1;
        bool const b = bits & 2;
        bool const c = bits & 4;
        EXPECT_EQ(RelevanceExpression(constant(a)).oor(constant(b)).aand(constant(c)).isRelevant(), (a || b) && c);
        EXPECT_EQ(RelevanceExpression(constant(a)).aand(constant(b)).oor(constant(c)).isRelevant(), (a && b) || c);
    }
}

TEST(RelevanceExpression, WritesAGroupAsANestedExpression)
{
    for (int bits = 0; bits < 8; ++bits) {
        bool const a = bits & 1;
        bool const b = bits & 2;
        bool const c = bits & 4;
        auto const group = boost::make_shared<RelevanceExpression>(constant(b));
        group->oor(constant(c));
        RelevanceExpression expression(constant(a));
        expression.aand(*group);
        EXPECT_EQ(expression.isRelevant(), a && (b || c));
    }
}

TEST(RelevanceExpression, AsksOnlyWhatCanChangeTheAnswer)
{
    auto const notNeeded = boost::make_shared<SwitchedRelevance>(true);
    RelevanceExpression(constant(false)).aand(notNeeded).isRelevant();
    RelevanceExpression(constant(true)).oor(notNeeded).isRelevant();
    EXPECT_EQ(notNeeded->timesAsked, 0);
}

TEST(RelevanceExpression, SignalsWhenAnyOperandDoes)
{
    auto const first = boost::make_shared<SwitchedRelevance>(true);
    auto const second = boost::make_shared<SwitchedRelevance>(true);
    RelevanceExpression expression(first);
    expression->aand(second);
    int signals = 0;
    expression.connectRelevanceChanged([&] { ++signals; });
    first->set(false);
    EXPECT_EQ(signals, 1);
    EXPECT_FALSE(expression.isRelevant());
    second->set(false);
    EXPECT_EQ(signals, 2);
}

TEST(RelevanceExpression, LeavesNothingBehindOnItsOperands)
{
    auto const operand = boost::make_shared<SwitchedRelevance>(true);
    {
        RelevanceExpression expression(operand);
        expression.oor(operand);
        EXPECT_EQ(operand->listenerCount(), 2u);
    }
    EXPECT_EQ(operand->listenerCount(), 0u);
    EXPECT_EQ(operand.use_count(), 1);
}

TEST(RelevanceExpression, ConvertsToASharedRuleOnlyWhenASharedPointerOwnsIt)
{
    auto const owned = boost::make_shared<RelevanceExpression>(constant(true));
    Rule const rule = *owned;
    EXPECT_EQ(rule.get(), owned.get());
    RelevanceExpression onStack(constant(true));
    EXPECT_THROW(static_cast<void>(static_cast<Rule>(onStack)), boost::bad_weak_ptr);
}

TEST(PropertyDependentRelevance, IsTrueForItsValuesAndAddsOnesSilently)
{
    auto const property = boost::make_shared<Property<bool>>(false);
    PropertyDependentRelevance<bool> rule(property, true);
    int signals = 0;
    rule.connectRelevanceChanged([&] { ++signals; });
    EXPECT_FALSE(rule.isRelevant());
    rule.addRelevantValue(false);
    EXPECT_TRUE(rule.isRelevant());
    EXPECT_EQ(signals, 0);
    property->setValue(true);
    EXPECT_EQ(signals, 1);
    EXPECT_TRUE(rule.isRelevant());
}

TEST(PropertyDependentRelevance, WorksOnEnumerations)
{
    Property<PtSelection_e> property(PtSelection_All);
    PropertyDependentRelevance<PtSelection_e> rule(property, PtSelection_NearestN);
    rule.addRelevantValue(PtSelection_Octant);
    EXPECT_FALSE(rule.isRelevant());
    property.setValue(PtSelection_Octant);
    EXPECT_TRUE(rule.isRelevant());
}

TEST(PropertyDependentRelevance, AsksWhetherTheControlIsSensitiveBeforeWhetherItIsVisible)
{
    NotingControl control;
    PropertyDependentRelevance<bool> const rule(control, true, true);
    EXPECT_EQ(control.notes, "sensitivity visibility ");
    control.notes.clear();
    EXPECT_FALSE(rule.isRelevant());
    EXPECT_EQ(control.notes, "") << "the value does not match";
    control.setValue(true);
    EXPECT_TRUE(rule.isRelevant());
    EXPECT_EQ(control.notes, "sensitive? visible? ");
    control.notes.clear();
    control.setSensitive(false);
    EXPECT_FALSE(rule.isRelevant());
    EXPECT_EQ(control.notes, "sensitive? ");
}

TEST(PropertyDependentRelevance, KeepsASharedPropertyAlive)
{
    auto property = boost::make_shared<Property<bool>>(true);
    PropertyDependentRelevance<bool> const rule(property, true);
    boost::weak_ptr<Property<bool>> const watched = property;
    property.reset();
    EXPECT_FALSE(watched.expired());
    EXPECT_TRUE(rule.isRelevant());
}

TEST(PropertyDependentRelevance, FollowsAReferencedPropertyUntilItEnds)
{
    Property<bool> property(true);
    int signals = 0;
    {
        PropertyDependentRelevance<bool> const rule(property, true);
        rule.connectRelevanceChanged([&] { ++signals; });
        property.setValue(false);
        EXPECT_EQ(signals, 1);
    }
    property.setValue(true);
    EXPECT_EQ(signals, 1);
}

TEST(PropertyDependentRelevance, OnRequestCountsADisabledOrHiddenControlAsNo)
{
    ControlledBool property;
    property.setValue(true);
    PropertyDependentRelevance<bool> const rule(property, true, true);
    int signals = 0;
    rule.connectRelevanceChanged([&] { ++signals; });
    EXPECT_TRUE(rule.isRelevant());
    property.setSensitive(false);
    EXPECT_EQ(signals, 1);
    EXPECT_FALSE(rule.isRelevant());
    property.setSensitive(true);
    property.setVisible(false);
    EXPECT_EQ(signals, 3);
    EXPECT_FALSE(rule.isRelevant());
    property.setVisible(true);
    EXPECT_TRUE(rule.isRelevant());
    EXPECT_EQ(signals, 4);
    property.setValue(false);
    EXPECT_EQ(signals, 5);
    EXPECT_FALSE(rule.isRelevant()) << "a value that does not match is no, whatever its control";
}

TEST(PropertyDependentRelevance, OtherwiseDoesNotLookAtTheControl)
{
    ControlledBool property;
    property.setValue(true);
    PropertyDependentRelevance<bool> const rule(property, true, false);
    int signals = 0;
    rule.connectRelevanceChanged([&] { ++signals; });
    property.setSensitive(false);
    property.setVisible(false);
    EXPECT_TRUE(rule.isRelevant());
    EXPECT_EQ(signals, 0);
}

TEST(BooleanPropertyDependentRelevance, IsTrueWhileThePropertyIs)
{
    auto const property = boost::make_shared<Property<bool>>(false);
    BooleanPropertyDependentRelevance const rule(property);
    EXPECT_FALSE(rule.isRelevant());
    property->setValue(true);
    EXPECT_TRUE(rule.isRelevant());
}

TEST(PropertyDependentRelevance, AnswersInsideThePropertysSignalAlready)
{
    auto const property = boost::make_shared<Property<bool>>(false);
    BooleanPropertyDependentRelevance const rule(property);
    bool heard = false;
    rule.connectRelevanceChanged([&] { heard = rule.isRelevant(); });
    property->setValue(true);
    EXPECT_TRUE(heard);
}

TEST(PropertyPredicateDependentRelevance, AsksItsPredicateAndFollowsAPropertyOfAnyType)
{
    auto const property = boost::make_shared<Property<std::set<int>>>();
    PropertyPredicateDependentRelevance const rule(property, [&] { return property->value().size() > 1; });
    int signals = 0;
    rule.connectRelevanceChanged([&] { ++signals; });
    EXPECT_FALSE(rule.isRelevant());
    property->setValue({1, 2});
    EXPECT_EQ(signals, 1);
    EXPECT_TRUE(rule.isRelevant());
}

TEST(PropertyPredicateDependentRelevance, ThrowsWhenItHasNoPredicate)
{
    PropertyPredicateDependentRelevance const rule(boost::make_shared<Property<int>>(), boost::function<bool()>());
    EXPECT_THROW(rule.isRelevant(), boost::bad_function_call);
}

} // namespace
} // namespace veldraw::tests
