#include "kernel/frames/CutDefaults.h"

#include "kernel/frames/FrameDefaults.h"
#include "tests/kernel/support/SampleData.h"

#include <cmath>
#include <gtest/gtest.h>

namespace veldraw::tests {

using namespace kernel;

namespace {

/// A block of 5 x 3 x 2 points in the box from (10, -1, 0) to (14, 1, 100), with P from 0 to 29.
std::shared_ptr<DataSet> block()
{
    auto dataSet = sample::ordered({"X", "Y", "Z", "P"}, 5, 3, 2);
    std::vector<double> x, y, z;
    for (int n = 0; n < 30; ++n) {
        x.push_back(10.0 + n % 5);
        y.push_back(n / 5 % 3 - 1.0);
        z.push_back(100.0 * (n / 15));
    }
    dataSet->zone(1)->fields[0] = sample::field(x);
    dataSet->zone(1)->fields[1] = sample::field(y);
    dataSet->zone(1)->fields[2] = sample::field(z);
    return dataSet;
}

class CutDefaultsTest : public testing::Test
{
protected:
    CutDefaultsTest()
    {
        frame.dataSet = block();
        layOut(frame);
    }

    CutLimits limits(CutKind kind) { return limitsOf(defaultCut(kind, frame), frame); }
    double position(CutKind kind) { return defaultCut(kind, frame).position; }

    Frame frame{"Frame 1", {}};
};

} // namespace

TEST_F(CutDefaultsTest, ACoordinateGoesFromItsLeastToItsLargest)
{
    EXPECT_EQ(limits(CutKind::X).min, 10.0);
    EXPECT_EQ(limits(CutKind::X).max, 14.0);
    EXPECT_EQ(position(CutKind::X), 12.0);
    EXPECT_EQ(position(CutKind::Y), 0.0);
    EXPECT_EQ(position(CutKind::Z), 50.0);
}

TEST_F(CutDefaultsTest, AnIndexGoesFromOneToTheLongestOrderedZone)
{
    EXPECT_EQ(limits(CutKind::I).min, 1.0);
    EXPECT_EQ(limits(CutKind::I).max, 5.0);
    EXPECT_EQ(limits(CutKind::J).max, 3.0);
    EXPECT_EQ(limits(CutKind::K).max, 2.0);
    EXPECT_EQ(position(CutKind::I), 3.0);
    EXPECT_EQ(position(CutKind::K), 1.0) << "whole";
    frame.dataSet->zone(1)->enabled = false;
    EXPECT_EQ(limits(CutKind::I).max, 1.0);
}

TEST_F(CutDefaultsTest, AnIsoSurfaceIsOfTheContourVariable)
{
    Cut const cut = defaultCut(CutKind::IsoSurface, frame);
    EXPECT_EQ(frame.dataSet->variableNumber(cut.variable), 4);
    EXPECT_EQ(cut.position, 14.5);
    EXPECT_EQ(limitsOf(cut, frame).max, 29.0);
}

TEST_F(CutDefaultsTest, APlaneGoesThroughTheMiddleAndIsMovedFromCornerToCorner)
{
    Cut const plane = defaultCut(CutKind::Plane, frame);
    EXPECT_EQ(plane.origin, (std::array<double, 3>{12.0, 0.0, 50.0}));
    EXPECT_NEAR(std::hypot(plane.normal[0], plane.normal[1], plane.normal[2]), 1.0, 1e-12);
    double const toCorner = plane.normal[0] * 2.0 + plane.normal[1] * 1.0 + plane.normal[2] * 50.0;
    EXPECT_NEAR(limitsOf(plane, frame).min, -toCorner, 1e-12);
    EXPECT_NEAR(limitsOf(plane, frame).max, toCorner, 1e-12);
    EXPECT_EQ(plane.position, 0.0);
}

TEST_F(CutDefaultsTest, TheLengthOfTheNormalDoesNotCount)
{
    Cut plane = defaultCut(CutKind::Plane, frame);
    plane.normal = {0.0, -7.0, 0.0};
    plane.origin = {0.0, 0.25, 0.0};
    EXPECT_NEAR(limitsOf(plane, frame).min, -0.75, 1e-12);
    EXPECT_NEAR(limitsOf(plane, frame).max, 1.25, 1e-12);
}

TEST_F(CutDefaultsTest, WithoutDataTheMiddleIsZero)
{
    Frame const empty("Frame 2", {});
    for (int kind = 0; kind < cutKindCount; ++kind) {
        Cut const cut = defaultCut(static_cast<CutKind>(kind), empty);
        EXPECT_EQ(cut.position, 0.0) << kind;
        EXPECT_EQ(limitsOf(cut, empty).max, 0.0) << kind;
        EXPECT_GT(std::hypot(cut.normal[0], cut.normal[1], cut.normal[2]), 0.0) << kind;
    }
}

TEST_F(CutDefaultsTest, TheAxisIsThatOfTheCoordinateOrIndex)
{
    int const wanted[] = {0, 1, 2, 0, 1, 2, -1, -1};
    for (int kind = 0; kind < cutKindCount; ++kind) {
        Cut cut;
        cut.kind = static_cast<CutKind>(kind);
        EXPECT_EQ(cut.axis(), wanted[kind]);
        EXPECT_EQ(cut.isOfIndex(), kind >= 3 && kind <= 5);
    }
}

TEST_F(CutDefaultsTest, AnotherDataSetIsShownWithoutTheCutsOfTheLast)
{
    frame.cuts.push_back(defaultCut(CutKind::X, frame));
    layOut(frame);
    EXPECT_TRUE(frame.cuts.empty());
}

} // namespace veldraw::tests
