// What rotations and mirrors take is asked for as a sum before any of it is computed, and what zones share counts once.
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/DuplicateZonesAxially.h"
#include "kernel/operations/MirrorZones.h"
#include "kernel/operations/RotateZones.h"
#include "tests/kernel/support/MemoryAsked.h"
#include "tests/kernel/support/SpatialFixture.h"
#include "tests/kernel/support/Waiters.h"

namespace veldraw::tests {

using namespace kernel;
using sample::inSpace;
using sample::slanting;

namespace {

/// A zone with values of its own, and two that share the values of another one.
class FieldTransformationMemoryTest : public SpatialFixture
{
protected:
    static constexpr int pointsOfZone = 12;
    static constexpr int bytesOfField = pointsOfZone * 8;

    FieldTransformationMemoryTest()
    {
        sample::addOrdered(*dataSet, 3, 2, 2);
        session.perform(DuplicateZones(*dataSet, {2}));
        session.history().clear();
    }

    bool rotate(NumberSet const& zones) { return session.perform(RotateZones(*dataSet, zones, inSpace, slanting, 10)); }
    bool mirror(NumberSet const& zones) { return session.perform(MirrorZones(frame->id, zones, 'Y')); }
    bool copy(NumberSet const& zones, AxialCopies const& copies)
    {
        return session.perform(DuplicateZonesAxially(*dataSet, zones, inSpace, slanting, copies));
    }

    template <typename Operation>
    double bytesAskedFor(Operation const& operation)
    {
        return memoryAskedFor(session, recorder, operation);
    }

    template <typename Operation>
    void expectWork(Operation const& operation, std::int64_t work)
    {
        PlainWaiter waiter;
        session.setWaiter(&waiter);
        EXPECT_TRUE(operation());
        session.setWaiter(nullptr);
        EXPECT_EQ(waiter.total, work);
        EXPECT_EQ(waiter.done, work);
    }
};

} // namespace

TEST_F(FieldTransformationMemoryTest, ARotationAsksForAllPositionsAndVectors)
{
    EXPECT_EQ(bytesAskedFor([&] { return rotate({1}); }), 6 * bytesOfField);
    EXPECT_EQ(bytesAskedFor([&] { return rotate({1, 2}); }), 12 * bytesOfField);
    EXPECT_EQ(bytesAskedFor([&] { return rotate({1, 2, 3}); }), 12 * bytesOfField) << "two share theirs";
}

TEST_F(FieldTransformationMemoryTest, AMirrorAsksForTheCoordinateAndTheComponentAlongIt)
{
    EXPECT_EQ(bytesAskedFor([&] { return mirror({1}); }), 2 * bytesOfField);
    EXPECT_EQ(bytesAskedFor([&] { return mirror({1, 2, 3}); }), 4 * bytesOfField) << "two share theirs";
}

TEST_F(FieldTransformationMemoryTest, CopiesAroundAnAxisAskForAllOfThemTogether)
{
    auto const ofCopy = static_cast<double>(sizeof(Zone) + 7 * sizeof(Field));
    EXPECT_EQ(bytesAskedFor([&] { return copy({1}, {50, 0, 1, true}); }), ofCopy + 6 * bytesOfField);
    EXPECT_EQ(bytesAskedFor([&] { return copy({1}, {50, 0, 3, true}); }), 3 * (ofCopy + 6 * bytesOfField));
    EXPECT_EQ(bytesAskedFor([&] { return copy({2, 3}, {50, 0, 3, true}); }), 3 * (2 * ofCopy + 6 * bytesOfField));
    EXPECT_EQ(bytesAskedFor([&] { return copy({1}, {50, -50, 1, true}); }), ofCopy) << "lies on its source";
    EXPECT_EQ(bytesAskedFor([&] {
                  return copy({1}, {50, -50, 3, true});
              }),
              3 * (ofCopy + 6 * bytesOfField))
        << "the first lies on its source, the others do not";
    EXPECT_EQ(bytesAskedFor([&] {
                  return copy({1}, {50, -100, 3, true});
              }),
              3 * (ofCopy + 6 * bytesOfField))
        << "the second lies on its source";
}

TEST_F(FieldTransformationMemoryTest, WhatZonesShareIsComputedOnce)
{
    expectWork([&] { return rotate({1}); }, 2 * pointsOfZone); // positions and vectors
    expectWork([&] { return rotate({2, 3}); }, 2 * pointsOfZone);
    expectWork([&] { return mirror({1}); }, 2 * pointsOfZone);
    expectWork([&] { return mirror({2, 3}); }, 2 * pointsOfZone);
    expectWork([&] { return copy({2, 3}, {50, 0, 3, true}); }, 3 * 2 * pointsOfZone);
}

} // namespace veldraw::tests
