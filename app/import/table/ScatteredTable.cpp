#include "app/import/table/ScatteredTable.h"

#include "kernel/frames/FrameDefaults.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace veldraw::app {

namespace {

// How the finite values of a column follow one another.
struct Course
{
    std::int64_t up = 0;
    std::int64_t down = 0;
    std::int64_t steps = 0; // from one value to the next, the same one or another

    bool varies() const { return up + down > 0; }
    bool runsOn() const { return std::min(up, down) == 0 && 2 * std::max(up, down) > steps; }
};

Course courseOf(kernel::DataSet const& table, int column)
{
    Course course;
    kernel::Field const* const field = table.field(1, column);
    auto const values = field && field->group() ? field->group()->buffer() : nullptr;
    if (!values)
        return course;
    double before = std::nan("");
    for (std::int64_t row = 0; row < values->size(); ++row) {
        double const value = values->value(row);
        if (!std::isfinite(value))
            continue;
        course.up += value > before ? 1 : 0;
        course.down += value < before ? 1 : 0;
        course.steps += std::isnan(before) ? 0 : 1;
        before = value;
    }
    return course;
}

} // namespace

bool isScatteredTable(kernel::DataSet const& table)
{
    if (courseOf(table, kernel::timeByName(table)).runsOn())
        return false;
    std::array<Course, 3> courses;
    std::array<int, 3> const coordinates = kernel::coordinatesByName(table);
    std::transform(coordinates.begin(), coordinates.end(), courses.begin(),
                   [&table](int column) { return courseOf(table, column); });
    auto const vary = std::count_if(courses.begin(), courses.end(), [](Course const& c) { return c.varies(); });
    return vary >= 2 && std::none_of(courses.begin(), courses.end(), [](Course const& c) { return c.runsOn(); });
}

} // namespace veldraw::app
