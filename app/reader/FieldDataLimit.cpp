#include "app/reader/FieldDataLimit.h"

#include <vtkSmartPointer.h>

namespace veldraw::app {

namespace {

bool isFieldData(vtkXMLDataElement& element)
{
    return element.GetName() && std::string(element.GetName()) == "FieldData";
}

// VTK crashes over field data of a type that it does not know.
bool hasKnownType(vtkXMLDataElement& array)
{
    static std::set<std::string> const known{"Int8",  "UInt8",  "Int16",   "UInt16",  "Int32",  "UInt32",
                                             "Int64", "UInt64", "Float32", "Float64", "String", "Bit"};
    char const* const type = array.GetAttribute("type");
    return type && known.count(type) != 0;
}

} // namespace

void FieldDataLimit::shortenFieldData(vtkXMLDataElement& file)
{
    for (int n = 0; n < file.GetNumberOfNestedElements(); ++n) {
        vtkXMLDataElement& element = *file.GetNestedElement(n);
        if (isFieldData(element))
            shorten(element);
        for (int part = 0; part < element.GetNumberOfNestedElements(); ++part) {
            if (isFieldData(*element.GetNestedElement(part)))
                shorten(*element.GetNestedElement(part));
        }
    }
}

bool FieldDataLimit::isWanted(vtkXMLDataElement& array) const
{
    char const* const name = array.GetAttribute("Name");
    return name && m_wanted.count(name) != 0;
}

void FieldDataLimit::shorten(vtkXMLDataElement& fieldData)
{
    std::vector<vtkSmartPointer<vtkXMLDataElement>> kept;
    int others = 0;
    for (int n = 0; n < fieldData.GetNumberOfNestedElements(); ++n) {
        vtkXMLDataElement& array = *fieldData.GetNestedElement(n);
        if (hasKnownType(array) && (isWanted(array) || ++others <= mostArrays))
            kept.emplace_back(&array);
    }
    int const unread = fieldData.GetNumberOfNestedElements() - static_cast<int>(kept.size());
    if (unread == 0)
        return;
    m_unread += unread;
    fieldData.RemoveAllNestedElements();
    for (auto const& array : kept)
        fieldData.AddNestedElement(array);
}

} // namespace veldraw::app
