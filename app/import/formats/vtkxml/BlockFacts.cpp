#include "app/import/formats/vtkxml/BlockFacts.h"

#include "kernel/data/Zone.h"

#include <vtkDataArray.h>
#include <vtkStringArray.h>

#include <cmath>
#include <cstdlib>

namespace veldraw::app {

namespace {

std::optional<double> number(vtkFieldData& fieldData, char const* name)
{
    vtkDataArray* const array = fieldData.GetArray(name);
    if (!array || array->GetNumberOfTuples() < 1 || array->GetNumberOfComponents() != 1)
        return std::nullopt;
    return array->GetComponent(0, 0);
}

std::vector<std::string> texts(vtkFieldData& fieldData, char const* name)
{
    std::vector<std::string> result;
    auto* const array = vtkStringArray::SafeDownCast(fieldData.GetAbstractArray(name));
    for (vtkIdType n = 0; array && n < array->GetNumberOfValues(); ++n)
        result.push_back(array->GetValue(n));
    return result;
}

std::optional<int> strandOf(std::optional<double> value)
{
    if (!value || !(*value >= 0.0) || *value >= kernel::staticStrand || std::floor(*value) != *value)
        return std::nullopt;
    return static_cast<int>(*value);
}

// A list that ends too early, or has no number where there should be one, is read as far as it is sound.
void readArrayVariables(std::vector<std::string> const& list, BlockFacts& facts)
{
    constexpr std::size_t head = 3;
    for (std::size_t at = 0; at + head <= list.size();) {
        auto const location = list[at] == blockfact::ofCells ? ValueLocation_CellCentered : ValueLocation_Nodal;
        std::size_t const count = std::strtoul(list[at + 2].c_str(), nullptr, 10);
        if (count == 0 || count > list.size() - at - head)
            return;
        auto const first = list.begin() + static_cast<std::ptrdiff_t>(at + head);
        facts.arrayVariables[{location, list[at + 1]}].assign(first, first + static_cast<std::ptrdiff_t>(count));
        at += head + count;
    }
}

} // namespace

std::set<std::string> const& BlockFacts::names()
{
    static std::set<std::string> const all = {
        blockfact::timeValue,       blockfact::timeStep,      blockfact::strandId,
        blockfact::zoneName,        blockfact::zoneType,      blockfact::isScattered,
        blockfact::coordinateNames, blockfact::variableNames, blockfact::arrayVariables};
    return all;
}

BlockFacts BlockFacts::of(vtkFieldData* fieldData)
{
    BlockFacts facts;
    if (!fieldData)
        return facts;
    facts.timeValue = number(*fieldData, blockfact::timeValue);
    facts.timeStep = number(*fieldData, blockfact::timeStep);
    facts.strand = strandOf(number(*fieldData, blockfact::strandId));
    auto const zoneType = number(*fieldData, blockfact::zoneType);
    if (zoneType == static_cast<double>(ZoneType_FEMixed))
        facts.zoneType = ZoneType_FEMixed;
    if (zoneType == static_cast<double>(ZoneType_FEPolygon))
        facts.zoneType = ZoneType_FEPolygon;
    facts.isScattered = number(*fieldData, blockfact::isScattered).value_or(0.0) == 1.0;
    auto const zoneNames = texts(*fieldData, blockfact::zoneName);
    facts.zoneName = zoneNames.empty() ? std::string() : zoneNames.front();
    auto const coordinates = texts(*fieldData, blockfact::coordinateNames);
    for (std::size_t axis = 0; coordinates.size() == 3 && axis < 3; ++axis)
        facts.coordinateNames[axis] = coordinates[axis];
    facts.variableNames = texts(*fieldData, blockfact::variableNames);
    readArrayVariables(texts(*fieldData, blockfact::arrayVariables), facts);
    facts.notes = FieldDataItems::of(*fieldData, names());
    return facts;
}

std::vector<std::string> BlockFacts::variablesOf(ValueLocation_e location, std::string const& array) const
{
    auto const found = arrayVariables.find({location, array});
    return found == arrayVariables.end() ? std::vector<std::string>() : found->second;
}

} // namespace veldraw::app
