#include "app/import/formats/table/TableReader.h"

#include "app/import/formats/table/CsvReader.h"
#include "kernel/compute/PointSequence.h"
#include "kernel/frames/FrameDefaults.h"

#include <cstdint>

namespace veldraw::app {

namespace {

/// A column as numbers; 0 where there is none.
class Column
{
public:
    Column(ImportedZone const& table, int number)
        : m_values(number > 0 ? table.fields[static_cast<std::size_t>(number - 1)].field.group()->buffer() : nullptr)
    {
    }

    double operator()(std::int64_t row) const { return m_values ? m_values->value(row) : 0.0; }

private:
    std::shared_ptr<kernel::Buffer const> m_values;
};

bool isInOrderOf(Column const& time, std::int64_t rows)
{
    kernel::PointSequence moments;
    for (std::int64_t row = 0; row < rows; ++row)
        moments.add({time(row), 0.0, 0.0});
    return moments.runsOnAlong(0);
}

bool hasScatteredRows(ImportedZone const& table)
{
    kernel::DataSet columns; // the kernel finds coordinates and time by the names of variables
    for (ImportedZone::NamedField const& field : table.fields)
        columns.addVariable(std::make_shared<kernel::Variable>(field.name));
    std::int64_t const rows = table.zone->i;
    auto const [x, y, z] = kernel::coordinatesByName(columns);
    Column const ofX(table, x);
    Column const ofY(table, y);
    Column const ofZ(table, z);
    kernel::PointSequence points;
    for (std::int64_t row = 0; row < rows; ++row)
        points.add({ofX(row), ofY(row), ofZ(row)});
    bool const isSeries = isInOrderOf(Column(table, kernel::timeByName(columns)), rows) ||
                          (!points.varyInSpace() && isInOrderOf(Column(table, kernel::timeByLetter(columns)), rows));
    return !isSeries && points.arePlaces();
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
