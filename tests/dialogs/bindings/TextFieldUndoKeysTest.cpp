#include "dialogs/bindings/TextFieldUndoKeys.h"

#include "dialogs/bindings/TextFieldPropertyBinding.h"
#include "dialogs/property/Property.h"
#include "tests/dialogs/bindings/FieldWindow.h"

#include <QAction>

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>
#include <string>

namespace veldraw::tests {
namespace {

using sdk::ui::dialogs::propertybindings::TextFieldPropertyBinding;

/// A bound field in a program that has undo and redo in all of its windows.
class TextFieldUndoKeysTest : public ::testing::Test
{
protected:
    TextFieldUndoKeysTest()
    {
        addAction(QKeySequence::Undo, undone);
        addAction(QKeySequence::Redo, redone);
        addAction(QKeySequence::SelectAll, selected);
    }

    void addAction(QKeySequence::StandardKey key, int& count)
    {
        auto* const action = new QAction(&window.dialog);
        action->setShortcuts(key);
        action->setShortcutContext(Qt::ApplicationShortcut);
        QObject::connect(action, &QAction::triggered, action, [&count] { ++count; });
        window.dialog.addAction(action);
    }
    void pressUndo() { QTest::keyClick(window.field, Qt::Key_Z, Qt::ControlModifier); }
    void pressRedo() { QTest::keyClick(window.field, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }

    int undone = 0;
    int redone = 0;
    int selected = 0;
    FieldWindow window;
    boost::shared_ptr<Property<std::string>> property = boost::make_shared<Property<std::string>>("old");
    TextFieldPropertyBinding<std::string> binding{window.field, property};
};

TEST_F(TextFieldUndoKeysTest, GoToTheApplicationOnceATextIsFinished)
{
    window.enter("new");
    EXPECT_TRUE(window.field->hasFocus());
    pressUndo();
    pressRedo();
    EXPECT_EQ(undone, 1);
    EXPECT_EQ(redone, 1);
    EXPECT_EQ(window.shown(), "new");
}

TEST_F(TextFieldUndoKeysTest, StayInTheFieldWhileATextIsBeingTyped)
{
    window.type("new");
    pressUndo();
    EXPECT_NE(window.shown(), "new");
    while (window.field->isUndoAvailable())
        pressUndo();
    EXPECT_EQ(window.shown(), "old");
    while (window.field->isRedoAvailable())
        pressRedo();
    EXPECT_EQ(window.shown(), "new");
    EXPECT_EQ(undone, 0);
    EXPECT_EQ(redone, 0);
}

TEST_F(TextFieldUndoKeysTest, AreTheOnlyOnesThatTheFieldGivesAway)
{
    window.field->setFocus();
    window.field->deselect();
    QTest::keyClick(window.field, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(window.field->selectedText().toStdString(), "old");
    EXPECT_EQ(selected, 0);
}

} // namespace
} // namespace veldraw::tests
