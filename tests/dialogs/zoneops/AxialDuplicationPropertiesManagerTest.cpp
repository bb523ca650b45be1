#include "platform/exception/InvalidPropertyValueException.h"
#include "tests/dialogs/zoneops/AxialFixture.h"
#include "tests/dialogs/zoneops/MemoryRunsOut.h"
#include "tests/support/KernelSpy.h"

#include <cmath>
#include <gmock/gmock.h>
#include <limits>

namespace veldraw::tests {
namespace {

using DuplicationManager = AxialDuplicationPropertiesManager;
using testing::ElementsAre;

/// The logic alone, without a dialog.
class AxialDuplicationPropertiesManagerTest : public AxialDuplicationFixture
{
protected:
    static PropertyAbstract<double>& angle() { return *AxialRotationPropertiesManager::rotationAngle(); }

    int segmentsAt(double degrees)
    {
        angle().setValue(degrees);
        return manager.numberOfSegmentsProperty()->value();
    }

    DuplicationManager manager;
};

TEST_F(AxialDuplicationPropertiesManagerTest, StartsWithTwoInstancesWithoutOffset)
{
    EXPECT_EQ(DuplicationManager::offsetAngle()->value(), 0.0);
    EXPECT_EQ(DuplicationManager::offsetAngleUnits()->value(), ThetaMode_Degrees);
    EXPECT_FALSE(DuplicationManager::fullRotation()->value());
    EXPECT_EQ(DuplicationManager::numInstances()->value(), 2);
    EXPECT_TRUE(DuplicationManager::addZonesToExistingStrands()->value());
    EXPECT_EQ(manager.numberOfSegmentsProperty()->value(), 1);
}

TEST_F(AxialDuplicationPropertiesManagerTest, SetsTheAngleByTheNumberOfSegments)
{
    manager.numberOfSegmentsProperty()->setValue(12);
    EXPECT_EQ(angle().value(), 30.0);
    manager.numberOfSegmentsProperty()->setValue(1);
    EXPECT_EQ(angle().value(), 360.0);
}

TEST_F(AxialDuplicationPropertiesManagerTest, CutsTheNumberOfSegmentsToAWholeOne)
{
    EXPECT_EQ(segmentsAt(7.0), 51);
    EXPECT_EQ(angle().value(), 7.0);
    EXPECT_EQ(segmentsAt(-90.0), 4);
    EXPECT_EQ(segmentsAt(181.0), 1);
    EXPECT_EQ(segmentsAt(360.0), 1);
    EXPECT_EQ(segmentsAt(360.001), 0);
    EXPECT_EQ(segmentsAt(-720.0), 0);
}

TEST_F(AxialDuplicationPropertiesManagerTest, CountsOneSegmentAtAnAngleOfZero)
{
    EXPECT_EQ(segmentsAt(0.0), 1);
    EXPECT_EQ(segmentsAt(-0.0), 1);
}

TEST_F(AxialDuplicationPropertiesManagerTest, CountsAsManySegmentsAsItCanAtATinyAngle)
{
    EXPECT_EQ(segmentsAt(1e-9), std::numeric_limits<int>::max());
    EXPECT_EQ(segmentsAt(std::numeric_limits<double>::denorm_min()), std::numeric_limits<int>::max());
    EXPECT_EQ(segmentsAt(std::numeric_limits<double>::infinity()), 0);
}

TEST_F(AxialDuplicationPropertiesManagerTest, GivesEveryNumberOfSegmentsBack)
{
    for (int segments = 1; segments <= 1000000; segments += segments < 20000 ? 1 : 997) {
        manager.numberOfSegmentsProperty()->setValue(segments);
        ASSERT_EQ(manager.numberOfSegmentsProperty()->value(), segments);
        ASSERT_EQ(angle().value(), 360.0 / segments);
    }
    manager.numberOfSegmentsProperty()->setValue(999999999);
    EXPECT_EQ(manager.numberOfSegmentsProperty()->value(), 999999999);
}

TEST_F(AxialDuplicationPropertiesManagerTest, HasNoAngleForNoSegments)
{
    EXPECT_THROW(manager.numberOfSegmentsProperty()->setValue(0), InvalidPropertyValueException);
    EXPECT_EQ(angle().value(), 360.0);
}

TEST_F(AxialDuplicationPropertiesManagerTest, TellsANewNumberOfSegmentsWhenTheAngleChanges)
{
    std::vector<int> heard;
    manager.numberOfSegmentsProperty()->connectValueChanged([&heard](int segments) { heard.push_back(segments); });
    angle().setValue(45.0);
    manager.numberOfSegmentsProperty()->setValue(3);
    EXPECT_THAT(heard, ElementsAre(8, 3));
}

TEST_F(AxialDuplicationPropertiesManagerTest, ShowsTheOffsetInItsOwnUnit)
{
    DuplicationManager::offsetAngle()->setValue(180.0);
    DuplicationManager::offsetAngleUnits()->setValue(ThetaMode_Radians);
    EXPECT_DOUBLE_EQ(manager.displayedOffsetAngle()->value(), std::acos(-1.0));
    EXPECT_EQ(AxialRotationPropertiesManager::rotationAngleUnits()->value(), ThetaMode_Degrees);
    manager.displayedOffsetAngle()->setValue(std::acos(-1.0) / 4.0);
    EXPECT_DOUBLE_EQ(DuplicationManager::offsetAngle()->value(), 45.0);
}

TEST_F(AxialDuplicationPropertiesManagerTest, WantsANumberOfInstancesForAPartOfTheCircleOnly)
{
    EXPECT_TRUE(manager.partialRotationRelevance()->isRelevant());
    DuplicationManager::fullRotation()->setValue(true);
    EXPECT_FALSE(manager.partialRotationRelevance()->isRelevant());
}

TEST_F(AxialDuplicationPropertiesManagerTest, TellsAnyExceptionInAMessageAndEndsNormally)
{
    manager.rotationManager().selectedZones()->setValue({1});
    auto const duplicate = [this] {
        manager.duplicateZones();
        while (sample.dataSet().zoneCount() > 3)
            sample.session().undo();
    };
    EXPECT_THAT(toldWhenMemoryRunsOut(duplicate, messages),
                testing::IsSupersetOf({"error: std::bad_alloc", "error: Failed to perform axial duplication."}));
}

/// What the kernel is asked for.
class AxialDuplicationCountTest : public AxialDuplicationPropertiesManagerTest
{
protected:
    /// The number of copies that the kernel is asked for.
    std::string copies()
    {
        manager.rotationManager().selectedZones()->setValue({1});
        KernelSpy spy;
        spy.failNext("VelUtilDataAxialDuplicate");
        manager.duplicateZones();
        std::vector<std::string> const calls = spy.callsOf("VelUtilDataAxialDuplicate");
        EXPECT_THAT(messages.take(), ElementsAre("error: Failed to perform axial duplication."));
        if (calls.size() != 1)
            return "no call";
        // ..., angle, offset, copies, (origin), (axis), strands)
        std::string const head = calls.front().substr(0, calls.front().rfind(", (0, 0, 0), "));
        return head.substr(head.rfind(' ') + 1);
    }
};

TEST_F(AxialDuplicationCountTest, IsOneLessThanTheInstances)
{
    EXPECT_EQ(copies(), "1");
    DuplicationManager::numInstances()->setValue(7);
    EXPECT_EQ(copies(), "6");
    DuplicationManager::numInstances()->setValue(1);
    EXPECT_EQ(copies(), "0");
}

TEST_F(AxialDuplicationCountTest, IsOneLessThanTheSegmentsOfAFullCircle)
{
    DuplicationManager::fullRotation()->setValue(true);
    angle().setValue(30.0);
    EXPECT_EQ(copies(), "11");
    angle().setValue(7.0);
    EXPECT_EQ(copies(), "50");
    angle().setValue(180.0);
    EXPECT_EQ(copies(), "1");
}

TEST_F(AxialDuplicationCountTest, IsAtLeastOneInAFullCircle)
{
    DuplicationManager::fullRotation()->setValue(true);
    angle().setValue(360.0);
    EXPECT_EQ(copies(), "1");
    angle().setValue(500.0);
    EXPECT_EQ(copies(), "1");
    angle().setValue(0.0);
    EXPECT_EQ(copies(), "1");
}

} // namespace
} // namespace veldraw::tests
