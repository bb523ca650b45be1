#include "app/import/formats/table/TableReader.h"

#include "app/import/formats/table/CsvReader.h"
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

Course courseOf(ImportedZone const& table, int column)
{
    Course course;
    if (column == 0)
        return course;
    auto const values = table.fields[static_cast<std::size_t>(column - 1)].field.group()->buffer();
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

bool hasScatteredRows(ImportedZone const& table)
{
    kernel::DataSet columns; // the kernel finds coordinates and time by the names of variables
    for (ImportedZone::NamedField const& field : table.fields)
        columns.addVariable(std::make_shared<kernel::Variable>(field.name));
    if (courseOf(table, kernel::timeByName(columns)).runsOn())
        return false;
    std::array<Course, 3> courses;
    std::array<int, 3> const coordinates = kernel::coordinatesByName(columns);
    std::transform(coordinates.begin(), coordinates.end(), courses.begin(),
                   [&table](int column) { return courseOf(table, column); });
    auto const vary = std::count_if(courses.begin(), courses.end(), [](Course const& c) { return c.varies(); });
    return vary >= 2 && std::none_of(courses.begin(), courses.end(), [](Course const& c) { return c.runsOn(); });
}

} // namespace

std::vector<ImportedZone> TableReader::read(std::string const& path, ImportContext const& context)
{
    CsvReader csv(context.progress);
    ImportedZone table = csv.read(path, context.title);
    table.zone->isScattered = hasScatteredRows(table);
    context.remarks.insert(context.remarks.end(), csv.remarks().begin(), csv.remarks().end());
    return {std::move(table)};
}

} // namespace veldraw::app
