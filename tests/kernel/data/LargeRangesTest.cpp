#include "kernel/data/LargeRanges.h"

#include "kernel/storage/ValueLoader.h"

#include <gtest/gtest.h>
#include <limits>

namespace veldraw::tests {

using namespace kernel;

namespace {

constexpr std::int64_t large = std::int64_t{1} << 20;

/// 0, 1, 2 ... without one in seven, which are no numbers.
std::shared_ptr<Buffer> counting(std::int64_t size)
{
    auto buffer = Buffer::allocate(FieldDataType_Double, size);
    for (std::int64_t at = 0; at < size; ++at) {
        buffer->setValue(at, at % 7 == 6 ? std::numeric_limits<double>::quiet_NaN() : static_cast<double>(at));
    }
    return buffer;
}

class MappingLoader : public ValueLoader
{
public:
    std::shared_ptr<Buffer> load(Progress&) override { return counting(large); }
    bool isMapped() const override { return true; }
};

/// One zone of so many points along a line, with a variable that has their numbers and a passive one.
std::shared_ptr<DataSet> lineOf(std::int64_t points)
{
    auto dataSet = std::make_shared<DataSet>("line");
    dataSet->addVariable(std::make_shared<Variable>("number"));
    dataSet->addVariable(std::make_shared<Variable>("nothing"));
    auto zone = std::make_shared<Zone>("line", ZoneType_Ordered, points, 1, 1);
    zone->fields.emplace_back(std::make_shared<ShareGroup>(counting(points)), ValueLocation_Nodal);
    dataSet->addZone(zone);
    return dataSet;
}

} // namespace

TEST(LargeRanges, AreKnownBeforeAnybodyAsks)
{
    auto const dataSet = lineOf(large);
    ASSERT_FALSE(dataSet->field(1, 1)->group()->knownRange().isKnown());
    Progress progress;
    findLargeRanges(*dataSet, progress);
    ValueRange const range = dataSet->field(1, 1)->group()->knownRange().range();
    EXPECT_EQ(range.state, ValueRange::State::Exact);
    EXPECT_EQ(range.min, 0.0);
    EXPECT_EQ(range.max, large % 7 == 0 ? large - 2 : large - 1);
}

TEST(LargeRanges, LeaveWhatIsFoundAtOnceToWhoeverAsks)
{
    auto const dataSet = lineOf(large - 1);
    Progress progress;
    findLargeRanges(*dataSet, progress);
    EXPECT_FALSE(dataSet->field(1, 1)->group()->knownRange().isKnown());
}

TEST(LargeRanges, LeaveMappedValuesAlone)
{
    auto const dataSet = lineOf(large);
    auto const group = std::make_shared<ShareGroup>(FieldDataType_Double, large, std::make_shared<MappingLoader>());
    Progress progress;
    group->setLoaded(group->loader()->load(progress));
    dataSet->zone(1)->fields[0] = Field(group, ValueLocation_Nodal);
    findLargeRanges(*dataSet, progress);
    EXPECT_FALSE(group->range().isValid());
}

TEST(LargeRanges, CanBeCancelled)
{
    auto const dataSet = lineOf(large);
    Progress progress;
    progress.interrupt();
    EXPECT_THROW(findLargeRanges(*dataSet, progress), Interrupted);
}

} // namespace veldraw::tests
