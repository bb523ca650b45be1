#include "app/import/xml/XmlArrayList.h"

#include "kernel/storage/Buffer.h"

#include <vtkDataSetAttributes.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <utility>

namespace veldraw::app {

namespace {

constexpr std::int64_t unknownTuples = -1;
constexpr std::int64_t mostComponents = 1000000;
constexpr int mostNamedComponents = 1000;

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

// Not to be trusted beyond an estimate: somebody may have altered the values since.
kernel::ValueRange rangeIn(XmlTags::Tag const& tag)
{
    double const nothing = std::numeric_limits<double>::quiet_NaN();
    double const min = tag.number("RangeMin", nothing);
    double const max = tag.number("RangeMax", nothing);
    if (!std::isfinite(min) || !std::isfinite(max) || min > max)
        return {};
    return {kernel::ValueRange::State::Estimated, min, max};
}

kernel::ValueRange joined(kernel::ValueRange const& a, kernel::ValueRange const& b)
{
    if (!a.isValid() || !b.isValid())
        return {};
    return {a.state, std::min(a.min, b.min), std::max(a.max, b.max)};
}

std::vector<std::string> componentNamesIn(XmlTags::Tag const& tag, int components)
{
    std::vector<std::string> names;
    std::string const start = "ComponentName";
    auto const first = tag.attributes.lower_bound(start);
    if (first == tag.attributes.end() || first->first.compare(0, start.size(), start) != 0)
        return names; // as a rule; thousands of arrays may have thousands of components
    bool isNamed = false;
    for (int n = 0; n < components && n < mostNamedComponents; ++n) {
        names.push_back(tag.text(start + std::to_string(n)));
        isNamed = isNamed || !names.back().empty();
    }
    return isNamed ? names : std::vector<std::string>();
}

std::vector<std::pair<std::string, std::string>> activeArraysIn(XmlTags::Tag const& tag)
{
    std::vector<std::pair<std::string, std::string>> result;
    for (int n = 0; n < vtkDataSetAttributes::NUM_ATTRIBUTES; ++n) {
        char const* const purpose = vtkDataSetAttributes::GetAttributeTypeAsString(n);
        if (std::string name = tag.text(purpose); !name.empty())
            result.emplace_back(purpose, std::move(name));
    }
    return result;
}

// Counts beyond what a file could hold are no counts; whoever reads the file finds out.
std::int64_t asCount(double value)
{
    return value >= 0.0 && value < 1e15 ? static_cast<std::int64_t>(value) : 0;
}

} // namespace

double XmlArrayList::Array::bytes() const
{
    return type ? static_cast<double>(kernel::Buffer::bytesOf(kernelTypeOf(*type), values)) : 0.0;
}

XmlArrayList::XmlArrayList(std::string const& path, kernel::Progress const& progress)
{
    XmlTags tags(path, progress);
    XmlTags::Tag tag;
    bool isRaw = false;
    while (tags.next(tag)) {
        look(tag);
        isRaw = tag.name == "AppendedData" && tag.text("encoding") == "raw";
    }
    finishPiece();
    Counts const all = m_wholeExtent.empty() ? m_inAll : countsOf(m_wholeExtent);
    m_points = asCount(all.points);
    m_cells = asCount(all.cells);
    bool const stands = isRaw && !m_isCompressed && m_pieces == 1 && m_pieceIsWhole;
    std::int64_t const start = stands ? tags.startOfAppendedData() : -1;
    finish(m_ofPoints, m_points, path, start);
    finish(m_ofCells, m_cells, path, start);
    finish(m_coordinates, m_points, path, start);
    finish(m_mesh, unknownTuples, path, start);
}

// @param start of the appended data, -1 where the arrays do not stand there as they are
void XmlArrayList::finish(Section& section, std::int64_t tuples, std::string const& path, std::int64_t start)
{
    for (Array& array : section.arrays) {
        array.values = tuples == unknownTuples ? 0 : asCount(array.components * static_cast<double>(tuples));
        if (start < 0)
            array.offset.reset();
        else if (array.type && array.offset)
            place(array, path, start, tuples == unknownTuples);
    }
}

void XmlArrayList::look(XmlTags::Tag const& tag)
{
    if (tag.name == "VTKFile") {
        m_isCompressed = !tag.text("compressor").empty();
        m_format.bytesOfNumber = tag.text("header_type") == "UInt64" ? 8 : 4;
        m_format.isBigEndian = tag.text("byte_order") == "BigEndian";
    } else if (tag.name == "DataArray" || tag.name == "Array") {
        if (Section* const section = openSection())
            lookAtArray(tag, *section);
    } else if (tag.name == "Piece") {
        lookAtPiece(tag);
    } else if (tag.name == "/" + m_openTag) {
        m_openTag.clear();
    } else if (tag.name[0] != '/' && tag.name != "InformationKey" && tag.name != "Value") {
        m_openTag = tag.name;
        m_activeArrays = activeArraysIn(tag);
        if (!tag.text("WholeExtent").empty())
            m_wholeExtent = tag.text("WholeExtent");
    }
}

XmlArrayList::Section* XmlArrayList::openSection()
{
    if (m_openTag == "PointData")
        return &m_ofPoints;
    if (m_openTag == "CellData")
        return &m_ofCells;
    if (m_openTag == "Cells")
        return &m_mesh;
    return m_openTag == "Points" ? &m_coordinates : nullptr;
}

void XmlArrayList::lookAtPiece(XmlTags::Tag const& tag)
{
    finishPiece();
    ++m_pieces;
    std::string const extent = tag.text("Extent");
    if (!extent.empty()) {
        m_inPiece = countsOf(extent);
        m_pieceIsWhole = extent == m_wholeExtent;
    } else {
        m_inPiece.points = tag.count("NumberOfPoints", 0.0);
        m_inPiece.cells =
            tag.count("NumberOfCells", tag.count("NumberOfVerts", 0.0) + tag.count("NumberOfLines", 0.0) +
                                           tag.count("NumberOfStrips", 0.0) + tag.count("NumberOfPolys", 0.0));
    }
    m_inAll.points += m_inPiece.points;
    m_inAll.cells += m_inPiece.cells;
}

// Pieces without points or cells have no values that could go astray, and often no arrays.
void XmlArrayList::finishPiece()
{
    for (Section* const section : {&m_ofPoints, &m_ofCells, &m_coordinates, &m_mesh}) {
        double const tuples = section == &m_ofCells ? m_inPiece.cells : m_inPiece.points;
        if (m_pieces > 1 && tuples > 0.0)
            section->comparePiece();
        section->here.clear();
    }
}

void XmlArrayList::Section::comparePiece()
{
    auto const areAlike = [](Array const& a, Array const& b) {
        return a.name == b.name && a.type == b.type && a.components == b.components;
    };
    auto const indexIn = [](std::vector<Array> const& list, std::string const& name) {
        auto const found =
            std::find_if(list.begin(), list.end(), [&](Array const& array) { return array.name == name; });
        return static_cast<std::size_t>(found - list.begin());
    };
    if (std::equal(arrays.begin(), arrays.end(), here.begin(), here.end(), areAlike)) {
        for (std::size_t n = 0; n < arrays.size(); ++n)
            arrays[n].range = joined(arrays[n].range, here[n].range);
        return;
    }
    for (Array const& array : here) {
        if (indexIn(arrays, array.name) == arrays.size())
            uneven.insert(array.name);
    }
    std::size_t last = 0;
    for (Array& array : arrays) {
        std::size_t const index = indexIn(here, array.name);
        if (index == here.size() || !areAlike(array, here[index])) {
            uneven.insert(array.name);
            continue;
        }
        array.range = joined(array.range, here[index].range);
        isReordered = isReordered || index < last;
        last = index;
    }
}

XmlArrayList::Counts XmlArrayList::countsOf(std::string const& extent)
{
    Counts result{1.0, 1.0};
    char const* rest = extent.c_str();
    for (int axis = 0; axis < 3; ++axis) {
        char* end = nullptr;
        double const first = std::strtod(rest, &end);
        double const last = std::strtod(end, &end);
        rest = end;
        result.points *= last - first + 1.0;
        result.cells *= std::max(last - first, 1.0);
    }
    return result;
}

void XmlArrayList::lookAtArray(XmlTags::Tag const& tag, Section& section)
{
    Array array;
    array.name = tag.text("Name");
    array.type = typeOf(tag.text("type"));
    array.components =
        static_cast<int>(std::clamp<std::int64_t>(asCount(tag.count("NumberOfComponents", 1.0)), 1, mostComponents));
    array.componentNames = componentNamesIn(tag, array.components);
    for (auto const& [purpose, name] : m_activeArrays) {
        if (name == array.name)
            array.purposes.push_back(purpose);
    }
    if (tag.text("format") == "appended")
        array.offset = asCount(tag.count("offset", 0.0));
    if (array.components == 1)
        array.range = rangeIn(tag);
    (m_pieces == 1 ? section.arrays : section.here).push_back(std::move(array));
}

// Each array starts with its size; one of another size than its grid asks for is left to VTK's reader to complain about.
void XmlArrayList::place(Array& array, std::string const& path, std::int64_t start, bool isOfAnySize) const
{
    double const size = XmlArrayPrefix::read(path, start + *array.offset, m_format).numbers[0];
    array.offset = start + *array.offset + m_format.bytesOfNumber;
    if (isOfAnySize)
        array.values = asCount(size / bytesOf(*array.type));
    else if (size != static_cast<double>(array.values) * bytesOf(*array.type))
        array.type.reset();
}

} // namespace veldraw::app
