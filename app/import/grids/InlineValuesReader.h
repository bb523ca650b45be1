#pragma once

#include "app/import/grids/InlineValues.h"

namespace veldraw::app {

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
