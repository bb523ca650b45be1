#pragma once

#include <vtkXMLDataElement.h>

#include <istream>

namespace veldraw::app {

/// Tells the elements of a VTK XML file where the values stand that follow their tags. VTK looks for the first '>', also where
/// that is part of an array's name, which its own writers put into a file as it is.
/// @param root of the elements that VTK's parser has made of the @p file
void locateInlineValues(vtkXMLDataElement& root, std::istream& file);

/// VTK's reader of an XML file, which finds the values of arrays with a '>' in their names too.
/// @tparam Reader a vtkXMLReader
template <typename Reader>
class InlineValuesReader : public Reader
{
public:
    InlineValuesReader(InlineValuesReader const&) = delete;
    InlineValuesReader& operator=(InlineValuesReader const&) = delete;

protected:
    InlineValuesReader() = default;

    int ReadVTKFile(vtkXMLDataElement* file) override
    {
        if (this->Stream)
            locateInlineValues(*file, *this->Stream);
        return Reader::ReadVTKFile(file);
    }
};

} // namespace veldraw::app
