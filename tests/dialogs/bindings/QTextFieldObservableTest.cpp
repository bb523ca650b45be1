#include "dialogs/bindings/QTextFieldObservable.h"

#include "tests/dialogs/bindings/FieldWindow.h"

#include <QApplication>
#include <QFocusEvent>
#include <QMenu>
#include <QTimer>

#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>

namespace veldraw::tests {
namespace {

using sdk::ui::dialogs::propertybindings::QTextFieldObservable;

class QTextFieldObservableTest : public ::testing::Test
{
protected:
    void leaveFor(Qt::FocusReason reason)
    {
        QFocusEvent event(QEvent::FocusOut, reason);
        QApplication::sendEvent(window.field, &event);
    }

    FieldWindow window;
    int calls = 0;
    bool answer = true;
    QTextFieldObservable observable{*window.field, [this] {
                                        ++calls;
                                        return answer;
                                    }};
};

TEST_F(QTextFieldObservableTest, TellsNothingWhileTheUserTypes)
{
    window.type("1234");
    window.press(Qt::Key_Backspace);
    window.press(Qt::Key_Left);
    EXPECT_EQ(calls, 0);
}

TEST_F(QTextFieldObservableTest, TellsReturnAndEnterWhetherTypedOrNot)
{
    window.field->setFocus();
    window.press(Qt::Key_Return);
    EXPECT_EQ(calls, 1);
    QTest::keyClick(window.field, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(calls, 2);
    window.enter("5");
    EXPECT_EQ(calls, 3);
}

TEST_F(QTextFieldObservableTest, KeepsReturnAndEnterFromTheDefaultButton)
{
    window.enter("5");
    QTest::keyClick(window.field, Qt::Key_Enter, Qt::KeypadModifier);
    answer = false;
    window.press(Qt::Key_Return);
    EXPECT_EQ(calls, 3);
    EXPECT_EQ(window.clicks, 0);
    // The button would be pressed from a field that nobody observes.
    QTest::keyClick(window.after, Qt::Key_Return);
    EXPECT_EQ(window.clicks, 1);
}

TEST_F(QTextFieldObservableTest, TellsThatTheFocusLeavesATypedText)
{
    window.type("1");
    window.press(Qt::Key_Tab);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(window.dialog.focusWidget(), window.after);
    window.type("2");
    QTest::keyClick(window.field, Qt::Key_Backtab);
    EXPECT_EQ(calls, 2);
    window.type("3");
    QTest::mouseClick(window.after, Qt::LeftButton);
    EXPECT_EQ(calls, 3);
    EXPECT_TRUE(window.after->hasFocus());
}

TEST_F(QTextFieldObservableTest, TellsNothingWhenTheFocusLeavesATextThatWasNotTyped)
{
    window.field->setText(QStringLiteral("7"));
    window.field->setFocus();
    window.press(Qt::Key_Tab);
    EXPECT_EQ(calls, 0);
}

TEST_F(QTextFieldObservableTest, IgnoresThatTheFocusGoesToAWindowAPopupOrTheMenuBar)
{
    window.type("1");
    leaveFor(Qt::ActiveWindowFocusReason);
    leaveFor(Qt::PopupFocusReason);
    leaveFor(Qt::MenuBarFocusReason);
    EXPECT_EQ(calls, 0);
    for (Qt::FocusReason const reason : {Qt::MouseFocusReason, Qt::TabFocusReason, Qt::BacktabFocusReason,
                                         Qt::ShortcutFocusReason, Qt::OtherFocusReason}) {
        calls = 0;
        leaveFor(reason);
        EXPECT_EQ(calls, 1) << reason;
    }
}

TEST_F(QTextFieldObservableTest, TellsNothingWhenAnotherWindowComesToTheFront)
{
    window.type("1");
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_FALSE(window.field->hasFocus());
    EXPECT_EQ(calls, 0);
    EXPECT_TRUE(window.field->isModified());
}

TEST_F(QTextFieldObservableTest, TellsNothingWhenAMenuPopsUp)
{
    window.type("1");
    QMenu menu;
    menu.addAction(QStringLiteral("a"));
    QTimer::singleShot(0, &menu, [&menu] { menu.close(); });
    menu.exec();
    EXPECT_EQ(calls, 0);
}

TEST_F(QTextFieldObservableTest, TellsNothingOfAFieldThatTheUserCannotTypeIntoAnyMore)
{
    window.type("1");
    window.field->setReadOnly(true);
    leaveFor(Qt::TabFocusReason);
    window.field->setReadOnly(false);
    window.field->setEnabled(false);
    leaveFor(Qt::OtherFocusReason);
    window.field->setEnabled(true);
    window.field->hide();
    leaveFor(Qt::OtherFocusReason);
    EXPECT_EQ(calls, 0);
    window.field->show();
    leaveFor(Qt::OtherFocusReason);
    EXPECT_EQ(calls, 1);
}

TEST_F(QTextFieldObservableTest, TellsNothingWhenTheDialogClosesOrEscapes)
{
    window.type("1");
    window.press(Qt::Key_Escape);
    EXPECT_FALSE(window.dialog.isVisible());
    window.dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window.dialog));
    window.field->setFocus();
    window.dialog.close();
    EXPECT_EQ(calls, 0);
}

TEST_F(QTextFieldObservableTest, LeavesFocusEventsToTheField)
{
    window.type("1");
    int left = 0;
    QObject::connect(window.field, &QLineEdit::editingFinished, &window.dialog, [&left] { ++left; });
    window.press(Qt::Key_Tab);
    EXPECT_EQ(left, 1);
}

TEST_F(QTextFieldObservableTest, LeavesOtherKeysToTheDialog)
{
    window.field->setFocus();
    QTest::keyClick(window.field, Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return window.clicks == 1; })) << "a mnemonic presses the button for a moment";
    EXPECT_EQ(calls, 0);
}

TEST(QTextFieldObservable, LeavesOutACallWithinACall)
{
    FieldWindow window;
    int calls = 0;
    QTextFieldObservable const observable(*window.field, [&window, &calls] {
        ++calls;
        window.after->setFocus();
        window.field->setFocus();
        QTest::keyClick(window.field, Qt::Key_Return);
        return false;
    });
    window.enter("1");
    EXPECT_EQ(calls, 1);
    window.press(Qt::Key_Return);
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(window.clicks, 0);
}

TEST(QTextFieldObservable, TellsAgainAfterACallThatThrew)
{
    FieldWindow window;
    bool fails = true;
    int calls = 0;
    QTextFieldObservable observable(*window.field, [&fails, &calls] {
        ++calls;
        if (fails)
            throw std::runtime_error("full");
        return true;
    });
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    EXPECT_THROW(observable.eventFilter(window.field, &key), std::runtime_error);
    fails = false;
    EXPECT_TRUE(observable.eventFilter(window.field, &key));
    EXPECT_EQ(calls, 2);
}

TEST(QTextFieldObservable, MayEndWithinItsOwnCall)
{
    FieldWindow window;
    std::unique_ptr<QTextFieldObservable> observable;
    auto held = std::make_shared<int>(0);
    std::weak_ptr<int> const watch = held;
    int calls = 0;
    bool isFunctionWhole = false;
    auto const finished = [&] {
        observable.reset();
        isFunctionWhole = !watch.expired();
        ++calls;
        return true;
    };
    observable = std::make_unique<QTextFieldObservable>(*window.field, [&finished, held] { return finished(); });
    held.reset();
    window.enter("1");
    EXPECT_TRUE(isFunctionWhole) << "what the function holds must last to its end";
    EXPECT_TRUE(watch.expired());
    window.press(Qt::Key_Return); // to nobody's observable: the default button
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(window.clicks, 1);
}

TEST(QTextFieldObservable, SurvivesThatTheFieldEndsWithinItsCall)
{
    FieldWindow window;
    auto* const field = new QLineEdit(&window.dialog);
    field->show();
    int calls = 0;
    QTextFieldObservable const observable(*field, [field, &calls] {
        ++calls;
        delete field;
        return true;
    });
    field->setFocus();
    QTest::keyClicks(field, QStringLiteral("1"));
    window.before->setFocus();
    EXPECT_EQ(calls, 1);
    EXPECT_TRUE(window.before->hasFocus());
}

} // namespace
} // namespace veldraw::tests
