#include "tests/dialogs/spreadsheet/LongTable.h"

#include <QHeaderView>
#include <QMenu>
#include <QMouseEvent>
#include <QStyleOptionSlider>
#include <QTimer>

namespace veldraw::tests {
namespace {

/// The table and a mouse.
class LongTableByMouse : public LongTable
{
protected:
    QPoint placeOf(unsigned long long row, int column)
    {
        return view.visualRect(adapter.index(adapter.windowRow(row), column)).center();
    }
    void click(unsigned long long row, int column, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers, placeOf(row, column));
        settle();
    }
    void clickName(unsigned long long row, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QPoint const place(5, view.verticalHeader()->sectionViewportPosition(adapter.windowRow(row)) + 5);
        QTest::mouseClick(view.verticalHeader()->viewport(), Qt::LeftButton, modifiers, place);
        settle();
    }
    /// Moves the mouse over the cells or beside them with its left button down.
    void drag(QPoint const& place)
    {
        QMouseEvent event(QEvent::MouseMove, place, view.viewport()->mapToGlobal(place), Qt::NoButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(view.viewport(), &event);
        settle();
    }
    void pressAt(QPoint const& place) { QTest::mousePress(view.viewport(), Qt::LeftButton, Qt::NoModifier, place); }
    void releaseAt(QPoint const& place)
    {
        QTest::mouseRelease(view.viewport(), Qt::LeftButton, Qt::NoModifier, place);
        settle();
    }

    void scrollTo(unsigned long long row)
    {
        window.scrollTo(Qt::Vertical, row);
        settle();
    }

    /// "first cell - last cell" of what is selected in the table.
    std::string selected()
    {
        if (window.selection().size() != 1)
            return std::to_string(window.selection().size()) + " pieces";
        auto const [first, last] = window.selection().front();
        return std::to_string(first.row) + "," + std::to_string(first.column) + " - " + std::to_string(last.row) + "," +
               std::to_string(last.column);
    }
    /// The same of what the view shows as selected, for what is in its window.
    std::string highlighted()
    {
        QItemSelection const ranges = view.selectionModel()->selection();
        if (ranges.size() != 1)
            return std::to_string(ranges.size()) + " ranges";
        QItemSelectionRange const& range = ranges.front();
        return std::to_string(adapter.tableRow(range.top())) + "," + std::to_string(range.left()) + " - " +
               std::to_string(adapter.tableRow(range.bottom())) + "," + std::to_string(range.right());
    }
    QPoint handleOfBar()
    {
        QStyleOptionSlider option;
        option.initFrom(&bar);
        option.orientation = bar.orientation();
        option.minimum = bar.minimum();
        option.maximum = bar.maximum();
        option.sliderPosition = bar.sliderPosition();
        option.sliderValue = bar.value();
        option.pageStep = bar.pageStep();
        return bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, &bar).center();
    }
};

TEST_F(LongTableByMouse, ExtendsToACellFarBeyondTheBorderByShift)
{
    at(999990, 1);
    click(999991, 1);
    scrollTo(1700000);
    click(1700003, 2, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "999991,1 - 1700003,2");
    EXPECT_EQ(highlighted(), std::to_string(adapter.firstRow()) + ",1 - 1700003,2") << "only the window's part is seen";
    EXPECT_EQ(current(), "1700003, 2");
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(messages.take().size(), 1u) << "these are more cells than can be copied";
    scrollTo(1000010);
    click(1000012, 1, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "999991,1 - 1000012,1") << "from where it began";
    EXPECT_EQ(copied().substr(0, 17), "999991,1\n999992,1");
    scrollTo(5);
    click(7, 0, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "7,0 - 999991,1") << "and to the other side of it";
    click(8, 2);
    EXPECT_EQ(selected(), "8,2 - 8,2");
}

TEST_F(LongTableByMouse, BeginsAnewWithAClickOnTheCellThatIsCurrent)
{
    click(3, 0);
    click(9, 0, Qt::ShiftModifier);
    click(9, 0);
    click(11, 1, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "9,0 - 11,1");
}

TEST_F(LongTableByMouse, ExtendsWholeRowsByShiftOverTheBorder)
{
    at(999990, 0);
    clickName(999992);
    EXPECT_EQ(selected(), "999992,0 - 999992,2");
    scrollTo(1700000);
    clickName(1700002, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "999992,0 - 1700002,2");
    scrollTo(999995);
    clickName(999996, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "999992,0 - 999996,2");
    EXPECT_EQ(highlighted(), selected());
}

TEST_F(LongTableByMouse, CopiesPiecesWhereverTheyWerePicked)
{
    at(999998, 0);
    click(999998, 0);
    click(999999, 1, Qt::ControlModifier);
    EXPECT_EQ(selected(), "2 pieces");
    EXPECT_EQ(copied(), "999998,0\t\n\t999999,1");
    scrollTo(2000000000);
    EXPECT_EQ(copied(), "999998,0\t\n\t999999,1") << "although neither is in the window";
    scrollTo(1000000);
    click(1000000, 2, Qt::ControlModifier);
    EXPECT_EQ(copied(), "999998,0\t\t\n\t999999,1\t\n\t\t1000000,2");
    click(999999, 1, Qt::ControlModifier);
    EXPECT_EQ(copied(), "999998,0\t\n\t1000000,2")
        << "picked once more it is left out, and so are the row and the column that nothing else is picked of";
}

TEST_F(LongTableByMouse, KeepsPiecesOutOfTheWindowWhileOthersArePicked)
{
    at(300000, 0);
    click(300000, 0);
    scrollTo(1000000000);
    click(1000000001, 1, Qt::ControlModifier);
    EXPECT_EQ(selected(), "2 pieces");
    EXPECT_EQ(copied(), "300000,0\t\n\t1000000001,1") << "what lies between them is not selected";
    click(1000000001, 1);
    EXPECT_EQ(selected(), "1000000001,1 - 1000000001,1") << "without Control the selection begins anew";
}

TEST_F(LongTableByMouse, TakesAWholeColumnOutOfTheSelectionByControl)
{
    auto const clickColumn = [this](int column, Qt::KeyboardModifiers modifiers) {
        QTest::mouseClick(view.horizontalHeader()->viewport(), Qt::LeftButton, modifiers,
                          QPoint(view.columnViewportPosition(column) + 20, 5));
        settle();
    };
    clickColumn(1, Qt::NoModifier);
    EXPECT_EQ(selected(), "0,1 - 2999999999,1");
    clickColumn(1, Qt::ControlModifier);
    EXPECT_EQ(selected(), "0 pieces");
    clickColumn(1, Qt::NoModifier);
    click(4, 1, Qt::ControlModifier);
    unsigned long long last = 0;
    for (CellRange const& range : window.selection())
        last = std::max(last, range.last.row);
    EXPECT_EQ(last, rowsOfLongTable - 1) << "a column without one cell still goes on to its end";
}

TEST_F(LongTableByMouse, DragsASelectionOverTheBorderWhileItScrolls)
{
    scrollTo(998000);
    ASSERT_EQ(adapter.firstRow(), 0u);
    QPoint const start = placeOf(998002, 0);
    pressAt(start);
    QPoint const below(placeOf(998002, 1).x(), view.viewport()->height() + 20000);
    drag(below);
    EXPECT_TRUE(QTest::qWaitFor([this] { return top() > 1010000; })) << "it goes on while the mouse rests";
    EXPECT_GT(adapter.firstRow(), 0u) << "the window has moved on the way";
    drag(view.viewport()->rect().center());
    unsigned long long const stopped = top();
    QTest::qWait(150);
    EXPECT_EQ(top(), stopped) << "over the cells it does not scroll";
    QPoint const end = placeOf(stopped + 3, 1);
    drag(end);
    releaseAt(end);
    EXPECT_EQ(selected(), "998002,0 - " + std::to_string(stopped + 3) + ",1");
    EXPECT_EQ(current(), std::to_string(stopped + 3) + ", 1");
}

TEST_F(LongTableByMouse, DragsASelectionTowardsTheStartAndStopsThere)
{
    scrollTo(30);
    pressAt(placeOf(33, 2));
    drag(QPoint(placeOf(33, 0).x(), -5000));
    EXPECT_TRUE(QTest::qWaitFor([this] { return top() == 0; }));
    QPoint const end(placeOf(0, 0).x(), -1);
    releaseAt(end);
    EXPECT_EQ(selected(), "0,0 - 33,2");
}

TEST_F(LongTableByMouse, FollowsTheSliderThatIsDragged)
{
    QPoint const handle = handleOfBar();
    QTest::mousePress(&bar, Qt::LeftButton, Qt::NoModifier, handle);
    unsigned long long last = 0;
    for (int place = handle.y() + 40; place < bar.height(); place += 40) {
        QPoint const moved(handle.x(), place);
        QMouseEvent event(QEvent::MouseMove, moved, bar.mapToGlobal(moved), Qt::NoButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(&bar, &event);
        settle();
        EXPECT_GT(top(), last);
        EXPECT_EQ(topName(), std::to_string(top() + 1));
        last = top();
    }
    EXPECT_EQ(window.position(Qt::Vertical), window.lastPosition(Qt::Vertical));
    QTest::mouseRelease(&bar, Qt::LeftButton, Qt::NoModifier, QPoint(handle.x(), bar.height()));
    settle();
    EXPECT_EQ(window.position(Qt::Vertical), window.lastPosition(Qt::Vertical)) << "and stays where it is let go";
    EXPECT_EQ(bar.value(), bar.maximum());
}

TEST_F(LongTableByMouse, ScrollsHereByTheMenuOfItsBar)
{
    QTimer::singleShot(0, &view, [] {
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu);
        QTest::keyClick(menu, Qt::Key_Down); // "Scroll here"
        QTest::keyClick(menu, Qt::Key_Return);
    });
    QPoint const middle = bar.rect().center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, middle, bar.mapToGlobal(middle));
    QApplication::sendEvent(&bar, &event);
    settle();
    EXPECT_NEAR(static_cast<double>(top()), 1.5e9, 2e8);
}

/// As long in the other direction: three rows.
class WideTableByMouse : public LongTable
{
protected:
    WideTableByMouse()
        : LongTable(3, rowsOfLongTable)
    {
    }

    void goToColumn(unsigned long long column)
    {
        window.scrollTo(Qt::Horizontal, column);
        settle();
    }
    QPoint placeOfName(unsigned long long column)
    {
        return QPoint(view.columnViewportPosition(adapter.windowColumn(column)) + 20, 5);
    }
    void clickName(unsigned long long column, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mouseClick(view.horizontalHeader()->viewport(), Qt::LeftButton, modifiers, placeOfName(column));
        settle();
    }
    std::string selected()
    {
        auto const [first, last] = window.selection().at(0);
        return std::to_string(first.row) + "," + std::to_string(first.column) + " - " + std::to_string(last.row) + "," +
               std::to_string(last.column);
    }
};

TEST_F(WideTableByMouse, ExtendsWholeColumnsByShiftOverTheBorder)
{
    goToColumn(999990);
    clickName(999991);
    EXPECT_EQ(selected(), "0,999991 - 2,999991");
    goToColumn(2000000000);
    clickName(2000000002, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "0,999991 - 2,2000000002");
    goToColumn(5);
    clickName(7, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "0,7 - 2,999991");
}

TEST_F(WideTableByMouse, DragsASelectionToTheSide)
{
    goToColumn(998900);
    QPoint const start = placeOfName(998901);
    QTest::mousePress(view.viewport(), Qt::LeftButton, Qt::NoModifier, start);
    auto const drag = [this](QPoint const& place) {
        QMouseEvent event(QEvent::MouseMove, place, view.viewport()->mapToGlobal(place), Qt::NoButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(view.viewport(), &event);
        settle();
    };
    drag(QPoint(view.viewport()->width() + 3000, start.y()));
    EXPECT_TRUE(QTest::qWaitFor([this] { return window.position(Qt::Horizontal) > 1001000; }));
    drag(start);
    unsigned long long const column = adapter.tableColumn(view.columnAt(start.x()));
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, Qt::NoModifier, start);
    settle();
    EXPECT_EQ(selected(), "0,998901 - 0," + std::to_string(column));
}

/// What is typed in (10, 1) while the user looks elsewhere.
class LongTableBeingEdited : public LongTableByMouse
{
protected:
    LongTableBeingEdited()
    {
        at(10, 1);
        QTest::keyClick(&view, '7');
        QTest::keyClick(editor(), '8');
    }
    QLineEdit* editor() { return view.viewport()->findChild<QLineEdit*>(); }
    std::string stored() { return table.getStr(tables::ModelIndex(10, 1)); }
    void settleEditors()
    {
        settle();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

TEST_F(LongTableBeingEdited, KeepsTheEditorWhileItsCellIsInTheWindow)
{
    scrollTo(300000);
    EXPECT_EQ(stored(), "10,1");
    scrollTo(5);
    ASSERT_TRUE(editor());
    EXPECT_EQ(editor()->text(), QStringLiteral("78"));
    QTest::keyClick(editor(), Qt::Key_Return);
    EXPECT_EQ(stored(), "78");
}

TEST_F(LongTableBeingEdited, TakesTheTextWhenTheWindowLeavesTheCell)
{
    scrollTo(2000000000);
    settleEditors();
    EXPECT_EQ(stored(), "78");
    EXPECT_FALSE(editor());
    scrollTo(0);
    EXPECT_FALSE(editor());
}

TEST_F(LongTableBeingEdited, TakesTheTextWhenAKeyLeavesTheCell)
{
    QTest::keyClick(editor(), Qt::Key_PageDown);
    settleEditors();
    EXPECT_EQ(stored(), "78");
    EXPECT_FALSE(editor());
    EXPECT_EQ(current(), std::to_string(10 + window.pageSize(Qt::Vertical)) + ", 1");
}

TEST_F(LongTableBeingEdited, TakesTheTextWhenSomethingElseGoesFarAway)
{
    window.setCurrent(TableWindow::Cell(2500000000, 2), false);
    settleEditors();
    EXPECT_EQ(stored(), "78");
    EXPECT_FALSE(editor());
    EXPECT_EQ(current(), "2500000000, 2");
}

} // namespace
} // namespace veldraw::tests
