#include "tests/dialogs/smoothing/TriangulateFixture.h"
#include "tests/dialogs/support/DialogLifecycleTest.h"
#include "tests/dialogs/support/EventsWhileMade.h"
#include "tests/support/FakeStateChange.h"

#include <QPointer>

#include <gmock/gmock.h>

namespace veldraw::tests {

INSTANTIATE_TEST_SUITE_P(Triangulate, DialogLifecycleTest, testing::Values(triangulate()));
INSTANTIATE_TEST_SUITE_P(Triangulate, DialogActionLifecycleTest, testing::Values(triangulate()));

namespace {

using TriangulateLifecycleTest = TriangulateFixture;

TEST_F(TriangulateLifecycleTest, MakesItsBindingsBeforeItsRules)
{
    bool wasBound = false;
    EventsWhileMade const disabled(QString::fromLatin1(useBoundary), QEvent::EnabledChange, [&](QWidget& window) {
        wasBound =
            window.findChild<QListView*>(QString::fromLatin1(boundaries))->model() &&
            window.findChild<QAbstractSpinBox*>(QString::fromLatin1(keepFactor))->text() == QLatin1String("0.25");
    });
    EXPECT_FALSE(isEnabled(useBoundary));
    EXPECT_TRUE(wasBound);
}

TEST_F(TriangulateLifecycleTest, AsksItsRuleAgainWhenThePlotTypeMayBeAnotherOne)
{
    int signals = 0;
    boost::signals2::scoped_connection const listening =
        traits.relevance()->connectRelevanceChanged([&signals] { ++signals; });
    for (FakeStateChange const& event :
         {FakeStateChange(StateChange_Style, {"PlotType"}), FakeStateChange(StateChange_NewActiveFrame),
          FakeStateChange(StateChange_FrameDataSet)}) {
        signals = 0;
        event.send();
        EXPECT_EQ(signals, 1) << "kind " << event.kind();
    }
    signals = 0;
    FakeStateChange(StateChange_ZonesAdded).send();
    EXPECT_EQ(signals, 0);
}

TEST_F(TriangulateLifecycleTest, IsAvailableIn2DPlotsOnly)
{
    EXPECT_TRUE(traits.relevance()->isRelevant());
    for (PlotType_e const other : {PlotType_Cartesian3D, PlotType_XYLine, PlotType_PolarLine, PlotType_Sketch}) {
        showAs(other);
        EXPECT_FALSE(traits.relevance()->isRelevant()) << other;
    }
}

TEST_F(TriangulateLifecycleTest, LetsGoOfItsSettingsWhichLiveOn)
{
    launched();
    delete &dialog();
    TriangulatePropertiesManager::useBoundaryZones()->setValue(true);
    TriangulatePropertiesManager::triangleKeepFactor()->setValue(0.5);
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
}

TEST_F(TriangulateLifecycleTest, MayBeDestroyedWhenAChoiceIsMade)
{
    addBoundary();
    launched();
    QPointer<QDialog> const doomed = &dialog();
    boost::signals2::scoped_connection const listening =
        TriangulatePropertiesManager::useBoundaryZones()->connectValueChanged(
            [&doomed](bool) { doomed->deleteLater(); });
    clickMark(useBoundary);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(doomed.isNull());
    EXPECT_TRUE(TriangulatePropertiesManager::useBoundaryZones()->value());
}

} // namespace
} // namespace veldraw::tests
