#include "kernel/operations/EnableZone.h"
#include "tests/dialogs/interpolation/InverseDistanceFixture.h"
#include "tests/dialogs/support/DialogLifecycleTest.h"
#include "tests/support/FakeStateChange.h"

#include <QPointer>

#include <gmock/gmock.h>

namespace veldraw::tests {

INSTANTIATE_TEST_SUITE_P(InverseDistance, DialogLifecycleTest, testing::Values(inverseDistance()));
INSTANTIATE_TEST_SUITE_P(InverseDistance, DialogActionLifecycleTest, testing::Values(inverseDistance()));

namespace {

using InverseDistanceLifecycleTest = InverseDistanceFixture;

/// How often the rule of the command has signalled.
int signalsOf(FakeStateChange const& event)
{
    int signals = 0;
    boost::signals2::scoped_connection const listening =
        inverseDistance().relevance()->connectRelevanceChanged([&] { ++signals; });
    event.send();
    return signals;
}

TEST_F(InverseDistanceLifecycleTest, BindsItsFieldsInOrder)
{
    AdditionsToWidgets const additions;
    dialog();
    EXPECT_THAT(additions.names, testing::ElementsAre(traits.list, variables, destination, minimumDistance, exponent,
                                                      pointSelection, numberOfPoints));
}

TEST_F(InverseDistanceLifecycleTest, BindsItsButtonLast)
{
    EXPECT_THAT(boundBeforeTheButton(failed), testing::ElementsAre(traits.list, variables, destination, minimumDistance,
                                                                   exponent, pointSelection, numberOfPoints));
    actionButton().click();
    EXPECT_THAT(messages.take(), testing::ElementsAre(failed));
}

TEST_F(InverseDistanceLifecycleTest, AsksItsRuleAgainWhenThePlotTypeOrTheDataChange)
{
    for (int const kind : {StateChange_ValuesAltered, StateChange_VariablesAdded, StateChange_ZonesEnabled,
                           StateChange_FrameDataSet, StateChange_StateRestored, StateChange_NewActiveFrame})
        EXPECT_EQ(signalsOf(FakeStateChange(kind)), 1) << "kind " << kind;
    EXPECT_EQ(signalsOf(FakeStateChange(StateChange_Style, {"PlotType"})), 1);
    EXPECT_EQ(signalsOf(FakeStateChange(StateChange_Style, {"ActiveFieldMaps"})), 0);
    EXPECT_EQ(signalsOf(FakeStateChange(StateChange_Style, {"Interface", "PlotType"})), 0);
    EXPECT_EQ(signalsOf(FakeStateChange(StateChange_Style)), 0);
    EXPECT_EQ(signalsOf(FakeStateChange(StateChange_MouseMode, {"PlotType"})), 0);
}

TEST_F(InverseDistanceLifecycleTest, IsAvailableInFieldPlotsOfSeveralZonesWithSomethingToInterpolate)
{
    auto const rule = traits.relevance();
    EXPECT_TRUE(rule->isRelevant());
    showAs(PlotType_Cartesian3D);
    EXPECT_TRUE(rule->isRelevant());
    for (PlotType_e const other : {PlotType_XYLine, PlotType_PolarLine, PlotType_Sketch}) {
        showAs(other);
        EXPECT_FALSE(rule->isRelevant()) << other;
    }
    showAs(PlotType_Cartesian2D);
    for (int const variable : {3, 4})
        sample.session().perform(kernel::EnableVariable(sample.dataSet(), variable, false));
    EXPECT_FALSE(rule->isRelevant()) << "coordinates are not interpolated";
    sample.session().perform(kernel::EnableVariable(sample.dataSet(), 4, true));
    EXPECT_TRUE(rule->isRelevant());
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 1, false));
    EXPECT_TRUE(rule->isRelevant());
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 2, false));
    EXPECT_FALSE(rule->isRelevant()) << "one zone is no use";
}

TEST_F(InverseDistanceLifecycleTest, MayBeDestroyedWhenAChoiceIsMade)
{
    launched();
    QPointer<QDialog> const doomed = &dialog();
    int const subscription =
        sample.session().events().subscribe([&doomed](kernel::StateChangeEvent const&) { doomed->deleteLater(); });
    choose(pointSelection, 2);
    sample.session().events().unsubscribe(subscription);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(doomed.isNull());
    EXPECT_EQ(StyleSession::number(selectionPath), PtSelection_All);
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
}

} // namespace
} // namespace veldraw::tests
