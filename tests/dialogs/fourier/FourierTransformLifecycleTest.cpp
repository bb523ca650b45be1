#include "platform/vdsdkbase/StateChange.h"
#include "tests/dialogs/fourier/FourierFixture.h"
#include "tests/dialogs/support/AdditionsToWidgets.h"
#include "tests/dialogs/support/DialogLifecycleTest.h"
#include "tests/dialogs/support/FakeStateChange.h"

#include <QPointer>

#include <gmock/gmock.h>

namespace veldraw::tests {

INSTANTIATE_TEST_SUITE_P(FourierTransform, DialogLifecycleTest, testing::Values(fourierTransform()));
INSTANTIATE_TEST_SUITE_P(FourierTransform, DialogActionLifecycleTest, testing::Values(fourierTransform()));

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FourierTransformLifecycleTest : public FourierFixture
{
protected:
    bool isAvailable() const { return traits.relevance()->isRelevant(); }
};

TEST_F(FourierTransformLifecycleTest, BindsItsBoxesAndListsInOrder)
{
    AdditionsToWidgets const additions;
    dialog();
    EXPECT_THAT(additions.names, ElementsAre(independent, window, dependent, sources, placement));
}

TEST_F(FourierTransformLifecycleTest, BindsItsButtonAfterTheListsAndBeforeTheOptions)
{
    std::vector<bool> wasBound;
    AdditionsToWidgets const additions([&](QWidget& widget) {
        auto const* const box = widget.window()->findChild<QDialogButtonBox*>();
        wasBound.push_back(box->button(QDialogButtonBox::Apply)->text() == QStringLiteral("&Transform"));
    });
    dialog();
    EXPECT_THAT(wasBound, testing::Each(true)) << "its text is there before the first binding";
}

TEST_F(FourierTransformLifecycleTest, EndsItsBindingsBeforeTheRuleOfItsButton)
{
    launched();
    clickRow(2);
    ASSERT_TRUE(canAct());
    QPushButton const& button = actionButton();
    bool wasEnabled = true;
    // The first binding goes; the one of the list of zones is still there.
    QObject::connect(&boundModel(independent), &QObject::destroyed, mainWindow.get(), [&] {
        enableZone(1, false);
        IdleDispatcher::flush();
        wasEnabled = button.isEnabled();
    });
    delete &dialog();
    EXPECT_FALSE(wasEnabled);
}

TEST_F(FourierTransformLifecycleTest, SharesItsRuleWithTheManager)
{
    EXPECT_EQ(dialogs::data::FourierTransformDialog::relevance(), FourierTransformPropertiesManager::relevance());
}

TEST_F(FourierTransformLifecycleTest, IsAvailableWhileTheFrameHasAnEnabledLine)
{
    EXPECT_TRUE(isAvailable());
    for (int const zone : {1, 2, 3})
        enableZone(zone, false);
    EXPECT_FALSE(isAvailable());
    enableZone(3, true);
    EXPECT_TRUE(isAvailable());
    showAs(PlotType_Cartesian3D);
    EXPECT_TRUE(isAvailable()) << "in every plot";
    sample.dataSet().zone(3)->i = 3;
    EXPECT_FALSE(isAvailable()) << "three points are too few";
}

TEST_F(FourierTransformLifecycleTest, AsksItsRuleAgainWhenTheZonesOrTheActiveFrameChange)
{
    int signals = 0;
    boost::signals2::scoped_connection const listening =
        traits.relevance()->connectRelevanceChanged([&signals] { ++signals; });
    auto const signalsOf = [&signals](int kind) {
        signals = 0;
        FakeStateChange(kind).send();
        return signals;
    };
    for (int const kind : {StateChange_ZonesAdded, StateChange_ZonesDeleted, StateChange_ZonesEnabled,
                           StateChange_NewActiveFrame, StateChange_FrameDataSet, StateChange_PageReplaced})
        EXPECT_EQ(signalsOf(kind), 1) << "kind " << kind;
    for (int const kind : {StateChange_ValuesAltered, StateChange_VariablesAdded, StateChange_MouseMode})
        EXPECT_EQ(signalsOf(kind), 0) << "kind " << kind;
}

TEST_F(FourierTransformLifecycleTest, LetsGoOfItsOptionsWhichLiveOn)
{
    launched();
    delete &dialog();
    FourierTransformPropertiesManager::windowFunction()->setValue(WindowFunction_Hann);
    FourierTransformPropertiesManager::includeConjugates()->setValue(true);
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
}

TEST_F(FourierTransformLifecycleTest, MayBeDestroyedWhenAChoiceIsMade)
{
    launched();
    QPointer<QDialog> const doomed = &dialog();
    boost::signals2::scoped_connection const listening =
        FourierTransformPropertiesManager::includeConjugates()->connectValueChanged(
            [&doomed](bool) { doomed->deleteLater(); });
    clickMark(conjugates);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(doomed.isNull());
    EXPECT_TRUE(FourierTransformPropertiesManager::includeConjugates()->value());
}

TEST_F(FourierTransformLifecycleTest, MayBeMadeWithoutAnythingToTransform)
{
    sample.session().clear();
    launched();
    EXPECT_THAT(rows(), IsEmpty());
    EXPECT_THAT(rowsOf(sources), IsEmpty());
    EXPECT_FALSE(canAct());
}

} // namespace
} // namespace veldraw::tests
