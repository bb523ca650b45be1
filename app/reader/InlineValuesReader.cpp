#include "app/reader/InlineValuesReader.h"

#include <cstring>

namespace veldraw::app {

namespace {

bool hasBracket(vtkXMLDataElement& element)
{
    for (int n = 0; n < element.GetNumberOfAttributes(); ++n) {
        char const* const value = element.GetAttributeValue(n);
        if (value && std::strchr(value, '>'))
            return true;
    }
    return false;
}

// Brackets in quotes are part of the tag.
void skipTag(std::istream& file)
{
    char quote = '\0';
    for (char c = '\0'; file.get(c) && (quote != '\0' || c != '>');) {
        if (quote == '\0' && (c == '"' || c == '\''))
            quote = c;
        else if (c == quote)
            quote = '\0';
    }
}

// VTK looks for the end of the tag from here on.
void locate(vtkXMLDataElement& element, std::istream& file)
{
    file.clear();
    file.seekg(element.GetXMLByteIndex());
    skipTag(file);
    if (file)
        element.SetXMLByteIndex(static_cast<vtkTypeInt64>(file.tellg()) - 1);
}

} // namespace

void locateInlineValues(vtkXMLDataElement& root, std::istream& file)
{
    if (hasBracket(root))
        locate(root, file);
    for (int n = 0; n < root.GetNumberOfNestedElements(); ++n)
        locateInlineValues(*root.GetNestedElement(n), file);
}

} // namespace veldraw::app
