#include "kernel/data/ValueBlanking.h"

#include "kernel/data/BlankedZones.h"
#include "tests/kernel/support/MeshData.h"
#include "tests/kernel/support/SampleData.h"
#include "tests/kernel/support/SampleLoader.h"

#include <cmath>
#include <gmock/gmock.h>
#include <limits>
#include <random>

namespace veldraw::tests {

using namespace kernel;

namespace {

using Cells = std::vector<std::vector<std::int64_t>>;

constexpr double withoutNumber = std::numeric_limits<double>::quiet_NaN();

/// Numbers around 0, some of which are none, and some of which are beyond all others.
std::vector<double> randomValues(std::int64_t count, std::mt19937& random)
{
    std::uniform_int_distribution<int> digit(-3, 3);
    std::vector<double> values;
    for (std::int64_t n = 0; n < count; ++n) {
        int const kind = std::uniform_int_distribution<int>(0, 19)(random);
        double const infinite = std::numeric_limits<double>::infinity();
        values.push_back(kind == 0 ? withoutNumber : kind == 1 ? infinite : kind == 2 ? -infinite : digit(random));
    }
    return values;
}

/// The cells of an ordered zone by their slots, as the indices of their corners say.
Cells orderedCells(std::int64_t ni, std::int64_t nj, std::int64_t nk)
{
    Cells cells(static_cast<std::size_t>(ni * nj * nk));
    auto const far = [](std::int64_t n, std::int64_t count) { return count > 1 ? n + 1 : n; };
    auto const isCell = [](std::int64_t n, std::int64_t count) { return count == 1 || n + 1 < count; };
    for (std::int64_t k = 0; k < nk; ++k) {
        for (std::int64_t j = 0; j < nj; ++j) {
            for (std::int64_t i = 0; i < ni; ++i) {
                if (!isCell(i, ni) || !isCell(j, nj) || !isCell(k, nk)) {
                    continue;
                }
                auto& corners = cells[static_cast<std::size_t>(i + ni * (j + nj * k))];
                for (std::int64_t const c : {k, far(k, nk)}) {
                    for (std::int64_t const b : {j, far(j, nj)}) {
                        for (std::int64_t const a : {i, far(i, ni)}) {
                            corners.push_back(a + ni * (b + nj * c));
                        }
                    }
                }
            }
        }
    }
    return cells;
}

bool fulfils(double value, BlankingConstraint const& constraint)
{
    return !std::isnan(value) && (constraint.isAbove ? value > constraint.limit : value < constraint.limit);
}

/// The rule, cell by cell.
bool isOut(std::vector<std::int64_t> const& corners, std::size_t slot, BlankingConstraint const& constraint,
           std::vector<double> const& values, ValueLocation_e location)
{
    if (corners.empty()) {
        return false;
    }
    if (location == ValueLocation_CellCentered) {
        return fulfils(values[slot], constraint);
    }
    int fulfilled = 0;
    for (std::int64_t const corner : corners) {
        fulfilled += fulfils(values[static_cast<std::size_t>(corner)], constraint) ? 1 : 0;
    }
    return fulfilled == static_cast<int>(corners.size());
}

struct Outcome
{
    std::int64_t cells = 0;
    std::int64_t hidden = 0;
};

/// Compares a zone under random constraints with the rule.
Outcome compare(Zone const& zone, Cells const& cells, std::mt19937& random)
{
    std::vector<ConstrainedValues> constraints;
    std::vector<std::vector<double>> values;
    int const count = std::uniform_int_distribution<int>(1, 3)(random);
    for (int n = 0; n < count; ++n) {
        bool const isNodal = random() % 2 == 0;
        ValueLocation_e const location = isNodal ? ValueLocation_Nodal : ValueLocation_CellCentered;
        double const limit = std::uniform_int_distribution<int>(-2, 2)(random);
        values.push_back(randomValues(zone.valueCount(location), random));
        constraints.push_back(
            {{1, random() % 2 == 0, isNodal ? limit / 2 : 2 * limit, true}, sample::buffer(values.back()), location});
    }
    auto const blanking = blankedBy(constraints, zone);
    std::vector<int> visible(static_cast<std::size_t>(zone.pointCount()), 0); // cells at a point
    std::vector<int> all(visible.size(), 0);
    Outcome outcome;
    auto const isHidden = [&](ValueLocation_e location, std::size_t slot) {
        auto const slots = blanking ? blanking->hidden(location) : nullptr;
        return slots && slots->contains(static_cast<std::int64_t>(slot));
    };
    for (std::size_t slot = 0; slot < cells.size(); ++slot) {
        bool expected = false;
        for (std::size_t n = 0; n < constraints.size(); ++n) {
            expected =
                expected || isOut(cells[slot], slot, constraints[n].constraint, values[n], constraints[n].location);
        }
        EXPECT_EQ(isHidden(ValueLocation_CellCentered, slot), expected) << slot;
        outcome.cells += cells[slot].empty() ? 0 : 1;
        outcome.hidden += expected ? 1 : 0;
        for (std::int64_t const corner : cells[slot]) {
            ++all[static_cast<std::size_t>(corner)];
            visible[static_cast<std::size_t>(corner)] += expected ? 0 : 1;
        }
    }
    for (std::size_t point = 0; point < all.size(); ++point) {
        EXPECT_EQ(isHidden(ValueLocation_Nodal, point), all[point] > 0 && visible[point] == 0) << "point " << point;
    }
    return outcome;
}

/// A line of four points and a plane of a variable A, which is passive in the plane.
struct TwoZones
{
    TwoZones()
    {
        data.addVariable(std::make_shared<Variable>("A"));
        auto const line = std::make_shared<Zone>("line", ZoneType_Ordered, 4, 1, 1);
        line->fields.push_back(sample::field({1, 1, 1, 5}));
        data.addZone(line);
        data.addZone(std::make_shared<Zone>("plane", ZoneType_Ordered, 2, 2, 1));
    }

    ValueBlanking below(double limit) { return {true, {{data.variable(1)->id, false, limit, true}}}; }

    DataSet data;
    BlankedZones blanked;
};

} // namespace

TEST(ValueBlanking, HidesTheCellsOfOrderedZonesThatTheRuleNames)
{
    std::mt19937 random(11);
    Outcome sum;
    for (int turn = 0; turn < 120; ++turn) {
        auto const size = [&random] { return std::uniform_int_distribution<int>(1, 9)(random); };
        Zone const zone("zone", ZoneType_Ordered, size(), size(), size());
        Outcome const outcome = compare(zone, orderedCells(zone.i, zone.j, zone.k), random);
        sum.cells += outcome.cells;
        sum.hidden += outcome.hidden;
    }
    EXPECT_GT(sum.cells, 5000);
    EXPECT_GT(sum.hidden, 1000);
    EXPECT_GT(sum.cells - sum.hidden, 1000);
}

TEST(ValueBlanking, HidesTheCellsOfFiniteElementZonesThatTheRuleNames)
{
    using Shape = Connectivity::Shape;
    std::mt19937 random(12);
    Outcome sum;
    for (Shape const shape : {Shape::Triangle, Shape::Quad, Shape::Tetrahedron, Shape::Brick, Shape::Prism}) {
        sample::CellLists const lists = sample::fillOf(shape, 7, 0.0, 3);
        auto const zone = lists.zone(sample::zoneTypeOf(shape));
        Cells cells;
        for (std::size_t cell = 0; cell + 1 < lists.offsets.size(); ++cell) {
            cells.emplace_back(lists.indices.begin() + lists.offsets[cell],
                               lists.indices.begin() + lists.offsets[cell + 1]);
        }
        Outcome const outcome = compare(*zone, cells, random);
        sum.cells += outcome.cells;
        sum.hidden += outcome.hidden;
    }
    EXPECT_GT(sum.cells, 2000);
    EXPECT_GT(sum.hidden, 100);
}

TEST(ValueBlanking, KeepsCellsWithAPointAtTheLimitOrWithoutANumber)
{
    Zone const zone("line", ZoneType_Ordered, 5, 1, 1);
    auto const values = sample::buffer({1, 1, 2, 1, withoutNumber});
    auto const blanking = blankedBy({{{1, false, 2.0, true}, values, ValueLocation_Nodal}}, zone);
    auto const& cells = *blanking->hidden(ValueLocation_CellCentered);
    EXPECT_TRUE(cells.contains(0));
    EXPECT_FALSE(cells.contains(1)) << "2 is not below 2";
    EXPECT_FALSE(cells.contains(2));
    EXPECT_FALSE(cells.contains(3));
    EXPECT_EQ(cells.count(), 1);
}

TEST(ValueBlanking, AddsToWhatTheMarksOfAZoneHideAndKeepsTheMarks)
{
    Zone zone("line", ZoneType_Ordered, 4, 1, 1);
    auto const marks = sample::buffer({0, 0, Blanking::hiddenCell}, FieldDataType_Byte);
    zone.blanking = std::make_shared<Blanking>(zone, Blanking::Marks{nullptr, marks});
    auto const values = sample::buffer({1, 1, 5, 5});
    auto const both = blankedBy({{{1, false, 2.0, true}, values, ValueLocation_Nodal}}, zone);
    EXPECT_TRUE(both->hidden(ValueLocation_CellCentered)->contains(0));
    EXPECT_FALSE(both->hidden(ValueLocation_CellCentered)->contains(1));
    EXPECT_TRUE(both->hidden(ValueLocation_CellCentered)->contains(2));
    EXPECT_EQ(both->marks().ofCells, marks);
    EXPECT_EQ(blankedBy({{{1, false, 0.0, true}, values, ValueLocation_Nodal}}, zone), zone.blanking)
        << "nothing more is hidden";
}

TEST(ValueBlanking, HidesEachPointOfAScatteredZoneForItself)
{
    Zone zone("points", ZoneType_Ordered, 4, 1, 1);
    zone.isScattered = true;
    auto const values = sample::buffer({1, 5, 1, 5});
    auto const blanking = blankedBy({{{1, true, 2.0, true}, values, ValueLocation_Nodal}}, zone);
    auto const& points = *blanking->hidden(ValueLocation_Nodal);
    EXPECT_FALSE(points.contains(0));
    EXPECT_TRUE(points.contains(1));
    EXPECT_FALSE(points.contains(2));
    EXPECT_TRUE(points.contains(3));
}

TEST(BlankedZones, LeaveAZoneWithoutTheVariableWhole)
{
    TwoZones sample;
    EXPECT_NE(sample.blanked.of(sample.data, 1, sample.below(2.0)), nullptr);
    EXPECT_EQ(sample.blanked.of(sample.data, 2, sample.below(2.0)), nullptr);
}

TEST(BlankedZones, ArePlainWhileTheSwitchOrTheConstraintIsOff)
{
    TwoZones sample;
    ValueBlanking blanking = sample.below(2.0);
    blanking.isOn = false;
    EXPECT_EQ(sample.blanked.of(sample.data, 1, blanking), nullptr);
    blanking = sample.below(2.0);
    blanking.constraints[0].isActive = false;
    EXPECT_EQ(sample.blanked.of(sample.data, 1, blanking), nullptr);
    blanking = sample.below(2.0);
    blanking.constraints[0].variable = nextUniqueId();
    EXPECT_EQ(sample.blanked.of(sample.data, 1, blanking), nullptr) << "a variable that is gone";
}

TEST(BlankedZones, AreFoundAnewWhenValuesOrConstraintsDiffer)
{
    TwoZones sample;
    auto const first = sample.blanked.of(sample.data, 1, sample.below(2.0));
    EXPECT_EQ(first->hidden(ValueLocation_CellCentered)->count(), 2);
    EXPECT_EQ(sample.blanked.of(sample.data, 1, sample.below(2.0)), first) << "the very same";
    EXPECT_EQ(sample.blanked.of(sample.data, 1, sample.below(6.0))->hidden(ValueLocation_CellCentered)->count(), 3);
    sample.data.zone(1)->fields[0] = sample::field({5, 5, 1, 1});
    auto const edited = sample.blanked.of(sample.data, 1, sample.below(2.0));
    EXPECT_EQ(edited->hidden(ValueLocation_CellCentered)->count(), 1);
    EXPECT_TRUE(edited->hidden(ValueLocation_CellCentered)->contains(2));
}

} // namespace veldraw::tests
