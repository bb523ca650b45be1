#include "kernel/operations/Krige.h"

#include "tests/kernel/support/KrigingFixture.h"
#include "tests/kernel/support/LookCounter.h"
#include "tests/support/Threads.h"

namespace veldraw::tests {

using namespace kernel;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class KrigeTest : public KrigingFixture
{
};

double linear(double const* place)
{
    return 1.0 + 2.0 * place[0] - 3.0 * place[1] + 0.5 * place[2];
}

double quadratic(double const* place)
{
    return linear(place) + place[0] * place[0] - 2.0 * place[1] * place[2] + place[2] * place[2];
}

double constant(double const*)
{
    return 4.25;
}

} // namespace

TEST_F(KrigeTest, AgreesWithADenseSolutionInExtendedPrecision)
{
    for (int const axes : {3, 2}) {
        if (axes == 2) {
            showPlane();
        }
        ScatteredPoints const sources = ScatteredPoints::random(axes, 1201, 1);
        ScatteredPoints const targets = ScatteredPoints::random(axes, 2051, 2);
        int const from = addPoints(sources, wave, zero);
        int const to = addPoints(targets, zero, zero);
        std::vector<double> const values = valuesOf(from, P);
        for (Drift_e const drift : {Drift_None, Drift_Linear, Drift_Quadratic}) {
            for (Krige::Model const model : {Krige::Model{0.3, 0.0, drift}, {1.0, 0.1, drift}, {0.05, 0.5, drift}}) {
                std::vector<double> const results = kriged(from, to, nearest16, model);
                for (std::size_t target = 0; target < targets.count(); target += 211) {
                    double const wanted = estimateByHand(sources, nearestPoints(sources, targets.at(target), 16),
                                                         placeOf(targets, target), model, values);
                    EXPECT_NEAR(results[target], wanted, 1e-10 * std::max(1.0, std::abs(wanted)))
                        << axes << " axes, drift " << drift << ", range " << model.range;
                }
            }
        }
    }
}

TEST_F(KrigeTest, AgreesForManyPointsATime)
{
    ScatteredPoints const sources = ScatteredPoints::random(3, 300, 1);
    ScatteredPoints const targets = ScatteredPoints::random(3, 7, 2);
    int const from = addPoints(sources, wave, zero);
    int const to = addPoints(targets, zero, zero);
    Krige::Model const model{0.4, 0.05, Drift_Linear};
    std::vector<double> const values = valuesOf(from, P);
    for (std::size_t const count : {1U, 4U, 48U, 49U, 120U}) {
        bool const isFew = count < 4; // too few for a linear drift
        Krige::Model const used{0.4, 0.05, isFew ? Drift_None : Drift_Linear};
        std::vector<double> const results =
            kriged(from, to, {PtSelection_NearestN, static_cast<std::int64_t>(count)}, model);
        for (std::size_t target = 0; target < targets.count(); ++target) {
            double const wanted = estimateByHand(sources, nearestPoints(sources, targets.at(target), count),
                                                 placeOf(targets, target), used, values);
            EXPECT_NEAR(results[target], wanted, 1e-10 * std::abs(wanted)) << count;
        }
    }
}

TEST_F(KrigeTest, AgreesWithADenseSolutionFromAllPoints)
{
    for (std::size_t const count : {1U, 5U, 127U, 260U}) { // of one tile and of several
        ScatteredPoints const sources = ScatteredPoints::random(3, count, 1);
        ScatteredPoints const targets = ScatteredPoints::random(3, 100, 2);
        int const from = addPoints(sources, wave, zero);
        int const to = addPoints(targets, zero, zero);
        for (Drift_e const drift : {Drift_None, Drift_Linear, Drift_Quadratic}) {
            Drift_e const possible = count > 10 ? drift : count > 4 ? std::min(drift, Drift_Linear) : Drift_None;
            std::vector<double> const results = kriged(from, to, everyPoint, {0.7, 0.02, drift});
            for (std::size_t target = 0; target < targets.count(); target += 51) {
                double const wanted = estimateByHand(sources, sources.numbers(), placeOf(targets, target),
                                                     {0.7, 0.02, possible}, valuesOf(from, P));
                EXPECT_NEAR(results[target], wanted, 1e-10 * std::max(1.0, std::abs(wanted))) << count << " points";
            }
        }
    }
}

TEST_F(KrigeTest, FromTwoPointsIsTheClosedForm)
{
    showPlane();
    int const from = addPoints({2, {0.0, 0.0, 1.0, 0.0}}, zero, zero);
    setField(from, P, {10.0, 20.0});
    int const to = addPoints({2, {0.25, 0.0, 0.5, 0.0, -3.0, 0.0}}, zero, zero);
    // Weights (1 + (c1 - c2) / (1 - c12)) / 2 and the rest; the range is the distance of the points, so c12 = 0.
    auto const spherical = [](double share) {
        return share < 1.0 ? 1.0 - 1.5 * share + 0.5 * share * share * share : 0.0;
    };
    double const first = 0.5 * (1.0 + spherical(0.25) - spherical(0.75));
    for (NeighborChoice const choice : {everyPoint, nearest16, octant16}) {
        EXPECT_THAT(kriged(from, to, choice, {1.0, 0.0, Drift_None}),
                    ElementsAre(testing::DoubleNear(10.0 * first + 20.0 * (1.0 - first), 1e-12),
                                testing::DoubleNear(15.0, 1e-12), testing::DoubleNear(15.0, 1e-12)));
    }
}

TEST_F(KrigeTest, FromThreePointsAtEqualDistancesIsTheirMean)
{
    showPlane();
    double const height = std::sqrt(0.75);
    int const from = addPoints({2, {0.0, 0.0, 1.0, 0.0, 0.5, height}}, zero, zero);
    setField(from, P, {3.0, 6.0, 12.0});
    int const to = addPoints({2, {0.5, height / 3.0}}, zero, zero);
    for (Drift_e const drift : {Drift_None, Drift_Linear}) {
        EXPECT_THAT(kriged(from, to, everyPoint, {1.0, 0.2, drift}), ElementsAre(testing::DoubleNear(7.0, 1e-12)));
    }
}

TEST_F(KrigeTest, IsExactAtTheSourcesWithoutANugget)
{
    ScatteredPoints const points = ScatteredPoints::random(3, 2003, 4);
    int const from = addPoints(points, wave, zero);
    int const to = addPoints(points, zero, zero);
    for (Drift_e const drift : {Drift_None, Drift_Linear, Drift_Quadratic}) {
        for (NeighborChoice const choice : {nearest16, octant16}) {
            EXPECT_LT(maximalDifference(kriged(from, to, choice, {0.3, 0.0, drift}), valuesOf(from, P)), 1e-11);
        }
    }
    EXPECT_GT(maximalDifference(kriged(from, to, nearest16, {0.3, 0.3, Drift_None}), valuesOf(from, P)), 1e-3);
}

TEST_F(KrigeTest, ReproducesWhatTheDriftDescribes)
{
    ScatteredPoints const sources = ScatteredPoints::random(3, 1501, 4);
    std::vector<double> inside = ScatteredPoints::random(3, 3001, 5).places();
    for (double& coordinate : inside) { // no octant is empty there
        coordinate = 0.3 + 0.4 * coordinate;
    }
    ScatteredPoints const targets(3, inside);
    struct Case
    {
        Drift_e drift;
        double (*field)(double const*);
    };
    for (Case const& one : {Case{Drift_None, constant}, Case{Drift_Linear, linear}, Case{Drift_Quadratic, quadratic}}) {
        int const from = addPoints(sources, one.field, zero);
        int const to = addPoints(targets, one.field, zero);
        std::vector<double> const wanted = valuesOf(to, P);
        for (double const nugget : {0.0, 0.4, 1.0}) {
            EXPECT_LT(maximalDifference(kriged(from, to, nearest16, {0.3, nugget, one.drift}), wanted), 2e-10)
                << nugget;
            EXPECT_LT(maximalDifference(kriged(from, to, {PtSelection_Octant, 24}, {0.0, nugget, one.drift}), wanted),
                      2e-10);
        }
        EXPECT_LT(maximalDifference(kriged(from, to, everyPoint, {0.3, 0.1, one.drift}), wanted), 1e-10);
    }
}

TEST_F(KrigeTest, TakesALowerDriftWhereThePointsAreInAPlaneOrOnALine)
{
    listenToRemarks();
    std::vector<double> plane;
    std::vector<double> line;
    for (double at = 0.0; at < 500.0; at += 1.0) {
        plane.insert(plane.end(), {std::sin(at), std::cos(3.0 * at), 2.0 + 1e-9 * std::sin(7.0 * at)});
        line.insert(line.end(), {at, 2.0 * at, -at});
    }
    ScatteredPoints const targets = ScatteredPoints::random(3, 501, 6);
    for (std::vector<double> const& places : {plane, line}) {
        int const from = addPoints({3, places}, wave, zero);
        int const to = addPoints(targets, zero, zero);
        for (NeighborChoice const choice : {nearest16, octant16, everyPoint}) {
            for (Drift_e const drift : {Drift_Linear, Drift_Quadratic}) {
                std::vector<double> const results = kriged(from, to, choice, {0.3, 0.0, drift});
                EXPECT_TRUE(
                    std::all_of(results.begin(), results.end(), [](double value) { return std::abs(value) < 100.0; }));
                EXPECT_THAT(remarks.back(), HasSubstr("A lower drift was taken at 501 points"));
            }
        }
    }
    EXPECT_THAT(remarks[0], HasSubstr("A lower drift was taken at 501 points"));
}

TEST_F(KrigeTest, MergesPointsAtOnePlace)
{
    listenToRemarks();
    int const from = addPoints({2, {0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0, 1.0, 0.0, 0.0}}, zero, zero);
    setField(from, P, {1.0, 4.0, 2.0, 7.0, 6.0});
    int const to = addPoints({2, {0.0, 0.0, 1.0, 0.0, 0.3, 0.3}}, zero, zero);
    int const merged = addPoints({2, {0.0, 0.0, 1.0, 0.0, 1.0, 1.0}}, zero, zero);
    setField(merged, P, {3.0, 4.0, 7.0});
    for (NeighborChoice const choice : {nearest16, everyPoint}) {
        std::vector<double> const results = kriged(from, to, choice, {0.6, 0.0, Drift_None});
        EXPECT_NEAR(results[0], 3.0, 1e-12);
        EXPECT_NEAR(results[1], 4.0, 1e-12);
        EXPECT_THAT(remarks.back(), HasSubstr("2 source points merged with others at the same place."));
        EXPECT_EQ(kriged(merged, to, choice, {0.6, 0.0, Drift_None}), results);
    }
}

TEST_F(KrigeTest, MergesHugeValuesAtOnePlace)
{
    int const from = addPoints({2, {0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0}}, zero, zero);
    setField(from, P, {1.7e308, 1.7e308, 1.7e308, 1.7e308});
    int const to = addPoints({2, {0.4, 0.0}}, zero, zero);
    for (NeighborChoice const choice : {nearest16, everyPoint}) {
        EXPECT_THAT(kriged(from, to, choice, {0.6, 0.0, Drift_None}), ElementsAre(testing::DoubleEq(1.7e308)));
    }
}

TEST_F(KrigeTest, MergesThousandsOfPointsAtOnePlace)
{
    std::vector<double> places(3 * 20000, 0.5);
    places.insert(places.end(), {0.0, 0.0, 0.0});
    int const from = addPoints({3, places}, wave, zero);
    int const to = addPoints(ScatteredPoints::random(3, 3000, 8), zero, zero);
    std::vector<double> const results = kriged(from, to, octant16, {0.3, 0.0, Drift_None});
    EXPECT_TRUE(std::all_of(results.begin(), results.end(), [](double value) { return value > 2.0 && value < 4.0; }));
}

TEST_F(KrigeTest, GivesThePairThatIsAllButAtOnePlaceItsMean)
{
    showPlane();
    std::vector<double> places;
    for (int point = 0; point < 24; ++point) {
        places.insert(places.end(), {0.2 * (point % 5), 0.2 * (point / 5)});
    }
    places.insert(places.end(), {0.4 + 1e-16, 0.4});
    int const from = addPoints(
        {2, places}, [](double const*) { return 1.0; }, zero);
    int const to = addPoints({2, {0.5, 0.5}}, zero, zero);
    EXPECT_THAT(kriged(from, to, everyPoint, {0.5, 0.0, Drift_None}), ElementsAre(testing::DoubleNear(1.0, 1e-9)));
}

TEST_F(KrigeTest, StaysFiniteWherePointsAreAllButAtOnePlace)
{
    std::vector<double> places;
    std::mt19937_64 generator(5);
    for (int point = 0; point < 400; ++point) {
        places.insert(places.end(),
                      {0.1 * (point % 5) + 1e-15 * static_cast<double>(generator() % 9), 0.1 * (point % 7)});
    }
    showPlane();
    int const from = addPoints({2, places}, wave, zero);
    int const to = addPoints(ScatteredPoints::random(2, 300, 3), zero, zero);
    for (NeighborChoice const choice : {nearest16, octant16, everyPoint}) {
        for (Drift_e const drift : {Drift_None, Drift_Linear, Drift_Quadratic}) {
            std::vector<double> const results = kriged(from, to, choice, {0.5, 0.0, drift});
            EXPECT_TRUE(
                std::all_of(results.begin(), results.end(), [](double value) { return std::abs(value) < 1e3; }));
        }
    }
}

TEST_F(KrigeTest, TakesTheOneSourcePointThereIs)
{
    int const from = addPoints({3, {4.0, 5.0, 6.0}}, wave, zero);
    int const to = addPoints(ScatteredPoints::random(3, 100, 3), zero, zero);
    for (NeighborChoice const choice : {nearest16, octant16, everyPoint}) {
        std::vector<double> const results = kriged(from, to, choice, {0.3, 0.0, Drift_Quadratic});
        EXPECT_LT(maximalDifference(results, std::vector<double>(100, valuesOf(from, P)[0])), 1e-14);
    }
}

TEST_F(KrigeTest, IsTheSameForAnyNumberOfThreads)
{
    int const from = addPoints(ScatteredPoints::random(3, 503, 1), wave, zero);
    ScatteredPoints const targets = ScatteredPoints::random(3, 3001, 2);
    for (NeighborChoice const choice : {nearest16, octant16, everyPoint}) {
        std::vector<std::vector<double>> results;
        for (int const threads : {1, 2, 16}) {
            Threads const some(threads);
            int const to = addPoints(targets, zero, zero);
            results.push_back(kriged(from, to, choice, {0.3, 0.1, Drift_Linear}));
        }
        EXPECT_EQ(results[0], results[1]);
        EXPECT_EQ(results[0], results[2]);
    }
}

TEST_F(KrigeTest, IsRefusedWhenTheSystemOfAllPointsIsLargerThanTheMemory)
{
    std::vector<double> places(3 * 400003);
    std::iota(places.begin(), places.end(), 0.0);
    int const from = addPoints({3, places}, zero, zero);
    int const to = addPoints({3, {0.0, 0.0, 0.0}}, zero, zero);
    expectRefused([&] { return krige({from}, to, everyPoint, {0.3, 0.0, Drift_None}); });
    EXPECT_THAT(session.lastError(), testing::MatchesRegex("Kriging from 400003 points at once takes more memory than "
                                                           "there is: [0-9]+ points would fit."));
    expectRefused([&] { return krige({from}, to, {PtSelection_NearestN, 400002}, {0.3, 0.0, Drift_None}); });
    EXPECT_THAT(session.lastError(), testing::StartsWith("Kriging from 400002 points at once takes more memory"));
}

TEST_F(KrigeTest, KeepsEqualValuesToTheLastBit)
{
    for (double const value : {0.1, 2.5}) {
        auto const constant = [value](double const*) { return value; };
        int const from = addPoints(ScatteredPoints::random(3, 603, 3), constant, zero);
        int const to = addPoints(ScatteredPoints::random(3, 1001, 4), zero, zero);
        for (NeighborChoice const choice : {nearest16, octant16, everyPoint}) {
            EXPECT_EQ(kriged(from, to, choice, {0.3, 0.1, Drift_Linear}), std::vector<double>(1001, value));
        }
    }
}

TEST_F(KrigeTest, KeepsEqualValuesToTheLastBitAlsoWherePointsAreAtOnePlace)
{
    ScatteredPoints const apart = ScatteredPoints::random(3, 211, 3);
    std::vector<double> places;
    for (std::uint32_t place = 0; place < 211; ++place) {
        for (std::uint32_t again = 0; again <= place % 90; ++again) {
            places.insert(places.end(), apart.at(place), apart.at(place) + 3);
        }
    }
    int const from = addPoints(
        {3, places}, [](double const*) { return 0.1; }, zero);
    int const to = addPoints(ScatteredPoints::random(3, 501, 4), zero, zero);
    EXPECT_EQ(kriged(from, to, nearest16, {0.3, 0.1, Drift_Linear}), std::vector<double>(501, 0.1));
}

TEST_F(KrigeTest, GivesANumberHoweverFarAPlaceIsOutside)
{
    int const from = addPoints(ScatteredPoints::random(3, 200, 3), wave, zero);
    int const to = addPoints({3, {1e155, 0.0, 0.0, -1e200, 1e200, 1e210, 1e279, 0.5, 0.5}}, zero, zero);
    for (NeighborChoice const choice : {nearest16, everyPoint}) {
        for (Drift_e const drift : {Drift_None, Drift_Linear, Drift_Quadratic}) {
            EXPECT_THAT(kriged(from, to, choice, {0.3, 0.0, drift}),
                        testing::Each(testing::Truly([](double value) { return std::isfinite(value); })));
        }
    }
}

TEST_F(KrigeTest, CanBeCancelledWhileItsPointsAreCountedForARefusal)
{
    std::vector<double> places(3 * 400003);
    std::iota(places.begin(), places.end(), 0.0);
    int const from = addPoints({3, places}, zero, zero);
    int const to = addPoints({3, {0.0, 0.0, 0.0}}, zero, zero);
    Krige kriging(frame->id, {from}, to, {P}, everyPoint, {0.3, 0.0, Drift_None});
    ASSERT_EQ(kriging.find(session.pages()), "");
    ASSERT_EQ(kriging.reasonAgainst(), "");
    kriging.needs();
    LookCounter counter;
    EXPECT_THROW(kriging.compute(counter), std::runtime_error);
    LookCounter last(counter.looks());
    kriging.needs();
    EXPECT_THROW(kriging.compute(last), Interrupted);
}

TEST_F(KrigeTest, LooksForACancelWhileItReadsTheValuesOfEachVariable)
{
    constexpr std::int64_t points = 400003;
    std::vector<double> places(3 * points);
    std::iota(places.begin(), places.end(), 0.0);
    int const from = addPoints({3, places}, zero, zero);
    int const to = addPoints({3, {0.0, 0.0, 0.0}}, zero, zero);
    auto const looks = [&](NumberSet const& variables) {
        Krige kriging(frame->id, {from}, to, variables, nearest16, {0.3, 0.0, Drift_None});
        EXPECT_EQ(kriging.find(session.pages()), "");
        EXPECT_EQ(kriging.reasonAgainst(), "");
        kriging.needs();
        LookCounter counter;
        kriging.compute(counter);
        return counter.looks();
    };
    EXPECT_GE(looks({P, Q}) - looks({P}), points / 8192);
}

TEST_F(KrigeTest, TakesPlacesWithoutAValueForNoPointsOfTheSystem)
{
    std::vector<double> places(3 * 400003);
    std::iota(places.begin(), places.end(), 0.0);
    int const from = addPoints({3, places}, zero, zero);
    std::vector<double> numbers(400003, std::numeric_limits<double>::quiet_NaN());
    numbers[7] = 3.0;
    numbers[11] = 4.0;
    setField(from, P, numbers);
    int const to = addPoints({3, {21.0, 22.0, 23.0}}, zero, zero);
    EXPECT_THAT(kriged(from, to, everyPoint, {0.3, 0.0, Drift_None}), ElementsAre(3.0));
}

TEST_F(KrigeTest, TellsOfAPlaceWithALowerDriftOnce)
{
    listenToRemarks();
    int const from = addPoints({2, {0.0, 0.0, 1.0, 0.0, 2.0, 0.0}}, wave, slope);
    showPlane();
    std::vector<double> numbers = valuesOf(from, P);
    numbers[1] = std::numeric_limits<double>::quiet_NaN();
    setField(from, P, numbers);
    int const to = addPoints(ScatteredPoints::random(2, 10, 4), zero, zero);
    ASSERT_TRUE(session.perform(Krige(frame->id, {from}, to, {P, Q}, everyPoint, {0.3, 0.0, Drift_Quadratic})));
    EXPECT_THAT(remarks.back(), HasSubstr("A lower drift was taken at 10 points"));
}

TEST_F(KrigeTest, IsRefusedWithAReason)
{
    int const from = addPoints(ScatteredPoints::random(3, 20, 1), wave, zero);
    for (double const bad : {-0.1, 1.01, std::numeric_limits<double>::quiet_NaN()}) {
        expectRefused([&] { return krige({from}, from, nearest16, {bad, 0.0, Drift_None}); });
        EXPECT_EQ(session.lastError(), "The range must be from 0 to 1.");
        expectRefused([&] { return krige({from}, from, nearest16, {0.5, bad, Drift_None}); });
        EXPECT_EQ(session.lastError(), "The zero value must be from 0 to 1.");
    }
}

TEST_F(KrigeTest, IsOneStepThatIsTakenBackAndDoneAgainBitByBit)
{
    int const from = addPoints(ScatteredPoints::random(3, 300, 1), wave, zero);
    int const to = addPoints(ScatteredPoints::random(3, 200, 2), zero, zero);
    std::string const before = withoutHistory();
    ASSERT_TRUE(krige({from}, to, octant16, {0.3, 0.0, Drift_Linear}));
    Events const altered = recorder.take();
    expectUndoAndRedo(before, altered, altered);
    EXPECT_EQ(session.history().undoName(), "Kriging");
}

} // namespace veldraw::tests
