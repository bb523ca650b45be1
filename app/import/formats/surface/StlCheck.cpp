#include "app/import/formats/surface/StlCheck.h"

#include "app/files/ImportError.h"
#include "app/files/PathChecks.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <filesystem>

namespace veldraw::app {

namespace {

constexpr std::uint64_t headerBytes = 84; // with the number of triangles
constexpr std::uint64_t triangleBytes = 50;
constexpr std::size_t startBytes = 512;
constexpr std::streamoff endBytes = 4096; // the name of a solid may follow its last word

std::string lowerCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

std::string startOf(std::ifstream& file)
{
    std::string start(startBytes, '\0');
    file.read(start.data(), static_cast<std::streamsize>(start.size()));
    start.resize(static_cast<std::size_t>(file.gcount()));
    file.clear();
    return start;
}

std::uint64_t triangleCountOf(std::string const& start)
{
    std::uint64_t count = 0;
    for (std::size_t n = 0; n < 4; ++n)
        count |= static_cast<std::uint64_t>(static_cast<unsigned char>(start[headerBytes - 4 + n])) << (8 * n);
    return count;
}

bool isText(std::string const& start)
{
    std::size_t const first = start.find_first_not_of(" \t\r\n");
    return first != std::string::npos && lowerCase(start.substr(first, 5)) == "solid" &&
           start.find('\0') == std::string::npos;
}

void checkEndOfText(std::ifstream& file, std::uint64_t size)
{
    auto const bytes = std::min(static_cast<std::streamoff>(size), endBytes);
    std::string end(static_cast<std::size_t>(bytes), '\0');
    file.seekg(-bytes, std::ios::end);
    file.read(end.data(), bytes);
    std::string const text = lowerCase(end);
    std::size_t const last = text.rfind("endsolid");
    if (last == std::string::npos || text.find("facet", last) != std::string::npos)
        throw ImportError("it is incomplete: its last solid has no end");
}

} // namespace

void checkStl(std::string const& path)
{
    std::uint64_t const size = std::filesystem::file_size(path);
    std::ifstream file = openToRead(path);
    std::string const start = startOf(file);
    bool const hasCount = start.size() >= headerBytes;
    if (hasCount && size == headerBytes + triangleBytes * triangleCountOf(start))
        return;
    if (isText(start)) {
        checkEndOfText(file, size);
        return;
    }
    if (!hasCount)
        throw ImportError("it is no STL file: that has the word \"solid\" first, or more bytes");
    if (size < headerBytes + triangleBytes * triangleCountOf(start))
        throw ImportError("it is incomplete, or no STL file: it has no room for the " +
                          std::to_string(triangleCountOf(start)) + " triangles that it promises");
}

} // namespace veldraw::app
