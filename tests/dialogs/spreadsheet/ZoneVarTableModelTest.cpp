#include "dialogs/spreadsheet/FEZoneVarTableModel.h"
#include "dialogs/spreadsheet/IJKLineZoneVarTableModel.h"
#include "dialogs/spreadsheet/OrderedZoneVarTableModel.h"
#include "kernel/operations/EnableZone.h"
#include "tests/dialogs/models/FakeTable.h"
#include "tests/dialogs/spreadsheet/SheetStage.h"

#include <gmock/gmock.h>
#include <limits>

namespace veldraw::tests {
namespace {

using namespace tables;
using testing::ElementsAre;
using toolbox::Set;

/// Which values a table shows where: each value is its own offset.
class ZoneVarTableModelTest : public testing::Test
{
protected:
    static double offset(int, std::int64_t index) { return static_cast<double>(index); }

    int orderedZone(std::int64_t i, std::int64_t j, std::int64_t k, ValueLocation_e location)
    {
        int const zone = stage.addZone("ordered", ZoneType_Ordered, i, j, k);
        stage.fill(zone, 1, FieldDataType_Double, location, offset);
        stage.show();
        return zone;
    }

    static std::vector<std::string> texts(TableModelInterface const& table)
    {
        std::vector<std::string> rows;
        for (unsigned long long row = 0; row < table.rowCount(); ++row) {
            std::string text;
            for (unsigned long long column = 0; column < table.columnCount(); ++column)
                text += (column == 0 ? "" : " ") + table.getStr({row, column});
            rows.push_back(text);
        }
        return rows;
    }

    SheetStage stage{{"X", "Y", "P"}};
};

TEST_F(ZoneVarTableModelTest, RunsTheLowerFreeDirectionOverTheRows)
{
    int const zone = orderedZone(2, 3, 4, ValueLocation_Nodal);
    OrderedZoneVarTableModel const planeI(zone, 1, IJKPlanes_I, 2, false);
    EXPECT_THAT(texts(planeI), ElementsAre("1 7 13 19", "3 9 15 21", "5 11 17 23")) << "J over rows, K over columns";
    OrderedZoneVarTableModel const planeJ(zone, 1, IJKPlanes_J, 3, false);
    EXPECT_THAT(texts(planeJ), ElementsAre("4 10 16 22", "5 11 17 23")) << "I over rows, K over columns";
    OrderedZoneVarTableModel const planeK(zone, 1, IJKPlanes_K, 4, false);
    EXPECT_THAT(texts(planeK), ElementsAre("18 20 22", "19 21 23")) << "I over rows, J over columns";
}

TEST_F(ZoneVarTableModelTest, AddressesCellsWithTheStridesOfPoints)
{
    int const zone = orderedZone(3, 4, 3, ValueLocation_CellCentered);
    OrderedZoneVarTableModel const planeK(zone, 1, IJKPlanes_K, 2, false);
    EXPECT_THAT(texts(planeK), ElementsAre("12 15 18", "13 16 19"));
    OrderedZoneVarTableModel const planeI(zone, 1, IJKPlanes_I, 2, false);
    EXPECT_THAT(texts(planeI), ElementsAre("1 13", "4 16", "7 19"));
}

TEST_F(ZoneVarTableModelTest, ShowsTheLastCellsForTheLastPlaneOfPoints)
{
    int const zone = orderedZone(3, 4, 3, ValueLocation_CellCentered);
    for (IJKPlanes_e const plane : {IJKPlanes_I, IJKPlanes_J, IJKPlanes_K}) {
        long long const last = plane == IJKPlanes_J ? 4 : 3;
        OrderedZoneVarTableModel const atPoints(zone, 1, plane, last, false);
        OrderedZoneVarTableModel const atCells(zone, 1, plane, last - 1, false);
        EXPECT_EQ(texts(atPoints), texts(atCells)) << plane;
    }
}

TEST_F(ZoneVarTableModelTest, DoesNotMoveAPlaneOfPoints)
{
    int const zone = orderedZone(3, 2, 3, ValueLocation_Nodal);
    OrderedZoneVarTableModel const last(zone, 1, IJKPlanes_K, 3, false);
    EXPECT_EQ(last.getStr({0, 0}), "12");
}

TEST_F(ZoneVarTableModelTest, KeepsTheOneLayerOfCellsOfADimensionOfOne)
{
    int const flat = orderedZone(3, 4, 1, ValueLocation_CellCentered);
    OrderedZoneVarTableModel const plane(flat, 1, IJKPlanes_K, 1, false);
    EXPECT_EQ(plane.valueOffset({1, 2}), 7) << "the fixed coordinate stays 0";
    int const thin = stage.addZone("thin", ZoneType_Ordered, 1, 3, 3);
    stage.fill(thin, 1, FieldDataType_Double, ValueLocation_CellCentered, offset);
    OrderedZoneVarTableModel const rows(thin, 1, IJKPlanes_K, 1, false);
    EXPECT_EQ(rows.rowCount(), 1u);
    EXPECT_EQ(rows.columnCount(), 2u);
}

TEST_F(ZoneVarTableModelTest, NamesRowsAndColumnsOfAPlaneByNumber)
{
    int const zone = orderedZone(2, 3, 4, ValueLocation_Nodal);
    OrderedZoneVarTableModel const table(zone, 1, IJKPlanes_K, 1, false);
    EXPECT_EQ(table.rowName(0), "1");
    EXPECT_EQ(table.rowName(1), "2");
    EXPECT_EQ(table.columnName(0), "1");
    EXPECT_EQ(table.columnName(2), "3");
    EXPECT_EQ(table.variableNumber(1), 1);
    EXPECT_EQ(table.variableNumber(3), 1) << "whatever the column";
}

TEST_F(ZoneVarTableModelTest, ShowsPointsOrElementsOfFiniteElements)
{
    int const zone = stage.addZone("elements", ZoneType_FEQuad, 5, 2, 0);
    stage.fill(zone, 1, FieldDataType_Float, ValueLocation_Nodal);
    stage.fill(zone, 2, FieldDataType_Byte, ValueLocation_CellCentered, offset);
    stage.fill(zone, 3, FieldDataType_Double, ValueLocation_Nodal);
    stage.show();
    Set const all(std::set<int>{1, 2, 3});
    FEZoneVarTableModel const points(zone, all, false, ValueLocation_Nodal);
    EXPECT_THAT(texts(points), ElementsAre("100 300", "101 301", "102 302", "103 303", "104 304"));
    EXPECT_EQ(points.columnName(0), "X");
    EXPECT_EQ(points.columnName(1), "P");
    EXPECT_EQ(points.fieldDataType({0, 1}), FieldDataType_Double);
    FEZoneVarTableModel const elements(zone, all, false, ValueLocation_CellCentered);
    EXPECT_THAT(texts(elements), ElementsAre("0", "1"));
    EXPECT_EQ(elements.columnName(0), "Y");
    EXPECT_EQ(elements.fieldDataType({0, 0}), FieldDataType_Byte);
}

TEST_F(ZoneVarTableModelTest, HasItsVariablesInOrderAndAValueARowUnlessATableSaysOtherwise)
{
    class Plain : public ZoneVarTableModelAbstract
    {
    public:
        using ZoneVarTableModelAbstract::ZoneVarTableModelAbstract;
        unsigned long long modelColumnCount() const override { return 2; }
        unsigned long long modelRowCount() const override { return 3; }
    };
    int const zone = stage.addZone("line", ZoneType_Ordered, 3, 1, 1);
    stage.fill(zone, 3, FieldDataType_Int16, ValueLocation_Nodal);
    stage.show();
    Plain const table(zone, Set(std::set<int>{3, 1}), false, ValueLocation_Nodal);
    EXPECT_EQ(table.variableNumber(1), 1);
    EXPECT_EQ(table.variableNumber(2), 3);
    EXPECT_EQ(table.columnName(1), "P");
    EXPECT_EQ(table.valueOffset({2, 1}), 2);
    EXPECT_EQ(table.fieldDataType({2, 1}), FieldDataType_Int16);
    EXPECT_EQ(table.getStr({2, 1}), "302");
}

TEST_F(ZoneVarTableModelTest, TakesItsColumnsFromTheEnabledVariablesAndNotFromThoseItFollows)
{
    int const zone = stage.addZone("line", ZoneType_Ordered, 2, 1, 1);
    stage.fillAll(zone);
    stage.show();
    stage.session().perform(kernel::EnableVariable(stage.dataSet(), 2, false));
    IJKLineZoneVarTableModel const table(zone, Set(2), false, ValueLocation_Nodal);
    EXPECT_THAT(texts(table), ElementsAre("100 300", "101 301"));
}

TEST_F(ZoneVarTableModelTest, TakesTheRowsOfALineFromItsOneDimension)
{
    int const alongI = stage.addZone("I", ZoneType_Ordered, 6, 1, 1);
    int const alongJ = stage.addZone("J", ZoneType_Ordered, 1, 7, 1);
    int const alongK = stage.addZone("K", ZoneType_Ordered, 1, 1, 8);
    int const point = stage.addZone("point", ZoneType_Ordered, 1, 1, 1);
    int const plane = stage.addZone("plane", ZoneType_Ordered, 2, 2, 1);
    stage.show();
    auto const rows = [](int zone, ValueLocation_e location) {
        return IJKLineZoneVarTableModel(zone, Set(1), false, location).modelRowCount();
    };
    EXPECT_EQ(rows(alongI, ValueLocation_Nodal), 6u);
    EXPECT_EQ(rows(alongJ, ValueLocation_Nodal), 7u);
    EXPECT_EQ(rows(alongK, ValueLocation_Nodal), 8u);
    EXPECT_EQ(rows(alongJ, ValueLocation_CellCentered), 6u);
    EXPECT_EQ(rows(point, ValueLocation_CellCentered), 1u);
    EXPECT_EQ(rows(plane, ValueLocation_Nodal), 0u) << "not a line";
}

TEST_F(ZoneVarTableModelTest, LoadsDeferredDimensionsAndThenKnowsItsRows)
{
    int const zone = stage.addDeferredZone("later", 1, 7, 1);
    stage.show();
    ASSERT_EQ(stage.dataSet().zone(zone)->j, -1);
    IJKLineZoneVarTableModel const table(zone, Set(1), false, ValueLocation_Nodal);
    EXPECT_EQ(stage.dataSet().zone(zone)->j, 7);
    EXPECT_EQ(table.rowCount(), 7u);
}

TEST_F(ZoneVarTableModelTest, HasNoRowsColumnsAndNamesWithoutADataSet)
{
    int const zone = stage.addZone("line", ZoneType_Ordered, 2, 1, 1);
    stage.fillAll(zone);
    int const square = stage.addZone("square", ZoneType_Ordered, 2, 2, 1);
    stage.fillAll(square);
    stage.show();
    IJKLineZoneVarTableModel const line(zone, Set(1), false, ValueLocation_Nodal);
    OrderedZoneVarTableModel const plane(square, 1, IJKPlanes_K, 1, false);
    stage.hide();
    for (TableModelInterface const* const table :
         {static_cast<TableModelInterface const*>(&line), static_cast<TableModelInterface const*>(&plane)}) {
        EXPECT_EQ(table->rowCount(), 0u);
        EXPECT_EQ(table->columnCount(), 0u);
        EXPECT_EQ(table->rowName(0), "");
        EXPECT_EQ(table->columnName(0), "");
        EXPECT_EQ(table->getStr({0, 0}), "Not Loaded");
        EXPECT_TRUE(table->isEditable({0, 0}));
    }
    stage.show();
    EXPECT_EQ(line.rowCount(), 2u);
    EXPECT_EQ(line.columnName(0), "X");
    EXPECT_EQ(plane.columnCount(), 2u);
}

TEST_F(ZoneVarTableModelTest, CountsRowsBeyondTheRangeOfAnInt)
{
    int const zone = stage.addZone("long", ZoneType_Ordered, 3000000000ll, 1, 1);
    stage.show();
    IJKLineZoneVarTableModel const table(zone, Set(1), false, ValueLocation_Nodal);
    EXPECT_EQ(table.rowCount(), 3000000000ull);
    EXPECT_EQ(table.rowName(2999999999ull), "3000000000");
    EXPECT_EQ(table.valueOffset({2999999999ull, 0}), 2999999999ll);
    int const wide = stage.addZone("wide", ZoneType_Ordered, 70000, 70000, 3);
    OrderedZoneVarTableModel const plane(wide, 1, IJKPlanes_K, 3, false);
    EXPECT_EQ(plane.valueOffset({69999, 69999}), 3ll * 70000 * 70000 - 1);
}

TEST_F(ZoneVarTableModelTest, ShowsAllDigitsAValueHasAndNoMore)
{
    int const zone = stage.addZone("line", ZoneType_Ordered, 7, 1, 1);
    double const nan = std::numeric_limits<double>::quiet_NaN();
    double const infinity = std::numeric_limits<double>::infinity();
    std::vector<double> const values{0.1, 1.0, 1.0 / 3.0, -infinity, infinity, nan, -nan};
    auto const listed = [&values](int, std::int64_t index) { return values[static_cast<std::size_t>(index)]; };
    stage.fill(zone, 1, FieldDataType_Float, ValueLocation_Nodal, listed);
    stage.fill(zone, 2, FieldDataType_Double, ValueLocation_Nodal, listed);
    stage.fill(zone, 3, FieldDataType_Int32, ValueLocation_Nodal, [](int, std::int64_t) { return -2147483648.0; });
    stage.show();
    IJKLineZoneVarTableModel const table(zone, Set(1), false, ValueLocation_Nodal);
    EXPECT_THAT(texts(table), ElementsAre("0.100000001 0.10000000000000001 -2147483648", "1 1 -2147483648",
                                          "0.333333343 0.33333333333333331 -2147483648", "-inf -inf -2147483648",
                                          "inf inf -2147483648", "nan nan -2147483648", "-nan -nan -2147483648"));
}

} // namespace
} // namespace veldraw::tests
