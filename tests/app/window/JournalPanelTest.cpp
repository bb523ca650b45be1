#include "app/window/JournalPanel.h"

#include "kernel/operations/CutOperation.h"
#include "kernel/operations/RenameZone.h"
#include "tests/app/support/WindowTest.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

namespace veldraw::tests {

namespace {

class JournalPanelTest : public WindowTest
{
protected:
    void SetUp() override
    {
        session.journal().clear();
        openFlow();
        showWindow();
        action("journalAction").trigger();
        settle();
    }

    QListWidget& list() { return *window->findChild<QListWidget*>(QStringLiteral("journalView")); }

    QStringList shown()
    {
        QStringList texts;
        for (int row = 0; row < list().count(); ++row) {
            QListWidgetItem const& item = *list().item(row);
            texts << (item.font().strikeOut() ? QStringLiteral("struck out: ") : QString()) + item.text();
        }
        return texts;
    }

    void rename(std::string const& name)
    {
        ASSERT_TRUE(session.perform(kernel::RenameZone(*session.activeDataSet(), 1, name)));
        settle();
    }
};

} // namespace

TEST_F(JournalPanelTest, ShowsWhatIsDoneAndStrikesOutWhatIsUndone)
{
    EXPECT_EQ(QStringList(), shown());
    EXPECT_FALSE(window->findChild<QPushButton*>(QStringLiteral("saveScriptButton"))->isEnabled());
    rename("a");
    rename("b");
    EXPECT_EQ((QStringList{QStringLiteral("rename-zone zone=1 name=a"), QStringLiteral("rename-zone zone=1 name=b")}),
              shown());
    EXPECT_TRUE(window->findChild<QPushButton*>(QStringLiteral("saveScriptButton"))->isEnabled());
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
    settle();
    EXPECT_EQ((QStringList{QStringLiteral("rename-zone zone=1 name=a"),
                           QStringLiteral("struck out: rename-zone zone=1 name=b")}),
              shown());
    EXPECT_EQ(QStringLiteral("Undone"), list().item(1)->toolTip());
    action("redoAction").trigger();
    settle();
    EXPECT_EQ(QStringLiteral("rename-zone zone=1 name=b"), shown().last());
}

TEST_F(JournalPanelTest, SaysWhatNoScriptCanRepeat)
{
    ASSERT_TRUE(session.perform(kernel::AddCut(session.activeFrame()->id, kernel::Cut())));
    settle();
    EXPECT_EQ(QStringList{QStringLiteral("# New Slice")}, shown());
    EXPECT_FALSE(list().item(0)->flags().testFlag(Qt::ItemIsEnabled));
    EXPECT_EQ(QStringLiteral("No command stands for this, so that no script can repeat it"), list().item(0)->toolTip());
}

TEST_F(JournalPanelTest, CopiesTheSelectedCommands)
{
    rename("a");
    rename("b");
    list().selectAll();
    QTest::keyClick(&list(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QStringLiteral("rename-zone zone=1 name=a\nrename-zone zone=1 name=b\n"),
              QGuiApplication::clipboard()->text());
}

TEST_F(JournalPanelTest, BecomesEmptyWithTheJournal)
{
    rename("a");
    session.journal().clear();
    settle();
    EXPECT_EQ(QStringList(), shown());
}

TEST_F(JournalPanelTest, GetsTheFocusByItsKey)
{
    EXPECT_TRUE(list().hasFocus());
    EXPECT_EQ(QKeySequence(Qt::CTRL + Qt::Key_9), action("journalAction").shortcut());
}

} // namespace veldraw::tests
