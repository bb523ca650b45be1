#include "kernel/operations/InterpolationTask.h"

#include "tests/kernel/support/SampleData.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using namespace kernel;
using testing::ElementsAre;

TEST(InterpolationTaskTest, GathersTheValuesThatAreAskedForAlsoBeforeAMergedPoint)
{
    auto const buffer = [](std::vector<double> const& numbers) {
        return sample::field(numbers, FieldDataType_Double).group()->buffer();
    };
    SourcePoints points(2);
    ValuePlaces places(ZoneType_Ordered, {4, 1, 1, nullptr}, {buffer({0, 1, 2, 2}), buffer({0, 0, 0, 0}), nullptr}, 2,
                       ValueLocation_Nodal);
    points.add(places, {buffer({10, 20, 30, 50})});
    std::vector<std::uint32_t> const targets;
    InterpolationTask task(points, points, targets, 1.0);
    task.variables.push_back({0, nullptr, 1.0});
    task.sourcePoints = {0, 1, 2, 3};
    Progress progress;
    ASSERT_EQ(task.mergeCoincidentPoints(progress), 1);
    std::uint32_t const asked[] = {0, 1, task.sourcePoints.back()};
    std::vector<double> values(3, -1.0);
    task.gather(0, asked, 2, values.data());
    EXPECT_THAT(values, ElementsAre(10.0, 20.0, -1.0));
    task.gather(0, asked, 3, values.data());
    EXPECT_THAT(values, ElementsAre(10.0, 20.0, 40.0));
}

} // namespace veldraw::tests
