#include "app/import/metaimage/MetaImageParser.h"

#include "app/import/ImportError.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <sstream>

namespace veldraw::app {

namespace {

constexpr std::size_t longestLine = 1 << 16;
constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t mostChannels = 65536;
constexpr std::int64_t mostBytes = most / 16;

std::string trimmed(std::string const& text)
{
    char const* const blanks = " \t\r\n";
    std::size_t const first = text.find_first_not_of(blanks);
    return first == std::string::npos ? std::string() : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::vector<std::string> wordsOf(std::string const& text)
{
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

bool parseInteger(std::string const& text, std::int64_t& value)
{
    char* end = nullptr;
    errno = 0;
    value = std::strtoll(text.c_str(), &end, 10);
    return !text.empty() && *end == '\0' && errno == 0;
}

} // namespace

MetaImageParser::MetaImageParser(std::string const& path)
    : m_file(path, std::ios::binary)
{
}

MetaImageHeader MetaImageParser::run()
{
    MetaImageHeader header;
    while (header.dataFile.empty() && nextLine())
        take(header);
    if (header.dataFile.empty())
        throw ImportError("its header ends after line " + std::to_string(m_line) + " without ElementDataFile");
    header.endOfHeader = m_file.tellg();
    finish(header);
    return header;
}

bool MetaImageParser::nextLine()
{
    std::string line;
    for (char c = '\0'; m_file.get(c) && c != '\n';) {
        if (line.size() == longestLine || c == '\0') {
            ++m_line;
            m_key.clear();
            fail("this is no line of text; it is no MetaImage header");
        }
        line += c;
    }
    if (line.empty() && !m_file)
        return false;
    m_file.clear(m_file.rdstate() & ~std::ios::failbit);
    ++m_line;
    std::size_t const equals = line.find('=');
    m_key = trimmed(line.substr(0, equals));
    m_value = equals == std::string::npos ? std::string() : trimmed(line.substr(equals + 1));
    if (equals == std::string::npos && !m_key.empty()) {
        m_key.clear();
        fail("there is no \"=\" in it");
    }
    return true;
}

void MetaImageParser::take(MetaImageHeader& header)
{
    if (m_key.empty())
        return;
    refuseUnknownStorage();
    takeShape(header);
    takePlace(header);
    takeStorage(header);
}

void MetaImageParser::takeShape(MetaImageHeader& header)
{
    if (isKey({"Name"})) {
        header.name = m_value;
    } else if (isKey({"NDims"})) {
        m_dimensionCount = integer(1, 3);
    } else if (isKey({"DimSize"})) {
        for (std::string const& word : wordsOf(m_value)) {
            std::int64_t dim = 0;
            if (!parseInteger(word, dim) || dim < 1)
                fail("\"" + word + "\" is no whole number from 1");
            header.dims.push_back(dim);
        }
        if (header.dims.empty() || header.dims.size() > 3)
            fail("images of one to three dimensions can be read");
    } else if (isKey({"ElementNumberOfChannels"})) {
        header.channels = static_cast<int>(integer(1, mostChannels));
    }
}

void MetaImageParser::takePlace(MetaImageHeader& header)
{
    // The size of an element stands for the spacing where that is not given.
    if (isKey({"ElementSpacing"}) || (isKey({"ElementSize"}) && !m_hasSpacing)) {
        auto const values = numbers(3);
        std::copy(values.begin(), values.end(), header.spacing.begin());
        m_hasSpacing = isKey({"ElementSpacing"});
    } else if (isKey({"Offset", "Origin", "Position"})) {
        auto const values = numbers(3);
        std::copy(values.begin(), values.end(), header.offset.begin());
    } else if (isKey({"TransformMatrix", "Rotation", "Orientation"})) {
        auto const values = numbers(9);
        auto const edge = static_cast<std::size_t>(std::lround(std::sqrt(static_cast<double>(values.size()))));
        if (edge * edge != values.size())
            fail("a square matrix is needed");
        for (std::size_t n = 0; n < values.size(); ++n)
            header.directions[n / edge * 3 + n % edge] = values[n];
    } else if (isKey({"ElementMin"})) {
        header.min = numbers(1).front();
    } else if (isKey({"ElementMax"})) {
        header.max = numbers(1).front();
    }
}

void MetaImageParser::takeStorage(MetaImageHeader& header)
{
    if (isKey({"ElementType"})) {
        header.type = elementType();
        m_hasType = true;
    } else if (isKey({"ElementByteOrderMSB", "BinaryDataByteOrderMSB"})) {
        header.bigEndian = flag();
    } else if (isKey({"HeaderSize"})) {
        header.headerSize = integer(-1, most);
    } else if (isKey({"ElementDataFile"})) {
        if (m_value.empty())
            fail("the name of the file with the values is missing");
        if (m_value == "LIST" || m_value.find('%') != std::string::npos)
            fail("values that are spread over several files cannot be read");
        header.dataFile = m_value;
    }
}

void MetaImageParser::refuseUnknownStorage() const
{
    if (isKey({"ObjectType"}) && m_value != "Image")
        fail("objects of the type \"" + m_value + "\" are no images");
    if (isKey({"CompressedData"}) && flag())
        fail("compressed values cannot be read");
    if (isKey({"BinaryData"}) && !flag())
        fail("values that are written as text cannot be read");
}

void MetaImageParser::finish(MetaImageHeader& header) const
{
    if (header.dims.empty())
        throw ImportError("its header does not say DimSize");
    if (!m_hasType)
        throw ImportError("its header does not say ElementType");
    if (m_dimensionCount > 0 && m_dimensionCount != static_cast<std::int64_t>(header.dims.size()))
        throw ImportError("its header says NDims = " + std::to_string(m_dimensionCount) + ", and DimSize has " +
                          std::to_string(header.dims.size()) + " numbers");
    std::int64_t left = mostBytes / (static_cast<std::int64_t>(header.channels) * bytesOf(header.type));
    for (std::int64_t const dim : header.dims) {
        if (dim > left)
            throw ImportError("its header claims more values than there can be");
        left /= dim;
    }
}

bool MetaImageParser::isKey(std::initializer_list<char const*> names) const
{
    return std::any_of(names.begin(), names.end(), [this](char const* name) { return m_key == name; });
}

std::int64_t MetaImageParser::integer(std::int64_t least, std::int64_t largest) const
{
    std::int64_t value = 0;
    if (!parseInteger(m_value, value))
        fail("\"" + m_value + "\" is no whole number");
    if (value < least || value > largest)
        fail(m_value + " is out of range");
    return value;
}

std::vector<double> MetaImageParser::numbers(std::size_t count) const
{
    std::vector<double> values;
    for (std::string const& word : wordsOf(m_value)) {
        char* end = nullptr;
        double const value = std::strtod(word.c_str(), &end);
        if (end == word.c_str() || *end != '\0' || !std::isfinite(value))
            fail("\"" + word + "\" is no number");
        values.push_back(value);
    }
    if (values.empty())
        fail("a number is missing");
    values.resize(std::min(values.size(), count));
    return values;
}

bool MetaImageParser::flag() const
{
    if (m_value.empty() || std::string("TtYy1FfNn0").find(m_value[0]) == std::string::npos)
        fail("True or False is needed");
    return std::string("TtYy1").find(m_value[0]) != std::string::npos;
}

RawType MetaImageParser::elementType() const
{
    std::string name = m_value;
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
    fail("values of the type \"" + m_value + "\" cannot be read");
}

void MetaImageParser::fail(std::string const& reason) const
{
    throw ImportError("line " + std::to_string(m_line) + (m_key.empty() ? "" : " (" + m_key + ")") + ": " + reason);
}

} // namespace veldraw::app
