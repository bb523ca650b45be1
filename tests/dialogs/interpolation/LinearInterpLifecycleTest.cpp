#include "kernel/operations/EnableZone.h"
#include "tests/dialogs/interpolation/LinearInterpFixture.h"
#include "tests/dialogs/support/DialogLifecycleTest.h"
#include "tests/dialogs/support/FakeStateChange.h"

#include <QPointer>

#include <gmock/gmock.h>

namespace veldraw::tests {

INSTANTIATE_TEST_SUITE_P(LinearInterp, DialogLifecycleTest, testing::Values(linearInterp()));
INSTANTIATE_TEST_SUITE_P(LinearInterp, DialogActionLifecycleTest, testing::Values(linearInterp()));

namespace {

class LinearInterpLifecycleTest : public LinearInterpFixture
{
protected:
    bool isAvailable() const { return traits.relevance()->isRelevant(); }

    void enableZone(int zone, bool isEnabled)
    {
        sample.session().perform(kernel::EnableZone(sample.dataSet(), zone, isEnabled));
    }
};

TEST_F(LinearInterpLifecycleTest, BindsItsFieldsInOrder)
{
    AdditionsToWidgets const additions;
    dialog();
    EXPECT_THAT(additions.names, testing::ElementsAre(traits.list, variables, destination, constantValue));
}

TEST_F(LinearInterpLifecycleTest, AsksItsRuleAgainWhenThePlotTypeTheActiveFieldMapsOrTheDataChange)
{
    int signals = 0;
    boost::signals2::scoped_connection const listening =
        traits.relevance()->connectRelevanceChanged([&signals] { ++signals; });
    auto const signalsOf = [&signals](FakeStateChange const& event) {
        signals = 0;
        event.send();
        return signals;
    };
    for (int const kind : {StateChange_ValuesAltered, StateChange_VariablesAdded, StateChange_ZonesEnabled,
                           StateChange_FrameDataSet, StateChange_StateRestored, StateChange_NewActiveFrame})
        EXPECT_EQ(signalsOf(FakeStateChange(kind)), 1) << "kind " << kind;
    EXPECT_EQ(signalsOf(FakeStateChange(StateChange_Style, {"PlotType"})), 1);
    EXPECT_EQ(signalsOf(FakeStateChange(StateChange_Style, {"ActiveFieldMaps"})), 1);
    EXPECT_EQ(signalsOf(FakeStateChange(StateChange_Style, {"TwoDAxis"})), 0);
    EXPECT_EQ(signalsOf(FakeStateChange(StateChange_Style)), 0);
    EXPECT_EQ(signalsOf(FakeStateChange(StateChange_MouseMode, {"PlotType"})), 0);
}

TEST_F(LinearInterpLifecycleTest, IsAvailableInFieldPlotsOnly)
{
    EXPECT_TRUE(isAvailable());
    showAs(PlotType_Cartesian3D);
    EXPECT_TRUE(isAvailable());
    for (PlotType_e const other : {PlotType_XYLine, PlotType_PolarLine, PlotType_Sketch}) {
        showAs(other);
        EXPECT_FALSE(isAvailable()) << other;
    }
}

TEST_F(LinearInterpLifecycleTest, NeedsAVariableThatIsNoCoordinate)
{
    for (int const variable : {3, 4})
        sample.session().perform(kernel::EnableVariable(sample.dataSet(), variable, false));
    EXPECT_FALSE(isAvailable());
    sample.session().perform(kernel::EnableVariable(sample.dataSet(), 3, true));
    EXPECT_TRUE(isAvailable());
}

TEST_F(LinearInterpLifecycleTest, NeedsTwoZonesOneOfThemWithCells)
{
    enableZone(2, false);
    EXPECT_TRUE(isAvailable());
    enableZone(3, false);
    EXPECT_FALSE(isAvailable()) << "one zone";
    addLine();
    EXPECT_TRUE(isAvailable()) << "one zone and a line";
    addLine();
    enableZone(1, false);
    EXPECT_FALSE(isAvailable()) << "two lines";
}

TEST_F(LinearInterpLifecycleTest, FollowsTheActiveFrame)
{
    launched();
    sample.session().createFrame("Empty", kernel::Rectangle{1.0, 1.0, 8.0, 6.0});
    EXPECT_FALSE(canAct());
    sample.session().activateFrame(sample.frame()->id);
    EXPECT_TRUE(canAct());
}

TEST_F(LinearInterpLifecycleTest, LetsGoOfItsSettingsWhichLiveOn)
{
    launched();
    clickMark(constant);
    delete &dialog();
    LinearInterpPropertiesManager::linearInterpMode()->setValue(LinearInterpMode_DontChange);
    LinearInterpPropertiesManager::outsidePointValue()->setValue(1.0);
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
}

TEST_F(LinearInterpLifecycleTest, MayBeDestroyedWhenAChoiceIsMade)
{
    launched();
    QPointer<QDialog> const doomed = &dialog();
    boost::signals2::scoped_connection const listening =
        LinearInterpPropertiesManager::linearInterpMode()->connectValueChanged(
            [&doomed](LinearInterpMode_e) { doomed->deleteLater(); });
    clickMark(constant);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(doomed.isNull());
    EXPECT_EQ(LinearInterpPropertiesManager::linearInterpMode()->value(), LinearInterpMode_SetToConstant);
}

} // namespace
} // namespace veldraw::tests
