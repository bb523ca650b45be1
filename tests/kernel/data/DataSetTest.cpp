#include "kernel/data/TimeStrands.h"
#include "tests/kernel/support/SampleData.h"

#include <climits>
#include <gtest/gtest.h>

namespace veldraw::tests {

using namespace kernel;

TEST(Identifier, IsNeverZeroAndNeverHandedOutTwice)
{
    UniqueId const first = nextUniqueId();
    EXPECT_GT(first, 0);
    EXPECT_GT(nextUniqueId(), first);
}

TEST(Zone, CountsPointsAndCellsOfOrderedZones)
{
    Zone const volume("v", ZoneType_Ordered, 3, 4, 5);
    EXPECT_EQ(volume.pointCount(), 60);
    EXPECT_EQ(volume.cellCount(), 24);
    EXPECT_EQ(volume.valueCount(ValueLocation_CellCentered), 60);
    EXPECT_EQ(volume.dimensionality(), 3);
    Zone const plane("p", ZoneType_Ordered, 1, 4, 5);
    EXPECT_EQ(plane.cellCount(), 12);
    EXPECT_EQ(plane.dimensionality(), 2);
    Zone const point("o", ZoneType_Ordered, 1, 1, 1);
    EXPECT_EQ(point.cellCount(), 1);
    EXPECT_EQ(point.dimensionality(), 0);
}

TEST(Zone, CountsPointsAndCellsOfFiniteElementZones)
{
    Zone const zone("t", ZoneType_FETetra, 8, 5, 0);
    EXPECT_EQ(zone.pointCount(), 8);
    EXPECT_EQ(zone.cellCount(), 5);
    EXPECT_EQ(zone.valueCount(ValueLocation_Nodal), 8);
    EXPECT_EQ(zone.valueCount(ValueLocation_CellCentered), 5);
}

TEST(Zone, WithoutPointsHasNoCells)
{
    for (std::int64_t const none : {0, -1}) {
        EXPECT_EQ(Zone("o", ZoneType_Ordered, none, 5, 5).cellCount(), 0);
        EXPECT_EQ(Zone("o", ZoneType_Ordered, 5, none, 5).pointCount(), 0);
        EXPECT_EQ(Zone("f", ZoneType_FEQuad, none, 5, 0).cellCount(), 0);
    }
}

TEST(Zone, KnowsTheDimensionsOfEachKindOfCell)
{
    auto const of = [](ZoneType_e type) { return Zone("z", type, 8, 1, 0).dimensionality(); };
    EXPECT_EQ(of(ZoneType_FELineSeg), 1);
    EXPECT_EQ(of(ZoneType_FETriangle), 2);
    EXPECT_EQ(of(ZoneType_FEQuad), 2);
    EXPECT_EQ(of(ZoneType_FEPolygon), 2);
    EXPECT_EQ(of(ZoneType_FETetra), 3);
    EXPECT_EQ(of(ZoneType_FEBrick), 3);
    EXPECT_EQ(of(ZoneType_FEPolyhedron), 3);
}

TEST(Zone, OfMixedCellsHasTheDimensionsOfItsHighestCell)
{
    using Shape = Connectivity::Shape;
    auto const of = [](std::vector<Shape> shapes) {
        auto const kept = std::make_shared<std::vector<Shape>>(std::move(shapes));
        auto const cells = std::make_shared<Connectivity>();
        cells->cellCount = static_cast<std::int64_t>(kept->size());
        cells->shapes = kept->data();
        cells->owner = kept;
        Zone zone("mixed", ZoneType_FEMixed, 10, cells->cellCount, 0);
        zone.connectivity = cells;
        return zone.dimensionality();
    };
    EXPECT_EQ(of({Shape::LineSegment, Shape::LineSegment}), 1);
    EXPECT_EQ(of({Shape::Triangle, Shape::LineSegment, Shape::Polygon}), 2);
    EXPECT_EQ(of({Shape::Quad, Shape::Prism}), 3);
}

TEST(Zone, SharesItsConnectivityWithOthers)
{
    auto const cells = std::make_shared<Connectivity const>();
    Zone first("a", ZoneType_FETriangle, 3, 1, 0);
    Zone second("b", ZoneType_FETriangle, 3, 1, 0);
    first.connectivity = cells;
    second.connectivity = cells;
    EXPECT_EQ(first.connectivity, second.connectivity);
    EXPECT_EQ(cells.use_count(), 3);
}

TEST(DataSet, AnswersBadNumbersWithNull)
{
    auto const dataSet = sample::twoPlanes();
    for (int const bad : {INT_MIN, -1, 0, 6, INT_MAX}) {
        EXPECT_EQ(dataSet->zone(bad), nullptr);
        EXPECT_EQ(dataSet->variable(bad), nullptr);
        EXPECT_EQ(dataSet->field(bad, 1), nullptr);
        EXPECT_EQ(dataSet->field(1, bad), nullptr);
    }
    EXPECT_EQ(dataSet->zoneNumber(0), 0);
    EXPECT_EQ(dataSet->variableNumber(-1), 0);
    EXPECT_EQ(dataSet->findVariable("nothing"), 0);
}

TEST(DataSet, FindsZonesAndVariablesByIdentifierAndName)
{
    auto const dataSet = sample::twoPlanes();
    EXPECT_EQ(dataSet->zoneNumber(dataSet->zone(2)->id), 2);
    EXPECT_EQ(dataSet->variableNumber(dataSet->variable(4)->id), 4);
    EXPECT_EQ(dataSet->findVariable("P"), 4);
    EXPECT_EQ(dataSet->findVariable("p"), 0);
    EXPECT_EQ(dataSet->field(2, 4)->group(), dataSet->field(1, 4)->group());
}

TEST(DataSet, ListsWhatIsEnabled)
{
    auto const dataSet = sample::twoPlanes();
    dataSet->variable(2)->enabled = false;
    dataSet->zone(1)->enabled = false;
    EXPECT_EQ(dataSet->enabledVariables(), (NumberSet{1, 3, 4, 5}));
    EXPECT_EQ(dataSet->enabledZones(), (NumberSet{2}));
}

TEST(DataSet, FillsMissingFieldsUpWithPassiveOnes)
{
    auto const dataSet = sample::twoPlanes();
    EXPECT_EQ(dataSet->addZone(std::make_shared<Zone>("empty", ZoneType_Ordered, 1, 1, 1)), 3);
    EXPECT_TRUE(dataSet->field(3, 5)->isPassive());
    EXPECT_EQ(dataSet->addVariable(std::make_shared<Variable>("new")), 6);
    EXPECT_TRUE(dataSet->field(1, 6)->isPassive());
    EXPECT_EQ(dataSet->addZone(nullptr), 0);
    EXPECT_EQ(dataSet->addVariable(nullptr), 0);
}

TEST(FieldMaps, AreOneAStrandAndOneAStaticZoneByLowestZone)
{
    auto const dataSet = sample::twoPlanes();
    for (int const strand : {7, staticStrand, 7, 3}) {
        auto zone = std::make_shared<Zone>("z", ZoneType_Ordered, 1, 1, 1);
        zone->strand = strand;
        dataSet->addZone(zone);
    }
    std::vector<NumberSet> const expected{{1}, {2}, {3, 5}, {4}, {6}};
    EXPECT_EQ(fieldMaps(*dataSet), expected);
}

TEST(FieldMaps, HaveTheirEnabledZonesAndKeepTheirNumbers)
{
    auto const dataSet = sample::twoPlanes();
    for (int const strand : {7, 7, 3}) {
        auto zone = std::make_shared<Zone>("z", ZoneType_Ordered, 1, 1, 1);
        zone->strand = strand;
        dataSet->addZone(zone);
    }
    dataSet->zone(1)->enabled = false;
    dataSet->zone(3)->enabled = false;
    EXPECT_EQ(fieldMaps(*dataSet), (std::vector<NumberSet>{{}, {2}, {4}, {5}}));
    EXPECT_EQ(enabledFieldMaps(*dataSet), (NumberSet{2, 3, 4}));
    dataSet->zone(4)->enabled = false;
    EXPECT_EQ(fieldMaps(*dataSet), (std::vector<NumberSet>{{}, {2}, {}, {5}}));
    EXPECT_EQ(enabledFieldMaps(*dataSet), (NumberSet{2, 4}));
}

TEST(AuxiliaryData, KeepsItsItemsInOrderOfNamesWithoutRegardToCase)
{
    AuxiliaryData data;
    EXPECT_TRUE(data.set("beta", "2", true));
    EXPECT_TRUE(data.set("Alpha", "1", false));
    EXPECT_TRUE(data.set("Gamma.x_1", "3", true));
    ASSERT_EQ(data.size(), 3);
    EXPECT_EQ(data.item(1).name, "Alpha");
    EXPECT_FALSE(data.item(1).retain);
    EXPECT_EQ(data.item(2).name, "beta");
    EXPECT_EQ(data.item(3).value, "3");
    EXPECT_EQ(data.indexOf("BETA"), 2);
}

TEST(AuxiliaryData, AltersAnItemThatIsThere)
{
    AuxiliaryData data;
    data.set("name", "old", true);
    EXPECT_TRUE(data.set("NAME", "new", false));
    ASSERT_EQ(data.size(), 1);
    EXPECT_EQ(data.item(1).value, "new");
    EXPECT_FALSE(data.item(1).retain);
}

TEST(AuxiliaryData, RefusesNamesThatAreNone)
{
    AuxiliaryData data;
    for (char const* bad : {"", "1a", "_a", ".a", "a b", "a-b", "\xC3\xA4"}) {
        EXPECT_FALSE(data.set(bad, "x", true)) << bad;
    }
    EXPECT_EQ(data.size(), 0);
}

TEST(AuxiliaryData, RemovesItemsAndToleratesBadNumbers)
{
    AuxiliaryData data;
    data.set("a", "1", true);
    EXPECT_FALSE(data.remove("b"));
    EXPECT_TRUE(data.remove("A"));
    EXPECT_EQ(data.size(), 0);
    for (int const bad : {INT_MIN, -1, 0, 1, INT_MAX}) {
        EXPECT_EQ(data.item(bad).name, "");
    }
}

} // namespace veldraw::tests
