#include "app/plot/ContourRange.h"

#include "app/plot/ColourLegend.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"
#include "tests/support/WriteValue.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <vector>

namespace veldraw::tests {

using app::ContourRange;
using kernel::ValueRange;

namespace {

// Variable 3 of a sheet gets these values.
std::shared_ptr<kernel::DataSet> sheetOf(int side, std::vector<double> const& values)
{
    auto const set = SampleData::sheet(side, side);
    kernel::ShareGroup& group = *set->field(1, 3)->group();
    for (std::int64_t n = 0; n < group.size(); ++n)
        writeValue(group, n, values[static_cast<std::size_t>(n)]);
    return set;
}

std::shared_ptr<kernel::Frame> frameOf(int side, std::vector<double> const& values)
{
    return SampleData::frame("Sheet", sheetOf(side, values), PlotType_Cartesian2D);
}

std::vector<double> randomValues(int count)
{
    std::mt19937 random(11);
    std::normal_distribution<double> normal(3.0, 2.0);
    std::vector<double> values(static_cast<std::size_t>(count));
    std::generate(values.begin(), values.end(), [&] { return normal(random); });
    return values;
}

} // namespace

TEST(RangeWithoutEnds, LeavesOutAHundredthAtEitherEnd)
{
    std::vector<double> values = randomValues(90 * 90);
    ValueRange const range = ContourRange::withoutEnds(*frameOf(90, values), {1}, 3);
    std::sort(values.begin(), values.end());
    ASSERT_TRUE(range.isValid());
    EXPECT_EQ(range.min, values[81]);
    EXPECT_EQ(range.max, values[8100 - 1 - 81]);
}

TEST(RangeWithoutEnds, TakesNoNoticeOfWhatIsNoNumber)
{
    std::vector<double> values = randomValues(30 * 30);
    for (std::size_t n = 0; n < 300; ++n)
        values[3 * n] = n % 2 == 0 ? std::numeric_limits<double>::quiet_NaN() : std::numeric_limits<double>::infinity();
    ValueRange const range = ContourRange::withoutEnds(*frameOf(30, values), {1}, 3);
    values.erase(std::remove_if(values.begin(), values.end(), [](double value) { return !std::isfinite(value); }),
                 values.end());
    ASSERT_EQ(values.size(), 600U);
    std::sort(values.begin(), values.end());
    EXPECT_EQ(range.min, values[6]);
    EXPECT_EQ(range.max, values[593]);
}

TEST(RangeWithoutEnds, IsNearTheTrueOneWhereOnlySomeOfManyValuesAreLookedAt)
{
    std::vector<double> values = randomValues(1000 * 1000);
    ValueRange const range = ContourRange::withoutEnds(*frameOf(1000, values), {1}, 3);
    std::sort(values.begin(), values.end());
    EXPECT_GT(range.min, values[9000]);
    EXPECT_LT(range.min, values[11000]);
    EXPECT_GT(range.max, values[989000]);
    EXPECT_LT(range.max, values[991000]);
}

TEST(RangeWithoutEnds, IsTheWholeOneWhereNothingElseIsLeft)
{
    std::vector<double> values(400, 2.0);
    values[7] = 90.0;
    ValueRange const range = ContourRange::withoutEnds(*frameOf(20, values), {1}, 3);
    EXPECT_EQ(range.min, 2.0);
    EXPECT_EQ(range.max, 90.0) << "one colour for everything would hide the only thing to be seen";
    EXPECT_FALSE(ContourRange::withoutEnds(*frameOf(20, values), {}, 3).isValid());
    std::fill(values.begin(), values.end(), std::numeric_limits<double>::quiet_NaN());
    EXPECT_FALSE(ContourRange::withoutEnds(*frameOf(20, values), {1}, 3).isValid());
}

TEST(RangeWithoutEnds, LetsOneHotCornerNotSpoilThePlot)
{
    std::vector<double> values;
    for (int n = 0; n < 41 * 41; ++n)
        values.push_back(n % 41 / 40.0);
    values.back() = 1e4;
    PlotTestPage page({SampleData::frame("Sheet", sheetOf(41, values), PlotType_Cartesian2D)});
    int const before = PlotTestPage::pixelsNear(page.plot(), QColor::fromRgbF(0.129, 0.569, 0.549), 12);
    EXPECT_DOUBLE_EQ(page.field().legend().max(), 1e4);
    ASSERT_TRUE(
        page.session().perform(kernel::SetPlotOption(page.frame().id, &kernel::Frame::contourWithoutEnds, true)));
    int const after =
        PlotTestPage::pixelsNear(page.plot(0, "contour-without-ends"), QColor::fromRgbF(0.129, 0.569, 0.549), 12);
    EXPECT_DOUBLE_EQ(page.field().legend().min(), 0.0);
    EXPECT_DOUBLE_EQ(page.field().legend().max(), 1.0);
    EXPECT_GT(after, before + 2000) << "the middle of the colours is seen";
    EXPECT_EQ(page.view().remark(page.frame().id), QStringLiteral("Colours without the outermost values"));
    ASSERT_TRUE(page.session().undo());
    page.picture();
    EXPECT_EQ(page.view().remark(page.frame().id), QString());
}

} // namespace veldraw::tests
