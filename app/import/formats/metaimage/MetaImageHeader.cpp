#include "app/import/formats/metaimage/MetaImageHeader.h"

#include "app/files/ImportError.h"
#include "app/import/formats/metaimage/MetaImageLines.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace veldraw::app {

namespace {

constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t mostChannels = 65536;
constexpr std::int64_t mostBytes = most / 16;

// What has been said so far besides the header's values.
struct Said
{
    std::int64_t dimensionCount = 0; // 0: not yet
    bool type = false;
    bool spacing = false;
};

RawType elementType(MetaImageLines const& lines)
{
    std::string name = lines.value();
    std::string const array = "_ARRAY";
    if (name.size() > array.size() && name.compare(name.size() - array.size(), array.size(), array) == 0)
        name.resize(name.size() - array.size());
    // A long has 32 bits in this format, on every system.
    static std::pair<char const*, RawType> const known[] = {
        {"MET_CHAR", RawType::Int8},       {"MET_ASCII_CHAR", RawType::Int8},   {"MET_UCHAR", RawType::UInt8},
        {"MET_SHORT", RawType::Int16},     {"MET_USHORT", RawType::UInt16},     {"MET_INT", RawType::Int32},
        {"MET_UINT", RawType::UInt32},     {"MET_LONG", RawType::Int32},        {"MET_ULONG", RawType::UInt32},
        {"MET_LONG_LONG", RawType::Int64}, {"MET_ULONG_LONG", RawType::UInt64}, {"MET_FLOAT", RawType::Float32},
        {"MET_DOUBLE", RawType::Float64}};
    for (auto const& [text, type] : known) {
        if (name == text)
            return type;
    }
    lines.fail("values of the type \"" + lines.value() + "\" cannot be read");
}

void refuseUnknownStorage(MetaImageLines const& lines)
{
    if (lines.isKey({"ObjectType"}) && lines.value() != "Image")
        lines.fail("objects of the type \"" + lines.value() + "\" are no images");
    if (lines.isKey({"CompressedData"}) && lines.flag())
        lines.fail("compressed values cannot be read");
    if (lines.isKey({"BinaryData"}) && !lines.flag())
        lines.fail("values that are written as text cannot be read");
}

void takeShape(MetaImageLines const& lines, MetaImageHeader& header, Said& said)
{
    if (lines.isKey({"NDims"})) {
        said.dimensionCount = lines.integer(1, 3);
    } else if (lines.isKey({"DimSize"})) {
        header.dims = lines.counts();
        if (header.dims.empty() || header.dims.size() > 3)
            lines.fail("images of one to three dimensions can be read");
    } else if (lines.isKey({"ElementNumberOfChannels"})) {
        header.channels = static_cast<int>(lines.integer(1, mostChannels));
    }
}

void takePlace(MetaImageLines const& lines, MetaImageHeader& header, Said& said)
{
    // The size of an element stands for the spacing where that is not given.
    if (lines.isKey({"ElementSpacing"}) || (lines.isKey({"ElementSize"}) && !said.spacing)) {
        auto const values = lines.numbers(3);
        std::copy(values.begin(), values.end(), header.spacing.begin());
        said.spacing = lines.isKey({"ElementSpacing"});
    } else if (lines.isKey({"Offset", "Origin", "Position"})) {
        auto const values = lines.numbers(3);
        std::copy(values.begin(), values.end(), header.offset.begin());
    } else if (lines.isKey({"TransformMatrix", "Rotation", "Orientation"})) {
        auto const values = lines.numbers(9);
        auto const edge = static_cast<std::size_t>(std::lround(std::sqrt(static_cast<double>(values.size()))));
        if (edge * edge != values.size())
            lines.fail("a square matrix is needed");
        for (std::size_t n = 0; n < values.size(); ++n)
            header.directions[n / edge * 3 + n % edge] = values[n];
    } else if (lines.isKey({"ElementMin"})) {
        header.min = lines.numbers(1).front();
    } else if (lines.isKey({"ElementMax"})) {
        header.max = lines.numbers(1).front();
    }
}

void takeStorage(MetaImageLines const& lines, MetaImageHeader& header, Said& said)
{
    if (lines.isKey({"ElementType"})) {
        header.type = elementType(lines);
        said.type = true;
    } else if (lines.isKey({"ElementByteOrderMSB", "BinaryDataByteOrderMSB"})) {
        header.bigEndian = lines.flag();
    } else if (lines.isKey({"HeaderSize"})) {
        header.headerSize = lines.integer(-1, most);
    } else if (lines.isKey({"ElementDataFile"})) {
        if (lines.value().empty())
            lines.fail("the name of the file with the values is missing");
        if (lines.value() == "LIST" || lines.value().find('%') != std::string::npos)
            lines.fail("values that are spread over several files cannot be read");
        header.dataFile = lines.value();
    }
}

void check(MetaImageHeader const& header, Said const& said)
{
    if (header.dims.empty())
        throw ImportError("its header does not say DimSize");
    if (!said.type)
        throw ImportError("its header does not say ElementType");
    if (said.dimensionCount > 0 && said.dimensionCount != static_cast<std::int64_t>(header.dims.size()))
        throw ImportError("its header says NDims = " + std::to_string(said.dimensionCount) + ", and DimSize has " +
                          std::to_string(header.dims.size()) + " numbers");
    std::int64_t left = mostBytes / (static_cast<std::int64_t>(header.channels) * bytesOf(header.type));
    for (std::int64_t const dim : header.dims) {
        if (dim > left)
            throw ImportError("its header claims more values than there can be");
        left /= dim;
    }
}

} // namespace

MetaImageHeader MetaImageHeader::read(std::string const& path)
{
    MetaImageLines lines(path);
    MetaImageHeader header;
    Said said;
    while (header.dataFile.empty() && lines.next()) {
        if (lines.isBlank())
            continue;
        refuseUnknownStorage(lines);
        takeShape(lines, header, said);
        takePlace(lines, header, said);
        takeStorage(lines, header, said);
    }
    if (header.dataFile.empty())
        throw ImportError("its header ends after line " + std::to_string(lines.number()) + " without ElementDataFile");
    header.endOfHeader = lines.end();
    check(header, said);
    return header;
}

std::int64_t MetaImageHeader::pointCount() const
{
    std::int64_t count = 1;
    for (std::int64_t const dim : dims)
        count *= dim;
    return count;
}

} // namespace veldraw::app
