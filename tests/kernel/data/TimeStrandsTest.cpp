#include "kernel/data/TimeStrands.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace veldraw::tests {

using namespace kernel;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double endless = std::numeric_limits<double>::infinity();

struct Moment
{
    int strand;
    double time;
    bool isEnabled = true;
};

std::shared_ptr<DataSet> zonesOf(std::vector<Moment> const& moments)
{
    auto dataSet = std::make_shared<DataSet>();
    for (Moment const& moment : moments) {
        auto zone = std::make_shared<Zone>("z", ZoneType_Ordered, 2, 1, 1);
        zone->strand = moment.strand;
        zone->solutionTime = moment.time;
        zone->enabled = moment.isEnabled;
        dataSet->addZone(zone);
    }
    return dataSet;
}

/// Whether a zone is there by what is promised of each one, looked at by itself.
bool isThere(std::vector<Moment> const& moments, std::size_t zone, double at)
{
    Moment const& own = moments[zone];
    if (!own.isEnabled || own.strand == staticStrand) {
        return own.isEnabled;
    }
    bool const isLatest = std::none_of(moments.begin(), moments.end(), [&](Moment const& other) {
        return other.isEnabled && other.strand == own.strand && other.time > own.time && other.time <= at;
    });
    return own.time <= at && isLatest;
}

} // namespace

TEST(ZonesAtAMoment, AreTheLastOnesOfEachStrandUpToIt)
{
    auto const dataSet = zonesOf({{1, 0.0}, {2, 0.5}, {staticStrand, 9.0}, {1, 1.0}, {2, 1.5}, {1, 2.0}});
    EXPECT_EQ(zonesAt(*dataSet, 0.0), (NumberSet{1, 3})) << "the second strand has not begun";
    EXPECT_EQ(zonesAt(*dataSet, 0.5), (NumberSet{1, 2, 3}));
    EXPECT_EQ(zonesAt(*dataSet, 1.25), (NumberSet{2, 3, 4}));
    EXPECT_EQ(zonesAt(*dataSet, 2.0), (NumberSet{3, 5, 6}));
    EXPECT_EQ(zonesAt(*dataSet, 100.0), (NumberSet{3, 5, 6})) << "a strand goes on with its last zone";
    EXPECT_EQ(zonesAt(*dataSet, -0.1), (NumberSet{3}));
}

TEST(ZonesAtAMoment, AreAllThatAStrandHasOfIt)
{
    auto const dataSet = zonesOf({{1, 0.0}, {1, 1.0}, {1, 1.0}, {1, 0.0}});
    EXPECT_EQ(zonesAt(*dataSet, 0.0), (NumberSet{1, 4}));
    EXPECT_EQ(zonesAt(*dataSet, 1.0), (NumberSet{2, 3}));
}

TEST(ZonesAtAMoment, AreEnabledOnes)
{
    auto const dataSet = zonesOf({{1, 0.0}, {1, 1.0, false}, {staticStrand, 0.0, false}});
    EXPECT_EQ(zonesAt(*dataSet, 1.0), (NumberSet{1}));
    EXPECT_EQ(solutionTimes(*dataSet), (std::vector<double>{0.0}));
}

TEST(ZonesAtAMoment, HaveNoTimeThatIsNoNumberBeforeAnother)
{
    auto const dataSet = zonesOf({{1, notANumber}, {1, 0.0}, {2, notANumber}, {3, -endless}, {4, endless}});
    EXPECT_EQ(zonesAt(*dataSet, -1.0), (NumberSet{1, 3, 4}));
    EXPECT_EQ(zonesAt(*dataSet, 0.0), (NumberSet{2, 3, 4}));
    EXPECT_EQ(solutionTimes(*dataSet), (std::vector<double>{0.0}));
}

TEST(ZonesAtAMoment, AreThoseThatAPlainLookFinds)
{
    std::mt19937 random(17);
    for (int round = 0; round < 200; ++round) {
        std::vector<Moment> moments;
        for (int n = 0; n < 40; ++n) {
            int const strand = static_cast<int>(random() % 5);
            moments.push_back(
                {strand == 4 ? staticStrand : strand, static_cast<double>(random() % 12) / 4.0, random() % 5 > 0});
        }
        auto const dataSet = zonesOf(moments);
        for (double const at : {-1.0, 0.0, 0.3, 1.0, 1.75, 2.75, 3.0}) {
            NumberSet const found = zonesAt(*dataSet, at);
            for (std::size_t zone = 0; zone < moments.size(); ++zone) {
                int const number = static_cast<int>(zone) + 1;
                ASSERT_EQ(found.count(number) == 1, isThere(moments, zone, at)) << round << ' ' << number << ' ' << at;
                ASSERT_EQ(isPresent(*dataSet, number, found),
                          moments[zone].strand == staticStrand || isThere(moments, zone, at));
            }
        }
    }
}

TEST(SolutionTimes, AreThoseOfStrandsInOrderEachOnce)
{
    auto const dataSet = zonesOf({{2, 3.0}, {1, 0.1}, {1, 0.2}, {staticStrand, 7.0}, {2, 0.1}});
    EXPECT_EQ(solutionTimes(*dataSet), (std::vector<double>{0.1, 0.2, 3.0}));
    EXPECT_TRUE(solutionTimes(*zonesOf({{staticStrand, 7.0}})).empty());
}

} // namespace veldraw::tests
