// What rotations and mirrors must leave as it is, on random data.
#include "kernel/compute/RotateValues.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/MirrorZones.h"
#include "kernel/operations/RotateZones.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/kernel/operations/CellMeasure.h"
#include "tests/kernel/support/SessionFixture.h"
#include "tests/kernel/support/SpatialData.h"
#include "tests/support/Threads.h"

#include <cmath>

namespace veldraw::tests {

using namespace kernel;
using sample::inSpace;
using sample::noVector;
using sample::values;

namespace {

class RigidMotion : public testing::TestWithParam<unsigned>
{
protected:
    void start(std::shared_ptr<DataSet> const& shown)
    {
        dataSet = shown;
        frame = sample::show(session, dataSet);
    }

    double next() { return distribution(random); }

    RotationAxis randomAxis() { return {{next(), next(), next()}, {next(), next(), next()}}; }

    /// The largest absolute value of the variables of a zone.
    double largest(int zone, std::array<int, 3> const& variables) const
    {
        double most = 0;
        for (int const variable : variables) {
            for (double const value : values(*dataSet, zone, variable)) {
                most = std::max(most, std::abs(value));
            }
        }
        return most;
    }

    Session session;
    std::shared_ptr<DataSet> dataSet;
    std::shared_ptr<Frame> frame;
    std::mt19937 random{GetParam()};
    std::uniform_real_distribution<double> distribution{-1.0, 1.0};
};

/// Distance of a float or double to the next larger one.
double ulp(double value, FieldDataType_e type)
{
    if (type == FieldDataType_Float) {
        auto const narrow = static_cast<float>(value);
        return static_cast<double>(std::nextafter(narrow, INFINITY)) - static_cast<double>(narrow);
    }
    return std::nextafter(value, INFINITY) - value;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Seeds, RigidMotion, testing::Values(1U, 2U, 3U, 4U, 5U));

TEST_P(RigidMotion, KeepsTheMeasureOfEveryCellByRotation)
{
    start(sample::everyKindOfCells(GetParam()));
    NumberSet all;
    std::vector<std::vector<double>> before;
    for (int zone = 1; zone <= dataSet->zoneCount(); ++zone) {
        all.insert(zone);
        before.push_back(cellMeasures(*dataSet, zone));
    }
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, all, inSpace, randomAxis(), 180 * next())));
    for (int const zone : all) {
        std::vector<double> const after = cellMeasures(*dataSet, zone);
        std::vector<double> const& expected = before[static_cast<std::size_t>(zone - 1)];
        ASSERT_EQ(after.size(), expected.size());
        ASSERT_FALSE(after.empty());
        for (std::size_t cell = 0; cell < after.size(); ++cell) {
            EXPECT_NEAR(after[cell], expected[cell], 2e-14) << "zone " << zone << " cell " << cell;
        }
    }
}

TEST_P(RigidMotion, KeepsTheMagnitudeOfVectors)
{
    start(sample::everyKindOfCells(GetParam()));
    auto const magnitude = [&](int zone, std::size_t at) {
        return std::hypot(values(*dataSet, zone, 4)[at], values(*dataSet, zone, 5)[at], values(*dataSet, zone, 6)[at]);
    };
    int const count = dataSet->zoneCount();
    for (int zone = 1; zone <= count; ++zone) {
        session.perform(DuplicateZones(*dataSet, {zone}));
        int const rotated = dataSet->zoneCount();
        ASSERT_TRUE(session.perform(RotateZones(*dataSet, {rotated}, inSpace, randomAxis(), 180 * next())));
        ASSERT_TRUE(session.perform(MirrorZones(frame->id, {rotated}, 'Y')));
        for (std::size_t at = 0; at < static_cast<std::size_t>(dataSet->zone(zone)->pointCount()); ++at) {
            EXPECT_NEAR(magnitude(rotated, at), magnitude(zone, at), 1e-15) << "zone " << zone;
            EXPECT_NEAR(magnitude(rotated + 1, at), magnitude(zone, at), 1e-15) << "zone " << zone;
        }
        session.undo();
        session.undo();
        session.undo();
    }
}

TEST_P(RigidMotion, ThereAndBackGivesTheValuesWithin4Ulp)
{
    for (FieldDataType_e const type : {FieldDataType_Float, FieldDataType_Double}) {
        for (int round = 0; round < 20; ++round) {
            start(sample::emptySpace());
            sample::addOrdered(*dataSet, 7, 7, 7, type);
            session.perform(DuplicateZones(*dataSet, {1}));
            RotationAxis axis = randomAxis();
            axis.origin = round % 2 == 0 ? std::array<double, 3>{} : axis.origin;
            double const degrees = 180 * next();
            ASSERT_TRUE(session.perform(RotateZones(*dataSet, {2}, inSpace, axis, degrees)));
            // What the first rotation has rounded, no second one brings back: its coordinates count as well.
            double const reach = round % 2 == 0 ? 0.0 : largest(2, inSpace.coordinates);
            ASSERT_TRUE(session.perform(RotateZones(*dataSet, {2}, inSpace, axis, -degrees)));
            for (int variable = 1; variable <= 6; ++variable) {
                bool const isVector = variable > 3;
                double const size =
                    isVector ? largest(1, inSpace.vector) : std::max(reach, largest(1, inSpace.coordinates));
                double const limit = 4 * ulp(size, type);
                auto const before = values(*dataSet, 1, variable);
                auto const after = values(*dataSet, 2, variable);
                for (std::size_t at = 0; at < before.size(); ++at) {
                    EXPECT_NEAR(after[at], before[at], limit) << type << " variable " << variable;
                }
            }
        }
    }
}

TEST_P(RigidMotion, ClosesAfterAFullCircleInSteps)
{
    for (int const steps : {2, 4, 5, 7, 12, 360}) {
        start(sample::emptySpace());
        sample::addOrdered(*dataSet, 5, 5, 5);
        session.perform(DuplicateZones(*dataSet, {1}));
        RotationAxis const axis = steps % 2 == 0 ? RotationAxis{} : randomAxis();
        for (int step = 0; step < steps; ++step) {
            ASSERT_TRUE(session.perform(RotateZones(*dataSet, {2}, inSpace, axis, 360.0 / steps)));
        }
        for (int variable = 1; variable <= 6; ++variable) {
            auto const before = values(*dataSet, 1, variable);
            auto const after = values(*dataSet, 2, variable);
            for (std::size_t at = 0; at < before.size(); ++at) {
                double const limit = axis.origin == RotationAxis{}.origin && steps <= 4 ? 0.0 : 4e-16 * (steps + 4);
                EXPECT_NEAR(after[at], before[at], limit) << steps << " steps, variable " << variable;
            }
        }
    }
}

TEST_P(RigidMotion, DoesNotDependOnTheNumberOfThreads)
{
    start(sample::emptySpace());
    sample::addOrdered(*dataSet, 20, 25, 30, GetParam() % 2 == 0 ? FieldDataType_Float : FieldDataType_Double);
    session.perform(DuplicateZones(*dataSet, {1}));
    session.perform(AssignVariable(frame->id, 'U', 0));
    RotationAxis const axis = randomAxis();
    auto const rotateOn = [&](int threads, NumberSet const& zones) {
        Threads const some(threads);
        return session.perform(RotateZones(*dataSet, zones, inSpace, axis, 33));
    };
    ASSERT_TRUE(rotateOn(1, {1}));
    ASSERT_TRUE(rotateOn(5, {2}));
    for (int variable = 1; variable <= 7; ++variable) {
        EXPECT_EQ(values(*dataSet, 1, variable), values(*dataSet, 2, variable)) << variable;
    }
}

TEST_P(RigidMotion, RoundsAlikeWhereverAPointStands)
{
    for (FieldDataType_e const type : {FieldDataType_Float, FieldDataType_Double, FieldDataType_Int32}) {
        start(sample::emptySpace());
        auto zone = std::make_shared<Zone>("one place", ZoneType_Ordered, 1037, 1, 1);
        for (int variable = 0; variable < 3; ++variable) {
            zone->fields.push_back(sample::field(std::vector<double>(1037, 100 * next()), type));
        }
        dataSet->addZone(zone);
        ASSERT_TRUE(session.perform(RotateZones(*dataSet, {1}, noVector, randomAxis(), 33)));
        for (int variable = 1; variable <= 3; ++variable) {
            auto const rotated = values(*dataSet, 1, variable);
            EXPECT_EQ(rotated, std::vector<double>(1037, rotated.front())) << type;
        }
    }
}

TEST_P(RigidMotion, LosesLittleMoreThanOneRoundingInDouble)
{
    start(sample::emptySpace());
    sample::addOrdered(*dataSet, 500, 1, 1);
    RotationAxis const axis = randomAxis();
    std::array<std::vector<double>, 3> const before{values(*dataSet, 1, 1), values(*dataSet, 1, 2),
                                                    values(*dataSet, 1, 3)};
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {1}, noVector, axis, 33)));
    Rotation const rotation(axis, 33);
    for (std::size_t row = 0; row < 3; ++row) {
        auto const after = values(*dataSet, 1, static_cast<int>(row) + 1);
        for (std::size_t at = 0; at < after.size(); ++at) {
            long double exact = axis.origin[row];
            for (std::size_t column = 0; column < 3; ++column) {
                long double const factor =
                    static_cast<long double>(rotation.entry(row, column)) + rotation.entryRest(row, column);
                exact += factor * (static_cast<long double>(before[column][at]) - axis.origin[column]);
            }
            double const limit = 0.51 * ulp(std::abs(after[at]), FieldDataType_Double);
            EXPECT_NEAR(static_cast<double>(exact - static_cast<long double>(after[at])), 0.0, limit + 1e-18) << at;
        }
    }
}

} // namespace veldraw::tests
