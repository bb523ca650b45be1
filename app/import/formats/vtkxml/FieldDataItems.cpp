#include "app/import/formats/vtkxml/FieldDataItems.h"

#include "app/files/PlainText.h"
#include "platform/vdsdkcommon/ShortestText.h"

#include <vtkDataArray.h>
#include <vtkStringArray.h>
#include <vtkVariant.h>

#include <algorithm>

namespace veldraw::app {

namespace {

std::string textOf(vtkDataArray& number)
{
    std::string text;
    vtkVariant const value = number.GetVariantValue(0);
    switch (number.GetDataType()) {
    case VTK_FLOAT:
        sdk::appendShortest(text, value.ToFloat());
        return text;
    case VTK_DOUBLE:
        sdk::appendShortest(text, value.ToDouble());
        return text;
    case VTK_UNSIGNED_LONG:
    case VTK_UNSIGNED_LONG_LONG:
        return std::to_string(value.ToTypeUInt64());
    default:
        return std::to_string(value.ToTypeInt64());
    }
}

// All texts of an array, or its single number; none where it has something else.
std::vector<std::string> valuesIn(vtkAbstractArray& array)
{
    if (array.GetNumberOfComponents() != 1)
        return {};
    std::vector<std::string> values;
    if (auto* const texts = vtkStringArray::SafeDownCast(&array)) {
        for (vtkIdType at = 0; at < texts->GetNumberOfValues(); ++at)
            values.push_back(texts->GetValue(at));
    } else if (auto* const numbers = vtkDataArray::SafeDownCast(&array)) {
        if (numbers->GetNumberOfTuples() == 1)
            values.push_back(textOf(*numbers));
    }
    return values;
}

constexpr vtkIdType textsOfItem = 4; // in our list

vtkStringArray* listIn(vtkAbstractArray& array, std::string const& name)
{
    auto* const texts = name == fielddata::list ? vtkStringArray::SafeDownCast(&array) : nullptr;
    return texts && texts->GetNumberOfValues() % textsOfItem == 0 ? texts : nullptr;
}

void readList(vtkStringArray& texts, FieldDataItems& items)
{
    for (vtkIdType at = 0; at < texts.GetNumberOfValues(); at += textsOfItem) {
        std::string const& kind = texts.GetValue(at);
        std::string const& owner = texts.GetValue(at + 1);
        std::string const& name = texts.GetValue(at + 2);
        std::string const& value = texts.GetValue(at + 3);
        if (kind == fielddata::ofZone)
            items.items.add(name, value);
        else if (kind == fielddata::ofDataSet)
            items.ofDataSet.add(name, value);
        else if (kind == fielddata::ofVariable)
            items.ofVariables[owner].add(name, value);
    }
}

} // namespace

FieldDataItems FieldDataItems::of(vtkFieldData& fieldData, std::set<std::string> const& known)
{
    FieldDataItems result;
    for (int n = 0; n < fieldData.GetNumberOfArrays(); ++n) {
        vtkAbstractArray* const array = fieldData.GetAbstractArray(n);
        std::string const name = array && array->GetName() ? array->GetName() : "";
        if (!array || known.count(name) != 0)
            continue;
        if (vtkStringArray* const list = listIn(*array, name)) {
            readList(*list, result);
            continue;
        }
        std::vector<std::string> const values = valuesIn(*array);
        for (std::string const& value : values)
            result.items.add(name, value);
        if (values.empty())
            result.others.push_back(name);
    }
    return result;
}

std::vector<std::string> FieldDataItems::remarks() const
{
    std::vector<std::string> all = items.remarks();
    auto const add = [&all](AuxiliaryItems const& more) {
        std::vector<std::string> const texts = more.remarks();
        all.insert(all.end(), texts.begin(), texts.end());
    };
    add(ofDataSet);
    for (auto const& [variable, more] : ofVariables)
        add(more);
    return all;
}

std::string remarkOnFieldData(std::vector<std::string> const& names)
{
    constexpr std::size_t mostTold = 10;
    constexpr std::size_t longestName = 40;
    std::string list;
    for (std::size_t n = 0; n < std::min(names.size(), mostTold); ++n)
        list += (list.empty() ? "\"" : ", \"") + shortened(asUtf8(names[n]), longestName) + "\"";
    if (names.size() > mostTold)
        list += " and " + std::to_string(names.size() - mostTold) + " others";
    return "field data " + list + " will not be in a saved file";
}

} // namespace veldraw::app
