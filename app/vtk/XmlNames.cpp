#include "app/vtk/XmlNames.h"

#include <vtkAbstractArray.h>
#include <vtkCellData.h>
#include <vtkFieldData.h>
#include <vtkPointData.h>

namespace veldraw::app {

namespace {

// Length of the UTF-8 character at @p at, 0 when there is none.
std::size_t characterLength(std::string const& text, std::size_t at)
{
    auto const first = static_cast<unsigned char>(text[at]);
    std::size_t const length = first < 0x80                    ? 1
                               : first >= 0xc2 && first < 0xe0 ? 2
                               : first >= 0xe0 && first < 0xf0 ? 3
                               : first >= 0xf0 && first < 0xf5 ? 4
                                                               : 0;
    if (length == 0 || at + length > text.size())
        return 0;
    for (std::size_t n = 1; n < length; ++n) {
        if ((static_cast<unsigned char>(text[at + n]) & 0xc0) != 0x80)
            return 0;
    }
    return length;
}

std::string escapedByte(char c)
{
    switch (c) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    default:
        break;
    }
    auto const code = static_cast<unsigned char>(c);
    if (code >= 0x80 || c == '\n' || c == '\r' || c == '\t')
        return "&#" + std::to_string(code) + ";";
    // XML has no place for other control characters.
    return code < 0x20 ? "?" : std::string(1, c);
}

void escapeNames(vtkAbstractArray& array)
{
    if (array.GetName())
        array.SetName(xmlEscaped(array.GetName()).c_str());
    for (int component = 0; array.HasAComponentName() && component < array.GetNumberOfComponents(); ++component) {
        if (array.GetComponentName(component))
            array.SetComponentName(component, xmlEscaped(array.GetComponentName(component)).c_str());
    }
}

} // namespace

std::string xmlEscaped(std::string const& text)
{
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t const length = characterLength(text, at);
        if (length > 1)
            result += text.substr(at, length);
        else
            result += escapedByte(text[at]);
        at += length > 1 ? length : 1;
    }
    return result;
}

void escapeArrayNames(vtkDataSet& grid)
{
    escapeArrayNames(*grid.GetPointData());
    escapeArrayNames(*grid.GetCellData());
    escapeArrayNames(*grid.GetFieldData());
}

void escapeArrayNames(vtkFieldData& data)
{
    for (int n = 0; n < data.GetNumberOfArrays(); ++n) {
        if (vtkAbstractArray* const array = data.GetAbstractArray(n))
            escapeNames(*array);
    }
}

} // namespace veldraw::app
