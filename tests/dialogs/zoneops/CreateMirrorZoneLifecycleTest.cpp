#include "kernel/operations/SetPlotType.h"
#include "tests/dialogs/support/DialogLifecycleTest.h"
#include "tests/dialogs/support/EventsWhileMade.h"
#include "tests/dialogs/support/SharedMembers.h"
#include "tests/dialogs/zoneops/CreateMirrorZoneFixture.h"

#include <QPointer>

namespace veldraw::tests {
namespace {

using CreateMirrorZoneLifecycleTest = CreateMirrorZoneFixture;

INSTANTIATE_TEST_SUITE_P(CreateMirrorZone, DialogLifecycleTest, testing::Values(createMirrorZone()));
INSTANTIATE_TEST_SUITE_P(CreateMirrorZone, DialogActionLifecycleTest, testing::Values(createMirrorZone()));

TEST_F(CreateMirrorZoneLifecycleTest, TakesItsPendingIdleWorkAlongWhenItIsDestroyed)
{
    launched();
    sample.session().perform(kernel::SetPlotType(sample.frame()->id, PlotType_Cartesian2D));
    CreateMirrorZonePropertiesManager::mirrorVar3D()->setValue('X');
    EXPECT_GT(IdleDispatcher::pendingCount(), 1);
    delete &dialog();
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
    CreateMirrorZonePropertiesManager::mirrorVar3D()->setValue('Y');
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0) << "the choice, which lives on, has let the dialog go";
}

TEST_F(CreateMirrorZoneLifecycleTest, MakesItsBindingsBeforeItsRules)
{
    bool wasBound = false;
    EventsWhileMade const hidden(QStringLiteral("createMirrorZone_Axis2DObj_Outline"), QEvent::HideToParent,
                                 [&wasBound](QWidget& window) {
                                     auto const* const list = window.findChild<QListView*>();
                                     wasBound = list && list->model();
                                 });
    EXPECT_TRUE(page("2D").isHidden()) << "by a rule, in a 3D plot";
    EXPECT_TRUE(wasBound);
}

TEST_F(CreateMirrorZoneLifecycleTest, EndsItsBindingsBeforeItsRules)
{
    launched();
    QWidget const& page3D = page("3D");
    bool isBindingGone = false;
    QObject::connect(&boundModel(traits.list), &QObject::destroyed, mainWindow.get(), [&] {
        isBindingGone = true;
        EXPECT_FALSE(page3D.isHidden());
        showAs(PlotType_Cartesian2D);
        EXPECT_TRUE(page3D.isHidden()) << "the rule is applied still";
    });
    delete &dialog();
    EXPECT_TRUE(isBindingGone);
}

TEST_F(CreateMirrorZoneLifecycleTest, MayBeDestroyedWhenAChoiceIsMade)
{
    launched();
    QPointer<QDialog> const doomed = &dialog();
    boost::signals2::scoped_connection const listening =
        CreateMirrorZonePropertiesManager::mirrorVar3D()->connectValueChanged(
            [&doomed](char) { doomed->deleteLater(); });
    clickChoice("3DYZ");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(doomed.isNull());
    EXPECT_EQ(CreateMirrorZonePropertiesManager::mirrorVar3D()->value(), 'X');
}

TEST(CreateMirrorZonePropertiesManager, StartsEmptyAndSharesItsMembers)
{
    using Manager = CreateMirrorZonePropertiesManager;
    SampleSession const sample({"Wing", "Body"}, {"X"});
    expectStartsEmptyAndSharesItsMembers<Manager>(&Manager::sourceZones, &Manager::zonesListModel);
    Manager const manager;
    EXPECT_EQ(manager.is2DPlot(), manager.is2DPlot());
    EXPECT_NE(manager.is2DPlot(), manager.is3DPlot());
}

TEST(CreateMirrorZonePropertiesManager, SharesItsChoicesWithEveryOther)
{
    SampleSession const sample({"Wing"}, {"X"});
    CreateMirrorZonePropertiesManager const one;
    CreateMirrorZonePropertiesManager const other;
    EXPECT_EQ(one.mirrorVar2D(), other.mirrorVar2D());
    EXPECT_EQ(one.mirrorVar3D(), other.mirrorVar3D());
    EXPECT_NE(one.mirrorVar2D(), one.mirrorVar3D());
    EXPECT_NE(one.sourceZones(), other.sourceZones());
}

} // namespace
} // namespace veldraw::tests
