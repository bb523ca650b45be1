#include "dialogs/datasetinfo/DataSetTotals.h"

#include "kernel/operations/EnableZone.h"
#include "tests/dialogs/datasetinfo/CountingLoaders.h"
#include "tests/support/KernelSpy.h"

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using sdk::ui::propertymanager::DataSetTotals;
using sdk::ui::propertymanager::totalsOfEnabledZones;
using sdk::ui::propertymanager::totalsOfZone;
using testing::ElementsAre;

/// A data set of one variable whose zones each test adds.
class DataSetTotalsTest : public testing::Test
{
protected:
    using Numbers = std::pair<long long, long long>;

    static Numbers numbersOf(DataSetTotals const& totals) { return {totals.points, totals.elements}; }
    Numbers totals() const { return numbersOf(totalsOfEnabledZones()); }

    /// Points and elements of a zone that is added for it.
    Numbers numbers(ZoneType_e type, std::int64_t i, std::int64_t j, std::int64_t k)
    {
        return numbersOf(totalsOfZone(add(type, i, j, k)));
    }
    int add(ZoneType_e type, std::int64_t i, std::int64_t j, std::int64_t k)
    {
        return sample.dataSet().addZone(std::make_shared<kernel::Zone>("zone", type, i, j, k));
    }

    SampleSession sample{{}, {"X"}};
};

TEST_F(DataSetTotalsTest, AreProductsOfTheDimensionsOfAnOrderedZone)
{
    EXPECT_EQ(numbers(ZoneType_Ordered, 10, 1, 1), Numbers(10, 9));
    EXPECT_EQ(numbers(ZoneType_Ordered, 1, 10, 1), Numbers(10, 9));
    EXPECT_EQ(numbers(ZoneType_Ordered, 4, 3, 1), Numbers(12, 6));
    EXPECT_EQ(numbers(ZoneType_Ordered, 4, 1, 5), Numbers(20, 12));
    EXPECT_EQ(numbers(ZoneType_Ordered, 4, 3, 5), Numbers(60, 24));
    EXPECT_EQ(numbers(ZoneType_Ordered, 1, 1, 1), Numbers(1, 1));
}

TEST_F(DataSetTotalsTest, AreTheFirstTwoDimensionsOfAnyOtherZone)
{
    for (ZoneType_e const type : {ZoneType_FETriangle, ZoneType_FEQuad, ZoneType_FETetra, ZoneType_FEBrick,
                                  ZoneType_FELineSeg, ZoneType_FEPolygon, ZoneType_FEPolyhedron, ZoneType_FEMixed})
        EXPECT_EQ(numbers(type, 70, 50, 30), Numbers(70, 50)) << type;
}

TEST_F(DataSetTotalsTest, AreUnknownWithAnyDimension)
{
    EXPECT_EQ(numbers(ZoneType_Ordered, -1, -1, -1), Numbers(-1, -1));
    EXPECT_EQ(numbers(ZoneType_Ordered, -1, 3, 2), Numbers(-1, -1));
    EXPECT_EQ(numbers(ZoneType_Ordered, 3, -1, 1), Numbers(-1, -1));
    EXPECT_EQ(numbers(ZoneType_Ordered, 3, 2, -1), Numbers(-1, -1));
    EXPECT_EQ(numbers(ZoneType_FEBrick, -1, 5, 0), Numbers(-1, 5));
    EXPECT_EQ(numbers(ZoneType_FEBrick, 8, -1, 0), Numbers(8, -1));
}

TEST_F(DataSetTotalsTest, AreZeroOfNoZones)
{
    EXPECT_EQ(totals(), Numbers(0, 0));
    sample.session().clear();
    EXPECT_EQ(totals(), Numbers(0, 0)) << "and without a data set";
}

TEST_F(DataSetTotalsTest, AddUpOverTheEnabledZones)
{
    add(ZoneType_Ordered, 10, 1, 1);
    add(ZoneType_FETriangle, 100, 150, 0);
    int const third = add(ZoneType_Ordered, 4, 3, 5);
    EXPECT_EQ(totals(), Numbers(170, 183));
    sample.session().perform(kernel::EnableZone(sample.dataSet(), third, false));
    EXPECT_EQ(totals(), Numbers(110, 159)) << "a disabled zone adds nothing";
}

TEST_F(DataSetTotalsTest, AreUnknownFromOneUnknownZoneOn)
{
    add(ZoneType_Ordered, 10, 1, 1);
    int const second = add(ZoneType_Ordered, -1, -1, -1);
    add(ZoneType_Ordered, 4, 3, 5);
    EXPECT_EQ(totals(), Numbers(-1, -1));
    sample.session().perform(kernel::EnableZone(sample.dataSet(), second, false));
    EXPECT_EQ(totals(), Numbers(70, 33)) << "which counts while it is enabled only";
}

TEST_F(DataSetTotalsTest, AreUnknownEachByItself)
{
    add(ZoneType_FEBrick, -1, 5, 0);
    add(ZoneType_FEBrick, 8, 7, 0);
    EXPECT_EQ(totals(), Numbers(-1, 12));
}

TEST_F(DataSetTotalsTest, LoadNothing)
{
    DeferredZones deferred;
    deferred.append(sample.dataSet(), "deferred", 3, 2, 1);
    KernelSpy const spy;
    EXPECT_EQ(totals(), Numbers(-1, -1));
    EXPECT_EQ(deferred.timesLoaded(), 0);
    EXPECT_THAT(spy.calls(),
                ElementsAre("VelUtilDataSetGetNumZones()", "VelUtilZoneIsEnabled(1)",
                            "VelUtilZoneGetMetrics(1, out, out, out, out, out, out)", "VelUtilZoneGetType(1)"));
}

TEST_F(DataSetTotalsTest, OfAHundredThousandZonesHaveSixtyFourBits)
{
    for (int zone = 0; zone < 100000; ++zone)
        add(ZoneType_Ordered, 300000, 2, 1);
    EXPECT_EQ(totals(), Numbers(60000000000ll, 29999900000ll));
    add(ZoneType_Ordered, 3000000000ll, 1, 1);
    EXPECT_EQ(totals(), Numbers(63000000000ll, 32999899999ll));
    sample.dataSet().zone(50000)->i = -1;
    EXPECT_EQ(totals(), Numbers(-1, -1));
}

} // namespace
} // namespace veldraw::tests
