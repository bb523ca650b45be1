#include "kernel/compute/SignalAxis.h"

#include "tests/kernel/support/SampleData.h"
#include "tests/support/SpecialNumbers.h"

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
