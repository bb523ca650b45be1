#include "kernel/operations/LineMapOperation.h"
#include "tests/dialogs/smoothing/SmoothFixture.h"
#include "tests/dialogs/support/DialogLifecycleTest.h"
#include "tests/dialogs/support/EventsWhileMade.h"
#include "tests/support/FakeStateChange.h"

#include <QPointer>

#include <gmock/gmock.h>

namespace veldraw::tests {

INSTANTIATE_TEST_SUITE_P(Smooth, DialogLifecycleTest, testing::Values(smooth()));
INSTANTIATE_TEST_SUITE_P(Smooth, DialogActionLifecycleTest, testing::Values(smooth()));

namespace {

using testing::ElementsAre;

using SmoothLifecycleTest = SmoothFixture;

TEST_F(SmoothLifecycleTest, BindsItsFieldsFromTheBottomUp)
{
    AdditionsToWidgets const additions;
    dialog();
    EXPECT_THAT(additions.names, ElementsAre(boundary, coefficient, passes, zone, variable));
}

TEST_F(SmoothLifecycleTest, MakesItsBindingsBeforeItsRules)
{
    SmoothPropertiesManager::selectedZone()->setValue(2);
    bool wasBound = false;
    EventsWhileMade const disabled(QString::fromLatin1(boundary), QEvent::EnabledChange, [&wasBound](QWidget& window) {
        wasBound = window.findChild<QComboBox*>(QString::fromLatin1(variable))->count() == 2;
    });
    EXPECT_FALSE(isEnabled(boundary));
    EXPECT_TRUE(wasBound);
}

TEST_F(SmoothLifecycleTest, HandsOutTheRuleOfItsManager)
{
    EXPECT_EQ(traits.relevance(), SmoothPropertiesManager::relevance());
}

TEST_F(SmoothLifecycleTest, AsksItsRuleAgainWhenTheEngineOrThePlotTypeChange)
{
    int signals = 0;
    boost::signals2::scoped_connection const listening =
        traits.relevance()->connectRelevanceChanged([&signals] { ++signals; });
    for (FakeStateChange const& event :
         {FakeStateChange(StateChange_ZonesEnabled), FakeStateChange(StateChange_VariablesEnabled),
          FakeStateChange(StateChange_StateRestored), FakeStateChange(StateChange_Style, {"PlotType"})}) {
        signals = 0;
        event.send();
        EXPECT_EQ(signals, 1) << "kind " << event.kind();
    }
    signals = 0;
    FakeStateChange(StateChange_ValuesAltered).send();
    EXPECT_EQ(signals, 0);
}

TEST_F(SmoothLifecycleTest, IsAvailableInFieldPlotsAndLinePlots)
{
    for (PlotType_e const plotType :
         {PlotType_Cartesian3D, PlotType_Cartesian2D, PlotType_XYLine, PlotType_PolarLine}) {
        showAs(plotType);
        EXPECT_TRUE(traits.relevance()->isRelevant()) << plotType;
    }
    showAs(PlotType_Sketch);
    EXPECT_FALSE(traits.relevance()->isRelevant());
}

TEST_F(SmoothLifecycleTest, FollowsTheLineMapsOfALinePlot)
{
    sample.session().perform(kernel::SetLinePlot(sample.frame()->id, line, 1, 3));
    showAs(PlotType_XYLine);
    launched();
    EXPECT_THAT(choicesOf(variable), ElementsAre("3: P"));
    sample.session().perform(kernel::SetLinePlot(sample.frame()->id, line, 1, 4));
    EXPECT_THAT(choicesOf(variable), ElementsAre("4: T"));
    EXPECT_EQ(SmoothPropertiesManager::selectedVariable()->value(), 4);
    sample.session().undo();
    EXPECT_THAT(choicesOf(variable), ElementsAre("3: P"));
}

TEST_F(SmoothLifecycleTest, LetsGoOfItsSettingsWhichLiveOn)
{
    launched();
    choose(boundary, 2);
    delete &dialog();
    SmoothPropertiesManager::selectedZone()->setValue(2);
    SmoothPropertiesManager::numberOfPasses()->setValue(5);
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
}

TEST_F(SmoothLifecycleTest, MayBeDestroyedWhenAZoneIsChosen)
{
    launched();
    QPointer<QDialog> const doomed = &dialog();
    boost::signals2::scoped_connection const listening =
        SmoothPropertiesManager::selectedZone()->connectValueChanged([&doomed](int) { doomed->deleteLater(); });
    choose(zone, 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(doomed.isNull());
    EXPECT_EQ(SmoothPropertiesManager::selectedZone()->value(), 2);
}

} // namespace
} // namespace veldraw::tests
