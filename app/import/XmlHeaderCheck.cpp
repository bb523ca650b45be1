#include "app/import/XmlHeaderCheck.h"

#include "app/import/ImportError.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>

namespace veldraw::app {

namespace {

constexpr double mostCompression = 1000.0; // a block takes at least its size in the header

double bytesOfType(std::string const& type)
{
    if (type == "Bit")
        return 0.125;
    std::size_t const digits = type.find_first_of("0123456789");
    return digits == std::string::npos ? 0.0 : std::atof(type.c_str() + digits) / 8.0;
}

bool isSection(std::string const& name)
{
    return name == "PointData" || name == "CellData" || name == "Points" || name == "Coordinates" || name == "Cells" ||
           name == "Verts" || name == "Lines" || name == "Strips" || name == "Polys" || name == "FieldData";
}

} // namespace

XmlHeaderCheck::XmlHeaderCheck(std::string const& path, std::int64_t fileSize)
    : m_path(path)
    , m_tags(path)
    , m_fileSize(fileSize)
    , m_size(fileSize, false)
{
}

void XmlHeaderCheck::run()
{
    XmlTags::Tag tag;
    while (m_tags.next(tag)) {
        if (tag.name != "AppendedData")
            look(tag);
        else if (tag.text("encoding") == "raw")
            checkAppended();
    }
    // Points that go with no value are not worth waiting for: such a header is a mistake, if it asks for that many.
    if (!m_countsValues && !m_hasValues)
        m_size.addComputed(m_computedPoints, 3.0 * sizeof(double));
}

void XmlHeaderCheck::look(XmlTags::Tag const& tag)
{
    if (tag.name == "VTKFile") {
        m_compressed = !tag.text("compressor").empty();
        m_headerBytes = tag.text("header_type") == "UInt64" ? 8 : 4;
        m_bigEndian = tag.text("byte_order") == "BigEndian";
        m_size = SizeCheck(m_fileSize, m_compressed);
    } else if (tag.name == "ImageData" || tag.name == "RectilinearGrid" || tag.name == "StructuredGrid") {
        m_uniform = tag.name != "StructuredGrid";
        lookAtExtent(tag, "WholeExtent");
        m_computedPoints = m_uniform ? m_points : 0.0;
        if (m_uniform && m_countsValues)
            m_size.addComputed(m_points, 3.0 * sizeof(double));
    } else if (tag.name == "Piece") {
        lookAtExtent(tag, "Extent");
        m_points = tag.number("NumberOfPoints", m_points);
        m_cells = tag.number("NumberOfCells", tag.number("NumberOfVerts", 0.0) + tag.number("NumberOfLines", 0.0) +
                                                  tag.number("NumberOfStrips", 0.0) + tag.number("NumberOfPolys", 0.0));
        m_allPoints += m_points;
        m_size.addStored(m_uniform ? 0.0 : m_points, 0.0, "points");
    } else if (isSection(tag.name)) {
        m_section = tag.name;
    } else if (tag.name == "DataArray" || tag.name == "Array") {
        lookAtArray(tag);
    }
}

void XmlHeaderCheck::lookAtExtent(XmlTags::Tag const& tag, char const* attribute)
{
    std::string const text = tag.text(attribute);
    char const* rest = text.c_str();
    double points = 1.0;
    double cells = 1.0;
    for (int axis = 0; axis < 3; ++axis) {
        char* end = nullptr;
        double const first = std::strtod(rest, &end);
        double const last = std::strtod(end, &end);
        if (end == rest)
            return;
        rest = end;
        points *= std::max(last - first + 1.0, 0.0);
        cells *= std::max(last - first, 1.0);
    }
    m_points = points;
    m_cells = cells;
}

// The number of values in the array, or -1 where the header alone does not say it.
double XmlHeaderCheck::valuesOf(XmlTags::Tag const& tag) const
{
    double const components = tag.number("NumberOfComponents", 1.0);
    if (m_section == "PointData")
        return components * m_points;
    if (m_section == "CellData")
        return components * m_cells;
    if (m_section == "Points")
        return std::max(components, 3.0) * m_points;
    if (m_section == "FieldData" && tag.text("type") != "String")
        return components * tag.number("NumberOfTuples", 0.0);
    return -1.0;
}

void XmlHeaderCheck::lookAtArray(XmlTags::Tag const& tag)
{
    double const bytes = bytesOfType(tag.text("type"));
    double const values = valuesOf(tag);
    bool const isValue = m_section == "PointData" || m_section == "CellData";
    bool const isCounted = m_countsValues || (!isValue && m_section != "Points");
    m_hasValues = m_hasValues || isValue;
    // VTK walks over the components of an array even if it has no values.
    m_size.addStored(tag.number("NumberOfComponents", 1.0), 0.0, "components of \"" + tag.text("Name") + "\"");
    if (values >= 0.0)
        m_size.addStored(values, isCounted ? bytes : 0.0, "values of \"" + tag.text("Name") + "\"");
    if (tag.text("format") == "appended")
        m_appended.push_back({tag.number("offset", 0.0), std::max(values, 0.0) * bytes, tag.text("Name")});
}

// Each array starts with its size in bytes, or where it is compressed with the number and the sizes of its blocks.
void XmlHeaderCheck::checkAppended()
{
    std::ifstream file(m_path, std::ios::binary);
    file.seekg(m_tags.position());
    char c = ' ';
    while (file.get(c) && c != '_') {
    }
    double const start = static_cast<double>(file.tellg());
    for (Appended const& array : m_appended) {
        double const needed = m_compressed ? 0.0 : array.bytes;
        if (!(start + array.offset + m_headerBytes + needed <= static_cast<double>(m_fileSize)) ||
            !(array.offset >= 0.0))
            throw ImportError("it is incomplete: it ends before the values of \"" + array.name + "\" do");
        checkBlocks(static_cast<std::int64_t>(start + array.offset), array.name);
    }
}

void XmlHeaderCheck::checkBlocks(std::int64_t position, std::string const& name)
{
    double const first = headerNumber(position);
    if (!m_compressed) {
        m_size.addStored(first, 0.0, "bytes of \"" + name + "\"");
        return;
    }
    m_size.addStored(first * mostCompression, 0.0, "blocks of \"" + name + "\"");
    if (first > 0.0)
        m_size.addStored(first * headerNumber(position + m_headerBytes), 1.0, "bytes of \"" + name + "\"");
}

double XmlHeaderCheck::headerNumber(std::int64_t position) const
{
    std::ifstream file(m_path, std::ios::binary);
    file.seekg(position);
    unsigned char bytes[8] = {0, 0, 0, 0, 0, 0, 0, 0};
    file.read(reinterpret_cast<char*>(bytes), m_headerBytes);
    double value = 0.0;
    for (int n = 0; n < m_headerBytes; ++n)
        value = 256.0 * value + bytes[m_bigEndian ? n : m_headerBytes - 1 - n];
    return value;
}

} // namespace veldraw::app
