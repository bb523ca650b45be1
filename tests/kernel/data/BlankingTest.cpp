#include "kernel/data/Blanking.h"

#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/MirrorZones.h"
#include "kernel/operations/SpatialVariables.h"
#include "tests/kernel/support/EventRecorder.h"
#include "tests/kernel/support/SampleData.h"
#include "tests/kernel/support/SampleLoader.h"
#include "tests/kernel/support/SpatialFixture.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace veldraw::tests {

using namespace kernel;

namespace {

std::shared_ptr<Buffer> marks(std::vector<int> const& values)
{
    auto const buffer = Buffer::allocate(FieldDataType_Byte, static_cast<std::int64_t>(values.size()));
    for (std::size_t at = 0; at < values.size(); ++at) {
        buffer->setValue(static_cast<std::int64_t>(at), values[at]);
    }
    return buffer;
}

/// The numbers of the slots that are hidden, separated by blanks.
std::string hiddenOf(Zone const& zone, ValueLocation_e location)
{
    std::string text;
    for (std::int64_t slot = 0; slot < zone.valueCount(location); ++slot) {
        text += zone.isHidden(location, slot) ? " " + std::to_string(slot) : "";
    }
    return text.empty() ? text : text.substr(1);
}

void blank(Zone& zone, std::vector<int> const& ofPoints, std::vector<int> const& ofCells)
{
    zone.blanking = std::make_shared<Blanking>(zone, Blanking::Marks{ofPoints.empty() ? nullptr : marks(ofPoints),
                                                                     ofCells.empty() ? nullptr : marks(ofCells)});
}

/// Cells over a list of corners that lives as long as the object.
std::shared_ptr<Connectivity const> meshOf(std::vector<std::vector<std::int64_t>> const& corners)
{
    struct Lists
    {
        std::vector<std::int64_t> offsets{0};
        std::vector<std::int64_t> indices;
    };
    auto const lists = std::make_shared<Lists>();
    for (auto const& cell : corners) {
        lists->indices.insert(lists->indices.end(), cell.begin(), cell.end());
        lists->offsets.push_back(static_cast<std::int64_t>(lists->indices.size()));
    }
    auto const cells = std::make_shared<Connectivity>();
    cells->cellCount = static_cast<std::int64_t>(corners.size());
    cells->indexCount = static_cast<std::int64_t>(lists->indices.size());
    cells->offsets = lists->offsets.data();
    cells->indices = lists->indices.data();
    cells->owner = lists;
    return cells;
}

} // namespace

TEST(Blanking, HidesPointsThatAreMarkedAsHiddenAndTheCellsOfWhichTheyAreCorners)
{
    Zone zone("z", ZoneType_Ordered, 4, 3, 1);
    blank(zone, {0, 0, 0, 0, 0, 2, 0, 0, 0, 0, 0, 1}, {});
    EXPECT_EQ(hiddenOf(zone, ValueLocation_Nodal), "5") << "a duplicate point belongs to this zone as well";
    EXPECT_EQ(hiddenOf(zone, ValueLocation_CellCentered), "0 1 4 5");
}

TEST(Blanking, HidesCellsThatAreDuplicateRefinedOrHiddenAndNoOthers)
{
    Zone zone("z", ZoneType_Ordered, 9, 2, 1);
    blank(zone, {}, {0, 1, 2, 4, 8, 16, 32, 64});
    EXPECT_EQ(hiddenOf(zone, ValueLocation_CellCentered), "1 4 6");
    EXPECT_EQ(hiddenOf(zone, ValueLocation_Nodal), "") << "each of their points is a corner of another cell";
}

TEST(Blanking, HidesAPointEachOfWhoseCellsIsMarked)
{
    Zone zone("z", ZoneType_Ordered, 4, 2, 2);
    blank(zone, {}, {32, 32, 0});
    EXPECT_EQ(hiddenOf(zone, ValueLocation_Nodal), "0 1 4 5 8 9 12 13");
    EXPECT_EQ(hiddenOf(zone, ValueLocation_CellCentered), "0 1");
}

TEST(Blanking, KeepsAVisiblePointAmongHiddenOnes)
{
    Zone zone("z", ZoneType_Ordered, 3, 1, 1);
    blank(zone, {2, 0, 2}, {});
    EXPECT_EQ(hiddenOf(zone, ValueLocation_Nodal), "0 2");
}

TEST(Blanking, FollowsTheCornersOfElements)
{
    Zone zone("z", ZoneType_FETriangle, 6, 3, 0);
    zone.connectivity = meshOf({{0, 1, 2}, {1, 2, 3}, {3, 2, 4}});
    blank(zone, {0, 0, 0, 0, 2, 0}, {32, 0, 0});
    EXPECT_EQ(hiddenOf(zone, ValueLocation_Nodal), "0 4") << "point 5 has no cell at all";
    EXPECT_EQ(hiddenOf(zone, ValueLocation_CellCentered), "0 2");
}

TEST(Blanking, WithoutAnyMarkThatHidesHidesNothing)
{
    Zone zone("z", ZoneType_Ordered, 3, 2, 1);
    blank(zone, {1, 0, 0, 1, 0, 0}, {2, 16});
    EXPECT_EQ(zone.hidden(ValueLocation_Nodal), nullptr);
    EXPECT_EQ(zone.hidden(ValueLocation_CellCentered), nullptr);
    EXPECT_EQ(zone.blanking->marks().ofPoints->value(3), 1) << "kept all the same";
}

TEST(HiddenSlots, AreFoundInAnyPattern)
{
    std::mt19937 random(7);
    for (int const share : {0, 1, 50, 99, 100}) {
        std::int64_t const size = 1000;
        HiddenSlots slots(size);
        std::vector<bool> expected(size);
        for (std::size_t at = 0; at < expected.size(); ++at) {
            expected[at] = static_cast<int>(random() % 100) < share;
            if (expected[at]) {
                slots.insert(static_cast<std::int64_t>(at));
            }
        }
        EXPECT_EQ(slots.count(), std::count(expected.begin(), expected.end(), true));
        for (bool const hidden : {true, false}) {
            for (std::int64_t first = 0; first < size; ++first) {
                std::int64_t const last =
                    std::min<std::int64_t>(size, first + 1 + static_cast<std::int64_t>(random() % 400));
                auto const place = std::find(expected.begin() + first, expected.begin() + last, hidden);
                ASSERT_EQ(slots.find(hidden, first, last), place - expected.begin()) << share << " " << first;
            }
        }
    }
}

namespace {

/// One ordered zone of 60 x 40 x 3 points with values of which many are hidden.
class BlankedRange : public testing::Test
{
protected:
    BlankedRange()
        : zone("z", ZoneType_Ordered, 60, 40, 3)
    {
        std::mt19937 random(11);
        std::vector<int> ofPoints;
        std::vector<int> ofCells;
        std::vector<double> values;
        for (std::int64_t point = 0; point < zone.pointCount(); ++point) {
            ofPoints.push_back(random() % 20 == 0 ? 2 : 0);
            values.push_back(static_cast<double>(random() % 100000));
        }
        for (std::int64_t cell = 0; cell < zone.cellCount(); ++cell) {
            ofCells.push_back(random() % 5 == 0 ? 32 : 0);
        }
        zone.fields.push_back(sample::field(values, FieldDataType_Double));
        zone.fields.push_back(sample::field(values, FieldDataType_Float, ValueLocation_CellCentered));
        blank(zone, ofPoints, ofCells);
    }

    /// By looking at each value that has a visible point or cell.
    ValueRange expected(int variable) const
    {
        Field const& field = zone.fields[static_cast<std::size_t>(variable - 1)];
        bool const nodal = field.location() == ValueLocation_Nodal;
        ValueRange range{ValueRange::State::Exact, 1e9, -1e9};
        for (std::int64_t k = 0; k < (nodal ? 3 : 2); ++k) {
            for (std::int64_t j = 0; j < (nodal ? 40 : 39); ++j) {
                for (std::int64_t i = 0; i < (nodal ? 60 : 59); ++i) {
                    std::int64_t const slot = i + 60 * (j + 40 * k);
                    double const value = field.group()->buffer()->value(slot);
                    if (!zone.isHidden(field.location(), slot)) {
                        range.min = std::min(range.min, value);
                        range.max = std::max(range.max, value);
                    }
                }
            }
        }
        return range;
    }

    void expectRange(int variable) const
    {
        ValueRange const range = zone.range(variable);
        EXPECT_EQ(range.state, ValueRange::State::Exact);
        EXPECT_EQ(range.min, expected(variable).min);
        EXPECT_EQ(range.max, expected(variable).max);
    }

    std::int64_t firstSlot(bool hidden, ValueLocation_e location) const
    {
        return zone.hidden(location)->find(hidden, 0, zone.pointCount());
    }

    void write(int variable, std::int64_t slot, double value)
    {
        Field& field = zone.fields[static_cast<std::size_t>(variable - 1)];
        field.group()->writeBits(slot, Buffer::bitsOf(field.type(), value), zone.countedValues(field.location()));
    }

    Zone zone;
};

} // namespace

TEST_F(BlankedRange, LeavesOutWhatIsHidden)
{
    write(1, firstSlot(true, ValueLocation_Nodal), -1e6);
    write(2, firstSlot(true, ValueLocation_CellCentered), 1e6);
    expectRange(1);
    expectRange(2);
    EXPECT_GE(zone.range(1).min, 0);
    EXPECT_LE(zone.range(2).max, 1e5);
}

TEST_F(BlankedRange, DoesNotFollowAnEditOfAHiddenValueAndDoesFollowOneOfAVisibleValue)
{
    for (int const variable : {1, 2}) {
        ValueLocation_e const location = zone.fields[static_cast<std::size_t>(variable - 1)].location();
        expectRange(variable);
        write(variable, firstSlot(true, location), -1e6);
        expectRange(variable);
        EXPECT_GE(zone.range(variable).min, 0);
        write(variable, firstSlot(false, location), 2e6);
        expectRange(variable);
        EXPECT_EQ(zone.range(variable).max, 2e6);
        write(variable, firstSlot(false, location), 5);
        expectRange(variable);
    }
}

TEST_F(BlankedRange, IsFoundInEachOfManyParts)
{
    std::int64_t const rows = 50000;
    Zone large("large", ZoneType_Ordered, 60, rows, 1);
    auto const buffer = Buffer::allocate(FieldDataType_Float, large.pointCount());
    std::vector<int> ofPoints(static_cast<std::size_t>(large.pointCount()));
    for (std::int64_t point = 7; point < large.pointCount(); point += 9973) {
        ofPoints[static_cast<std::size_t>(point)] = 2;
        buffer->setValue(point, -1e30);
    }
    buffer->setValue(17, 3);
    blank(large, ofPoints, {});
    large.fields.emplace_back(std::make_shared<ShareGroup>(buffer), ValueLocation_Nodal);
    EXPECT_EQ(large.range(1).min, 0);
    EXPECT_EQ(large.range(1).max, 3);
    large.fields[0].group()->writeBits(large.pointCount() - 1, Buffer::bitsOf(FieldDataType_Float, -4),
                                       large.countedValues(ValueLocation_Nodal));
    EXPECT_EQ(large.range(1).min, -4);
    large.fields[0].group()->writeBits(17, Buffer::bitsOf(FieldDataType_Float, 1),
                                       large.countedValues(ValueLocation_Nodal));
    EXPECT_EQ(large.range(1).max, 1);
    large.fields[0].group()->writeBits(7, Buffer::bitsOf(FieldDataType_Float, 99),
                                       large.countedValues(ValueLocation_Nodal));
    EXPECT_EQ(large.range(1).max, 1) << "is hidden";
}

TEST_F(BlankedRange, OfAllValuesIsNoMoreThanAnEstimateWhereSomeAreHidden)
{
    auto const loader = std::make_shared<sample::Loader>(std::vector<double>(7200, 1.0), FieldDataType_Double);
    loader->knownRange = {ValueRange::State::Exact, -9, 9};
    zone.fields[0] = Field(std::make_shared<ShareGroup>(FieldDataType_Double, 7200, loader), ValueLocation_Nodal);
    EXPECT_EQ(zone.range(1).state, ValueRange::State::Estimated);
    EXPECT_EQ(zone.range(1).max, 9);
    EXPECT_EQ(zone.fields[0].group()->range().state, ValueRange::State::Exact);
}

namespace {

class BlankedZone : public SpatialFixture
{
protected:
    BlankedZone()
    {
        blank(*dataSet->zone(1), {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2}, {0, 1});
        blanking = dataSet->zone(1)->blanking;
    }

    std::shared_ptr<Blanking const> blanking;
};

} // namespace

TEST_F(BlankedZone, SharesItsBlankingWithEveryKindOfCopy)
{
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {1})));
    ASSERT_TRUE(session.perform(MirrorZones(frame->id, {1}, 'X')));
    EXPECT_EQ(dataSet->zone(2)->blanking, blanking);
    EXPECT_EQ(dataSet->zone(3)->blanking, blanking);
    ASSERT_TRUE(session.undo());
    ASSERT_TRUE(session.undo());
    ASSERT_TRUE(session.redo());
    EXPECT_EQ(dataSet->zone(2)->blanking, blanking);
    EXPECT_EQ(dataSet->zone(1)->blanking, blanking);
}

TEST_F(BlankedZone, KeepsItThroughTheDeletionOfVariables)
{
    ASSERT_TRUE(session.perform(DeleteVariables(*dataSet, {dataSet->variableCount()})));
    EXPECT_EQ(dataSet->zone(1)->blanking, blanking);
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(dataSet->zone(1)->blanking, blanking);
}

} // namespace veldraw::tests
