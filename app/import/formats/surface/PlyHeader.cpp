#include "app/import/formats/surface/PlyHeader.h"

#include "app/files/ImportError.h"
#include "app/files/PathChecks.h"
#include "app/files/PlainText.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <map>
#include <set>
#include <vector>

namespace veldraw::app {

namespace {

constexpr std::size_t longestHeaderLine = 4096;
constexpr std::size_t mostHeaderLines = 10000;
constexpr std::size_t mostPropertiesNamed = 10; // properties in a remark

struct PlyProperty
{
    std::string name;
    std::uint64_t leastBytes = 0; // in a binary file
    bool isList = false;
};

struct PlyElement
{
    std::string name;
    std::uint64_t count = 0;
    std::vector<PlyProperty> properties;
};

struct PlyContent
{
    bool isText = false;
    std::vector<PlyElement> elements;
    std::uint64_t bytes = 0; // of itself
};

std::uint64_t bytesOfType(std::string const& type)
{
    static std::map<std::string, std::uint64_t> const known{
        {"char", 1},  {"uchar", 1},   {"int8", 1},   {"uint8", 1},  {"short", 2}, {"ushort", 2},
        {"int16", 2}, {"uint16", 2},  {"int", 4},    {"uint", 4},   {"int32", 4}, {"uint32", 4},
        {"float", 4}, {"float32", 4}, {"double", 8}, {"float64", 8}};
    auto const found = known.find(type);
    if (found == known.end())
        throw ImportError("it is damaged: a property has the type \"" + shortened(asUtf8(type), 40) +
                          "\", which there is not");
    return found->second;
}

PlyElement elementOf(std::vector<std::string> const& words)
{
    PlyElement element;
    bool isNumber = words.size() == 3;
    if (isNumber) {
        element.name = words[1];
        auto const [end, error] = std::from_chars(words[2].data(), words[2].data() + words[2].size(), element.count);
        isNumber = error == std::errc() && end == words[2].data() + words[2].size();
    }
    if (!isNumber)
        throw ImportError("it is damaged: its header has an element without a name or number");
    return element;
}

PlyProperty propertyOf(std::vector<std::string> const& words)
{
    bool const isList = words.size() == 5 && words[1] == "list";
    if (!isList && words.size() != 3)
        throw ImportError("it is damaged: its header has a property without a type or name");
    if (isList)
        bytesOfType(words[3]);
    return {words.back(), bytesOfType(isList ? words[2] : words[1]), isList};
}

// @return whether the header goes on
bool take(std::string const& line, PlyContent& header)
{
    auto const words = wordsOf(line);
    if (words.empty() || words[0] == "comment" || words[0] == "obj_info")
        return true;
    if (words[0] == "end_header")
        return false;
    if (words[0] == "format")
        header.isText = words.size() > 1 && words[1] == "ascii";
    else if (words[0] == "element")
        header.elements.push_back(elementOf(words));
    else if (words[0] == "property" && !header.elements.empty())
        header.elements.back().properties.push_back(propertyOf(words));
    else
        throw ImportError("it is damaged: its header has \"" + shortened(asUtf8(line), 40) + "\"");
    return true;
}

std::string nextLine(std::streambuf& file, std::uint64_t& bytes)
{
    std::string line;
    for (int c = file.sbumpc(); c != std::char_traits<char>::eof(); c = file.sbumpc()) {
        ++bytes;
        if (c == '\n')
            return line;
        line += static_cast<char>(c);
        if (line.size() > longestHeaderLine)
            break;
    }
    throw ImportError("it is no PLY file, or its header has no end");
}

PlyContent headerOf(std::string const& path)
{
    std::ifstream file = openToRead(path);
    PlyContent header;
    if (trimmed(nextLine(*file.rdbuf(), header.bytes)) != "ply")
        throw ImportError("it is no PLY file: its first line is not \"ply\"");
    std::size_t lines = 1;
    while (take(nextLine(*file.rdbuf(), header.bytes), header)) {
        if (++lines > mostHeaderLines)
            throw ImportError("it is damaged: its header has no end");
    }
    return header;
}

// In a text each property takes a digit and a blank.
double leastBytesOf(PlyContent const& header)
{
    double bytes = 0.0;
    for (PlyElement const& element : header.elements) {
        double each = 0.0;
        for (PlyProperty const& property : element.properties)
            each += header.isText ? 2.0 : static_cast<double>(property.leastBytes);
        bytes += each * static_cast<double>(element.count);
    }
    return bytes - (header.isText ? 1.0 : 0.0);
}

PlyElement const& elementNamed(PlyContent const& header, std::string const& name)
{
    auto const found = std::find_if(header.elements.begin(), header.elements.end(),
                                    [&name](PlyElement const& element) { return element.name == name; });
    if (found == header.elements.end())
        throw ImportError("it has no element \"" + name + "\"");
    return *found;
}

void requireCoordinates(PlyElement const& vertices)
{
    for (char const* const axis : {"x", "y", "z"}) {
        bool const isThere = std::any_of(vertices.properties.begin(), vertices.properties.end(),
                                         [axis](PlyProperty const& property) { return property.name == axis; });
        if (!isThere)
            throw ImportError("its vertices have no " + std::string(axis));
    }
}

bool isRead(std::string const& element, std::string const& property)
{
    static std::map<std::string, std::set<std::string>> const known{
        {"vertex",
         {"x", "y", "z", "nx", "ny", "nz", "red", "green", "blue", "alpha", "diffuse_red", "diffuse_green",
          "diffuse_blue", "u", "v", "texture_u", "texture_v"}},
        {"face", {"vertex_indices", "vertex_index", "intensity", "red", "green", "blue", "alpha", "texcoord"}}};
    auto const found = known.find(element);
    return found != known.end() && found->second.count(property) != 0;
}

std::string remarkOn(PlyContent const& header)
{
    std::string names;
    std::size_t count = 0;
    for (PlyElement const& element : header.elements) {
        for (PlyProperty const& property : element.properties) {
            if (isRead(element.name, property.name))
                continue;
            if (++count <= mostPropertiesNamed)
                names += (names.empty() ? "\"" : ", \"") + shortened(asUtf8(property.name), 100) + "\" of " +
                         shortened(asUtf8(element.name), 100);
        }
    }
    if (count == 0)
        return {};
    return "left out, since colours, normals, texture coordinates and intensities alone are read: " + names +
           (count > mostPropertiesNamed ? " and others" : "");
}

} // namespace

std::string checkPly(std::string const& path)
{
    PlyContent const header = headerOf(path);
    requireCoordinates(elementNamed(header, "vertex"));
    auto const left = static_cast<double>(std::filesystem::file_size(path) - header.bytes);
    if (leastBytesOf(header) > left)
        throw ImportError("it is incomplete: it has no room for all that its header promises");
    return remarkOn(header);
}

} // namespace veldraw::app
