#include "app/import/xml/XmlHeaderCheck.h"

#include "app/files/ImportError.h"
#include "app/files/PathChecks.h"
#include "app/files/PlainText.h"
#include "app/handover/HandedArray.h"
#include "app/import/xml/Base64Text.h"
#include "app/import/xml/ExtentCover.h"
#include "app/import/xml/NumbersInText.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

namespace veldraw::app {

namespace {

constexpr std::size_t longestNameTold = 40;
constexpr double unknownCount = -1.0;
constexpr double mostReadings = 2.0; // of each byte of base64: arrays that stand within each other could take for ever
constexpr double mostCompression = 1000.0; // a block takes at least its size in the header

double bytesOfType(std::string const& type)
{
    if (type == "Bit")
        return 0.125;
    std::size_t const digits = type.find_first_of("0123456789");
    return digits == std::string::npos ? 0.0 : std::atof(type.c_str() + digits) / 8.0;
}

std::string countText(double count)
{
    return std::to_string(static_cast<std::int64_t>(std::clamp(count, 0.0, 9e18)));
}

ImportError tooFewCoordinates(std::string const& name)
{
    return ImportError("it is damaged or incomplete: there are fewer coordinates \"" + name + "\" than points");
}

bool isGrid(std::string const& name)
{
    return name == "ImageData" || name == "RectilinearGrid" || name == "StructuredGrid" || name == "UnstructuredGrid" ||
           name == "PolyData";
}

bool isSection(std::string const& name)
{
    return name == "PointData" || name == "CellData" || name == "Points" || name == "Coordinates" || name == "Cells" ||
           name == "Verts" || name == "Lines" || name == "Strips" || name == "Polys" || name == "FieldData";
}

} // namespace

XmlHeaderCheck::XmlHeaderCheck(std::string const& path, std::int64_t fileSize, kernel::Progress const& progress)
    : m_path(path)
    , m_progress(progress)
    , m_tags(path, progress)
    , m_fileSize(fileSize)
    , m_endOfValues(fileSize)
    , m_size(fileSize, false)
{
}

void XmlHeaderCheck::run()
{
    XmlTags::Tag tag;
    while (m_tags.next(tag)) {
        if (tag.name != "AppendedData")
            look(tag);
        else
            checkAppended(tag.text("encoding") != "raw");
    }
    if (!m_appended.empty())
        throw ImportError("it is incomplete: the values at its end are missing");
    checkCover(false);
    if (m_hasCellValues)
        checkCover(true);
    // Points that go with no value are not worth waiting for: such a header is a mistake, if it asks for that many.
    if (!m_countsValues && !m_hasValues)
        m_size.addComputed(m_computedPoints, 3.0 * sizeof(double));
}

std::vector<XmlHeaderCheck::Useless> XmlHeaderCheck::useless() const
{
    std::vector<Useless> result;
    for (auto const& [ofPoints, name] : m_texts)
        result.push_back({ofPoints, name, "has no numbers"});
    // VTK puts pieces together byte by byte.
    for (auto const& [ofPoints, name] : m_bits) {
        if (hasSeveralPieces())
            result.push_back({ofPoints, name, "has single bits in several pieces"});
    }
    return result;
}

// Only what stands at its proper depth counts: VTK's reader looks at nothing else.
void XmlHeaderCheck::look(XmlTags::Tag const& tag)
{
    if (tag.name.compare(0, 1, "/") == 0) {
        --m_depth;
        if (m_depth <= m_depthOfSection)
            m_section.clear();
        return;
    }
    int const depth = m_depth;
    m_depth += tag.isEmpty ? 0 : 1;
    if (!m_section.empty()) {
        if (depth == m_depthOfSection + 1)
            lookIntoSection(tag);
    } else if (depth == 0) {
        m_compressed = !tag.text("compressor").empty();
        m_format.bytesOfNumber = tag.text("header_type") == "UInt64" ? 8 : 4;
        m_format.isBigEndian = tag.text("byte_order") == "BigEndian";
        m_size = SizeCheck(m_fileSize, m_compressed);
    } else if (depth == 1 && isGrid(tag.name)) {
        lookAtGrid(tag);
    } else if (depth == 2 && tag.name == "Piece") {
        lookAtPiece(tag);
        ++m_pieces;
        m_allPoints += m_points;
        m_size.addStored(m_uniform ? 0.0 : m_points, 0.0, "points");
    } else if (isSection(tag.name) && !tag.isEmpty && (depth == 3 || tag.name == "FieldData")) {
        m_section = tag.name;
        m_depthOfSection = depth;
        m_axis = 0;
        m_arraysOfSection = 0;
    }
}

void XmlHeaderCheck::lookAtGrid(XmlTags::Tag const& tag)
{
    if (std::exchange(m_hasGrid, true))
        throw ImportError("it has more than one grid");
    if (tag.name == "UnstructuredGrid" || tag.name == "PolyData")
        return;
    m_uniform = tag.name != "StructuredGrid";
    lookAtExtent(tag, "WholeExtent");
    m_computedPoints = m_uniform ? m_points : 0.0;
    if (m_uniform && m_countsValues)
        m_size.addComputed(m_points, 3.0 * sizeof(double));
}

// VTK's reader takes whatever stands there for an array.
void XmlHeaderCheck::lookIntoSection(XmlTags::Tag const& tag)
{
    if (tag.name != "DataArray" && tag.name != "Array")
        throw ImportError("a tag \"" + shortened(asUtf8(tag.name), longestNameTold) + "\" stands among its arrays");
    lookAtArray(tag);
}

void XmlHeaderCheck::lookAtPiece(XmlTags::Tag const& tag)
{
    if (m_whole) {
        lookAtExtent(tag, "Extent");
        m_extents.push_back(m_extent);
        return;
    }
    m_points = tag.count("NumberOfPoints", 0.0);
    m_cells = 0.0;
    for (char const* cells : {"NumberOfCells", "NumberOfVerts", "NumberOfLines", "NumberOfStrips", "NumberOfPolys"}) {
        double const count = tag.count(cells, 0.0);
        m_size.addStored(count, sizeof(std::int64_t), "cells");
        m_cells += count;
    }
}

// VTK's reader copies pieces into the whole without looking whether they fit.
void XmlHeaderCheck::lookAtExtent(XmlTags::Tag const& tag, char const* attribute)
{
    std::string const text = tag.text(attribute);
    if (text.empty())
        return;
    Extent const extent = extentOf(text);
    bool const isWhole = std::string(attribute) == "WholeExtent";
    m_whole = isWhole ? extent : m_whole;
    m_extent = extent;
    m_points = 1.0;
    m_cells = 1.0;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        double const first = extent[2 * axis];
        double const last = extent[2 * axis + 1];
        m_points *= std::max(last - first + 1.0, 0.0);
        m_cells *= std::max(last - first, 1.0);
        if (last >= first && m_whole && (first < (*m_whole)[2 * axis] || last > (*m_whole)[2 * axis + 1]))
            throw ImportError("a piece of it is outside of its extent; it is damaged");
    }
    if (isWhole)
        m_wholePoints = m_points;
}

// What no piece has would be whatever stood in memory.
void XmlHeaderCheck::checkCover(bool ofCells) const
{
    bool isComplete = m_allPoints >= m_wholePoints;
    if (isComplete && m_whole && m_extents.size() > 1) {
        auto const boxOf = [&](Extent const& extent) {
            ExtentCover::Box box{};
            for (std::size_t axis = 0; axis < 3; ++axis) {
                bool const isFlat = (*m_whole)[2 * axis] == (*m_whole)[2 * axis + 1]; // cells are there all the same
                box[2 * axis] = static_cast<std::int64_t>(extent[2 * axis]);
                box[2 * axis + 1] = static_cast<std::int64_t>(extent[2 * axis + 1]) + (ofCells && !isFlat ? 0 : 1);
            }
            return box;
        };
        ExtentCover cover(boxOf(*m_whole));
        for (Extent const& extent : m_extents) {
            m_progress.check();
            cover.add(boxOf(extent));
        }
        isComplete = cover.isComplete();
    }
    if (!isComplete)
        throw ImportError("it is incomplete: its pieces do not fill its extent");
}

XmlHeaderCheck::Extent XmlHeaderCheck::extentOf(std::string const& text)
{
    Extent extent{};
    std::istringstream stream(text);
    for (double& number : extent) {
        std::int32_t whole = 0;
        if (!(stream >> whole))
            throw ImportError("its extent \"" + text + "\" is damaged");
        number = whole;
    }
    for (std::size_t axis = 0; axis < 3; ++axis) {
        if (extent[2 * axis + 1] < extent[2 * axis] - 1.0)
            throw ImportError("its extent \"" + text + "\" ends before it starts");
    }
    return extent;
}

// The number of values in the array, or unknownCount where the header alone does not say it.
double XmlHeaderCheck::valuesOf(XmlTags::Tag const& tag) const
{
    double const components = tag.count("NumberOfComponents", 1.0);
    if (m_section == "PointData")
        return components * m_points;
    if (m_section == "CellData")
        return components * m_cells;
    if (m_section == "Points")
        return std::max(components, 3.0) * m_points;
    if (m_section == "Coordinates" && m_axis < 3)
        return std::max(m_extent[2 * m_axis + 1] - m_extent[2 * m_axis] + 1.0, 0.0);
    if (m_section == "FieldData")
        return components * tag.count("NumberOfTuples", 0.0);
    return unknownCount;
}

void XmlHeaderCheck::lookAtArray(XmlTags::Tag const& tag)
{
    double const bytes = bytesOfType(tag.text("type"));
    double const values = valuesOf(tag);
    bool const isValue = m_section == "PointData" || m_section == "CellData";
    bool const isCounted = m_countsValues || (!isValue && m_section != "Points");
    m_hasValues = m_hasValues || isValue;
    m_hasCellValues = m_hasCellValues || m_section == "CellData";
    if (isValue && ++m_arraysOfSection > handover::mostArrays)
        throw ImportError("it has more than " + std::to_string(handover::mostArrays) + " arrays at one place");
    if (isValue && tag.text("type") == "String")
        m_texts.emplace(m_section == "PointData", tag.text("Name"));
    if (isValue && tag.text("type") == "Bit")
        m_bits.emplace(m_section == "PointData", tag.text("Name"));
    // VTK walks over the components of an array even if it has no values.
    m_size.addStored(tag.count("NumberOfComponents", 1.0), 0.0, "components of \"" + tag.text("Name") + "\"");
    bool const isText = m_section == "FieldData" && tag.text("type") == "String";
    double const bytesInMemory = isText ? sizeof(std::string) : bytes;
    if (values != unknownCount)
        m_size.addStored(values, isCounted ? bytesInMemory : 0.0, "values of \"" + tag.text("Name") + "\"");
    // VTK's reader looks for values of an array with an offset there, whatever its format is said to be.
    bool const areCoordinates = m_section == "Coordinates" && m_axis++ < 3;
    Binary const array{tag.count("offset", 0.0), std::max(values, 0.0) * bytes, tag.text("Name"), areCoordinates};
    if (tag.text("format") == "appended" || !tag.text("offset").empty())
        m_appended.push_back(array);
    else if (tag.text("format") == "binary")
        checkValues(m_tags.position(), true, array);
    else if (areCoordinates)
        checkText(values, array.name);
}

// Of other values VTK's reader says itself that they are too few.
void XmlHeaderCheck::checkText(double coordinates, std::string const& name) const
{
    auto const needed = static_cast<std::int64_t>(coordinates);
    if (countNumbersInText(m_path, m_tags.position(), needed, m_progress) < needed)
        throw tooFewCoordinates(name);
}

// The tag behind appended values would be read as values.
void XmlHeaderCheck::findEndOfValues()
{
    constexpr std::int64_t longestEnd = 256; // of the text behind them
    std::int64_t const start = std::max<std::int64_t>(m_fileSize - longestEnd, 0);
    std::ifstream file = openToRead(m_path);
    file.seekg(start);
    std::string const text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    std::size_t const tag = text.rfind("</AppendedData");
    if (tag != std::string::npos)
        m_endOfValues = start + static_cast<std::int64_t>(tag);
}

void XmlHeaderCheck::checkAppended(bool isBase64)
{
    findEndOfValues();
    double const start = static_cast<double>(m_tags.startOfAppendedData());
    std::set<std::pair<double, double>> checked; // thousands of arrays may say that they stand at one place
    std::vector<Binary> const arrays = std::exchange(m_appended, {});
    for (Binary const& array : arrays) {
        double const needed = m_compressed ? 0.0 : array.bytes;
        if (!(start + array.offset + m_format.bytesOfNumber + needed <= static_cast<double>(m_endOfValues)) ||
            !(array.offset >= 0.0))
            throw ImportError("it is incomplete: it ends before the values of \"" + array.name + "\" do");
        if (checked.emplace(array.offset, array.bytes).second)
            checkValues(static_cast<std::int64_t>(start + array.offset), isBase64, array);
    }
}

void XmlHeaderCheck::checkValues(std::int64_t position, bool isBase64, Binary const& array)
{
    XmlArrayPrefix::Format format = m_format;
    format.isBase64 = isBase64;
    XmlArrayPrefix const prefix = XmlArrayPrefix::read(m_path, position, format);
    double const announced = announcedBytes(prefix);
    if (array.areCoordinates && announced < array.bytes)
        throw tooFewCoordinates(array.name);
    if (m_compressed)
        checkBlocks(prefix, array.name);
    else
        checkLength(position, isBase64, array.bytes > 0.0 ? std::min(array.bytes, announced) : announced, array.name);
}

double XmlHeaderCheck::announcedBytes(XmlArrayPrefix const& prefix) const
{
    auto const [first, bytesOfBlock, bytesOfLast] = prefix.numbers;
    if (!m_compressed || first == 0.0)
        return first;
    return (first - 1.0) * bytesOfBlock + (bytesOfLast > 0.0 ? bytesOfLast : bytesOfBlock);
}

// VTK's reader takes what there is for all there should be, and leaves the rest of the values as they were in memory. Where fewer values are
// announced than the grid has, it complains by itself.
void XmlHeaderCheck::checkLength(std::int64_t position, bool isBase64, double bytes, std::string const& name)
{
    double const most = static_cast<double>(m_endOfValues - position - m_format.bytesOfNumber);
    double there = most;
    if (isBase64 && bytes <= most)
        there = static_cast<double>(decodedBytes(position, bytes));
    if (there < bytes)
        throw ImportError("it is damaged or incomplete: of the values of \"" + name + "\" no more than " +
                          countText(there) + " of " + countText(bytes) + " bytes can be read");
}

// @return how many of @p most bytes can be decoded
std::int64_t XmlHeaderCheck::decodedBytes(std::int64_t position, double most)
{
    std::int64_t const bytes =
        Base64Text(m_path, position)
            .bytesBehind(m_format.bytesOfNumber, static_cast<std::int64_t>(std::ceil(most)), m_progress);
    m_decodedBytes += static_cast<double>(bytes);
    if (m_decodedBytes > mostReadings * static_cast<double>(m_fileSize))
        throw ImportError("it is damaged: the values of its arrays stand within each other");
    return bytes;
}

void XmlHeaderCheck::checkBlocks(XmlArrayPrefix const& prefix, std::string const& name)
{
    auto const [first, bytesOfBlock, bytesOfLast] = prefix.numbers;
    if (first > 0.0 && bytesOfBlock == 0.0) // VTK's reader divides by it
        throw ImportError("it is damaged: the compressed values of \"" + name + "\" are in blocks of no bytes");
    m_size.addStored(first * mostCompression, 0.0, "blocks of \"" + name + "\"");
    m_size.addStored(std::max(first, 1.0) * bytesOfBlock, 1.0, "bytes of \"" + name + "\"");
    m_size.addStored(bytesOfLast, 0.0, "bytes of \"" + name + "\"");
}

} // namespace veldraw::app
