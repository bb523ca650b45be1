#include "kernel/operations/InterpolateByInverseDistance.h"

#include "tests/kernel/support/InterpolationFixture.h"
#include "tests/kernel/support/SampleLoader.h"
#include "tests/kernel/support/Waiters.h"
#include "tests/support/Threads.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <limits>

namespace veldraw::tests {

using namespace kernel;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class InterpolateByInverseDistanceTest : public InterpolationFixture
{
protected:
    bool interpolate(NumberSet const& sources, int destination, NumberSet const& variables, NeighborChoice choice,
                     InterpolateByInverseDistance::Formula formula)
    {
        return session.perform(
            InterpolateByInverseDistance(frame->id, sources, destination, variables, choice, formula));
    }

    bool interpolate(NumberSet const& sources, int destination)
    {
        return interpolate(sources, destination, {P}, {PtSelection_NearestN, 8}, {3.5, 0.0});
    }

    static constexpr NeighborChoice all{PtSelection_All, 1};
};

constexpr NeighborChoice InterpolateByInverseDistanceTest::all;

/// Counts how often a cancel is looked for, and how often of these once all is told to be done.
class LateLooks : public Progress
{
public:
    bool isInterrupted() const override
    {
        ++m_looks;
        m_looksAtTheEnd += fraction() >= 1.0 ? 1 : 0;
        return false;
    }

    std::int64_t looks() const { return m_looks; }
    std::int64_t looksAtTheEnd() const { return m_looksAtTheEnd; }

private:
    mutable std::atomic<std::int64_t> m_looks{0};
    mutable std::atomic<std::int64_t> m_looksAtTheEnd{0};
};

/// Weighted mean of the values at points, by the formula as it stands.
double meanByHand(ScatteredPoints const& points, std::vector<std::uint32_t> const& chosen, double const* target,
                  InterpolateByInverseDistance::Formula const& formula,
                  std::function<double(double const*)> const& value)
{
    long double weights = 0.0L;
    long double sum = 0.0L;
    for (std::uint32_t const point : chosen) {
        long double square = 0.0L;
        for (int axis = 0; axis < points.dimensions(); ++axis) {
            long double const difference = static_cast<long double>(points.at(point)[axis]) - target[axis];
            square += difference * difference;
        }
        long double const distance = std::max(std::sqrt(square), static_cast<long double>(formula.minimumDistance));
        long double const weight = std::pow(distance, -static_cast<long double>(formula.exponent));
        weights += weight;
        sum += weight * value(points.at(point));
    }
    return static_cast<double>(sum / weights);
}

std::vector<std::uint32_t> nearest(ScatteredPoints const& points, double const* target, std::size_t count)
{
    std::vector<std::uint32_t> numbers = points.numbers();
    std::partial_sort(numbers.begin(), numbers.begin() + static_cast<std::ptrdiff_t>(count), numbers.end(),
                      [&](std::uint32_t a, std::uint32_t b) {
                          return points.squaredDistance(a, target) < points.squaredDistance(b, target);
                      });
    numbers.resize(count);
    return numbers;
}

/// The nearest point of each octant, or quadrant.
std::vector<std::uint32_t> nearestOfOctants(ScatteredPoints const& points, double const* target)
{
    std::vector<std::uint32_t> chosen;
    for (std::size_t octant = 0; octant < (std::size_t{1} << points.dimensions()); ++octant) {
        std::uint32_t best = static_cast<std::uint32_t>(points.count());
        for (std::uint32_t const point : points.numbers()) {
            bool const isBetter =
                best == points.count() || points.squaredDistance(point, target) < points.squaredDistance(best, target);
            if (points.octant(point, target) == octant && isBetter) {
                best = point;
            }
        }
        if (best < points.count()) {
            chosen.push_back(best);
        }
    }
    return chosen;
}

} // namespace

TEST_F(InterpolateByInverseDistanceTest, AgreesWithASumInExtendedPrecision)
{
    for (int const axes : {3, 2}) {
        if (axes == 2) {
            showPlane();
        }
        ScatteredPoints const sources = ScatteredPoints::random(axes, 1203, 1);
        ScatteredPoints const targets = ScatteredPoints::random(axes, 1051, 2);
        int const from = addPoints(sources, wave, slope);
        int const to = addPoints(targets, zero, zero);
        for (InterpolateByInverseDistance::Formula const formula :
             {InterpolateByInverseDistance::Formula{2.0, 0.0}, {3.5, 0.05}, {1.3, 0.0}}) {
            for (NeighborChoice const choice : {NeighborChoice{PtSelection_NearestN, 8},
                                                NeighborChoice{PtSelection_Octant, axes == 3 ? 8 : 4}, all}) {
                ASSERT_TRUE(interpolate({from}, to, {P, Q}, choice, formula)) << session.lastError();
                std::vector<double> const p = valuesOf(to, P);
                std::vector<double> const q = valuesOf(to, Q);
                for (std::size_t target = 0; target < targets.count(); target += 17) {
                    double const* const place = targets.at(target);
                    std::vector<std::uint32_t> const chosen = choice.selection == PtSelection_All ? sources.numbers()
                                                              : choice.selection == PtSelection_NearestN
                                                                  ? nearest(sources, place, 8)
                                                                  : nearestOfOctants(sources, place);
                    double const wanted = meanByHand(sources, chosen, place, formula, wave);
                    ASSERT_NEAR(p[target], wanted, 1e-11 * std::abs(wanted));
                    ASSERT_NEAR(q[target], meanByHand(sources, chosen, place, formula, slope), 1e-10);
                }
            }
        }
    }
}

TEST_F(InterpolateByInverseDistanceTest, TakesTheValueOfASourcePointItself)
{
    ScatteredPoints const points = ScatteredPoints::random(3, 5003, 4);
    int const from = addPoints(points, wave, zero);
    int const to = addPoints(points, zero, zero);
    for (NeighborChoice const choice : {NeighborChoice{PtSelection_NearestN, 8}, {PtSelection_Octant, 8}, all}) {
        ASSERT_TRUE(interpolate({from}, to, {P}, choice, {3.5, 0.0}));
        EXPECT_EQ(valuesOf(to, P), valuesOf(from, P));
    }
}

TEST_F(InterpolateByInverseDistanceTest, TakesTheMeanOfSourcePointsAtOnePlace)
{
    int const from = addPoints({2, {0.0, 0.0, 0.0, 0.0, 1.0, 0.0}}, zero, zero);
    setField(from, P, {1.0, 5.0, 100.0});
    int const to = addPoints({2, {0.0, 0.0}}, zero, zero);
    ASSERT_TRUE(interpolate({from}, to));
    EXPECT_THAT(valuesOf(to, P), ElementsAre(3.0));
    ASSERT_TRUE(interpolate({from}, to, {P}, all, {2.0, 0.0}));
    EXPECT_THAT(valuesOf(to, P), ElementsAre(3.0));
}

TEST_F(InterpolateByInverseDistanceTest, KeepsEqualValuesToTheLastBit)
{
    for (double const value : {0.1, 2.5, -1.0 / 3.0}) {
        auto const constant = [value](double const*) { return value; };
        int const from = addPoints(ScatteredPoints::random(3, 5003, 3), constant, zero);
        int const to = addPoints(ScatteredPoints::random(3, 3001, 4), zero, zero);
        for (NeighborChoice const choice : {NeighborChoice{PtSelection_NearestN, 7}, {PtSelection_Octant, 13}, all}) {
            ASSERT_TRUE(interpolate({from}, to, {P}, choice, {3.5, 0.0}));
            EXPECT_EQ(valuesOf(to, P), std::vector<double>(3001, value));
        }
    }
}

TEST_F(InterpolateByInverseDistanceTest, TakesTheOneSourcePointThereIs)
{
    int const from = addPoints({3, {4.0, 5.0, 6.0}}, wave, zero);
    int const to = addPoints(ScatteredPoints::random(3, 100, 3), zero, zero);
    for (NeighborChoice const choice : {NeighborChoice{PtSelection_NearestN, 8}, {PtSelection_Octant, 8}, all}) {
        ASSERT_TRUE(interpolate({from}, to, {P}, choice, {2.0, 0.0}));
        EXPECT_EQ(valuesOf(to, P), std::vector<double>(100, valuesOf(from, P)[0]));
    }
}

TEST_F(InterpolateByInverseDistanceTest, TakesSeveralZonesAsOne)
{
    ScatteredPoints const one = ScatteredPoints::random(3, 700, 5);
    ScatteredPoints const other = ScatteredPoints::random(3, 1301, 6);
    std::vector<double> both = one.places();
    both.insert(both.end(), other.places().begin(), other.places().end());
    int const first = addPoints(one, wave, slope);
    int const second = addPoints(other, wave, slope, FieldDataType_Float);
    setField(second, P, valuesOf(second, P));
    int const together = addPoints({3, both}, wave, slope);
    ScatteredPoints const targets = ScatteredPoints::random(3, 999, 7);
    int const a = addPoints(targets, zero, zero);
    int const b = addPoints(targets, zero, zero);
    ASSERT_TRUE(interpolate({together}, a, {P}, {PtSelection_NearestN, 12}, {3.5, 0.0}));
    setField(together, P, [&] {
        std::vector<double> values = valuesOf(first, P);
        std::vector<double> const more = valuesOf(second, P);
        values.insert(values.end(), more.begin(), more.end());
        return values;
    }());
    ASSERT_TRUE(interpolate({together}, a, {P}, {PtSelection_NearestN, 12}, {3.5, 0.0}));
    ASSERT_TRUE(interpolate({first, second}, b, {P}, {PtSelection_NearestN, 12}, {3.5, 0.0}));
    EXPECT_EQ(valuesOf(a, P), valuesOf(b, P));
}

TEST_F(InterpolateByInverseDistanceTest, ReadsTheValuesBeforeWhereTheDestinationIsASource)
{
    ScatteredPoints const points = ScatteredPoints::random(3, 2001, 8);
    int const zone = addPoints(points, wave, zero);
    int const copy = addPoints(points, wave, zero);
    int const to = addPoints(points, zero, zero);
    ASSERT_TRUE(interpolate({copy}, to, {P}, {PtSelection_NearestN, 5}, {2.0, 0.5}));
    ASSERT_TRUE(interpolate({zone}, zone, {P}, {PtSelection_NearestN, 5}, {2.0, 0.5}));
    EXPECT_EQ(valuesOf(zone, P), valuesOf(to, P));
}

TEST_F(InterpolateByInverseDistanceTest, BranchesTheDestinationFromStorageThatItShares)
{
    ScatteredPoints const points = ScatteredPoints::random(3, 500, 8);
    int const from = addPoints(points, wave, zero);
    int const to = addPoints(points, zero, zero);
    field(to, P) = field(from, P);
    std::vector<double> const before = valuesOf(from, P);
    ASSERT_TRUE(interpolate({from}, to, {P}, {PtSelection_NearestN, 5}, {2.0, 0.5}));
    EXPECT_EQ(valuesOf(from, P), before);
    EXPECT_NE(valuesOf(to, P), before);
    EXPECT_EQ(field(from, P).shareCount(), 1);
}

TEST_F(InterpolateByInverseDistanceTest, PutsCellValuesAtTheMeansOfTheCorners)
{
    dataSet = sample::emptySpace();
    sample::addOrdered(*dataSet, 3, 3, 2);
    sample::addOrdered(*dataSet, 2, 2, 2);
    frame = sample::show(session, dataSet);
    constexpr int cellVariable = 7;
    std::vector<double> lattice[3];
    for (int point = 0; point < 18; ++point) {
        lattice[0].push_back(point % 3);
        lattice[1].push_back(point / 3 % 3);
        lattice[2].push_back(point / 9);
    }
    for (int axis = 0; axis < 3; ++axis) {
        setField(1, axis + 1, lattice[axis]);
    }
    setField(1, cellVariable, {10, 20, -1, 30, 40, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1},
             FieldDataType_Double, ValueLocation_CellCentered);
    setField(2, 1, {1, 2, 1, 2, 1, 2, 1, 2}); // its one cell is the last one of the source
    setField(2, 2, {1, 1, 2, 2, 1, 1, 2, 2});
    setField(2, 3, {0, 0, 0, 0, 1, 1, 1, 1});
    setField(2, cellVariable, {0, 7, 7, 7, 7, 7, 7, 7}, FieldDataType_Float, ValueLocation_CellCentered);
    ASSERT_TRUE(session.perform(
        InterpolateByInverseDistance(frame->id, {1}, 2, {cellVariable}, {PtSelection_NearestN, 8}, {3.5, 0.0})))
        << session.lastError();
    EXPECT_THAT(valuesOf(2, cellVariable), ElementsAre(40, 7, 7, 7, 7, 7, 7, 7));
}

TEST_F(InterpolateByInverseDistanceTest, LeavesOutSourcesThatAreNotNumbersOrHidden)
{
    listenToRemarks();
    double const nan = std::numeric_limits<double>::quiet_NaN();
    double const infinite = std::numeric_limits<double>::infinity();
    int const from = addPoints({2, {0.0, 0.0, 1.0, 0.0, 2.0, 0.0, nan, 0.0, 3.0, 0.0}}, zero, zero);
    setField(from, P, {1.0, nan, 3.0, 1e9, 1e9});
    setField(from, Q, {1.0, 2.0, infinite, 1e9, 1e9});
    auto const marks = Buffer::allocate(FieldDataType_Byte, 5);
    marks->setValue(4, Blanking::hiddenPoint);
    dataSet->zone(from)->blanking = std::make_shared<Blanking>(*dataSet->zone(from), Blanking::Marks{marks, nullptr});
    int const to = addPoints({2, {1.0, 0.0, 2.0, 0.0}}, zero, zero);
    ASSERT_TRUE(interpolate({from}, to, {P, Q}, {PtSelection_NearestN, 1}, {2.0, 0.0}));
    EXPECT_THAT(valuesOf(to, P), ElementsAre(1.0, 3.0));
    EXPECT_THAT(valuesOf(to, Q), ElementsAre(2.0, 2.0));
    ASSERT_EQ(remarks.size(), 1U);
    EXPECT_THAT(remarks[0], HasSubstr("2 source points left out: hidden or without a finite place."));
    EXPECT_THAT(remarks[0], HasSubstr("2 source values left out: not finite."));
}

TEST_F(InterpolateByInverseDistanceTest, LeavesPlacesThatAreNotNumbersAsTheyWere)
{
    listenToRemarks();
    int const from = addPoints({2, {0.0, 0.0}}, wave, zero);
    int const to = addPoints({2, {0.0, std::numeric_limits<double>::quiet_NaN(), 1.0, 1.0}}, zero, zero);
    setField(to, P, {17.0, 18.0});
    ASSERT_TRUE(interpolate({from}, to));
    EXPECT_THAT(valuesOf(to, P), ElementsAre(17.0, 3.0));
    EXPECT_THAT(remarks[0], HasSubstr("1 point of the destination without a finite place left as before."));
}

TEST_F(InterpolateByInverseDistanceTest, RoundsAndCutsToTheTypeOfTheDestination)
{
    listenToRemarks();
    int const from = addPoints({2, {0.0, 0.0, 10.0, 0.0, 20.0, 0.0}}, zero, zero);
    setField(from, P, {2.6, 70000.0, -3.0});
    struct Case
    {
        FieldDataType_e type;
        std::vector<double> wanted;
    };
    for (Case const& one :
         {Case{FieldDataType_Int32, {3.0, 70000.0, -3.0}}, Case{FieldDataType_Int16, {3.0, 32767.0, -3.0}},
          Case{FieldDataType_Byte, {3.0, 255.0, 0.0}}, Case{FieldDataType_Bit, {1.0, 1.0, 0.0}}}) {
        int const to = addPoints({2, {0.0, 0.0, 10.0, 0.0, 20.0, 0.0}}, zero, zero);
        setField(to, P, {0.0, 0.0, 0.0}, one.type);
        ASSERT_TRUE(interpolate({from}, to, {P}, {PtSelection_NearestN, 1}, {2.0, 0.0}));
        EXPECT_EQ(valuesOf(to, P), one.wanted);
        EXPECT_EQ(field(to, P).type(), one.type);
        EXPECT_THAT(remarks.back(), HasSubstr("Results of whole-number variables were rounded."));
    }
    EXPECT_THAT(remarks[1], HasSubstr("Beyond the limits of their type and cut to them: 1 value."));
    EXPECT_THAT(remarks[2], HasSubstr("cut to them: 2 values."));
}

TEST_F(InterpolateByInverseDistanceTest, SetsABitFromAHalfOn)
{
    int const from = addPoints({2, {0.0, 0.0, 1.0, 0.0}}, zero, zero);
    setField(from, P, {0.0, 1.0});
    int const to = addPoints({2, {0.1, 0.0, 0.49, 0.0, 0.51, 0.0, 0.9, 0.0}}, zero, zero);
    setField(to, P, {1.0, 1.0, 0.0, 0.0}, FieldDataType_Bit);
    ASSERT_TRUE(interpolate({from}, to, {P}, {PtSelection_NearestN, 2}, {1.0, 0.0}));
    EXPECT_THAT(valuesOf(to, P), ElementsAre(0.0, 0.0, 1.0, 1.0));
}

TEST_F(InterpolateByInverseDistanceTest, GivesAPassiveDestinationTheTypeOfTheSources)
{
    int const from = addPoints({2, {0.0, 0.0}}, zero, zero);
    setField(from, P, {0.1});
    setField(from, Q, {7.0}, FieldDataType_Int16);
    int const to = addPoints({2, {0.0, 0.0}}, zero, zero);
    field(to, P) = Field();
    field(to, Q) = Field();
    ASSERT_TRUE(interpolate({from}, to, {P, Q}, {PtSelection_NearestN, 1}, {2.0, 0.0}));
    EXPECT_THAT(valuesOf(to, P), ElementsAre(0.1));
    EXPECT_EQ(field(to, P).type(), FieldDataType_Double);
    EXPECT_EQ(field(to, Q).type(), FieldDataType_Float);
}

TEST_F(InterpolateByInverseDistanceTest, TakesCoordinatesAndValuesOfExtremeSize)
{
    for (double const size : {1e200, 1e-200, 1e270, 1e-310}) {
        int const from = addPoints({2, {0.0, 0.0, size, 0.0}}, zero, zero);
        setField(from, P, {1.0, 3.0});
        setField(from, Q, {1.7e308, 1.7e308});
        int const to = addPoints({2, {0.5 * size, 0.0, 0.25 * size, 0.0}}, zero, zero);
        ASSERT_TRUE(interpolate({from}, to, {P, Q}, {PtSelection_NearestN, 2}, {1.0, 0.0}));
        EXPECT_THAT(valuesOf(to, P), ElementsAre(testing::DoubleNear(2.0, 1e-12), testing::DoubleNear(1.5, 1e-12)))
            << size;
        EXPECT_THAT(valuesOf(to, Q), testing::Each(testing::DoubleEq(1.7e308))) << size;
    }
}

TEST_F(InterpolateByInverseDistanceTest, KeepsDistancesBesideAPointThatIsFarOff)
{
    listenToRemarks();
    for (double const far : {1e200, 1e279, std::numeric_limits<double>::max()}) {
        int const from = addPoints({2, {0.0, 0.0, 1.0, 0.0, far, 0.0}}, zero, zero);
        setField(from, P, {1.0, 3.0, 1e9});
        int const to = addPoints({2, {0.25, 0.0, 1.0, 0.0}}, zero, zero);
        ASSERT_TRUE(interpolate({from}, to, {P}, {PtSelection_NearestN, 2}, {1.0, 0.0}));
        EXPECT_THAT(valuesOf(to, P), ElementsAre(testing::DoubleEq(1.5), 3.0)) << far;
    }
    EXPECT_THAT(remarks.back(), HasSubstr("1 source point left out"));
}

TEST_F(InterpolateByInverseDistanceTest, IsThePlainMeanWithinALargeMinimumDistance)
{
    int const from = addPoints({2, {0.0, 0.0, 1.0, 0.0}}, zero, zero);
    setField(from, P, {1.0, 4.0});
    int const to = addPoints({2, {0.1, 0.0}}, zero, zero);
    for (double const distance : {10.0, 1e160, 1e300}) {
        for (NeighborChoice const choice : {NeighborChoice{PtSelection_NearestN, 2}, all}) {
            ASSERT_TRUE(interpolate({from}, to, {P}, choice, {3.3, distance}));
            EXPECT_THAT(valuesOf(to, P), ElementsAre(2.5)) << distance;
        }
    }
}

TEST_F(InterpolateByInverseDistanceTest, IsTheSameForAnyNumberOfThreads)
{
    ScatteredPoints const targets = ScatteredPoints::random(3, 4001, 2);
    int const from = addPoints(ScatteredPoints::random(3, 1003, 1), wave, zero);
    for (NeighborChoice const choice : {NeighborChoice{PtSelection_NearestN, 8}, {PtSelection_Octant, 11}, all}) {
        std::vector<std::vector<double>> results;
        for (int const threads : {1, 2, 16}) {
            Threads const some(threads);
            int const to = addPoints(targets, zero, zero);
            ASSERT_TRUE(interpolate({from}, to, {P}, choice, {3.3, 0.0}));
            results.push_back(valuesOf(to, P));
        }
        EXPECT_EQ(results[0], results[1]);
        EXPECT_EQ(results[0], results[2]);
    }
}

TEST_F(InterpolateByInverseDistanceTest, IsOneStepThatIsTakenBackAndDoneAgainBitByBit)
{
    int const from = addPoints(ScatteredPoints::random(3, 900, 1), wave, slope);
    int const to = addPoints(ScatteredPoints::random(3, 800, 2), zero, zero);
    std::string const before = withoutHistory();
    ASSERT_TRUE(interpolate({from}, to, {P, Q}, {PtSelection_NearestN, 8}, {2.0, 0.0}));
    Events const altered = recorder.take();
    ASSERT_EQ(altered.size(), 1U);
    expectUndoAndRedo(before, altered, altered);
    EXPECT_EQ(session.history().undoName(), "Inverse-Distance Interpolation");
}

TEST_F(InterpolateByInverseDistanceTest, ReportsWhatItDid)
{
    listenToRemarks();
    int const from = addPoints(ScatteredPoints::random(3, 900, 1), wave, slope);
    int const more = addPoints(ScatteredPoints::random(3, 900, 1), wave, slope);
    int const to = addPoints(ScatteredPoints::random(3, 800, 2), zero, zero);
    ASSERT_TRUE(interpolate({from, more}, to, {P, Q}, {PtSelection_NearestN, 8}, {2.0, 0.0}));
    ASSERT_EQ(remarks.size(), 1U);
    EXPECT_THAT(remarks[0],
                testing::StartsWith("Inverse-Distance Interpolation: \"P\", \"Q\" from \"Z1\", \"Z2\" to \"Z3\" "
                                    "with 800 points, in "));
}

TEST_F(InterpolateByInverseDistanceTest, NamesAFewOfManyZonesInItsReport)
{
    listenToRemarks();
    NumberSet sources;
    for (int zone = 1; zone <= 11; ++zone) {
        sources.insert(addPoints({3, {0.0, 0.0, 0.0}}, wave, slope));
    }
    ASSERT_TRUE(interpolate(sources, 11));
    EXPECT_THAT(remarks[0], HasSubstr("\"Z7\", \"Z8\" and 3 more to \"Z11\""));
}

TEST_F(InterpolateByInverseDistanceTest, TakesTheLargestExponent)
{
    int const from = addPoints({3, {0.0, 0.0, 0.0, 1.0, 0.0, 0.0}}, wave, slope);
    int const to = addPoints({3, {0.1, 0.0, 0.0}}, zero, zero);
    ASSERT_TRUE(interpolate({from}, to, {P}, {PtSelection_NearestN, 8}, {100.0, 0.0})) << session.lastError();
    EXPECT_NEAR(valuesOf(to, P)[0], valuesOf(from, P)[0], 1e-12) << "the other point has no weight beside the near one";
}

TEST_F(InterpolateByInverseDistanceTest, IsRefusedWithAReason)
{
    int const from = addPoints(ScatteredPoints::random(3, 20, 1), wave, slope);
    int const to = addPoints(ScatteredPoints::random(3, 20, 2), zero, zero);
    NeighborChoice const nearest{PtSelection_NearestN, 8};
    struct Case
    {
        NumberSet sources;
        int destination;
        NumberSet variables;
        NeighborChoice choice;
        InterpolateByInverseDistance::Formula formula;
        char const* reason;
    };
    double const nan = std::numeric_limits<double>::quiet_NaN();
    for (Case const& one : {
             Case{{}, to, {P}, nearest, {2.0, 0.0}, "No source zones were given."},
             Case{{from}, to, {}, nearest, {2.0, 0.0}, "No variables were given."},
             Case{{from, 9}, to, {P}, nearest, {2.0, 0.0}, "There is no such zone."},
             Case{{from}, 0, {P}, nearest, {2.0, 0.0}, "There is no such zone."},
             Case{{from}, to, {P, 6}, nearest, {2.0, 0.0}, "There is no such variable."},
             Case{{from}, to, {2}, nearest, {2.0, 0.0}, "The variable \"Y\" is on an axis."},
             Case{{from}, to, {P}, {PtSelection_NearestN, 0}, {2.0, 0.0}, "The number of points must be at least 1."},
             Case{{from}, to, {P}, nearest, {0.0, 0.0}, "The exponent must be a number above 0 and at most 100."},
             Case{{from}, to, {P}, nearest, {101.0, 0.0}, "The exponent must be a number above 0 and at most 100."},
             Case{{from}, to, {P}, nearest, {nan, 0.0}, "The exponent must be a number above 0 and at most 100."},
             Case{{from}, to, {P}, nearest, {2.0, -1.0}, "The minimum distance must be a number of at least 0."},
         }) {
        expectRefused(
            [&] { return interpolate(one.sources, one.destination, one.variables, one.choice, one.formula); });
        EXPECT_EQ(session.lastError(), one.reason);
    }
}

TEST_F(InterpolateByInverseDistanceTest, IsRefusedWhereSourcesHaveNoValues)
{
    int const from = addPoints(ScatteredPoints::random(3, 2, 1), wave, slope);
    int const to = addPoints(ScatteredPoints::random(3, 20, 2), zero, zero);
    double const nan = std::numeric_limits<double>::quiet_NaN();
    setField(from, P, {nan, nan});
    field(from, Q) = Field();
    expectRefused([&] { return interpolate({from}, to); });
    EXPECT_EQ(session.lastError(), "No source point has a finite value of the variable \"P\".");
    expectRefused([&] { return interpolate({from}, to, {Q}, all, {2.0, 0.0}); });
    EXPECT_EQ(session.lastError(), "The variable \"Q\" is passive in the source zone \"Z1\": it has no values there.");
}

TEST_F(InterpolateByInverseDistanceTest, IsRefusedInALinePlotAndWithoutAnAxis)
{
    int const from = addPoints(ScatteredPoints::random(3, 20, 1), wave, slope);
    session.perform(SetPlotType(frame->id, PlotType_XYLine));
    recorder.take();
    expectRefused([&] { return interpolate({from}, from); });
    EXPECT_EQ(session.lastError(), "Only a 2D or 3D plot tells where the points are.");
    session.perform(SetPlotType(frame->id, PlotType_Cartesian3D));
    session.perform(AssignVariable(frame->id, 'Z', 0));
    recorder.take();
    expectRefused([&] { return interpolate({from}, from); });
    EXPECT_EQ(session.lastError(), "The Z axis has no variable.");
}

TEST_F(InterpolateByInverseDistanceTest, LoadsTheValuesThatItNeeds)
{
    ScatteredPoints const points = ScatteredPoints::random(3, 50, 1);
    int const from = addPoints(points, wave, slope);
    int const to = addPoints(points, zero, zero);
    std::vector<double> const values = valuesOf(from, P);
    auto const p = std::make_shared<sample::Loader>(values, FieldDataType_Double);
    auto const x = std::make_shared<sample::Loader>(valuesOf(from, 1), FieldDataType_Double);
    auto const q = std::make_shared<sample::Loader>(valuesOf(from, Q), FieldDataType_Double);
    field(from, P) = sample::Loader::field(p);
    field(from, 1) = sample::Loader::field(x);
    field(from, Q) = sample::Loader::field(q);
    ASSERT_TRUE(interpolate({from}, to)) << session.lastError();
    EXPECT_EQ(valuesOf(to, P), values);
    EXPECT_EQ(p->loads, 1);
    EXPECT_EQ(x->loads, 1);
    EXPECT_EQ(q->loads, 0);
}

TEST_F(InterpolateByInverseDistanceTest, CountsToItsEndAndNotBeyondWhateverPointsAndLocationsThereAre)
{
    constexpr int cellVariable = 7;
    dataSet = sample::emptySpace();
    for (int zone = 1; zone <= 2; ++zone) {
        sample::addOrdered(*dataSet, 5, 4, 3);
        for (int axis = 0; axis < 3; ++axis) {
            std::vector<double> places;
            for (int point = 0; point < 60; ++point) {
                places.push_back(axis == 0 ? point % 5 : axis == 1 ? point / 5 % 4 : point / 20);
            }
            setField(zone, axis + 1, places);
        }
        std::vector<double> holes(60, 1.0);
        setField(zone, cellVariable, holes, FieldDataType_Double, ValueLocation_CellCentered);
        setField(zone, 4, holes);
        holes[7] = std::numeric_limits<double>::quiet_NaN(); // other points count than for the variable before
        setField(zone, 5, holes);
    }
    frame = sample::show(session, dataSet);
    PlainWaiter waiter;
    session.setWaiter(&waiter);
    for (NumberSet const& variables : {NumberSet{4}, {4, 5}, {4, cellVariable}, {4, 5, cellVariable}}) {
        ASSERT_TRUE(session.perform(
            InterpolateByInverseDistance(frame->id, {1}, 2, variables, {PtSelection_NearestN, 3}, {2.0, 0.0})))
            << session.lastError();
        EXPECT_EQ(waiter.done, waiter.total) << listText(variables);
        EXPECT_GE(waiter.total, 100000);
    }
    session.setWaiter(nullptr);
}

// Each variable has its hole at another point, so that the weights are computed for each anew.
TEST_F(InterpolateByInverseDistanceTest, GivesEachGroupOfVariablesItsShareOfTheProgress)
{
    auto const hole = [](double at) {
        return [at](double const* place) {
            return place[0] < at && place[0] > at - 0.01 ? std::numeric_limits<double>::quiet_NaN() : 1.0;
        };
    };
    int const from = addPoints(ScatteredPoints::random(3, 3000, 1), hole(0.2), hole(0.8));
    int const to = addPoints(ScatteredPoints::random(3, 3000, 2), zero, zero);
    InterpolateByInverseDistance operation(frame->id, {from}, to, {P, Q}, {PtSelection_NearestN, 8}, {2.0, 0.0});
    ASSERT_EQ(operation.find(session.pages()), "");
    ASSERT_EQ(operation.reasonAgainst(), "");
    operation.needs();
    LateLooks progress;
    operation.compute(progress);
    EXPECT_GT(progress.looks(), 20);
    EXPECT_LT(progress.looksAtTheEnd(), progress.looks() / 10);
}

TEST_F(InterpolateByInverseDistanceTest, ChangesNothingWhenItIsCancelled)
{
    int const from = addPoints(ScatteredPoints::random(3, 3000, 1), wave, slope);
    int const to = addPoints(ScatteredPoints::random(3, 20000, 2), zero, zero);
    CancellingWaiter canceller;
    session.setWaiter(&canceller);
    for (NeighborChoice const choice : {NeighborChoice{PtSelection_NearestN, 60}, {PtSelection_Octant, 60}, all}) {
        expectRefused([&] { return interpolate({from}, to, {P, Q}, choice, {3.3, 0.0}); });
        EXPECT_EQ(session.lastError(), "The operation was cancelled.");
    }
    session.setWaiter(nullptr);
}

TEST_F(InterpolateByInverseDistanceTest, DoesNothingToADestinationWithoutPoints)
{
    int const from = addPoints(ScatteredPoints::random(3, 20, 1), wave, slope);
    int const to = addPoints({3, {}}, zero, zero);
    EXPECT_TRUE(interpolate({from}, to)) << session.lastError();
    EXPECT_THAT(valuesOf(to, P), testing::IsEmpty());
}

} // namespace veldraw::tests
