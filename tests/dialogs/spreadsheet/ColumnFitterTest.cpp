#include "kernel/operations/RenameZone.h"
#include "tests/dialogs/spreadsheet/SpreadsheetDriver.h"
#include "tests/support/KernelSpy.h"

#include <QHeaderView>
#include <QScrollBar>

namespace veldraw::tests {
namespace {

/// A line of four points with three variables, and a plane of 60 by 60 points.
class ColumnFitterTest : public SpreadsheetDriver
{
protected:
    ColumnFitterTest()
    {
        stage.addZone("Line", ZoneType_Ordered, 4, 1, 1);
        stage.addZone("Plane", ZoneType_Ordered, 60, 60, 1);
        stage.fillAll(1);
        stage.fillAll(2);
        stage.defer(1, 2, 0.1);
        stage.show();
        launched();
    }

    void choose(NumberFormat_e format, long long precision)
    {
        Choices::spreadsheetPrecision()->setValue(precision);
        Choices::spreadsheetFormat()->setValue(format);
        settle();
    }
    int width(int column) { return table().columnWidth(column); }
    bool isReadable(int row, int column)
    {
        return table().sizeHintForIndex(table().model()->index(row, column)).width() <= width(column) &&
               table().horizontalHeader()->sectionSizeHint(column) <= width(column);
    }
};

TEST_F(ColumnFitterTest, KeepsTheDefaultWidthForWhatFits)
{
    for (int column = 0; column < 3; ++column) {
        EXPECT_TRUE(isReadable(0, column));
        EXPECT_GE(width(column), 75);
        EXPECT_EQ(width(column), width(0)) << "all alike";
    }
    EXPECT_EQ(table().horizontalHeader()->defaultSectionSize(), 75);
    Choices::spreadsheetZone()->setValue(2);
    settle();
    for (int const column : {0, 1, 59})
        EXPECT_EQ(width(column), 75) << "another table begins anew";
}

TEST_F(ColumnFitterTest, KeepsNotLoadedReadableInAnyFont)
{
    QFont font = table().font();
    font.setPointSize(2 * font.pointSize());
    table().setFont(font);
    settle();
    EXPECT_EQ(shown(0, 1), "Not Loaded");
    EXPECT_TRUE(isReadable(0, 1));
    EXPECT_GT(width(1), 75);
}

TEST_F(ColumnFitterTest, WidensForLongNumbersAndIsNotNarrowedForShortOnes)
{
    choose(NumberFormat_Exponent, 16);
    int const wide = width(0);
    EXPECT_GT(wide, 75);
    EXPECT_TRUE(isReadable(0, 0) && isReadable(3, 2));
    choose(NumberFormat_Integer, 16);
    EXPECT_EQ(width(0), wide);
}

TEST_F(ColumnFitterTest, WidensForANumberThatIsTyped)
{
    table().setColumnWidth(2, 300);
    edit(0, 0, "-1.234568e-30");
    settle();
    EXPECT_EQ(shown(0, 0), "-1.234568e-30");
    EXPECT_TRUE(isReadable(0, 0));
    EXPECT_EQ(width(2), 300);
}

TEST_F(ColumnFitterTest, WidensForALongNameUpToALimit)
{
    stage.session().perform(kernel::RenameVariable(stage.dataSet(), 1, "Turbulent viscosity"));
    stage.session().perform(kernel::RenameVariable(stage.dataSet(), 3, std::string(500, 'x')));
    settle();
    EXPECT_TRUE(isReadable(0, 0));
    EXPECT_EQ(width(2), 300);
    EXPECT_LT(width(0), 300);
}

TEST_F(ColumnFitterTest, LeavesAColumnAloneThatWasResizedByHand)
{
    table().setColumnWidth(0, 40);
    choose(NumberFormat_Exponent, 16);
    EXPECT_EQ(width(0), 40);
    EXPECT_TRUE(isReadable(0, 2));
}

TEST_F(ColumnFitterTest, FitsAllColumnsAtOnceSoThatNothingMovesWhileTheUserScrolls)
{
    Choices::spreadsheetZone()->setValue(2);
    choose(NumberFormat_Exponent, 16);
    int const wide = width(0);
    EXPECT_GT(wide, 75);
    EXPECT_EQ(width(59), wide);
    int const cells =
        (table().viewport()->height() / table().rowHeight(0) + 2) * (table().viewport()->width() / wide + 2);
    KernelSpy spy;
    table().horizontalScrollBar()->setValue(20);
    settle();
    EXPECT_GT(spy.count("VelUtilDataValueGetByZoneVar"), 0);
    EXPECT_LE(spy.count("VelUtilDataValueGetByZoneVar"), cells);
    EXPECT_EQ(width(20), wide);
}

TEST_F(ColumnFitterTest, KeepsTheCurrentCellInViewThatWiderColumnsWouldPushAway)
{
    Choices::spreadsheetZone()->setValue(2);
    settle();
    int const column = table().columnAt(table().viewport()->width() - 100);
    goTo(0, column);
    ASSERT_TRUE(table().viewport()->rect().contains(table().visualRect(table().currentIndex())));
    choose(NumberFormat_Exponent, 16);
    EXPECT_EQ(table().currentIndex().column(), column);
    EXPECT_TRUE(table().viewport()->rect().contains(table().visualRect(table().currentIndex())));
}

} // namespace
} // namespace veldraw::tests
