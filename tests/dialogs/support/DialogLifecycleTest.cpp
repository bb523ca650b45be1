#include "tests/dialogs/support/DialogLifecycleTest.h"

#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/EnableZone.h"
#include "platform/vdsdkcommon/StateChangeEventObservable.h"
#include "platform/vdsdkuicommon/HelpLauncher.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "platform/vdsdkuicommon/OnIdleActionPerformerSingleShot.h"
#include "tests/dialogs/support/FormTable.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDialogButtonBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <algorithm>
#include <gmock/gmock.h>
#include <stdexcept>

namespace veldraw::tests {

using sdk::integration::StateChangeEventObservable;
using sdk::ui::common::HelpLauncher;
using sdk::ui::common::IdleDispatcher;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

void DialogLifecycleTest::changeTheDataSet()
{
    sample.session().perform(kernel::DuplicateZones(sample.dataSet(), kernel::NumberSet{1}));
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 2, false));
    sample.session().perform(kernel::DeleteVariables(sample.dataSet(), kernel::NumberSet{3}));
}

// Not in programs that have only dialogs without a button of their own.
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(DialogActionLifecycleTest);

namespace {

int listenerCount()
{
    return StateChangeEventObservable::getInstance().listenerCount();
}

bool isChosen(std::string const& row)
{
    return row.front() == '*';
}

// Lets the set-up of a dialog's form fail half-way, when it sets the title.
class FailingForms : public QObject
{
public:
    FailingForms() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::WindowTitleChange && qobject_cast<QDialog*>(watched))
            throw std::runtime_error("no form");
        return false;
    }
};

TEST_P(DialogLifecycleTest, AnswersItsRuleWithAndWithoutADialog)
{
    auto const before = traits.relevance();
    ASSERT_TRUE(before);
    EXPECT_TRUE(before->isRelevant());
    dialog();
    EXPECT_EQ(traits.relevance(), before);
    mainWindow.reset();
    EXPECT_EQ(traits.relevance(), before);
    EXPECT_TRUE(before->isRelevant());
    sample.session().clear();
    EXPECT_FALSE(before->isRelevant());
    sample.session().removeAllPages();
    EXPECT_FALSE(before->isRelevant());
}

TEST_P(DialogLifecycleTest, ExistsOnceAndKeepsItsFirstParent)
{
    QWidget other;
    QDialog& first = dialog();
    EXPECT_EQ(&traits.instance(other), &first);
    EXPECT_EQ(first.parentWidget(), mainWindow.get());
}

TEST_P(DialogLifecycleTest, EndsWithItsParentAndBeginsAnewWithDefaults)
{
    launched();
    std::vector<std::string> expected = rows();
    EXPECT_EQ(std::any_of(expected.begin(), expected.end(), isChosen), traits.isChoiceOfLibrary);
    clickRow(1);
    EXPECT_TRUE(isChosen(rows().at(1)));
    if (traits.isChoiceOfLibrary)
        expected = rows();
    QPointer<QDialog> const first = &dialog();
    mainWindow = std::make_unique<QWidget>();
    EXPECT_TRUE(first.isNull());
    mainWindow->show();
    launched();
    EXPECT_EQ(rows(), expected);
}

TEST_P(DialogLifecycleTest, IsNoLongerHandedOutWhileItIsTornDown)
{
    QWidget other;
    QDialog* const first = &dialog();
    QPointer<QDialog> second;
    // The bindings go first of all that the dialog owns, and one on a list takes its item model along.
    QObject::connect(&firstBoundModel(), &QObject::destroyed, &other, [&] { second = &traits.instance(other); });
    delete first;
    ASSERT_FALSE(second.isNull());
    EXPECT_NE(second.data(), first);
    EXPECT_EQ(second->parentWidget(), &other);
}

TEST_P(DialogLifecycleTest, EndsItsBindingsBeforeItsManagerAndWidgets)
{
    std::vector<std::string> order;
    std::vector<std::string> const bound = boundInOrder();
    for (std::string const& name : bound)
        QObject::connect(&boundModel(name), &QObject::destroyed, mainWindow.get(),
                         [&order, name] { order.push_back("binding of " + name); });
    for (QWidget const* const widget : dialog().findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        QObject::connect(widget, &QObject::destroyed, mainWindow.get(), [&] { order.emplace_back("widget"); });
    delete &dialog();
    ASSERT_GT(order.size(), bound.size());
    for (std::size_t place = 0; place < bound.size(); ++place)
        EXPECT_EQ(order[place], "binding of " + bound[place]) << "in the order of their creation";
}

TEST_P(DialogActionLifecycleTest, EndsTheBindingOfItsButtonInTurn)
{
    QPushButton& button = actionButton();
    bool isListBindingGone = false;
    // The button still works at this moment if, and only if, its binding was made later than the list's.
    QObject::connect(&boundModel(traits.list), &QObject::destroyed, mainWindow.get(), [&] {
        isListBindingGone = true;
        button.click();
    });
    if (traits.actionNeedsSelection) {
        launched();
        selectForAction();
        EXPECT_TRUE(button.isEnabled());
    } else {
        clickAction();
        EXPECT_THAT(messages.take(), ElementsAre(traits.refusal));
    }
    delete &dialog();
    EXPECT_TRUE(isListBindingGone);
    bool const hasLoaded = traits.defersVariables && sample.dataSet().field(1, 1)->isLoaded();
    bool const isAnswered = !messages.take().empty() || hasLoaded;
    EXPECT_EQ(isAnswered, !traits.bindsActionBeforeList);
}

TEST_P(DialogLifecycleTest, CanBeMadeAfterAFirstTryThatFailed)
{
    traits.relevance();
    int const listeners = listenerCount();
    {
        FailingForms const failing;
        EXPECT_THROW(dialog(), std::runtime_error);
    }
    EXPECT_TRUE(mainWindow->findChildren<QDialog*>().isEmpty());
    EXPECT_EQ(listenerCount(), listeners);
    launched();
    EXPECT_GE(rows().size(), 3u);
}

TEST_P(DialogLifecycleTest, LeavesNothingBehindAfterTwoHundredLives)
{
    dialog();
    delete &dialog();
    IdleDispatcher::flush();
    int const listeners = listenerCount();
    int const windows = static_cast<int>(QApplication::topLevelWidgets().size());
    for (int life = 0; life < 200; ++life) {
        dialog().launch();
        clickRow(life % 3);
        dialog().close();
        delete &dialog();
    }
    IdleDispatcher::flush();
    EXPECT_EQ(listenerCount(), listeners);
    EXPECT_EQ(QApplication::topLevelWidgets().size(), windows);
    mainWindow.reset();
    EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
}

TEST_P(DialogLifecycleTest, HearsNothingOfTheKernelAfterItsEnd)
{
    launched();
    clickRow(1);
    mainWindow.reset();
    changeTheDataSet();
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
    IdleDispatcher::flush();
    EXPECT_EQ(zoneNames().size(), 4u);
    EXPECT_EQ(variableNames().size(), 3u);
}

TEST_P(DialogLifecycleTest, TakesItsPendingIdleWorkAlongWhenItIsDestroyed)
{
    launched();
    clickRow(1);
    IdleDispatcher::flush();
    changeTheDataSet();
    EXPECT_GT(IdleDispatcher::pendingCount(), 0);
    delete &dialog();
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
    IdleDispatcher::flush();
    QCoreApplication::processEvents();
}

TEST_P(DialogLifecycleTest, MayBeDestroyedByIdleWorkThatRunsBeforeItsOwn)
{
    launched();
    QPointer<QDialog> const doomed = &dialog();
    sdk::ui::common::OnIdleActionPerformerSingleShot end([&doomed] { delete doomed.data(); });
    end.enableNotification();
    changeTheDataSet();
    EXPECT_GT(IdleDispatcher::pendingCount(), 1);
    IdleDispatcher::flush();
    EXPECT_TRUE(doomed.isNull());
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
}

TEST_P(DialogLifecycleTest, MayBeDestroyedInsideAChangeOfAListThatItShows)
{
    launched();
    QPointer<QDialog> const doomed = &dialog();
    // Runs inside the kernel's event, when the list has changed and before the dialog's idle work.
    bool hasChanged = false;
    for (std::string const& name : boundInOrder()) {
        QObject::connect(&boundModel(name), &QAbstractItemModel::modelReset, mainWindow.get(), [&] {
            hasChanged = true;
            doomed->deleteLater();
        });
    }
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 2, false));
    if (!hasChanged) { // a list of variables
        IdleDispatcher::flush();
        sample.session().perform(kernel::DeleteVariables(sample.dataSet(), kernel::NumberSet{3}));
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(doomed.isNull());
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 2, true));
    EXPECT_EQ(zoneNames().size(), 3u);
}

TEST_P(DialogLifecycleTest, IsHiddenByEscape)
{
    launched();
    QTest::keyClick(&chooser(), Qt::Key_Escape);
    EXPECT_FALSE(dialog().isVisible());
    EXPECT_EQ(dialog().parentWidget(), mainWindow.get());
}

TEST_P(DialogLifecycleTest, KeepsItsSelectionWhileItIsClosed)
{
    QPointer<QDialog> const first = &launched();
    clickRow(1);
    std::vector<std::string> const selected = rows();
    EXPECT_THAT(selected, Contains(StartsWith("*")));
    clickClose();
    EXPECT_FALSE(dialog().isVisible());
    dialog().launch();
    EXPECT_TRUE(dialog().isVisible());
    EXPECT_EQ(rows(), selected);
    EXPECT_EQ(&dialog(), first);
}

TEST_P(DialogLifecycleTest, IsNotDrivenByReturn)
{
    for (QPushButton const* const button : launched().findChildren<QPushButton*>())
        EXPECT_FALSE(button->isDefault() || button->autoDefault()) << button->text().toStdString();
    clickRow(2);
    std::vector<QWidget*> widgets{&chooser(), &dialog()};
    if (hasAction())
        widgets.push_back(&actionButton());
    for (QWidget* const widget : widgets) {
        widget->setFocus();
        QTest::keyClick(widget, Qt::Key_Return);
        QTest::keyClick(widget, Qt::Key_Enter);
    }
    EXPECT_THAT(messages.take(), IsEmpty());
    EXPECT_EQ(zoneNames().size(), 3u);
    EXPECT_EQ(variableNames().size(), 4u);
    EXPECT_TRUE(dialog().isVisible());
}

TEST_P(DialogLifecycleTest, HasTheMnemonicsOfItsFormAndNamesItsInputsToScreenReaders)
{
    EXPECT_EQ(repeatedMnemonics(launched()), traits.repeatedMnemonics);
    EXPECT_THAT(inputsWithoutAccessibleName(dialog()), IsEmpty());
}

TEST_P(DialogLifecycleTest, OpensItsHelpTopicByF1AndByItsButton)
{
    std::vector<std::string> topics;
    HelpLauncher::install([&](std::string const& topic) { topics.push_back(topic); });
    launched();
    QTest::keyClick(&chooser(), Qt::Key_F1);
    EXPECT_THAT(topics, ElementsAre(traits.helpTopic));
    QTest::mouseClick(buttonBox().button(QDialogButtonBox::Help), Qt::LeftButton);
    HelpLauncher::install(HelpLauncher::Opener());
    EXPECT_THAT(topics, ElementsAre(traits.helpTopic, traits.helpTopic));
}

TEST_P(DialogLifecycleTest, CannotBeUsedWithoutADataSet)
{
    launched();
    if (traits.actionNeedsSelection)
        selectForAction();
    EXPECT_TRUE(chooser().isEnabled());
    EXPECT_TRUE(!hasAction() || actionButton().isEnabled());
    sample.session().clear();
    IdleDispatcher::flush();
    EXPECT_EQ(chooser().isEnabled(), !traits.followsItsRule);
    EXPECT_FALSE(hasAction() && actionButton().isEnabled());
    EXPECT_TRUE(buttonBox().button(QDialogButtonBox::Close)->isEnabled());
    EXPECT_TRUE(buttonBox().button(QDialogButtonBox::Help)->isEnabled());
    EXPECT_THAT(rows(), IsEmpty());
    EXPECT_TRUE(dialog().isVisible());
}

} // namespace
} // namespace veldraw::tests
