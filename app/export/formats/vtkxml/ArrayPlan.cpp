#include "app/export/formats/vtkxml/ArrayPlan.h"

#include "kernel/data/ArrayComponents.h"

#include <vtkDataSetAttributes.h>

#include <algorithm>
#include <map>

namespace veldraw::app {

ArrayPlan::ArrayPlan(kernel::DataSet const& dataSet, std::vector<std::string> const& names)
    : m_dataSet(dataSet)
{
    for (std::string const& name : names)
        m_single.push_back({name, {static_cast<int>(m_single.size()) + 1}, {}});
    auto const hasItsName = [&dataSet](int variable, std::string const& name) {
        return variable != 0 && dataSet.variable(variable)->name == name;
    };
    for (auto const& [array, components] : kernel::componentsByArray(dataSet)) {
        if (std::equal(components.begin(), components.end(), array->variables.begin(), hasItsName))
            m_arrays.push_back({array->name, components, array->componentNames});
    }
}

bool ArrayPlan::fits(int zone, PlannedArray const& array, std::set<int> const& points) const
{
    kernel::Field const& first = *m_dataSet.field(zone, array.variables.front());
    return std::all_of(array.variables.begin(), array.variables.end(), [&](int variable) {
        kernel::Field const& field = *m_dataSet.field(zone, variable);
        return !field.isPassive() && points.count(variable) == 0 && field.location() == first.location() &&
               field.group()->size() == first.group()->size();
    });
}

std::vector<PlannedArray> ArrayPlan::of(int zone, std::set<int> const& points) const
{
    std::vector<PlannedArray> arrays;
    std::vector<bool> isInArray(m_single.size() + 1);
    for (PlannedArray const& array : m_arrays) {
        if (!fits(zone, array, points))
            continue;
        arrays.push_back(array);
        for (int const variable : array.variables)
            isInArray[static_cast<std::size_t>(variable)] = true;
    }
    for (PlannedArray const& single : m_single) {
        int const variable = single.variables.front();
        bool const isWritten = !m_dataSet.field(zone, variable)->isPassive() && points.count(variable) == 0;
        if (isWritten && !isInArray[static_cast<std::size_t>(variable)])
            arrays.push_back(single);
    }
    splitWhereNamesClash(zone, arrays);
    std::sort(arrays.begin(), arrays.end(), [](PlannedArray const& left, PlannedArray const& right) {
        return left.variables.front() < right.variables.front();
    });
    return arrays;
}

bool ArrayPlan::isSingle(PlannedArray const& array) const
{
    return array.variables.size() == 1 &&
           array.name == m_single[static_cast<std::size_t>(array.variables.front() - 1)].name;
}

// Whether a reader would take the array for the marks of hidden points or cells.
bool ArrayPlan::meansMarks(int zone, PlannedArray const& array) const
{
    if (array.name != vtkDataSetAttributes::GhostArrayName())
        return false;
    kernel::Field const& field = *m_dataSet.field(zone, array.variables.front());
    auto const& blanking = m_dataSet.zone(zone)->blanking;
    auto const marks = blanking ? blanking->marks() : kernel::Blanking::Marks();
    bool const hasMarks =
        field.location() == ValueLocation_Nodal ? marks.ofPoints != nullptr : marks.ofCells != nullptr;
    return hasMarks || (array.variables.size() == 1 && field.type() == FieldDataType_Byte);
}

// Two arrays of one name would be one to a reader.
void ArrayPlan::splitWhereNamesClash(int zone, std::vector<PlannedArray>& arrays) const
{
    auto const placeOf = [&](PlannedArray const& array) {
        return std::pair(m_dataSet.field(zone, array.variables.front())->location(), array.name);
    };
    std::map<std::pair<ValueLocation_e, std::string>, int> uses;
    for (PlannedArray const& array : arrays)
        ++uses[placeOf(array)];
    auto const clashes = [&](PlannedArray const& array) {
        return !isSingle(array) && (uses[placeOf(array)] > 1 || meansMarks(zone, array));
    };
    for (auto found = std::find_if(arrays.begin(), arrays.end(), clashes); found != arrays.end();
         found = std::find_if(arrays.begin(), arrays.end(), clashes)) {
        PlannedArray const array = *found;
        --uses[placeOf(array)];
        arrays.erase(found);
        for (int const variable : array.variables) {
            arrays.push_back(m_single[static_cast<std::size_t>(variable - 1)]);
            ++uses[placeOf(arrays.back())];
        }
    }
    for (PlannedArray& array : arrays) {
        std::string const wanted = array.name;
        for (int n = 2; meansMarks(zone, array) || (n > 2 && uses[placeOf(array)] > 0); ++n)
            array.name = wanted + " (" + std::to_string(n) + ")";
    }
}

} // namespace veldraw::app
