#pragma once

#include "app/handover/HandedArray.h"

#include <vtkXMLDataElement.h>

#include <set>
#include <string>
#include <vector>

namespace veldraw::app {

/// A reader that does not read all field data of a file: not those of unknown types, over which VTK crashes, and no more than a number. Each array
/// costs VTK a look at all others, and some files have them without end.
class FieldDataLimit
{
public:
    static constexpr int mostArrays = handover::mostFieldData;

    virtual ~FieldDataLimit() = default;

    /// Names of arrays that are read however many others there are.
    void alwaysRead(std::vector<std::string> const& names) { m_wanted = {names.begin(), names.end()}; }

    /// Arrays of field data that were left in the file.
    int unread() const { return m_unread; }

protected:
    /// Takes the others out of the elements that VTK's parser has made of a file.
    void shortenFieldData(vtkXMLDataElement& file);

private:
    void shorten(vtkXMLDataElement& fieldData);
    bool isWanted(vtkXMLDataElement& array) const;

    std::set<std::string> m_wanted;
    int m_unread = 0;
};

/// VTK's reader of an XML file that does so.
/// @tparam Reader a vtkXMLReader
template <typename Reader>
class LimitedFieldDataReader : public Reader, public FieldDataLimit
{
public:
    LimitedFieldDataReader(LimitedFieldDataReader const&) = delete;
    LimitedFieldDataReader& operator=(LimitedFieldDataReader const&) = delete;

protected:
    LimitedFieldDataReader() = default;

    int ReadVTKFile(vtkXMLDataElement* file) override
    {
        shortenFieldData(*file);
        return Reader::ReadVTKFile(file);
    }
};

} // namespace veldraw::app
