#include "tests/dialogs/spreadsheet/LongTable.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QItemSelectionModel>
#include <QPushButton>
#include <QWheelEvent>

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;

TEST_F(LongTable, ReachesItsLastRowByControlEndAndItsFirstByControlHome)
{
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(current(), "2999999999, 2");
    EXPECT_EQ(window.position(Qt::Vertical), window.lastPosition(Qt::Vertical));
    EXPECT_EQ(view.model()->index(view.currentIndex().row(), 0).data().toString(), QStringLiteral("2999999999,0"));
    EXPECT_EQ(bar.value(), bar.maximum());
    press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(current(), "0, 0");
    EXPECT_EQ(bar.value(), 0);
    EXPECT_EQ(topName(), "1");
}

TEST_F(LongTable, WalksOverTheBordersOfTheWindowByArrows)
{
    at(999998, 1);
    for (int step = 0; step < 4; ++step)
        press(Qt::Key_Down);
    EXPECT_EQ(current(), "1000002, 1");
    for (int step = 0; step < 5; ++step)
        press(Qt::Key_Up);
    EXPECT_EQ(current(), "999997, 1");
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    EXPECT_EQ(current(), "999997, 2");
    press(Qt::Key_Home);
    EXPECT_EQ(current(), "999997, 0");
    press(Qt::Key_End);
    EXPECT_EQ(current(), "999997, 2");
}

TEST_F(LongTable, TurnsPagesOverTheBordersOfTheWindow)
{
    at(999990, 0);
    auto const page = static_cast<unsigned long long>(window.pageSize(Qt::Vertical));
    ASSERT_GT(page, 5u);
    for (int turn = 0; turn < 4; ++turn)
        press(Qt::Key_PageDown);
    EXPECT_EQ(current(), std::to_string(999990 + 4 * page) + ", 0");
    press(Qt::Key_PageUp);
    EXPECT_EQ(current(), std::to_string(999990 + 3 * page) + ", 0");
    at(rowsOfLongTable - 2, 0);
    press(Qt::Key_PageDown);
    EXPECT_EQ(current(), "2999999999, 0");
    at(3, 0);
    press(Qt::Key_PageUp);
    EXPECT_EQ(current(), "0, 0");
}

TEST_F(LongTable, EntersValuesDownTheColumnsAcrossBorders)
{
    at(999999, 0);
    press(Qt::Key_Return);
    EXPECT_EQ(current(), "1000000, 0");
    at(rowsOfLongTable - 1, 0);
    press(Qt::Key_Return);
    EXPECT_EQ(current(), "0, 1");
    at(rowsOfLongTable - 1, 2);
    press(Qt::Key_Enter);
    EXPECT_EQ(current(), "0, 0");
}

TEST_F(LongTable, IsReadAlongItsRowsByTabFromTheLastCellToTheFirst)
{
    at(999999, 1);
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    EXPECT_EQ(current(), "1000000, 0");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(current(), "999999, 2");
    EXPECT_EQ(copied(), "999999,2") << "nothing more is selected";
    at(rowsOfLongTable - 1, 2);
    press(Qt::Key_Tab);
    EXPECT_EQ(current(), "0, 0");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(current(), "2999999999, 2");
}

TEST_F(LongTable, DoesNothingWithANumberThatIsNoRow)
{
    at(5, 2);
    goToRow.trigger();
    auto* const dialog = view.findChild<QDialog*>(QStringLiteral("GoToRow"));
    ASSERT_TRUE(dialog);
    auto* const number = dialog->findChild<QLineEdit*>();
    for (char const* const bad : {"", "0", "00", "3000000001", "9999999999999999999", "1,5", "2*3", "-7", "1.5e3",
                                  "99999999999999999999999", "1 5", "0x10", "x"}) {
        number->clear();
        QTest::keyClicks(number, QLatin1String(bad));
        EXPECT_EQ(number->text(), QLatin1String(bad)) << "no key is swallowed";
        QTest::keyClick(number, Qt::Key_Return);
        settle();
        EXPECT_TRUE(dialog->isVisible()) << bad;
        EXPECT_EQ(current(), "5, 2") << bad;
    }
    QTest::keyClick(number, Qt::Key_Escape);
    settle();
    EXPECT_EQ(current(), "5, 2");
}

TEST_F(LongTable, GoesNowhereWhenTheRowIsGoneByTheTimeItIsTyped)
{
    at(5, 2);
    goToRow.trigger();
    auto* const dialog = view.findChild<QDialog*>(QStringLiteral("GoToRow"));
    ASSERT_TRUE(dialog);
    QTest::keyClicks(dialog->findChild<QLineEdit*>(), QStringLiteral("2000"));
    table.resize(100, 3);
    QTest::keyClick(dialog->findChild<QLineEdit*>(), Qt::Key_Return);
    settle();
    EXPECT_EQ(current(), "none");
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(LongTable, TakesEditsAnywhere)
{
    at(2500000000ull, 1);
    QTest::keyClick(&view, '7');
    auto* const editor = view.viewport()->findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    QTest::keyClick(editor, Qt::Key_Tab);
    EXPECT_EQ(table.getStr(tables::ModelIndex(2500000000ull, 1)), "7");
}

TEST_F(LongTable, ScrollsByItsOwnBar)
{
    EXPECT_TRUE(bar.isVisible());
    EXPECT_FALSE(view.verticalScrollBar()->isVisible());
    bar.triggerAction(QAbstractSlider::SliderSingleStepAdd);
    settle();
    EXPECT_EQ(top(), 1u);
    EXPECT_EQ(topName(), "2");
    bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
    settle();
    EXPECT_EQ(top(), 1u + static_cast<unsigned>(window.pageSize(Qt::Vertical)));
    bar.setSliderPosition(bar.maximum() / 2);
    settle();
    EXPECT_NEAR(static_cast<double>(top()), 1.5e9, 10.0);
    bar.triggerAction(QAbstractSlider::SliderSingleStepSub);
    settle();
    unsigned long long const middle = top();
    bar.triggerAction(QAbstractSlider::SliderSingleStepAdd);
    settle();
    EXPECT_EQ(top(), middle + 1);
    bar.triggerAction(QAbstractSlider::SliderToMaximum);
    settle();
    EXPECT_EQ(window.position(Qt::Vertical), window.lastPosition(Qt::Vertical));
    EXPECT_EQ(view.rowAt(view.viewport()->height() - 1) < 0
                  ? rowsOfLongTable - 1
                  : adapter.tableRow(view.rowAt(view.viewport()->height() - 1)),
              rowsOfLongTable - 1);
    bar.triggerAction(QAbstractSlider::SliderToMinimum);
    settle();
    EXPECT_EQ(top(), 0u);
}

TEST_F(LongTable, RollsByTheWheelPastTheBorderOfTheWindow)
{
    window.scrollTo(Qt::Vertical, 999900);
    settle();
    unsigned long long last = top();
    for (int notch = 0; notch < 60; ++notch) {
        QWheelEvent event(QPointF(50, 50), view.viewport()->mapToGlobal(QPointF(50, 50).toPoint()), QPoint(),
                          QPoint(0, -120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(view.viewport(), &event);
        settle();
        EXPECT_GT(top(), last);
        last = top();
    }
    EXPECT_GT(last, 1000000u);
}

TEST_F(LongTable, KeepsCurrentCellAndSelectionWhereTheyBelongWhenTheWindowMovesAway)
{
    at(10, 1);
    window.scrollTo(Qt::Vertical, 2000000000ull);
    settle();
    EXPECT_EQ(current(), "none") << "no other cell takes its place";
    EXPECT_EQ(copied(), "10,1");
    press(Qt::Key_Down);
    EXPECT_EQ(current(), "11, 1") << "a key goes on from the cell that was left";
}

TEST_F(LongTable, CopiesAcrossTheBorder)
{
    at(999998, 0);
    press(Qt::Key_Right, Qt::ShiftModifier);
    for (int step = 0; step < 3; ++step)
        press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(current(), "1000001, 1");
    EXPECT_EQ(copied(), "999998,0\t999998,1\n999999,0\t999999,1\n1000000,0\t1000000,1\n1000001,0\t1000001,1");
}

TEST_F(LongTable, RefusesToCopyMoreThanTheMemoryHolds)
{
    view.selectColumn(1);
    settle();
    ASSERT_EQ(window.selection().size(), 1u);
    EXPECT_EQ(window.selection().front().last.row, rowsOfLongTable - 1) << "a column is all its rows";
    EXPECT_EQ(copied(), "nothing");
    EXPECT_THAT(messages.take(),
                ElementsAre("error: Too many cells are selected: no more than 1000000 can be copied."));
}

TEST_F(LongTable, CopiesPiecesThatOverlapOnce)
{
    auto const select = [this](int top, int left, int bottom, int right) {
        view.selectionModel()->select(QItemSelection(adapter.index(top, left), adapter.index(bottom, right)),
                                      QItemSelectionModel::Select);
    };
    select(4, 0, 6, 0);
    select(6, 0, 8, 1);
    select(5, 2, 5, 2);
    settle();
    EXPECT_EQ(copied(), "4,0\t\t\n5,0\t\t5,2\n6,0\t6,1\t\n7,0\t7,1\t\n8,0\t8,1\t");
}

/// Of 600,000 rows and columns.
class VastTable : public LongTable
{
protected:
    VastTable()
        : LongTable(600000, 600000)
    {
    }
};

TEST_F(VastTable, TellsFewCellsInTooManyRowsAndColumnsFromTooManyCells)
{
    QItemSelection cross(adapter.index(0, 0), adapter.index(0, 5999));
    cross.merge(QItemSelection(adapter.index(1, 0), adapter.index(5999, 0)), QItemSelectionModel::Select);
    view.selectionModel()->select(cross, QItemSelectionModel::Select);
    settle();
    EXPECT_EQ(copied(), "nothing");
    EXPECT_THAT(messages.take(),
                ElementsAre("error: The selected cells are in too many rows and columns to be copied at once."));
}

TEST_F(LongTable, GoesToARowByItsNumber)
{
    at(5, 2);
    goToRow.trigger();
    auto* const dialog = view.findChild<QDialog*>(QStringLiteral("GoToRow"));
    ASSERT_TRUE(dialog);
    auto* const number = dialog->findChild<QLineEdit*>();
    QPushButton* const ok = dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    EXPECT_FALSE(ok->isEnabled());
    QTest::keyClicks(number, QStringLiteral("3000000001"));
    EXPECT_FALSE(ok->isEnabled());
    number->clear();
    QTest::keyClicks(number, QStringLiteral("0"));
    EXPECT_FALSE(ok->isEnabled());
    number->clear();
    QApplication::clipboard()->setText(QStringLiteral(" 2700000000\n"));
    number->paste();
    QTest::mouseClick(ok, Qt::LeftButton);
    settle();
    EXPECT_EQ(current(), "2699999999, 2");
}

TEST_F(LongTable, ReadsNoMoreThanTheCellsThatAreSeen)
{
    window.scrollTo(Qt::Vertical, 2000000000ull);
    settle();
    table.reads = 0;
    bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
    settle();
    int const seen = (window.pageSize(Qt::Vertical) + 1) * 3;
    EXPECT_GT(table.reads, 0);
    EXPECT_LE(table.reads, seen);
}

TEST_F(LongTable, BecomesAPlainTableWhenItGetsShort)
{
    at(2999999999ull, 0);
    table.resize(10, 3);
    settle();
    EXPECT_FALSE(bar.isVisible());
    EXPECT_EQ(window.total(Qt::Vertical), 10u);
    EXPECT_EQ(copied(), "nothing");
    press(Qt::Key_Down);
    EXPECT_EQ(current(), "0, 0");
    EXPECT_EQ(copied(), "0,0");
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(current(), "9, 2");
}

} // namespace
} // namespace veldraw::tests
