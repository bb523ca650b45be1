#include "app/export/formats/vtkxml/AuxiliaryArrays.h"

#include "app/import/formats/vtkxml/BlockFacts.h"
#include "platform/vdsdkcommon/ShortestText.h"

#include <vtkDoubleArray.h>
#include <vtkSmartPointer.h>
#include <vtkStringArray.h>
#include <vtkTypeInt64Array.h>

#include <charconv>
#include <cmath>
#include <optional>
#include <system_error>

namespace veldraw::app {

namespace {

template <typename Number>
std::optional<Number> numberIn(std::string const& text)
{
    Number number{};
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

template <typename Array, typename Value>
vtkSmartPointer<vtkAbstractArray> arrayOf(Value const& value)
{
    auto array = vtkSmartPointer<Array>::New();
    array->InsertNextValue(value);
    return array;
}

// A number as long as it reads back as the very text.
vtkSmartPointer<vtkAbstractArray> arrayFor(std::string const& value)
{
    auto const whole = numberIn<vtkTypeInt64>(value);
    if (whole && std::to_string(*whole) == value)
        return arrayOf<vtkTypeInt64Array>(*whole);
    std::string shortest;
    auto const number = numberIn<double>(value);
    if (number && std::isfinite(*number))
        sdk::appendShortest(shortest, *number);
    return !shortest.empty() && shortest == value ? arrayOf<vtkDoubleArray>(*number) : arrayOf<vtkStringArray>(value);
}

} // namespace

void AuxiliaryArrays::addItems(kernel::AuxiliaryData const& data)
{
    kernel::AuxiliaryData others;
    for (int n = 1; n <= data.size(); ++n) {
        kernel::AuxiliaryData::Item const& item = data.item(n);
        if (!item.retain)
            continue;
        if (BlockFacts::names().count(item.name) != 0 || item.name == fielddata::list) {
            others.set(item.name, item.value, true);
            continue;
        }
        auto const array = arrayFor(item.value);
        array->SetName(item.name.c_str());
        m_fieldData.AddArray(array);
    }
    addToList(fielddata::ofZone, {}, others);
}

void AuxiliaryArrays::addItemsOfDataSet(kernel::DataSet const& dataSet)
{
    addToList(fielddata::ofDataSet, {}, dataSet.auxiliaryData());
}

void AuxiliaryArrays::addItemsOfVariables(kernel::DataSet const& dataSet, std::vector<std::string> const& names)
{
    for (std::size_t n = 0; n < names.size(); ++n)
        addToList(fielddata::ofVariable, names[n], dataSet.variables()[n]->auxiliaryData);
}

void AuxiliaryArrays::addToList(std::string const& kind, std::string const& owner, kernel::AuxiliaryData const& data)
{
    for (int n = 1; n <= data.size(); ++n) {
        kernel::AuxiliaryData::Item const& item = data.item(n);
        if (item.retain)
            m_list.insert(m_list.end(), {kind, owner, item.name, item.value});
    }
}

void AuxiliaryArrays::addList() const
{
    if (m_list.empty())
        return;
    auto const texts = vtkSmartPointer<vtkStringArray>::New();
    texts->SetName(fielddata::list);
    for (std::string const& text : m_list)
        texts->InsertNextValue(text);
    m_fieldData.AddArray(texts);
}

} // namespace veldraw::app
