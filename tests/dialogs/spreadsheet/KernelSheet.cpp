#include "tests/dialogs/spreadsheet/KernelSheet.h"

#include "dialogs/spreadsheet/DataSpreadsheetPropertiesManager.h"
#include "platform/vdsdkcommon/DataSetQueries.h"

#include <algorithm>
#include <cstdio>

namespace veldraw::tests {

namespace {

using Choices = sdk::ui::propertymanager::DataSpreadsheetPropertiesManager;

std::vector<std::string> numbers(std::int64_t count)
{
    std::vector<std::string> names;
    for (std::int64_t number = 1; number <= count; ++number)
        names.push_back(std::to_string(number));
    return names;
}

ValueLocation_e locationOf(SheetStage const& stage, int zone, int variable)
{
    return stage.dataSet().field(zone, variable)->location();
}

/// The enabled variables that stand beside each other, all of one location.
std::vector<int> listedVariables(SheetStage const& stage, int zone, ValueLocation_e& location)
{
    std::vector<int> variables = sdk::getEnabledVars().members();
    location = locationOf(stage, zone, variables.front());
    bool const isMixed = std::any_of(variables.begin(), variables.end(),
                                     [&](int variable) { return locationOf(stage, zone, variable) != location; });
    if (isMixed)
        location = Choices::spreadsheetValueLocation()->value();
    variables.erase(std::remove_if(variables.begin(), variables.end(),
                                   [&](int variable) { return locationOf(stage, zone, variable) != location; }),
                    variables.end());
    return variables;
}

} // namespace

KernelSheet::KernelSheet(SheetStage const& stage)
{
    if (sdk::getEnabledZones().isEmpty() || sdk::getEnabledVars().isEmpty())
        return;
    int const number = Choices::spreadsheetZone()->value();
    kernel::Zone const& zone = *stage.dataSet().zone(number);
    if (zone.isOrdered() && zone.dimensionality() > 1)
        readPlane(stage, number);
    else
        readList(stage, number);
}

void KernelSheet::readList(SheetStage const& stage, int zone)
{
    ValueLocation_e location = ValueLocation_Nodal;
    std::vector<int> const variables = listedVariables(stage, zone, location);
    kernel::Zone const& shown = *stage.dataSet().zone(zone);
    std::int64_t rows = location == ValueLocation_Nodal ? shown.i : shown.j;
    if (shown.isOrdered()) {
        std::int64_t const points = std::max({shown.i, shown.j, shown.k});
        rows = location == ValueLocation_CellCentered && points > 1 ? points - 1 : points;
    }
    rowNames = numbers(rows);
    for (int const variable : variables)
        columnNames.push_back(stage.dataSet().variable(variable)->name);
    if (variables.empty())
        return;
    texts.resize(rowNames.size());
    for (std::size_t row = 0; row < texts.size(); ++row) {
        for (int const variable : variables)
            texts[row].push_back(text(stage, zone, variable, static_cast<std::int64_t>(row)));
    }
}

void KernelSheet::readPlane(SheetStage const& stage, int zone)
{
    int const variable = Choices::spreadsheetVariable()->value();
    bool const isCell = locationOf(stage, zone, variable) == ValueLocation_CellCentered;
    kernel::Zone const& shown = *stage.dataSet().zone(zone);
    std::int64_t dims[3] = {shown.i, shown.j, shown.k};
    int const fixed = Choices::spreadsheetPlane()->value();
    int const down = fixed == IJKPlanes_I ? 1 : 0;
    int const across = fixed == IJKPlanes_K ? 1 : 2;
    for (std::int64_t& dim : dims)
        dim = isCell && dim > 1 ? dim - 1 : dim;
    long long const indices[3] = {Choices::spreadsheetIIndex()->value(), Choices::spreadsheetJIndex()->value(),
                                  Choices::spreadsheetKIndex()->value()};
    std::int64_t at[3];
    at[fixed] = std::min<std::int64_t>(indices[fixed], dims[fixed]) - 1;
    rowNames = numbers(dims[down]);
    columnNames = numbers(dims[across]);
    for (at[down] = 0; at[down] < dims[down]; ++at[down]) {
        texts.emplace_back();
        for (at[across] = 0; at[across] < dims[across]; ++at[across])
            texts.back().push_back(text(stage, zone, variable, at[0] + shown.i * (at[1] + shown.j * at[2])));
    }
}

std::string KernelSheet::text(SheetStage const& stage, int zone, int variable, std::int64_t offset) const
{
    kernel::Field const& field = *stage.dataSet().field(zone, variable);
    if (!field.isLoaded())
        return "Not Loaded";
    double const value = field.isPassive() ? 0.0 : stage.stored(zone, variable, offset);
    char number[40];
    std::snprintf(number, sizeof number, "%.*g", field.type() == FieldDataType_Float ? 9 : 17, value);
    return number;
}

} // namespace veldraw::tests
