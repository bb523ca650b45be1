#include "dialogs/bindings/SpinBoxDoublePropertyBinding.h"
#include "dialogs/bindings/SpinBoxIntPropertyBinding.h"
#include "dialogs/bindings/TextFieldPropertyBinding.h"
#include "dialogs/frame/LaunchHelpAction.h"
#include "dialogs/property/Property.h"
#include "dialogs/widgets/PageScrollArea.h"
#include "dialogs/widgets/TableViewWithPreferredDimensions.h"
#include "platform/vdsdkuicommon/HelpLauncher.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "platform/vdsdkuicommon/OnIdleActionPerformerSingleShot.h"
#include "tests/dialogs/frame/SampleDialog.h"
#include "tests/dialogs/support/RecordedMessages.h"
#include "tests/dialogs/support/SwitchedRelevance.h"

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <boost/make_shared.hpp>

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <set>
#include <string>

namespace veldraw::tests {
namespace {

using namespace dialogs::common;
using sdk::ui::common::HelpLauncher;
using sdk::ui::common::IdleDispatcher;
using testing::ElementsAre;
using testing::IsEmpty;

class QtDialogAbstractTest : public testing::Test
{
protected:
    QtDialogAbstractTest() { parent.show(); }

    QWidget parent;
};

// Writes down the kinds of events that a widget gets.
class EventLog : public QObject
{
public:
    explicit EventLog(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        m_seen.insert(event->type());
        return false;
    }
    bool hasSeen(QEvent::Type type) const { return m_seen.count(type) > 0; }

private:
    std::set<QEvent::Type> m_seen;
};

QPushButton* closeButton(SampleDialog const& dialog)
{
    return dialog.buttons->button(QDialogButtonBox::Close);
}

TEST_F(QtDialogAbstractTest, IsShownByLaunchWhichReturnsAtOnceEvenWhenItIsModal)
{
    SampleDialog dialog(parent);
    dialog.setModal(true);
    dialog.launch();
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(dialog.parentWidget(), &parent);
}

TEST_F(QtDialogAbstractTest, LaunchedAgainOnlyComesToTheFront)
{
    SampleDialog dialog(parent);
    auto const state = boost::make_shared<RecordingState>();
    dialog.addPersistentState(state);
    dialog.launch();
    dialog.field->setText(QStringLiteral("typed"));
    dialog.box->setFocus();
    dialog.move(40, 50);
    state->calls.clear();
    dialog.launch();
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(dialog.field->text(), QStringLiteral("typed"));
    EXPECT_EQ(dialog.focusWidget(), dialog.box);
    EXPECT_EQ(dialog.pos(), QPoint(40, 50));
    EXPECT_THAT(state->calls, IsEmpty());
}

TEST_F(QtDialogAbstractTest, ComesToTheFrontOfOtherWindowsByLaunch)
{
    SampleDialog dialog(parent);
    dialog.launch();
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EventLog events(dialog);
    dialog.launch();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
    EXPECT_TRUE(events.hasSeen(QEvent::ZOrderChange));
}

TEST_F(QtDialogAbstractTest, LaunchedWhileMinimisedComesBack)
{
    SampleDialog dialog(parent);
    dialog.launch();
    dialog.showMinimized();
    dialog.launch();
    EXPECT_FALSE(dialog.isMinimized());
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(QtDialogAbstractTest, IsTakenOffTheScreenByDropAndLivesOn)
{
    SampleDialog dialog(parent);
    dialog.drop();
    EXPECT_FALSE(dialog.isVisible());
    dialog.launch();
    dialog.field->setText(QStringLiteral("typed"));
    dialog.drop();
    EXPECT_FALSE(dialog.isVisible());
    dialog.launch();
    EXPECT_EQ(dialog.field->text(), QStringLiteral("typed"));
}

TEST_F(QtDialogAbstractTest, BehavesAsWellWhenItIsShownWithoutBeingLaunched)
{
    auto const rule = boost::make_shared<SwitchedRelevance>(false);
    SampleDialog dialog(parent, rule);
    dialog.show();
    EXPECT_FALSE(dialog.action->isEnabled());
    for (QPushButton const* const button : dialog.findChildren<QPushButton*>())
        EXPECT_FALSE(button->isDefault() || button->autoDefault()) << button->text().toStdString();
    QTest::mouseClick(closeButton(dialog), Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(QtDialogAbstractTest, IsClosedOnceByItsCloseButton)
{
    SampleDialog dialog(parent);
    QSignalSpy const rejections(&dialog, &QDialog::rejected);
    dialog.launch();
    dialog.drop();
    dialog.launch();
    QTest::mouseClick(closeButton(dialog), Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(rejections.count(), 1);
}

TEST_F(QtDialogAbstractTest, IsClosedOnceThoughItsFormConnectsCloseItself)
{
    SampleDialog dialog(parent);
    QObject::connect(dialog.buttons, SIGNAL(rejected()), &dialog, SLOT(reject()));
    QSignalSpy const rejections(&dialog, &QDialog::rejected);
    dialog.launch();
    QTest::mouseClick(closeButton(dialog), Qt::LeftButton);
    EXPECT_EQ(rejections.count(), 1);
}

TEST_F(QtDialogAbstractTest, IsHiddenAndNotDeletedByEscapeAndByItsWindow)
{
    auto* const dialog = new SampleDialog(parent);
    QPointer<QDialog> const watched = dialog;
    dialog->launch();
    QTest::keyClick(dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    dialog->launch();
    EXPECT_TRUE(dialog->close());
    EXPECT_FALSE(dialog->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(watched.isNull());
}

TEST_F(QtDialogAbstractTest, HasNoDefaultButtonSoThatReturnRunsNothing)
{
    SampleDialog dialog(parent);
    QSignalSpy const clicks(dialog.action, &QPushButton::clicked);
    QSignalSpy const closes(closeButton(dialog), &QPushButton::clicked);
    dialog.setHelpAction(new LaunchHelpAction("sample.html", dialog));
    dialog.action->setDefault(true);
    dialog.launch();
    for (QPushButton const* const button : dialog.findChildren<QPushButton*>()) {
        EXPECT_FALSE(button->isDefault()) << button->text().toStdString();
        EXPECT_FALSE(button->autoDefault()) << button->text().toStdString();
    }
    for (QWidget* const widget : {static_cast<QWidget*>(dialog.field), static_cast<QWidget*>(dialog.box),
                                  static_cast<QWidget*>(dialog.action), static_cast<QWidget*>(&dialog)}) {
        widget->setFocus();
        QTest::keyClick(widget, Qt::Key_Return);
        QTest::keyClick(widget, Qt::Key_Enter);
    }
    EXPECT_EQ(clicks.count(), 0);
    EXPECT_EQ(closes.count(), 0);
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(QtDialogAbstractTest, GivesTheFocusToItsFirstWidgetUnlessTheDialogChoseOne)
{
    SampleDialog dialog(parent);
    dialog.launch();
    EXPECT_EQ(dialog.focusWidget(), dialog.field);

    SampleDialog choosing(parent);
    choosing.box->setFocus();
    choosing.launch();
    EXPECT_EQ(choosing.focusWidget(), choosing.box);
}

TEST_F(QtDialogAbstractTest, ShowsWhereTheFocusIsFromTheStart)
{
    SampleDialog dialog(parent);
    dialog.launch();
    dialog.action->setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    QApplication::setActiveWindow(&dialog);
    ASSERT_TRUE(dialog.action->hasFocus());
    QImage const focused = dialog.action->grab().toImage();
    dialog.box->setFocus();
    EXPECT_NE(focused, dialog.action->grab().toImage());
}

TEST_F(QtDialogAbstractTest, PassesOverWhatCannotBeUsedWhenItGivesTheFocus)
{
    SampleDialog dialog(parent);
    dialog.field->setEnabled(false);
    dialog.launch();
    EXPECT_EQ(dialog.focusWidget(), dialog.box);

    SampleDialog hiding(parent);
    hiding.field->hide();
    hiding.launch();
    EXPECT_EQ(hiding.focusWidget(), hiding.box);
}

TEST_F(QtDialogAbstractTest, IsAtLeastAsLargeAsItsForm)
{
    SampleDialog dialog(parent);
    EXPECT_EQ(dialog.sizeHint(), QSize(300, 200));
    dialog.launch();
    EXPECT_EQ(dialog.size(), QSize(300, 200));
    dialog.resize(500, 400);
    EXPECT_EQ(dialog.sizeHint(), QSize(300, 200)) << "what the user made of it is not the form's size";
    dialog.field->setMinimumSize(700, 600);
    dialog.layout()->activate();
    EXPECT_GT(dialog.sizeHint().width(), 700);
    EXPECT_GT(dialog.sizeHint().height(), 600);
}

TEST_F(QtDialogAbstractTest, OpensItsHelpByKeyFromEveryFieldWhateverActionItWasGiven)
{
    SampleDialog dialog(parent);
    auto* const help = new QAction(&parent);
    help->setShortcutContext(Qt::WidgetShortcut);
    QSignalSpy const opened(help, &QAction::triggered);
    dialog.setHelpAction(help);
    dialog.launch();
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &dialog; }));
    QTest::keyClick(dialog.field, Qt::Key_F1);
    QTest::keyClick(dialog.box, Qt::Key_F1);
    EXPECT_EQ(opened.count(), 2);
}

TEST_F(QtDialogAbstractTest, KnowsTheSizeOfItsFormThoughNobodyAskedBeforeItWasShown)
{
    SampleDialog dialog(parent);
    dialog.launch();
    EXPECT_EQ(dialog.sizeHint(), QSize(300, 200));
}

TEST_F(QtDialogAbstractTest, OpensInTheMiddleOfTheWindowThatItBelongsTo)
{
    parent.setGeometry(250, 200, 500, 400);
    SampleDialog dialog(parent);
    dialog.launch();
    QPoint const apart = dialog.geometry().center() - parent.geometry().center();
    EXPECT_LT(apart.manhattanLength(), 60);
}

TEST_F(QtDialogAbstractTest, OpensAtTheWidthOfItsFormThoughItHasAHelpButton)
{
    SampleDialog dialog(parent);
    dialog.resize(180, 200);
    dialog.setHelpAction(new LaunchHelpAction("sample.html", dialog));
    ASSERT_GT(dialog.buttons->sizeHint().width(), 180);
    dialog.launch();
    EXPECT_EQ(dialog.width(), 180);
    for (QAbstractButton* const button : dialog.buttons->buttons()) {
        int const text = button->fontMetrics().horizontalAdvance(button->text().remove(QLatin1Char('&')));
        EXPECT_GE(button->minimumWidth(), text + 8) << "with a little room on both sides";
    }
}

// What is below the page of the area hears of such a change only when the page is laid out.
TEST_F(QtDialogAbstractTest, OpensAtASizeThatFitsTextsWhichHaveChangedInALayoutOfAScrolledPage)
{
    SampleDialog dialog(parent);
    dialog.setAttribute(Qt::WA_Resized, false);
    auto* const area = new PageScrollArea(&dialog);
    auto* const page = new QWidget;
    auto* const rows = new QVBoxLayout;
    auto* const text = new QLabel(QStringLiteral("short"), page);
    rows->addWidget(text);
    (new QVBoxLayout(page))->addLayout(rows);
    area->setWidget(page);
    static_cast<QVBoxLayout*>(dialog.layout())->insertWidget(0, area);
    QSize const before = dialog.sizeHint();
    text->setText(QStringLiteral("one<br>two<br>three<br>four<br>five"));
    dialog.launch();
    QCoreApplication::processEvents();
    EXPECT_GT(dialog.height(), before.height());
    EXPECT_EQ(dialog.size(), dialog.sizeHint());
    EXPECT_FALSE(area->verticalScrollBar()->isVisible());
}

TEST_F(QtDialogAbstractTest, OpensAtTheSizeThatItsContentPrefersWhenItsFormHasNone)
{
    SampleDialog dialog(parent);
    dialog.setAttribute(Qt::WA_Resized, false);
    dialog.field->setMinimumSize(600, 610);
    dialog.launch();
    EXPECT_EQ(dialog.size(), dialog.sizeHint());
    EXPECT_GT(dialog.height(), 610) << "which is more than two thirds of this screen";
    SampleDialog large(parent);
    large.setAttribute(Qt::WA_Resized, false);
    auto* const table = new TableViewWithPreferredDimensions(&large);
    table->setPreferredNumberOfRows(1000);
    large.layout()->addWidget(table);
    large.launch();
    EXPECT_LE(large.height(), large.screen()->availableSize().height());
}

/// The ways in which a dialog goes off the screen.
using Closing = std::function<void(SampleDialog&)>;
std::map<std::string, Closing> const closings{
    {"Escape", [](SampleDialog& dialog) { QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape); }},
    {"Close", [](SampleDialog& dialog) { QTest::mouseClick(closeButton(dialog), Qt::LeftButton); }},
    {"window", [](SampleDialog& dialog) { dialog.close(); }},
    {"drop", [](SampleDialog& dialog) { dialog.drop(); }},
    {"hide", [](SampleDialog& dialog) { dialog.hide(); }},
};

TEST_F(QtDialogAbstractTest, DropsWhatIsBeingTypedWhenItGoesByWhateverWay)
{
    SampleDialog dialog(parent);
    auto* const angle = new veldraw::ui::QScientificSpinBox(&dialog);
    auto* const count = new veldraw::ui::IntegralSpinBox(&dialog);
    dialog.layout()->addWidget(angle);
    dialog.layout()->addWidget(count);
    auto const number = boost::make_shared<Property<double>>(0.5);
    auto const wholeNumber = boost::make_shared<Property<int>>(5);
    int changes = 0;
    number->connectValueChanged([&changes](double) { ++changes; });
    wholeNumber->connectValueChanged([&changes](int) { ++changes; });
    using namespace sdk::ui::dialogs::propertybindings;
    TextFieldPropertyBinding<double> const fieldBinding(dialog.field, number);
    SpinBoxDoublePropertyBinding const angleBinding(angle, number, nullptr);
    SpinBoxIntPropertyBinding const countBinding(count, wholeNumber, nullptr);
    RecordedMessages messages;
    for (auto const& [way, close] : closings) {
        for (QWidget* const input :
             {static_cast<QWidget*>(dialog.field), static_cast<QWidget*>(angle), static_cast<QWidget*>(count)}) {
            dialog.launch();
            ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
            input->setFocus();
            QTest::keyClick(input, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(input, QStringLiteral("7"));
            close(dialog);
            ASSERT_FALSE(dialog.isVisible()) << way;
            dialog.launch();
            EXPECT_EQ(dialog.field->text(), QStringLiteral("0.5")) << way;
            EXPECT_EQ(angle->text(), QStringLiteral("0.5")) << way;
            EXPECT_EQ(count->text(), QStringLiteral("5")) << way;
        }
    }
    IdleDispatcher::flush();
    EXPECT_EQ(changes, 0);
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(QtDialogAbstractTest, CanOnlyBeUsedWhileItsRuleIsTrueButClosedAlways)
{
    auto const rule = boost::make_shared<SwitchedRelevance>(false);
    SampleDialog dialog(parent, rule);
    dialog.setHelpAction(new LaunchHelpAction("sample.html", dialog));
    dialog.launch();
    EXPECT_FALSE(dialog.field->isEnabled());
    EXPECT_FALSE(dialog.box->isEnabled());
    EXPECT_FALSE(dialog.action->isEnabled());
    EXPECT_TRUE(closeButton(dialog)->isEnabled());
    EXPECT_TRUE(dialog.buttons->button(QDialogButtonBox::Help)->isEnabled());

    rule->set(true);
    EXPECT_FALSE(dialog.action->isEnabled()) << "widgets follow at idle";
    IdleDispatcher::flush();
    EXPECT_TRUE(dialog.field->isEnabled());
    EXPECT_TRUE(dialog.action->isEnabled());

    rule->set(false);
    IdleDispatcher::flush();
    EXPECT_FALSE(dialog.field->isEnabled());
    QTest::mouseClick(closeButton(dialog), Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(QtDialogAbstractTest, LeavesTheDialogsAloneThatWereOpenedFromIt)
{
    SampleDialog dialog(parent, boost::make_shared<SwitchedRelevance>(false));
    SampleDialog child(static_cast<QWidget&>(dialog));
    child.launch();
    dialog.setHelpAction(new LaunchHelpAction("sample.html", dialog));
    dialog.launch();
    EXPECT_TRUE(child.field->isEnabled());
    EXPECT_TRUE(child.action->isEnabled());
    EXPECT_FALSE(child.buttons->button(QDialogButtonBox::Help));
    QTest::mouseClick(closeButton(child), Qt::LeftButton);
    EXPECT_FALSE(child.isVisible());
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(QtDialogAbstractTest, FollowsItsRuleAlsoWhileItIsClosed)
{
    auto const rule = boost::make_shared<SwitchedRelevance>(true);
    SampleDialog dialog(parent, rule);
    dialog.launch();
    dialog.drop();
    rule->set(false);
    IdleDispatcher::flush();
    EXPECT_FALSE(dialog.action->isEnabled());
}

TEST_F(QtDialogAbstractTest, AsksItsRuleBeforeItIsSeenAgain)
{
    auto const rule = boost::make_shared<SwitchedRelevance>(true);
    SampleDialog dialog(parent, rule);
    dialog.launch();
    dialog.drop();
    rule->setSilently(false);
    dialog.launch();
    EXPECT_FALSE(dialog.action->isEnabled());
}

TEST_F(QtDialogAbstractTest, WithoutARuleCanAlwaysBeUsed)
{
    SampleDialog dialog(parent);
    dialog.launch();
    dialog.updateContent();
    EXPECT_TRUE(dialog.field->isEnabled());
    EXPECT_TRUE(dialog.action->isEnabled());
}

TEST_F(QtDialogAbstractTest, IsBroughtUpToDateAtOnceByUpdateContent)
{
    auto const rule = boost::make_shared<SwitchedRelevance>(true);
    SampleDialog dialog(parent, rule);
    dialog.launch();
    int widgetsWritten = 0;
    sdk::ui::common::OnIdleActionPerformerSingleShot update([&] { ++widgetsWritten; });
    update.enableNotification();
    rule->setSilently(false);
    dialog.updateContent();
    EXPECT_EQ(widgetsWritten, 1);
    EXPECT_FALSE(dialog.action->isEnabled());
}

TEST_F(QtDialogAbstractTest, LeavesNothingBehindOnItsRule)
{
    auto const rule = boost::make_shared<SwitchedRelevance>(true);
    {
        SampleDialog dialog(parent, rule);
        dialog.launch();
        EXPECT_EQ(rule->listenerCount(), 1u);
    }
    EXPECT_EQ(rule->listenerCount(), 0u);
}

TEST_F(QtDialogAbstractTest, RestoresItsStateWhenItAppearsAndSavesItWhenItGoes)
{
    auto const state = boost::make_shared<RecordingState>();
    {
        SampleDialog dialog(parent);
        dialog.addPersistentState(state);
        dialog.launch();
        EXPECT_THAT(state->calls, ElementsAre("restore"));
        dialog.drop();
        EXPECT_THAT(state->calls, ElementsAre("restore", "save"));
        dialog.drop();
        EXPECT_THAT(state->calls, ElementsAre("restore", "save")) << "closed already";
        dialog.launch();
        dialog.done(0);
        dialog.launch();
        dialog.close();
        EXPECT_THAT(state->calls, ElementsAre("restore", "save", "restore", "save", "restore", "save"));
        dialog.launch();
        state->calls.clear();
    }
    EXPECT_THAT(state->calls, ElementsAre("save"));
}

TEST_F(QtDialogAbstractTest, SavesNothingWhenItNeverAppeared)
{
    auto const state = boost::make_shared<RecordingState>();
    {
        SampleDialog dialog(parent);
        dialog.addPersistentState(state);
    }
    EXPECT_THAT(state->calls, IsEmpty());
}

class HelpTest : public QtDialogAbstractTest
{
protected:
    HelpTest()
    {
        HelpLauncher::install([this](std::string const& topic) { topics.push_back(topic); });
        dialog.setHelpAction(new LaunchHelpAction("sample.html", dialog));
        dialog.launch();
        EXPECT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == &dialog; }));
    }
    ~HelpTest() override { HelpLauncher::install(HelpLauncher::Opener()); }

    SampleDialog dialog{parent};
    std::vector<std::string> topics;
};

TEST_F(HelpTest, OpensItsTopicByF1)
{
    QTest::keyClick(dialog.field, Qt::Key_F1);
    EXPECT_THAT(topics, ElementsAre("sample.html"));
}

TEST_F(HelpTest, OpensItsTopicByTheHelpButtonAndStaysOpen)
{
    QTest::mouseClick(dialog.buttons->button(QDialogButtonBox::Help), Qt::LeftButton);
    EXPECT_THAT(topics, ElementsAre("sample.html"));
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(HelpTest, DoesNothingWhenTheApplicationHasNoHelp)
{
    HelpLauncher::install(HelpLauncher::Opener());
    QTest::keyClick(dialog.field, Qt::Key_F1);
    EXPECT_THAT(topics, IsEmpty());
}

} // namespace
} // namespace veldraw::tests
