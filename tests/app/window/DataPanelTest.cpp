#include "app/window/DataPanel.h"

#include "app/window/DockTableView.h"
#include "host/MessageLog.h"
#include "kernel/operations/DeleteVariables.h"
#include "tests/app/support/WindowTest.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QStyleOptionViewItem>
#include <QTest>

namespace veldraw::tests {

namespace {

class DataPanelTest : public WindowTest
{
protected:
    DataPanelTest()
    {
        openFrames({{"flow", makeFlow()}, {"series", makeSeries()}});
        showWindow();
    }

    app::DockTableView& view(char const* name)
    {
        return *window->findChild<app::DockTableView*>(QString::fromLatin1(name));
    }

    static void clickCheckBox(app::DockTableView& view, int row)
    {
        QModelIndex const index = view.model()->index(row, 0);
        QStyleOptionViewItem option;
        option.initFrom(&view);
        option.rect = view.visualRect(index);
        option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
        option.text = index.data().toString();
        option.widget = &view;
        QRect const box = view.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &view);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, box.center());
        settle();
    }

    static QPoint nameCell(app::DockTableView& view, int row)
    {
        return view.visualRect(view.model()->index(row, 1)).center();
    }

    static void focusOn(app::DockTableView& view, int row)
    {
        view.setFocus();
        view.setCurrentIndex(view.model()->index(row, 1));
        settle();
    }

    /// Opens the editor of the first zone's name by F2, its text selected; null when none comes.
    QLineEdit* editorOfFirstZone()
    {
        app::DockTableView& zones = view("zoneView");
        focusOn(zones, 0);
        QTest::keyClick(&zones, Qt::Key_F2);
        auto* const editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        if (editor)
            editor->selectAll();
        return editor;
    }
};

} // namespace

TEST_F(DataPanelTest, ShowsWhatTheActiveFrameHas)
{
    EXPECT_EQ(2, view("frameView").model()->rowCount());
    EXPECT_EQ(2, view("zoneView").model()->rowCount());
    EXPECT_EQ(3, view("variableView").model()->rowCount());
}

TEST_F(DataPanelTest, FollowsAnotherActiveFrameAtIdle)
{
    session.activateFrame(session.activePage()->frames[1]->id);
    settle();
    EXPECT_EQ(1, view("zoneView").model()->rowCount());
    EXPECT_EQ(QStringLiteral("v"), view("variableView").model()->index(1, 1).data().toString());
}

TEST_F(DataPanelTest, ADoubleClickActivatesAFrame)
{
    app::DockTableView& frames = view("frameView");
    QTest::mouseClick(frames.viewport(), Qt::LeftButton, {}, nameCell(frames, 1));
    QTest::mouseDClick(frames.viewport(), Qt::LeftButton, {}, nameCell(frames, 1));
    settle();
    EXPECT_EQ("series", session.activeFrame()->name);
}

TEST_F(DataPanelTest, ReturnActivatesAFrame)
{
    app::DockTableView& frames = view("frameView");
    focusOn(frames, 1);
    QTest::keyClick(&frames, Qt::Key_Return);
    settle();
    EXPECT_EQ("series", session.activeFrame()->name);
}

TEST_F(DataPanelTest, AClickOnTheBoxDisablesAZone)
{
    clickCheckBox(view("zoneView"), 1);
    EXPECT_FALSE(session.activeDataSet()->zone(2)->enabled);
    EXPECT_EQ("Disable Zone", session.history().undoName());
    clickCheckBox(view("zoneView"), 1);
    EXPECT_TRUE(session.activeDataSet()->zone(2)->enabled);
}

TEST_F(DataPanelTest, SpaceDisablesAVariableWhereverTheCursorStandsInItsRow)
{
    app::DockTableView& variables = view("variableView");
    focusOn(variables, 2);
    QTest::keyClick(&variables, Qt::Key_Space);
    settle();
    EXPECT_FALSE(session.activeDataSet()->variable(3)->enabled);
    EXPECT_EQ(Qt::Unchecked, variables.model()->index(2, 0).data(Qt::CheckStateRole).toInt());
}

TEST_F(DataPanelTest, F2RenamesInPlace)
{
    QLineEdit* const editor = editorOfFirstZone();
    ASSERT_NE(nullptr, editor);
    QTest::keyClicks(editor, QStringLiteral("entry"));
    QTest::keyClick(editor, Qt::Key_Return);
    settle();
    EXPECT_EQ("entry", session.activeDataSet()->zone(1)->name);
    EXPECT_EQ(QStringLiteral("entry"), view("zoneView").model()->index(0, 1).data().toString());
}

TEST_F(DataPanelTest, EscapeLeavesTheNameAlone)
{
    QLineEdit* const editor = editorOfFirstZone();
    ASSERT_NE(nullptr, editor);
    QTest::keyClicks(editor, QStringLiteral("entry"));
    QTest::keyClick(editor, Qt::Key_Escape);
    settle();
    EXPECT_EQ("inlet", session.activeDataSet()->zone(1)->name);
}

TEST_F(DataPanelTest, KeepsTheSelectedRowWhenAnotherOneGoes)
{
    app::DockTableView& variables = view("variableView");
    focusOn(variables, 2);
    ASSERT_TRUE(session.perform(kernel::DeleteVariables(*session.activeDataSet(), {1})));
    settle();
    EXPECT_EQ(1, variables.currentIndex().row());
    EXPECT_EQ(QStringLiteral("P"), variables.currentIndex().siblingAtColumn(1).data().toString());
}

TEST_F(DataPanelTest, TellsWhyTheKernelRefusesAnEdit)
{
    QLineEdit* const editor = editorOfFirstZone();
    ASSERT_NE(nullptr, editor);
    QTest::keyClick(editor, Qt::Key_Delete);
    QTest::keyClick(editor, Qt::Key_Return);
    settle();
    ASSERT_EQ(1u, host::MessageLog::instance().entries().size());
    EXPECT_EQ("A name must not be empty.", host::MessageLog::instance().entries().front().text);
    EXPECT_EQ("inlet", session.activeDataSet()->zone(1)->name);
}

TEST_F(DataPanelTest, EveryListHasANameForScreenReaders)
{
    for (char const* name : {"frameView", "zoneView", "variableView"})
        EXPECT_FALSE(view(name).accessibleName().isEmpty()) << name;
}

} // namespace veldraw::tests
