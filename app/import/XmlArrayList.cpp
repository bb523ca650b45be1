#include "app/import/XmlArrayList.h"

#include "kernel/data/Buffer.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <utility>

namespace veldraw::app {

namespace {

std::optional<RawType> typeOf(std::string const& name)
{
    static std::pair<char const*, RawType> const known[] = {
        {"Int8", RawType::Int8},      {"UInt8", RawType::UInt8},   {"Int16", RawType::Int16},
        {"UInt16", RawType::UInt16},  {"Int32", RawType::Int32},   {"UInt32", RawType::UInt32},
        {"Int64", RawType::Int64},    {"UInt64", RawType::UInt64}, {"Float32", RawType::Float32},
        {"Float64", RawType::Float64}};
    for (auto const& [text, type] : known) {
        if (name == text)
            return type;
    }
    return std::nullopt;
}

// Where the header does not begin, after the blanks and the underscore that start the data.
std::int64_t startOfData(std::ifstream& file, std::int64_t position)
{
    file.seekg(position);
    char c = ' ';
    while (file.get(c) && c != '_') {
    }
    return file ? static_cast<std::int64_t>(file.tellg()) : -1;
}

double sizeInHeader(std::ifstream& file, std::int64_t position, int bytes, bool bigEndian)
{
    unsigned char raw[8] = {};
    file.seekg(position);
    file.read(reinterpret_cast<char*>(raw), bytes);
    double value = 0.0;
    for (int n = 0; n < bytes; ++n)
        value = 256.0 * value + raw[bigEndian ? n : bytes - 1 - n];
    return file ? value : -1.0;
}

} // namespace

double XmlArrayList::Array::bytes() const
{
    return type ? static_cast<double>(kernel::Buffer::bytesOf(kernelTypeOf(*type), values)) : 0.0;
}

XmlArrayList::XmlArrayList(std::string const& path)
{
    XmlTags tags(path);
    XmlTags::Tag tag;
    bool isRaw = false;
    while (tags.next(tag)) {
        look(tag);
        isRaw = tag.name == "AppendedData" && tag.text("encoding") == "raw";
    }
    if (isRaw && !m_isCompressed) {
        placeArrays(path, tags.position());
        return;
    }
    for (auto* const list : {&m_ofPoints, &m_ofCells}) {
        for (Array& array : *list)
            array.offset.reset();
    }
}

void XmlArrayList::look(XmlTags::Tag const& tag)
{
    if (tag.name == "VTKFile") {
        m_isCompressed = !tag.text("compressor").empty();
        m_headerBytes = tag.text("header_type") == "UInt64" ? 8 : 4;
        m_isBigEndian = tag.text("byte_order") == "BigEndian";
    } else if (tag.name == "Piece") {
        lookAtPiece(tag);
    } else if (tag.name == "PointData" || tag.name == "CellData" || tag.name == "/PointData" ||
               tag.name == "/CellData") {
        m_section = tag.name;
    } else if ((tag.name == "DataArray" || tag.name == "Array") && m_pieces == 1) {
        lookAtArray(tag);
    }
}

void XmlArrayList::lookAtPiece(XmlTags::Tag const& tag)
{
    if (++m_pieces > 1)
        return;
    m_points = static_cast<std::int64_t>(tag.number("NumberOfPoints", 0.0));
    m_cells = static_cast<std::int64_t>(
        tag.number("NumberOfCells", tag.number("NumberOfVerts", 0.0) + tag.number("NumberOfLines", 0.0) +
                                        tag.number("NumberOfStrips", 0.0) + tag.number("NumberOfPolys", 0.0)));
    std::string const extent = tag.text("Extent");
    if (extent.empty())
        return;
    m_points = 1;
    m_cells = 1;
    char const* rest = extent.c_str();
    for (int axis = 0; axis < 3; ++axis) {
        char* end = nullptr;
        std::int64_t const first = std::strtoll(rest, &end, 10);
        std::int64_t const last = std::strtoll(end, &end, 10);
        rest = end;
        m_points *= last - first + 1;
        m_cells *= std::max<std::int64_t>(last - first, 1);
    }
}

void XmlArrayList::lookAtArray(XmlTags::Tag const& tag)
{
    if (m_section != "PointData" && m_section != "CellData")
        return;
    Array array;
    array.type = typeOf(tag.text("type"));
    array.components = std::max(static_cast<int>(tag.number("NumberOfComponents", 1.0)), 1);
    array.values = array.components * (m_section == "PointData" ? m_points : m_cells);
    if (tag.text("format") == "appended")
        array.offset = static_cast<std::int64_t>(tag.number("offset", 0.0));
    (m_section == "PointData" ? m_ofPoints : m_ofCells).push_back(array);
}

// Each array starts with its size; one of another size than its grid asks for is left to VTK's reader to complain about.
void XmlArrayList::placeArrays(std::string const& path, std::int64_t position)
{
    std::ifstream file(path, std::ios::binary);
    std::int64_t const start = startOfData(file, position);
    for (auto* const list : {&m_ofPoints, &m_ofCells}) {
        for (Array& array : *list) {
            if (!array.type || !array.offset)
                continue;
            double const size = sizeInHeader(file, start + *array.offset, m_headerBytes, m_isBigEndian);
            bool const fits = start >= 0 && size == static_cast<double>(array.values) * bytesOf(*array.type);
            array.offset = start + *array.offset + m_headerBytes;
            if (!fits)
                array.type.reset();
        }
    }
}

} // namespace veldraw::app
