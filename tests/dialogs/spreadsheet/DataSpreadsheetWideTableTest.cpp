#include "tests/dialogs/spreadsheet/SpreadsheetDriver.h"
#include "tests/support/KernelSpy.h"

#include <QClipboard>
#include <QScrollBar>

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

constexpr int manyColumns = 1500000;
constexpr int manyVariables = 1000100;

/// Three rows and more columns than a Qt view can be given: a plane of one variable.
class DataSpreadsheetWideTableTest : public SpreadsheetDriver
{
protected:
    void open()
    {
        stage.show();
        launched();
        table().setFocus();
    }
    void openAPlane()
    {
        stage.addZone("Plane", ZoneType_Ordered, 3, manyColumns, 1);
        stage.fill(1, 1, FieldDataType_Double, ValueLocation_Nodal);
        open();
    }
    /// A line of three points, whose last variable has values.
    void openManyVariables()
    {
        for (int number = stage.dataSet().variableCount() + 1; number <= manyVariables; ++number)
            stage.dataSet().addVariable(std::make_shared<kernel::Variable>("V" + std::to_string(number)));
        stage.addZone("Line", ZoneType_Ordered, 3, 1, 1);
        stage.fill(1, manyVariables, FieldDataType_Double, ValueLocation_Nodal,
                   [](int, std::int64_t index) { return static_cast<double>(index) / 2; });
        open();
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&table(), key, modifiers);
        settle();
    }
    std::string columnName(int column) { return adapter().headerData(column, Qt::Horizontal).toString().toStdString(); }
    /// "row, column name" of the current cell, and whether the user sees it.
    std::string place()
    {
        QModelIndex const index = table().currentIndex();
        if (!index.isValid())
            return "none";
        bool const isSeen = table().viewport()->rect().contains(table().visualRect(index));
        return std::to_string(index.row()) + ", " + columnName(index.column()) + (isSeen ? "" : " out of sight");
    }
    std::string shownHere()
    {
        QModelIndex const index = table().currentIndex();
        return index.isValid() ? shown(index.row(), index.column()) : "none";
    }
    void scrollTo(int column)
    {
        auto& bar = widget<QScrollBar>("Column_ScrollBar");
        ASSERT_TRUE(bar.isVisible());
        bar.setSliderPosition(column);
        settle();
        ASSERT_EQ(adapter().tableColumn(table().columnAt(0)), static_cast<unsigned long long>(column));
    }
    void click(unsigned long long column)
    {
        QRect const cell = table().visualRect(adapter().index(0, adapter().windowColumn(column)));
        QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
        settle();
    }
    void expectFewReadsToScroll()
    {
        KernelSpy spy;
        auto& bar = widget<QScrollBar>("Column_ScrollBar");
        for (auto const step : {QAbstractSlider::SliderSingleStepAdd, QAbstractSlider::SliderPageStepAdd,
                                QAbstractSlider::SliderToMaximum, QAbstractSlider::SliderPageStepSub}) {
            spy.reset();
            bar.triggerAction(step);
            settle();
            EXPECT_GT(spy.count("VelUtilDataValueGetByZoneVar"), 0);
            EXPECT_LE(spy.count("VelUtilDataValueGetByZoneVar"), visibleCells());
        }
    }
};

TEST_F(DataSpreadsheetWideTableTest, IsEditedInItsLastColumnAndTakenBack)
{
    openAPlane();
    EXPECT_EQ(columnName(0), "1");
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(place(), "2, 1500000");
    EXPECT_EQ(shownHere(), "4500099");
    type("2.5");
    pressInEditor(Qt::Key_Return);
    EXPECT_EQ(stage.stored(1, 1, 3ll * manyColumns - 1), 2.5);
    EXPECT_EQ(stage.stored(1, 1, 3ll * manyColumns - 2), 4500098.0);
    EXPECT_EQ(shownHere(), "2.5");
    stage.session().undo();
    settle();
    EXPECT_EQ(shownHere(), "4500099");
    press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(place(), "0, 1");
}

TEST_F(DataSpreadsheetWideTableTest, IsWalkedAndCopiedOverTheBorderOfWhatAViewHolds)
{
    openAPlane();
    scrollTo(999990);
    click(999992);
    EXPECT_EQ(place(), "0, 999993");
    for (int step = 0; step < 10; ++step)
        press(Qt::Key_Right);
    EXPECT_EQ(place(), "0, 1000003");
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(place(), "0, 1000004") << "on to the top of the next column";
    for (int step = 0; step < 6; ++step)
        press(Qt::Key_Left, Qt::ShiftModifier);
    QTest::keyClick(&table(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(),
              QStringLiteral("3000091\t3000094\t3000097\t3000100\t3000103\t3000106\t3000109"));
}

TEST_F(DataSpreadsheetWideTableTest, CostsNoMoreReadsThanCellsAreSeenToScroll)
{
    openAPlane();
    scrollTo(700000);
    expectFewReadsToScroll();
}

TEST_F(DataSpreadsheetWideTableTest, StaysWhereItIsWhenTheFormatChanges)
{
    openAPlane();
    scrollTo(1200000);
    click(1200001);
    Choices::spreadsheetFormat()->setValue(static_cast<NumberFormat_e>(1));
    settle();
    EXPECT_EQ(adapter().tableColumn(table().columnAt(0)), 1200000u);
    EXPECT_EQ(place(), "0, 1200002");
    EXPECT_EQ(shownHere(), "3600103.000");
}

TEST_F(DataSpreadsheetWideTableTest, ShowsAndEditsMoreVariablesThanAViewHoldsColumns)
{
    openManyVariables();
    EXPECT_EQ(columnName(0), "P");
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(place(), "2, V1000100");
    EXPECT_EQ(shownHere(), "1");
    type("2.5");
    pressInEditor(Qt::Key_Return);
    EXPECT_EQ(stage.stored(1, manyVariables, 2), 2.5);
    EXPECT_EQ(shownHere(), "2.5");
    stage.session().undo();
    settle();
    EXPECT_EQ(place(), "2, V1000100");
    EXPECT_EQ(shownHere(), "1");
    press(Qt::Key_Home);
    EXPECT_EQ(place(), "2, P");
    expectFewReadsToScroll();
}

/// A plane that a view holds, but larger than its window.
class ScrollTest : public SpreadsheetDriver
{
protected:
    ScrollTest()
    {
        stage.addZone("Plane", ZoneType_Ordered, 500, 400, 1);
        stage.fillAll(1);
        stage.show();
        launched();
    }

    /// Reads of values that showing the outcome takes.
    template <typename Step>
    int readsOf(Step const& step)
    {
        KernelSpy spy;
        step();
        settle();
        return spy.count("VelUtilDataValueGetByZoneVar");
    }
    template <typename Step>
    void expectFewReads(Step const& step)
    {
        int const reads = readsOf(step);
        EXPECT_GT(reads, 0);
        EXPECT_LE(reads, visibleCells());
    }
};

TEST_F(ScrollTest, CostsNoMoreReadsThanCellsAreSeen)
{
    for (QScrollBar* const bar : {table().verticalScrollBar(), table().horizontalScrollBar()}) {
        ASSERT_GT(bar->maximum(), 0);
        for (auto const action :
             {QAbstractSlider::SliderSingleStepAdd, QAbstractSlider::SliderPageStepAdd,
              QAbstractSlider::SliderToMaximum, QAbstractSlider::SliderSingleStepSub, QAbstractSlider::SliderToMinimum})
            expectFewReads([&] { bar->triggerAction(action); });
    }
}

TEST_F(ScrollTest, CostsNoMoreReadsThanCellsAreSeenByWheelAndKeys)
{
    expectFewReads([&] {
        QPointF const middle = table().viewport()->rect().center();
        QWheelEvent event(middle, table().viewport()->mapToGlobal(middle.toPoint()), QPoint(), QPoint(0, -120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(table().viewport(), &event);
    });
    goTo(0, 0);
    settle();
    table().setFocus();
    for (Qt::Key const key : {Qt::Key_PageDown, Qt::Key_End, Qt::Key_Home})
        expectFewReads([&] { QTest::keyClick(&table(), key); });
}

TEST_F(ScrollTest, ReadsNothingAgainWhenNothingMoves)
{
    EXPECT_EQ(readsOf([] {}), 0);
    EXPECT_EQ(readsOf([&] { table().verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMinimum); }), 0);
}

} // namespace
} // namespace veldraw::tests
