#pragma once

#include <vtkXMLDataElement.h>
#include <vtkXMLReader.h>

namespace veldraw::app {

/// VTK's reader of an XML file, which does not always look whether it has got the values of an array, and leaves them as memory was; this one
/// complains.
/// @tparam Reader a vtkXMLReader
template <typename Reader>
class CheckedValuesReader : public Reader
{
public:
    CheckedValuesReader(CheckedValuesReader const&) = delete;
    CheckedValuesReader& operator=(CheckedValuesReader const&) = delete;

protected:
    CheckedValuesReader() = default;

    int ReadArrayValues(vtkXMLDataElement* element, vtkIdType arrayIndex, vtkAbstractArray* array, vtkIdType startIndex,
                        vtkIdType numValues, typename Reader::FieldType type = Reader::OTHER) override
    {
        int const isRead = Reader::ReadArrayValues(element, arrayIndex, array, startIndex, numValues, type);
        char const* const name = element->GetAttribute("Name");
        if (!isRead && numValues > 0)
            vtkErrorWithObjectMacro(this, "Values of \"" << (name ? name : "") << "\" cannot be read");
        return isRead;
    }
};

} // namespace veldraw::app
