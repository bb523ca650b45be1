#include "platform/vdsdkbase/StateChange.h"
#include "tests/dialogs/fourier/FourierFixture.h"
#include "tests/dialogs/support/AdditionsToWidgets.h"
#include "tests/dialogs/support/DialogLifecycleTest.h"
#include "tests/support/FakeStateChange.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QPointer>

#include <functional>
#include <gmock/gmock.h>
#include <optional>

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

    /// The button of the dialog that a widget belongs to.
    static QPushButton& transformButtonOf(QWidget const& widget)
    {
        return *widget.window()->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Apply);
    }
};

/// Tells when a box gets checked, also while its signals are blocked: the other box of an exclusive group gives way then.
class CheckWatch
{
public:
    CheckWatch(QCheckBox& watched, std::function<void()> const& onChecked)
    {
        m_group.addButton(&m_other);
        m_other.setChecked(true);
        m_group.addButton(&watched);
        QObject::connect(&m_other, &QCheckBox::toggled, &m_group, onChecked);
    }

private:
    QCheckBox m_other;
    QButtonGroup m_group;
};

TEST_F(FourierTransformLifecycleTest, BindsItsBoxesAndListsInOrder)
{
    AdditionsToWidgets const additions;
    dialog();
    EXPECT_THAT(additions.names, ElementsAre(independent, window, dependent, sources, placement));
}

TEST_F(FourierTransformLifecycleTest, NamesItsButtonBeforeTheFirstBinding)
{
    std::vector<QString> texts;
    AdditionsToWidgets const additions([&](QWidget& widget) { texts.push_back(transformButtonOf(widget).text()); });
    dialog();
    EXPECT_EQ(texts.size(), 5u);
    EXPECT_THAT(texts, testing::Each(QStringLiteral("&Transform")));
}

TEST_F(FourierTransformLifecycleTest, BindsItsButtonAfterTheListsAndBeforeTheOptions)
{
    // The first of the options has to be checked when it is bound.
    FourierTransformPropertiesManager::includeConjugates()->setValue(true);
    std::vector<std::string> acts;
    auto const click = [&](QWidget const& widget) {
        transformButtonOf(widget).click();
        bool const isBound = !messages.take().empty(); // there is nothing to transform
        acts.push_back(widget.objectName().toStdString() + (isBound ? ": acts" : ": does not act"));
    };
    std::optional<CheckWatch> watch;
    AdditionsToWidgets const additions([&](QWidget& widget) {
        auto* const box = widget.window()->findChild<QCheckBox*>(QString::fromLatin1(conjugates));
        if (!watch)
            watch.emplace(*box, [&click, box] { click(*box); });
        click(widget);
    });
    dialog();
    EXPECT_THAT(acts, ElementsAre("independentVariablesComboBox: does not act", "windowFunctionComboBox: does not act",
                                  "dependentVariablesListView: does not act", "sourceZonesListView: does not act",
                                  "includeConjugatesCheckBox: acts", "plotPlacementComboBox: acts"));
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
