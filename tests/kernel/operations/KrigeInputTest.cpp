// What kriging takes from zones of any kind, and what it leaves out.
#include "tests/kernel/support/KrigingFixture.h"
#include "tests/kernel/support/SampleLoader.h"
#include "tests/kernel/support/Waiters.h"
#include "tests/support/SpecialNumbers.h"

namespace veldraw::tests {

using namespace kernel;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class KrigeInputTest : public KrigingFixture
{
protected:
    static constexpr Krige::Model exact{0.5, 0.0, Drift_None}; ///< has the sources' own values at their places

    /// Three points on a line with the numbers 1, 2 and 3 as P.
    int addThreePoints()
    {
        int const zone = addPoints({2, {0.0, 0.0, 10.0, 0.0, 20.0, 0.0}}, zero, zero);
        setField(zone, P, {1.0, 2.0, 3.0});
        return zone;
    }

    void expectValues(int zone, std::vector<double> const& wanted, double tolerance = 1e-12) const
    {
        EXPECT_THAT(valuesOf(zone, P), testing::Pointwise(DoubleNear(tolerance), wanted));
    }
};

} // namespace

TEST_F(KrigeInputTest, PutsValuesOfCellsAtTheMeansOfTheirCornersOnBothSides)
{
    dataSet = sample::emptySpace();
    sample::addOrdered(*dataSet, 3, 3, 1);
    sample::addOrdered(*dataSet, 2, 2, 1);
    frame = sample::show(session, dataSet);
    showPlane();
    session.perform(AssignVariable(frame->id, 'X', 1));
    session.perform(AssignVariable(frame->id, 'Y', 2));
    constexpr int cellVariable = 7;
    setField(1, 1, {0, 1, 2, 0, 1, 2, 0, 1, 2});
    setField(1, 2, {0, 0, 0, 1, 1, 1, 2, 2, 2});
    setField(1, cellVariable, {10, 20, -1, 30, 40, -1, -1, -1, -1}, FieldDataType_Double, ValueLocation_CellCentered);
    setField(2, 1, {1, 2, 1, 2}); // its one cell is the last one of the source
    setField(2, 2, {1, 1, 2, 2});
    setField(2, cellVariable, {0, 7, 7, 7}, FieldDataType_Float, ValueLocation_CellCentered);
    for (NeighborChoice const choice : {nearest16, octant16, everyPoint}) {
        ASSERT_TRUE(krige({1}, 2, choice, exact, {cellVariable})) << session.lastError();
        EXPECT_THAT(valuesOf(2, cellVariable), ElementsAre(40, 7, 7, 7));
        session.undo();
    }
}

TEST_F(KrigeInputTest, TakesSeveralZonesAsOne)
{
    ScatteredPoints const one = ScatteredPoints::random(3, 300, 5);
    ScatteredPoints const other = ScatteredPoints::random(3, 701, 6);
    std::vector<double> both = one.places();
    both.insert(both.end(), other.places().begin(), other.places().end());
    int const first = addPoints(one, wave, zero);
    int const second = addPoints(other, wave, zero);
    int const together = addPoints({3, both}, wave, zero);
    ScatteredPoints const targets = ScatteredPoints::random(3, 1500, 7);
    int const a = addPoints(targets, zero, zero);
    int const b = addPoints(targets, zero, zero);
    for (NeighborChoice const choice : {nearest16, octant16, everyPoint}) {
        ASSERT_TRUE(krige({together}, a, choice, {0.3, 0.1, Drift_Linear}));
        ASSERT_TRUE(krige({first, second}, b, choice, {0.3, 0.1, Drift_Linear}));
        EXPECT_EQ(valuesOf(a, P), valuesOf(b, P)) << choice.selection;
    }
}

TEST_F(KrigeInputTest, ReadsTheValuesBeforeWhereTheDestinationIsASource)
{
    ScatteredPoints const points = ScatteredPoints::random(3, 1201, 8);
    int const copy = addPoints(points, wave, zero);
    int const to = addPoints(points, zero, zero);
    for (NeighborChoice const choice : {nearest16, octant16, everyPoint}) {
        int const zone = addPoints(points, wave, zero);
        ASSERT_TRUE(krige({copy}, to, choice, {0.3, 0.5, Drift_Linear}));
        ASSERT_TRUE(krige({zone}, zone, choice, {0.3, 0.5, Drift_Linear}));
        EXPECT_EQ(valuesOf(zone, P), valuesOf(to, P));
        EXPECT_NE(valuesOf(zone, P), valuesOf(copy, P)) << "a zero value makes it smoother";
    }
}

TEST_F(KrigeInputTest, BranchesTheDestinationAloneFromStorageThatItShares)
{
    ScatteredPoints const points = ScatteredPoints::random(3, 500, 8);
    int const from = addPoints(points, wave, zero);
    int const to = addPoints(points, zero, zero);
    int const bystander = addPoints(points, zero, zero);
    field(to, P) = field(from, P);
    field(bystander, P) = field(from, P);
    std::vector<double> const before = valuesOf(from, P);
    ASSERT_TRUE(krige({from}, to, nearest16, {0.3, 0.5, Drift_None}));
    EXPECT_EQ(valuesOf(from, P), before);
    EXPECT_NE(valuesOf(to, P), before);
    EXPECT_EQ(field(to, P).shareCount(), 1);
    EXPECT_EQ(field(from, P).shareCount(), 2);
    EXPECT_EQ(field(from, P).group(), field(bystander, P).group());
}

TEST_F(KrigeInputTest, RoundsAndCutsToTheTypeOfTheDestinationAndSaysSo)
{
    listenToRemarks();
    int const from = addThreePoints();
    setField(from, P, {2.6, 70000.2, -3.3});
    struct Case
    {
        FieldDataType_e type;
        std::vector<double> wanted;
        std::string cut;
    };
    for (Case const& one : {Case{FieldDataType_Int32, {3.0, 70000.0, -3.0}, ""},
                            Case{FieldDataType_Int16, {3.0, 32767.0, -3.0}, "cut to them: 1 value."},
                            Case{FieldDataType_Byte, {3.0, 255.0, 0.0}, "cut to them: 2 values."},
                            Case{FieldDataType_Bit, {1.0, 1.0, 0.0}, "cut to them: 3 values."}}) {
        int const to = addThreePoints();
        setField(to, P, {0.0, 0.0, 0.0}, one.type);
        ASSERT_TRUE(krige({from}, to, nearest16, exact));
        EXPECT_EQ(valuesOf(to, P), one.wanted);
        EXPECT_EQ(field(to, P).type(), one.type);
        EXPECT_THAT(remarks.back(), HasSubstr("Results of whole-number variables were rounded."));
        EXPECT_THAT(remarks.back(), HasSubstr(one.cut));
        EXPECT_EQ(remarks.back().find("cut to them") == std::string::npos, one.cut.empty());
    }
}

TEST_F(KrigeInputTest, SetsABitFromAHalfOn)
{
    showPlane();
    int const from = addPoints({2, {0.0, 0.0, 1.0, 0.0}}, zero, zero);
    setField(from, P, {0.0, 1.0});
    int const to = addPoints({2, {0.1, 0.0, 0.49, 0.0, 0.51, 0.0, 0.9, 0.0}}, zero, zero);
    setField(to, P, {1.0, 1.0, 0.0, 0.0}, FieldDataType_Bit);
    ASSERT_TRUE(krige({from}, to, everyPoint, {1.0, 0.0, Drift_None}));
    EXPECT_THAT(valuesOf(to, P), ElementsAre(0.0, 0.0, 1.0, 1.0));
}

TEST_F(KrigeInputTest, GivesAPassiveDestinationATypeThatHoldsWhatTheSourcesHold)
{
    int const from = addThreePoints();
    int const to = addThreePoints();
    for (auto const& [ofSource, ofResult] :
         {std::pair(FieldDataType_Double, FieldDataType_Double), std::pair(FieldDataType_Int32, FieldDataType_Double),
          std::pair(FieldDataType_Int16, FieldDataType_Float), std::pair(FieldDataType_Float, FieldDataType_Float)}) {
        setField(from, P, {1.0, 2.0, 3.0}, ofSource);
        field(to, P) = Field();
        ASSERT_TRUE(krige({from}, to, nearest16, exact));
        expectValues(to, {1.0, 2.0, 3.0}, 1e-6);
        EXPECT_EQ(field(to, P).type(), ofResult);
        session.undo();
        EXPECT_TRUE(field(to, P).isPassive());
    }
}

TEST_F(KrigeInputTest, IsRefusedWhereASourceIsPassive)
{
    int const from = addThreePoints();
    int const passive = addThreePoints();
    int const to = addThreePoints();
    field(passive, P) = Field();
    expectRefused([&] { return krige({from, passive}, to, nearest16, exact); });
    EXPECT_EQ(session.lastError(), "The variable \"P\" is passive in the source zone \"Z2\": it has no values there.");
}

TEST_F(KrigeInputTest, LeavesOutSourcesThatAreNotNumbersOrHiddenAndCountsThem)
{
    listenToRemarks();
    int const from =
        addPoints({2, {0.0, 0.0, 1.0, 0.0, 2.0, 0.0, notANumber, 0.0, 3.0, 0.0, 2.5, infinity}}, zero, zero);
    setField(from, P, {1.0, notANumber, 3.0, 1e9, 1e9, 1e9});
    setField(from, Q, {1.0, 2.0, -infinity, 1e9, 1e9, 1e9});
    auto const marks = Buffer::allocate(FieldDataType_Byte, 6);
    marks->setValue(4, Blanking::hiddenPoint);
    dataSet->zone(from)->blanking = std::make_shared<Blanking>(*dataSet->zone(from), Blanking::Marks{marks, nullptr});
    int const cleanP = addPoints({2, {0.0, 0.0, 2.0, 0.0}}, zero, zero);
    setField(cleanP, P, {1.0, 3.0});
    int const cleanQ = addPoints({2, {0.0, 0.0, 1.0, 0.0}}, zero, zero);
    setField(cleanQ, Q, {1.0, 2.0});
    ScatteredPoints const targets(2, {1.0, 0.0, 2.0, 0.0, 0.3, 0.4, 5.0, 5.0});
    for (NeighborChoice const choice : {nearest16, octant16, everyPoint}) {
        int const to = addPoints(targets, zero, zero);
        int const wanted = addPoints(targets, zero, zero);
        ASSERT_TRUE(krige({from}, to, choice, {0.8, 0.1, Drift_None}, {P, Q}));
        EXPECT_THAT(remarks.back(), HasSubstr("3 source points left out: hidden or without a finite place."));
        EXPECT_THAT(remarks.back(), HasSubstr("2 source values left out: not finite."));
        ASSERT_TRUE(krige({cleanP}, wanted, choice, {0.8, 0.1, Drift_None}, {P}));
        ASSERT_TRUE(krige({cleanQ}, wanted, choice, {0.8, 0.1, Drift_None}, {Q}));
        EXPECT_EQ(valuesOf(to, P), valuesOf(wanted, P)) << choice.selection;
        EXPECT_EQ(valuesOf(to, Q), valuesOf(wanted, Q)) << choice.selection;
    }
}

TEST_F(KrigeInputTest, LeavesPlacesThatAreNotNumbersAsTheyWereButNotHiddenOnes)
{
    listenToRemarks();
    int const from = addThreePoints();
    int const to = addPoints({2, {0.0, 0.0, notANumber, 1.0, 20.0, 0.0, 10.0, 0.0}}, zero, zero);
    setField(to, P, {17.0, 18.0, 19.0, 20.0});
    auto const marks = Buffer::allocate(FieldDataType_Byte, 4);
    marks->setValue(3, Blanking::hiddenPoint);
    dataSet->zone(to)->blanking = std::make_shared<Blanking>(*dataSet->zone(to), Blanking::Marks{marks, nullptr});
    ASSERT_TRUE(krige({from}, to, nearest16, exact));
    expectValues(to, {1.0, 18.0, 3.0, 2.0});
    EXPECT_THAT(remarks[0], HasSubstr("1 point of the destination without a finite place left as before."));
}

TEST_F(KrigeInputTest, IsRefusedWhereNoSourceValueIsANumber)
{
    int const from = addThreePoints();
    int const to = addThreePoints();
    setField(from, P, {notANumber, infinity, -infinity});
    for (NeighborChoice const choice : {nearest16, octant16, everyPoint}) {
        expectRefused([&] { return krige({from}, to, choice, exact); });
        EXPECT_EQ(session.lastError(), "No source point has a finite value of the variable \"P\".");
    }
}

TEST_F(KrigeInputTest, LoadsTheValuesThatItNeedsAndNoOthers)
{
    ScatteredPoints const points = ScatteredPoints::random(3, 50, 1);
    int const from = addPoints(points, wave, slope);
    int const to = addPoints(points, zero, zero);
    std::vector<double> const values = valuesOf(from, P);
    auto const loaderOf = [&](int zone, int variable) {
        auto const loader = std::make_shared<sample::Loader>(valuesOf(zone, variable), FieldDataType_Double);
        field(zone, variable) = sample::Loader::field(loader);
        return loader;
    };
    auto const x = loaderOf(from, 1);
    auto const p = loaderOf(from, P);
    auto const q = loaderOf(from, Q);
    auto const z = loaderOf(to, 3);
    ASSERT_TRUE(krige({from}, to, nearest16, exact)) << session.lastError();
    expectValues(to, values, 1e-11);
    EXPECT_EQ(x->loads, 1);
    EXPECT_EQ(p->loads, 1);
    EXPECT_EQ(z->loads, 1);
    EXPECT_EQ(q->loads, 0);
}

TEST_F(KrigeInputTest, DoesNothingToADestinationWithoutPoints)
{
    int const from = addThreePoints();
    int const to = addPoints({3, {}}, zero, zero);
    for (NeighborChoice const choice : {nearest16, octant16, everyPoint}) {
        EXPECT_TRUE(krige({from}, to, choice, exact)) << session.lastError();
        EXPECT_THAT(valuesOf(to, P), testing::IsEmpty());
    }
}

TEST_F(KrigeInputTest, IsRefusedWhereTheSourceHasNoPoints)
{
    int const from = addPoints({3, {}}, zero, zero);
    int const to = addThreePoints();
    expectRefused([&] { return krige({from}, to, nearest16, exact); });
    EXPECT_EQ(session.lastError(), "No source point has a finite value of the variable \"P\".");
}

TEST_F(KrigeInputTest, ChangesNothingWhenItIsCancelled)
{
    int const from = addPoints(ScatteredPoints::random(3, 1500, 1), wave, slope);
    int const to = addPoints(ScatteredPoints::random(3, 15000, 2), zero, zero);
    CancellingWaiter canceller;
    session.setWaiter(&canceller);
    for (NeighborChoice const choice :
         {NeighborChoice{PtSelection_NearestN, 60}, {PtSelection_Octant, 60}, everyPoint}) {
        expectRefused([&] { return krige({from}, to, choice, {0.3, 0.1, Drift_Quadratic}, {P, Q}); });
        EXPECT_EQ(session.lastError(), "The operation was cancelled.");
    }
    session.setWaiter(nullptr);
    EXPECT_TRUE(krige({from}, to, nearest16, exact)) << "afterwards";
}

TEST_F(KrigeInputTest, TakesMoreThan48NeighborsOfOctants)
{
    ScatteredPoints const sources = ScatteredPoints::random(3, 900, 1);
    std::vector<double> inside = ScatteredPoints::random(3, 400, 2).places();
    for (double& coordinate : inside) { // where each octant has more points than its share
        coordinate = 0.4 + 0.2 * coordinate;
    }
    ScatteredPoints const targets(3, inside);
    int const from = addPoints(sources, wave, zero);
    int const to = addPoints(targets, zero, zero);
    Krige::Model const model{0.4, 0.05, Drift_Linear};
    std::vector<double> const values = valuesOf(from, P);
    for (std::size_t const count : {48U, 56U, 80U, 83U}) {
        std::vector<double> const results =
            kriged(from, to, {PtSelection_Octant, static_cast<std::int64_t>(count)}, model);
        for (std::size_t target = 0; target < targets.count(); target += 57) {
            double const* const place = targets.at(target);
            std::vector<std::uint32_t> chosen;
            std::vector<std::size_t> taken(8, 0);
            std::size_t rest = count % 8;
            for (std::uint32_t const point : nearestPoints(sources, place, sources.count())) {
                std::size_t& ofOctant = taken[sources.octant(point, place)];
                bool const isOfRest = ofOctant == count / 8 && rest > 0;
                if (ofOctant < count / 8 || isOfRest) {
                    chosen.push_back(point);
                    ++ofOctant;
                    rest -= isOfRest ? 1 : 0;
                }
            }
            ASSERT_EQ(chosen.size(), count);
            double const wanted = estimateByHand(sources, chosen, placeOf(targets, target), model, values);
            EXPECT_NEAR(results[target], wanted, 1e-10 * std::abs(wanted)) << count;
        }
    }
}

TEST_F(KrigeInputTest, TakesValuesOfAnySize)
{
    ScatteredPoints const sources = ScatteredPoints::random(3, 200, 1);
    ScatteredPoints const targets = ScatteredPoints::random(3, 300, 2);
    int const from = addPoints(sources, wave, zero);
    int const to = addPoints(targets, zero, zero);
    std::vector<double> const values = valuesOf(from, P);
    Krige::Model const model{0.4, 0.1, Drift_Linear};
    for (NeighborChoice const choice : {nearest16, octant16, everyPoint}) {
        setField(from, P, values);
        std::vector<double> const wanted = kriged(from, to, choice, model);
        for (double const size : {0x1p930, 0x1p1020, 0x1p-930}) { // the waves are from 2 to 4
            std::vector<double> scaled = values;
            std::transform(scaled.begin(), scaled.end(), scaled.begin(), [size](double value) { return value * size; });
            setField(from, P, scaled);
            std::vector<double> results = kriged(from, to, choice, model);
            for (std::size_t at = 0; at < results.size(); ++at) {
                EXPECT_NEAR(results[at] / size, wanted[at], 1e-11) << size << " at " << at;
            }
        }
    }
}

TEST_F(KrigeInputTest, TakesAllPointsWhereMoreAreAskedForThanThereAre)
{
    int const from = addPoints(ScatteredPoints::random(3, 12, 1), wave, zero);
    int const to = addPoints(ScatteredPoints::random(3, 500, 2), zero, zero);
    Krige::Model const model{0.6, 0.1, Drift_Linear};
    std::vector<double> const fromAll = kriged(from, to, everyPoint, model);
    EXPECT_LT(maximalDifference(kriged(from, to, {PtSelection_NearestN, 13}, model), fromAll), 1e-11);
    EXPECT_LT(maximalDifference(kriged(from, to, {PtSelection_NearestN, std::int64_t{1} << 61U}, model), fromAll),
              1e-11);
    EXPECT_LT(maximalDifference(kriged(from, to, {PtSelection_Octant, 12 * 8}, model), fromAll), 1e-11);
}

TEST_F(KrigeInputTest, IsOnALineInSpaceWhatItIsOnTheAxis)
{
    std::vector<double> line;
    std::vector<double> axis;
    for (int point = 0; point < 60; ++point) {
        double const along = point + 0.3 * std::sin(5.0 * point);
        line.insert(line.end(), {2.0 * along / 3.0, 2.0 * along / 3.0, along / 3.0});
        axis.insert(axis.end(), {along, 0.0, 0.0});
    }
    std::vector<double> values;
    for (int point = 0; point < 60; ++point) {
        values.push_back(std::sin(0.2 * point));
    }
    int const from = addPoints({3, line}, zero, zero);
    setField(from, P, values);
    int const to = addPoints({3, {2.0 * 7.4 / 3.0, 2.0 * 7.4 / 3.0, 7.4 / 3.0}}, zero, zero);
    int const fromAxis = addPoints({3, axis}, zero, zero);
    setField(fromAxis, P, values);
    int const toAxis = addPoints({3, {7.4, 0.0, 0.0}}, zero, zero);
    for (NeighborChoice const choice : {nearest16, everyPoint}) {
        for (Drift_e const drift : {Drift_None, Drift_Linear}) {
            Krige::Model const model{0.3, 0.05, drift};
            EXPECT_LT(maximalDifference(kriged(from, to, choice, model), kriged(fromAxis, toAxis, choice, model)),
                      1e-10);
        }
    }
}

TEST_F(KrigeInputTest, ReportsWhatItDid)
{
    listenToRemarks();
    int const from = addPoints(ScatteredPoints::random(3, 90, 1), wave, slope);
    int const to = addPoints(ScatteredPoints::random(3, 80, 2), zero, zero);
    ASSERT_TRUE(krige({from}, to, nearest16, {0.3, 0.0, Drift_Linear}, {P, Q}));
    ASSERT_EQ(remarks.size(), 1U);
    EXPECT_THAT(remarks[0],
                testing::MatchesRegex("Kriging: \"P\", \"Q\" from \"Z1\" to \"Z2\" with 80 points, in [^ ]+ s\\."));
}

} // namespace veldraw::tests
