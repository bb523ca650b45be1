#include "dialogs/fourier/FourierResultLineMaps.h"

#include "tests/dialogs/fourier/FourierFrames.h"
#include "tests/support/KernelSpy.h"

#include <gmock/gmock.h>
#include <stdexcept>

namespace veldraw::tests {
namespace {

using sdk::ui::propertymanager::addResultLineMaps;
using testing::ElementsAre;
using testing::IsEmpty;
using toolbox::Set;

class FourierResultLineMapsTest : public FourierFrames
{
protected:
    FourierResultLineMapsTest() { sample.frame()->lineMaps.clear(); }

    static bool add(std::set<int> const& zones, std::set<int> const& vars)
    {
        return addResultLineMaps(Set(zones), Set(vars));
    }

    /// "name: zone, variable over variable" of each line map.
    std::vector<std::string> maps() const
    {
        std::vector<std::string> texts;
        kernel::DataSet const& data = sample.dataSet();
        for (kernel::LineMap const& map : sample.frame()->lineMaps)
            texts.push_back(map.name + ": " + data.zone(data.zoneNumber(map.zone))->name + ", " +
                            data.variable(data.variableNumber(map.yVariable))->name + " over " +
                            data.variable(data.variableNumber(map.xVariable))->name);
        return texts;
    }

    KernelSpy spy;
};

TEST_F(FourierResultLineMapsTest, ShowTheSecondOverTheFirstOfThreeVariablesInEachZone)
{
    EXPECT_TRUE(add({1, 2}, {2, 3, 4}));
    EXPECT_THAT(maps(), ElementsAre("Wing: Wing, V over U", "Body: Body, V over U"));
}

TEST_F(FourierResultLineMapsTest, TakeEachGroupOfThreeInAZoneBeforeTheNextZone)
{
    EXPECT_TRUE(add({1, 2}, {1, 2, 3, 4, 5, 6}));
    EXPECT_THAT(maps(), ElementsAre("Wing: Wing, U over Time", "Wing: Wing, A over W", "Body: Body, U over Time",
                                    "Body: Body, A over W"));
}

TEST_F(FourierResultLineMapsTest, AreShownFromTheSecondPointOn)
{
    EXPECT_TRUE(add({2}, {4, 5, 6}));
    kernel::LineMap const& map = sample.frame()->lineMaps.front();
    EXPECT_TRUE(map.active);
    EXPECT_EQ(map.indices[0].min, 2);
    EXPECT_EQ(map.indices[0].max, 0) << "to the last one";
    EXPECT_EQ(map.indices[0].skip, 1);
    EXPECT_EQ(map.indices[1].min, 1);
    EXPECT_FALSE(map.xDependsOnY);
}

TEST_F(FourierResultLineMapsTest, StandBesideThoseThatAreThere)
{
    EXPECT_TRUE(add({1}, {1, 2, 3}));
    EXPECT_TRUE(add({2}, {1, 2, 3}));
    EXPECT_THAT(maps(), ElementsAre("Wing: Wing, U over Time", "Body: Body, U over Time"));
}

TEST_F(FourierResultLineMapsTest, AreNoneWithoutZonesOrVariablesAndThatIsNoFailure)
{
    EXPECT_TRUE(add({}, {1, 2, 3}));
    EXPECT_TRUE(add({1, 2}, {}));
    EXPECT_THAT(maps(), IsEmpty());
    EXPECT_THAT(spy.calls(), IsEmpty());
}

TEST_F(FourierResultLineMapsTest, NeedTwoVariablesOfTheLastGroup)
{
    EXPECT_TRUE(add({1}, {1, 2, 3, 4, 5}));
    EXPECT_THAT(maps(), ElementsAre("Wing: Wing, U over Time", "Wing: Wing, A over W"));
    try {
        add({2}, {1, 2, 3, 4});
        ADD_FAILURE() << "the second variable is missing";
    } catch (std::out_of_range const& missing) {
        EXPECT_STREQ(missing.what(), "invalid vector subscript");
    }
    EXPECT_EQ(maps().size(), 3u) << "the first group has its map";
}

TEST_F(FourierResultLineMapsTest, AskTheKernelInThisOrder)
{
    EXPECT_TRUE(add({1}, {1, 2, 3}));
    spy.reset();
    EXPECT_TRUE(add({2}, {2, 3, 4}));
    EXPECT_THAT(spy.calls(),
                ElementsAre("VelUtilLineMapGetCount()", "VelUtilLineMapCreate()", "VelUtilZoneGetName(2, out)",
                            "VelUtilLineMapSetName({2}, \"Body\")", "VelUtilStringDealloc(out)",
                            "VelUtilLineMapSetAssignment(\"XAxisVar\", {2}, 0, 2)",
                            "VelUtilLineMapSetAssignment(\"YAxisVar\", {2}, 0, 3)",
                            "VelUtilLineMapSetAssignment(\"Zone\", {2}, 0, 2)", "VelUtilLineMapSetActive({2}, true)",
                            "VelUtilLineMapSetIndices(\"IRange\", \"Min\", {2}, 2)"));
}

TEST_F(FourierResultLineMapsTest, EndWithTheFirstStepThatFailsAndLeaveWhatIsMade)
{
    for (std::string const failing :
         {"VelUtilLineMapCreate", "VelUtilZoneGetName", "VelUtilLineMapSetName", "VelUtilLineMapSetAssignment",
          "VelUtilLineMapSetActive", "VelUtilLineMapSetIndices"}) {
        sample.frame()->lineMaps.clear();
        spy.reset();
        spy.failNext(failing, failing == "VelUtilLineMapSetAssignment" ? 4 : 2);
        EXPECT_FALSE(add({1, 2}, {1, 2, 3, 4, 5, 6})) << failing;
        EXPECT_EQ(maps().size(), failing == "VelUtilLineMapCreate" ? 1u : 2u) << failing;
        EXPECT_EQ(maps().front(), "Wing: Wing, U over Time") << failing;
        EXPECT_EQ(spy.count("VelUtilLineMapCreate"), 2) << "no further map after " << failing;
    }
}

TEST_F(FourierResultLineMapsTest, LeaveOtherMapsAloneWhenTheirNumberCannotBeHad)
{
    EXPECT_TRUE(add({1}, {1, 2, 3}));
    auto const before = maps();
    spy.reset();
    spy.failNext("VelUtilLineMapGetCount");
    EXPECT_FALSE(add({2}, {4, 5, 6}));
    EXPECT_EQ(maps(), before);
}

TEST_F(FourierResultLineMapsTest, EndWithEachAssignmentThatFails)
{
    for (int const n : {1, 2, 3}) {
        spy.reset();
        spy.failNext("VelUtilLineMapSetAssignment", n);
        EXPECT_FALSE(add({1}, {1, 2, 3})) << n;
        EXPECT_EQ(spy.count("VelUtilLineMapSetAssignment"), n);
        EXPECT_EQ(spy.count("VelUtilLineMapSetActive"), 0);
    }
}

TEST_F(FourierResultLineMapsTest, FailForWhatDoesNotExist)
{
    EXPECT_FALSE(add({3}, {1, 2, 3}));
    EXPECT_FALSE(add({1}, {7, 8, 9}));
    EXPECT_FALSE(add({1}, {6, 7, 8}));
}

TEST_F(FourierResultLineMapsTest, FailWithoutAFrameAndWithoutData)
{
    sample.session().activateFrame(addFrame(false));
    EXPECT_FALSE(add({1}, {1, 2, 3}));
    sample.session().removeAllPages();
    EXPECT_FALSE(add({1}, {1, 2, 3}));
}

} // namespace
} // namespace veldraw::tests
