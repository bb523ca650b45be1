#include "app/window/LineMapPanel.h"

#include "app/window/LineMapTableModel.h"
#include "app/window/LineMapView.h"
#include "kernel/operations/SetPlotType.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "tests/app/support/WindowTest.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QColorDialog>
#include <QDockWidget>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <gmock/gmock.h>

namespace veldraw::tests {

namespace {

using Model = app::LineMapTableModel;
using testing::ElementsAre;

class LineMapPanelTest : public WindowTest
{
protected:
    /// A line plot of the flow with as many curves.
    void open(int count)
    {
        openFlow();
        kernel::UniqueId const frame = session.activeFrame()->id;
        session.perform(kernel::SetPlotType(frame, PlotType_XYLine));
        for (int map = 1; map < count; ++map)
            session.perform(kernel::CreateLineMap(frame));
        session.history().clear();
        showWindow();
        window->resize(1200, 800);
        action("lineMapsAction").trigger();
        settle();
        m_tester = std::make_unique<QAbstractItemModelTester>(table().model(),
                                                              QAbstractItemModelTester::FailureReportingMode::Fatal);
    }

    void TearDown() override { m_tester.reset(); }

    app::LineMapView& table() { return *window->findChild<app::LineMapView*>(); }
    std::vector<kernel::LineMap> const& maps() { return session.activeFrame()->lineMaps; }

    QModelIndex cell(int row, int column) { return table().model()->index(row, column); }
    QString text(int row, int column) { return cell(row, column).data().toString(); }

    void press(char const* button)
    {
        auto& found = *window->findChild<QToolButton*>(QString::fromLatin1(button));
        QTest::mouseClick(&found, Qt::LeftButton);
        settle();
    }

    void click(int row, int column, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(table().viewport(), Qt::LeftButton, modifiers,
                          table().visualRect(cell(row, column)).center());
        settle();
    }

    /// At the box of a cell, which stands at its left.
    void check(int row, int column)
    {
        QRect const place = table().visualRect(cell(row, column));
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, {place.left() + 10, place.center().y()});
        settle();
    }

    /// Opens the list of a cell by F2 and chooses by keys.
    void choose(int row, int column, std::vector<Qt::Key> const& keys)
    {
        QWidget& popup = popupOf(row, column);
        for (Qt::Key const key : keys)
            QTest::keyClick(&popup, key);
        QTest::keyClick(&popup, Qt::Key_Return);
        settle();
    }

    QWidget& popupOf(int row, int column)
    {
        auto& chooser = *editorOf<app::NumberChooser>(row, column);
        EXPECT_TRUE(QTest::qWaitFor([&] { return chooser.view()->isVisible(); })) << "the list opens at once";
        return *chooser.view();
    }

    template <typename Editor>
    Editor* editorOf(int row, int column)
    {
        table().setFocus();
        table().selectionModel()->setCurrentIndex(cell(row, column), QItemSelectionModel::NoUpdate);
        QTest::keyClick(&table(), Qt::Key_F2);
        return table().viewport()->findChild<Editor*>();
    }

    void type(int row, int column, char const* typed)
    {
        auto* const editor = editorOf<QWidget>(row, column);
        ASSERT_NE(nullptr, editor);
        auto* const line =
            qobject_cast<QLineEdit*>(editor) ? qobject_cast<QLineEdit*>(editor) : editor->findChild<QLineEdit*>();
        line->selectAll();
        QTest::keyClicks(line, QString::fromLatin1(typed));
        QTest::keyClick(editor, Qt::Key_Return);
        settle();
    }

    std::vector<bool> shown()
    {
        std::vector<bool> all;
        for (kernel::LineMap const& map : maps())
            all.push_back(map.active);
        return all;
    }

    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

} // namespace

TEST_F(LineMapPanelTest, ListsWhatEachCurveShowsAndLooksLike)
{
    open(2);
    QStringList texts;
    for (int column = 0; column < Model::ColumnCount; ++column)
        texts << text(1, column);
    EXPECT_EQ(QStringLiteral("2|Map 2|1: inlet|1: X|2: Y|automatic|solid|2||Y"), texts.join(QLatin1Char('|')));
    EXPECT_EQ(Qt::Checked, cell(1, 0).data(Qt::CheckStateRole).toInt());
    EXPECT_EQ(Qt::Unchecked, cell(1, Model::SymbolsColumn).data(Qt::CheckStateRole).toInt());
    EXPECT_EQ(QColor(0xD1, 0x5F, 0x1B), cell(1, Model::ColourColumn).data(Qt::DecorationRole).value<QColor>());
    EXPECT_TRUE(table().hasFocus());
}

TEST_F(LineMapPanelTest, AddsDuplicatesAndDeletesByButtons)
{
    open(1);
    press("addLineMap");
    EXPECT_EQ(2U, maps().size());
    EXPECT_EQ("New Line Map", session.history().undoName());
    EXPECT_TRUE(table().selectionModel()->isRowSelected(1, {}));
    type(1, Model::NameColumn, "lift");
    press("duplicateLineMaps");
    ASSERT_EQ(3U, maps().size());
    EXPECT_EQ("lift", maps()[2].name);
    EXPECT_FALSE(table().selectionModel()->isRowSelected(1, {}));
    EXPECT_TRUE(table().selectionModel()->isRowSelected(2, {})) << "the copy is selected";
    click(0, Model::NameColumn);
    click(1, Model::NameColumn, Qt::ControlModifier);
    press("deleteLineMaps");
    ASSERT_EQ(1U, maps().size());
    EXPECT_EQ("lift", maps()[0].name);
    session.undo();
    settle();
    EXPECT_EQ(3, table().model()->rowCount());
    click(0, Model::NameColumn);
    QTest::keyClick(&table(), Qt::Key_Delete);
    settle();
    EXPECT_EQ(2U, maps().size());
    EXPECT_NE(std::string::npos, session.journal().script().find("duplicate-line-maps maps=2"))
        << session.journal().script();
}

TEST_F(LineMapPanelTest, ABoxShowsAndHidesACurve)
{
    open(2);
    check(1, 0);
    EXPECT_THAT(shown(), ElementsAre(true, false));
    EXPECT_EQ("Line Map", session.history().undoName());
    session.undo();
    settle();
    EXPECT_EQ(Qt::Checked, cell(1, 0).data(Qt::CheckStateRole).toInt());
    check(0, Model::SymbolsColumn);
    EXPECT_EQ(std::optional<bool>(true), maps()[0].look.symbols);
    EXPECT_FALSE(maps()[1].look.symbols.has_value());
}

TEST_F(LineMapPanelTest, SpaceSwitchesTheBoxOfTheRow)
{
    open(2);
    click(1, Model::NameColumn);
    QTest::keyClick(&table(), Qt::Key_Space);
    settle();
    EXPECT_THAT(shown(), ElementsAre(true, false));
}

TEST_F(LineMapPanelTest, CellsAreEditedInPlace)
{
    open(2);
    type(0, Model::NameColumn, "drag");
    EXPECT_EQ("drag", maps()[0].name);
    type(0, Model::WidthColumn, "4.5");
    EXPECT_EQ(4.5, maps()[0].look.width);
    choose(0, Model::ZoneColumn, {Qt::Key_Down});
    EXPECT_EQ(session.activeDataSet()->zone(2)->id, maps()[0].zone);
    choose(0, Model::YColumn, {Qt::Key_Down});
    EXPECT_EQ(session.activeDataSet()->variable(3)->id, maps()[0].yVariable);
    choose(0, Model::XColumn, {Qt::Key_Down});
    EXPECT_EQ(session.activeDataSet()->variable(2)->id, maps()[0].xVariable);
    choose(0, Model::LineColumn, {Qt::Key_Down, Qt::Key_Down});
    EXPECT_EQ(kernel::LineStyle::Dotted, maps()[0].look.style);
    choose(0, Model::ColourColumn, {Qt::Key_Down, Qt::Key_Down});
    EXPECT_EQ(0xD15F1B, maps()[0].look.colour);
    EXPECT_EQ(QStringLiteral("orange"), text(0, Model::ColourColumn));
    choose(0, Model::AxisColumn, {Qt::Key_Down});
    EXPECT_TRUE(maps()[0].isOnSecondAxis);
    EXPECT_EQ(QStringLiteral("Y2"), text(0, Model::AxisColumn));
    EXPECT_EQ("Map 2", maps()[1].name);
    EXPECT_TRUE(maps()[1].look == kernel::CurveLook()) << "the other one is as it was";
    for (int step = 0; step < 8; ++step)
        session.undo();
    EXPECT_FALSE(session.history().canUndo()) << "each is one step";
}

TEST_F(LineMapPanelTest, AnyColourCanBeChosen)
{
    open(1);
    QWidget& popup = popupOf(0, Model::ColourColumn);
    QTest::keyClick(&popup, Qt::Key_End);
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [this] {
        if (auto* const dialog = window->findChild<QColorDialog*>(QStringLiteral("curveColourDialog"))) {
            dialog->setCurrentColor(QColor(1, 2, 3));
            dialog->accept();
        }
    });
    poll.start(10);
    QTest::keyClick(&popup, Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([this] { return maps()[0].look.colour == 0x010203; }));
    settle();
    EXPECT_EQ(QStringLiteral("#010203"), text(0, Model::ColourColumn));
}

TEST_F(LineMapPanelTest, SelectedRowsChangeTogetherButForTheirNames)
{
    open(3);
    click(0, Model::NameColumn);
    click(2, Model::NameColumn, Qt::ControlModifier);
    type(0, Model::WidthColumn, "6");
    EXPECT_EQ(6.0, maps()[0].look.width);
    EXPECT_EQ(2.0, maps()[1].look.width);
    EXPECT_EQ(6.0, maps()[2].look.width);
    check(2, 0);
    EXPECT_THAT(shown(), ElementsAre(false, true, false)) << "a click at a box keeps the rows selected";
    type(0, Model::NameColumn, "one");
    EXPECT_EQ("Map 3", maps()[2].name);
    type(1, Model::WidthColumn, "9");
    EXPECT_EQ(6.0, maps()[0].look.width) << "a row that is not selected changes alone";
    EXPECT_EQ(9.0, maps()[1].look.width);
}

TEST_F(LineMapPanelTest, AllAndInvertGoByTheFilter)
{
    open(3);
    type(1, Model::NameColumn, "lift");
    check(0, 0);
    auto& filter = *window->findChild<QLineEdit*>(QStringLiteral("lineMapFilter"));
    QTest::keyClicks(&filter, QStringLiteral("MAP"));
    EXPECT_FALSE(table().isRowHidden(0));
    EXPECT_TRUE(table().isRowHidden(1));
    press("invertLineMaps");
    EXPECT_THAT(shown(), ElementsAre(true, true, false));
    session.undo();
    settle();
    EXPECT_THAT(shown(), ElementsAre(false, true, true)) << "one step";
    press("showAllLineMaps");
    EXPECT_THAT(shown(), ElementsAre(true, true, true));
    filter.clear();
    press("invertLineMaps");
    EXPECT_THAT(shown(), ElementsAre(false, false, false));
    press("showAllLineMaps");
    EXPECT_THAT(shown(), ElementsAre(true, true, true));
}

TEST_F(LineMapPanelTest, WhatTheFilterHidesIsNotSelected)
{
    open(2);
    type(0, Model::NameColumn, "lift");
    table().selectAll();
    QTest::keyClicks(window->findChild<QLineEdit*>(QStringLiteral("lineMapFilter")), QStringLiteral("lift"));
    press("deleteLineMaps");
    ASSERT_EQ(1U, maps().size());
    EXPECT_EQ("Map 2", maps()[0].name);
}

TEST_F(LineMapPanelTest, FollowsTheActiveFrameAndItsPlotType)
{
    open(2);
    session.perform(kernel::SetPlotType(session.activeFrame()->id, PlotType_Cartesian2D));
    settle();
    EXPECT_EQ(0, table().model()->rowCount());
    EXPECT_FALSE(window->findChild<QToolButton*>(QStringLiteral("addLineMap"))->isEnabled());
    session.undo();
    settle();
    EXPECT_EQ(2, table().model()->rowCount());
}

TEST_F(LineMapPanelTest, NothingIsDoneWhileACommandRuns)
{
    open(1);
    table().selectRow(0);
    {
        sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
        press("addLineMap");
        press("duplicateLineMaps");
        QTest::keyClick(&table(), Qt::Key_Delete);
        check(0, 0);
    }
    settle();
    EXPECT_EQ(1U, maps().size());
    EXPECT_TRUE(maps()[0].active);
}

} // namespace veldraw::tests
