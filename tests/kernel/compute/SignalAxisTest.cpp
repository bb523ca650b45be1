#include "kernel/compute/SignalAxis.h"

#include "tests/kernel/support/SampleData.h"
#include "tests/support/SpecialNumbers.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace veldraw::tests {

using namespace kernel;
using Fault = SignalAxis::Fault;

namespace {

using Numbers = std::vector<double>;

SignalAxis axisOf(Numbers const& places, std::shared_ptr<HiddenSlots const> hidden = nullptr)
{
    return {sample::buffer(places), {static_cast<std::int64_t>(places.size()), false, std::move(hidden)}, Progress()};
}

enum class Verdict
{
    Even,
    Uneven,
    DependsOnHow,
};

/// What steps are as they stand, turned around, with places that are not known at both ends and within, and on the way from each
/// cell to the next.
Verdict find(Numbers places, FieldDataType_e type)
{
    auto const count = static_cast<std::int64_t>(places.size());
    int even = 0;
    int all = 0;
    for (bool const isTurned : {false, true}) {
        std::shared_ptr<Buffer> const buffer = sample::buffer(places, type);
        auto const hidden = std::make_shared<HiddenSlots>(count);
        for (std::int64_t const at : {std::int64_t{0}, count / 2, count / 2 + 1, count - 1}) {
            hidden->insert(at);
        }
        for (SignalAxis::Values const& values :
             {SignalAxis::Values{count, false, nullptr}, {count, false, hidden}, {count - 1, true, nullptr}}) {
            SignalAxis const axis(buffer, values, Progress());
            EXPECT_EQ(axis.fault(), Fault::None);
            EXPECT_EQ(axis.isFalling(), isTurned);
            even += axis.isEven() ? 1 : 0;
            ++all;
        }
        std::reverse(places.begin(), places.end());
    }
    return even == 0 ? Verdict::Uneven : even == all ? Verdict::Even : Verdict::DependsOnHow;
}

/// Several blocks of places that are two apart.
Numbers even(std::size_t count = 1600)
{
    Numbers places;
    for (std::size_t at = 0; at < count; ++at) {
        places.push_back(-5.0 + 2.0 * static_cast<double>(at));
    }
    return places;
}

/// Places at the ends of blocks, around them, and within.
std::size_t const anywhere[] = {1, 2, 300, 510, 511, 512, 513, 1022, 1023, 1024, 1025, 1597, 1598, 1599};

} // namespace

TEST(SignalAxisTest, FindsThePlaceThatTurnsBackWhereverItIs)
{
    for (bool const falls : {false, true}) {
        for (std::size_t const at : anywhere) {
            for (double const step : {0.0, -1.0}) {
                Numbers places = even();
                for (std::size_t other = at; other < places.size(); ++other) {
                    places[other] = places[at - 1] + step + 2.0 * static_cast<double>(other - at);
                }
                for (double& place : places) {
                    place = falls ? -place : place;
                }
                SignalAxis const axis = axisOf(places);
                EXPECT_EQ(axis.fault(), Fault::IsNotSteady) << at;
                bool const beginsToTurn = at == 1 && step < 0.0; // the first step is right, and the second one turns
                EXPECT_EQ(axis.faultAt(), beginsToTurn ? 2 : static_cast<std::int64_t>(at)) << falls << ' ' << step;
            }
        }
    }
}

TEST(SignalAxisTest, BlamesTheSecondPlaceWhereItStandsStillAtFirst)
{
    EXPECT_EQ(axisOf({0, 0, 0, 1, 2}).faultAt(), 1);
    EXPECT_EQ(axisOf({0, 0, 0, -1, -2}).faultAt(), 1);
    EXPECT_EQ(axisOf({notANumber, 0, infinity, 0, 1, 2}).faultAt(), 3);
    EXPECT_EQ(axisOf({0, 1, 1, 2, 3}).faultAt(), 2);
    for (std::size_t const still : anywhere) {
        Numbers places = even();
        std::fill(places.begin(), places.begin() + static_cast<std::ptrdiff_t>(still), places[still]);
        SignalAxis const axis = axisOf(places);
        EXPECT_EQ(axis.fault(), still < 1599 ? Fault::IsNotSteady : Fault::IsConstant) << still;
        EXPECT_EQ(axis.faultAt(), still < 1599 ? 1 : 0) << still;
        places.insert(places.begin(), 511, notANumber); // the second place is the first one of a block
        EXPECT_EQ(axisOf(places).faultAt(), still < 1599 ? 512 : 0) << still;
    }
}

TEST(SignalAxisTest, MeasuresTheSpacingBesidePlacesThatAreNotKnown)
{
    for (std::size_t const at : anywhere) {
        Numbers places = even();
        places[at] = notANumber;
        places[0] = infinity;
        SignalAxis const axis = axisOf(places);
        ASSERT_EQ(axis.fault(), Fault::None);
        EXPECT_TRUE(axis.isEven());
        EXPECT_FALSE(axis.isWhole());
        EXPECT_EQ(axis.spacing(), 2.0);
        EXPECT_FALSE(axis.isKnown(static_cast<std::int64_t>(at)));
        EXPECT_EQ(axis.stepsTo(700), 700.0);
    }
}

TEST(SignalAxisTest, LeavesHiddenPlacesOut)
{
    for (std::size_t const at : anywhere) {
        Numbers places = even();
        places[at] = 1e9;
        auto const hidden = std::make_shared<HiddenSlots>(1600);
        hidden->insert(static_cast<std::int64_t>(at));
        SignalAxis const axis = axisOf(places, hidden);
        ASSERT_EQ(axis.fault(), Fault::None) << at;
        EXPECT_EQ(axis.spacing(), 2.0);
        EXPECT_FALSE(axis.isWhole());
    }
}

TEST(SignalAxisTest, SeesAStepThatIsNotEvenWhereverItIs)
{
    for (std::size_t const at : anywhere) {
        Numbers places = even();
        places[at] += 1.9e-6;
        EXPECT_TRUE(axisOf(places).isEven()) << at;
        places[at] += 0.3e-6;
        SignalAxis const axis = axisOf(places);
        EXPECT_EQ(axis.isEven(), false) << at;
        double const moved = at < 1599 ? 1.1e-6 : 0.0; // the last one is where the steps end
        EXPECT_NEAR(axis.stepsTo(static_cast<std::int64_t>(at)), static_cast<double>(at) + moved, 1e-8);
    }
}

TEST(SignalAxisTest, TakesNoStepsForEvenWhoseSmallDifferencesAddUp)
{
    Numbers ofTwoSteps{1e5}; // single precision tells 1 / 128 apart here: steps of 4 of these, then of 9
    while (ofTwoSteps.size() < 2001) {
        ofTwoSteps.push_back(ofTwoSteps.back() + (ofTwoSteps.size() <= 1000 ? 0.03125 : 0.0703125));
    }
    EXPECT_EQ(find(ofTwoSteps, FieldDataType_Float), Verdict::Uneven);
    Numbers drifting{
        0.0}; // from a millionth below the mean step to a millionth above it: a quarter of a step in the middle
    while (drifting.size() < 1000001) {
        drifting.push_back(drifting.back() + 0.01 * (1.0 + 1e-6 * (static_cast<double>(drifting.size()) / 5e5 - 1.0)));
    }
    EXPECT_EQ(find(drifting, FieldDataType_Double), Verdict::Uneven);
    double const quarter = 0.5 * (drifting.front() + drifting.back()) - drifting[500000];
    EXPECT_NEAR(quarter, 0.0025, 1e-6) << "what it is off by";
}

TEST(SignalAxisTest, TakesPlacesForEvenThatAreOffByLessThanAHundredthOfAStep)
{
    for (double const share : {0.009, 0.011}) {
        Numbers places; // as a bow
        for (int at = 0; at <= 100000; ++at) {
            double const part = 1e-5 * at;
            places.push_back(3.0 * at + 3.0 * share * 4.0 * part * (1.0 - part));
        }
        EXPECT_EQ(find(places, FieldDataType_Double), share < 0.01 ? Verdict::Even : Verdict::Uneven);
    }
}

TEST(SignalAxisTest, TakesTimesForEvenThatWereRoundedToTheirType)
{
    for (double const start : {0.0, -3.0, 10.0, 86400.0}) {
        for (double const step : {0.05, 1.0 / 3.0, 7.7}) {
            Numbers places;
            for (int at = 0; at < 3000; ++at) {
                places.push_back(start + step * at);
            }
            EXPECT_EQ(find(places, FieldDataType_Float), Verdict::Even) << start << ' ' << step;
            EXPECT_EQ(find(places, FieldDataType_Double), Verdict::Even) << start << ' ' << step;
        }
    }
}

TEST(SignalAxisTest, TakesTimesForEvenThatWereSummedUpInTheirTypeHoweverFarTheyAreOff)
{
    for (float const step : {0.001F, 0.1F, 0.7F}) {
        for (float const start : {0.0F, 50.0F, -20.0F}) {
            Numbers places;
            float sum = start;
            for (int at = 0; at < 100000; ++at) {
                places.push_back(static_cast<double>(sum));
                sum += step;
            }
            EXPECT_EQ(find(places, FieldDataType_Float), Verdict::Even) << start << ' ' << step;
            std::size_t const middle = places.size() / 2;
            double const off = 0.5 * (places.front() + places.back()) - places[middle];
            if (std::abs(off) >
                0.1 * static_cast<double>(step)) { // the same, but now and then a place that no sum leads to
                Numbers bent = places;
                for (std::size_t at = middle; at < bent.size(); at += 10) {
                    bent[at] = static_cast<double>(std::nextafter(static_cast<float>(bent[at]), 1e9F));
                }
                EXPECT_EQ(find(bent, FieldDataType_Float), Verdict::Uneven) << start << ' ' << step;
            }
        }
    }
    Numbers places{0.0};
    while (places.size() < 1000000) {
        places.push_back(places.back() + 0.1);
    }
    EXPECT_EQ(find(places, FieldDataType_Double), Verdict::Even);
}

TEST(SignalAxisTest, TakesWholeNumbersForEvenThatAreOffByLessThanOne)
{
    for (double const rate : {24.0, 30.0, 60.0, 240.0, 440.0}) { // of pictures a second, in milliseconds
        Numbers rounded;
        Numbers cut;
        for (int at = 0; at < 5000; ++at) {
            rounded.push_back(std::round(1000.0 * at / rate));
            cut.push_back(std::floor(1000.0 * at / rate));
        }
        EXPECT_EQ(find(rounded, FieldDataType_Int32), Verdict::Even) << rate;
        EXPECT_EQ(find(cut, FieldDataType_Int32), Verdict::Even) << rate;
        rounded.erase(rounded.begin() + 2000); // one picture is missing
        EXPECT_EQ(find(rounded, FieldDataType_Int32), Verdict::Uneven) << rate;
        EXPECT_EQ(find({0, 33, 67, 100, 133, 167, 200, 233}, FieldDataType_Int16), Verdict::Even);
        EXPECT_EQ(find({0, 33, 67, 100, 133, 167, 200, 233}, FieldDataType_Byte), Verdict::Even);
    }
    for (double const step : {1.0, 2.0, 3.0}) {
        Numbers places;
        for (int at = 0; at < 1000; ++at) {
            places.push_back(step * (at < 300 ? at : at + 1));
        }
        EXPECT_EQ(find(places, FieldDataType_Int16), Verdict::Uneven) << step;
    }
}

TEST(SignalAxisTest, MeasuresUnevenStepsBetweenTheKnownPlacesAtTheEnds)
{
    Numbers places = even(1000);
    places[500] += 0.5;
    places[0] = places[1] = notANumber;
    places[998] = places[999] = infinity;
    for (bool const falls : {false, true}) {
        SignalAxis const axis = axisOf(places);
        ASSERT_EQ(axis.fault(), Fault::None);
        EXPECT_FALSE(axis.isEven());
        EXPECT_EQ(axis.spacing(), 2.0);
        EXPECT_DOUBLE_EQ(axis.stepsTo(2), falls ? 997.0 : 2.0);
        EXPECT_DOUBLE_EQ(axis.stepsTo(997), falls ? 2.0 : 997.0);
        EXPECT_DOUBLE_EQ(axis.stepsTo(falls ? 499 : 500), 500.25);
        std::reverse(places.begin(), places.end());
    }
}

TEST(SignalAxisTest, TakesTheHalvesOfStepsBetweenPlaces)
{
    Numbers const places = even(1200);
    SignalAxis const axis(sample::buffer(places), {1199, true, nullptr}, Progress());
    ASSERT_EQ(axis.fault(), Fault::None);
    EXPECT_EQ(axis.spacing(), 2.0);
    EXPECT_TRUE(axis.isWhole());
    double const huge = std::numeric_limits<double>::max();
    SignalAxis const wide(sample::buffer({0.5 * huge, 0.75 * huge, huge}), {2, true, nullptr}, Progress());
    EXPECT_EQ(wide.fault(), Fault::HasNoSpacing);
}

TEST(SignalAxisTest, NeedsHalfOfItsPlaces)
{
    Numbers places = even(1000);
    std::fill(places.begin(), places.begin() + 500, notANumber);
    EXPECT_EQ(axisOf(places).fault(), Fault::None);
    places[500] = notANumber;
    EXPECT_EQ(axisOf(places).fault(), Fault::HasGaps);
    EXPECT_EQ(axisOf(Numbers(1000, 3.0)).fault(), Fault::IsConstant);
}

TEST(SignalAxisTest, ReadsWholeNumbersOfEveryType)
{
    for (FieldDataType_e const type :
         {FieldDataType_Int32, FieldDataType_Int16, FieldDataType_Byte, FieldDataType_Float}) {
        Numbers places;
        for (int at = 0; at < 120; ++at) {
            places.push_back(2.0 * (119 - at));
        }
        SignalAxis const axis(sample::buffer(places, type), {120, false, nullptr}, Progress());
        ASSERT_EQ(axis.fault(), Fault::None);
        EXPECT_TRUE(axis.isEven());
        EXPECT_TRUE(axis.isFalling());
        EXPECT_EQ(axis.spacing(), 2.0);
        EXPECT_EQ(axis.stepsTo(0), 119.0);
    }
}

} // namespace veldraw::tests
