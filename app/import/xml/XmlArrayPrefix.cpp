#include "app/import/xml/XmlArrayPrefix.h"

#include "app/files/PathChecks.h"
#include "app/import/xml/Base64Text.h"

#include <algorithm>
#include <fstream>

namespace veldraw::app {

namespace {

constexpr std::size_t longestPrefix = 3 * 8;

using Bytes = std::array<unsigned char, longestPrefix>;

Bytes bytesAt(std::string const& path, std::int64_t position, std::size_t count)
{
    std::ifstream file = openToRead(path);
    file.seekg(position);
    Bytes bytes{};
    file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(count));
    return bytes;
}

// Numbers that are padded by themselves are followed by zeros here.
Bytes decoded(Base64Text text, std::size_t count)
{
    Bytes bytes{};
    Base64Text::Triplet triplet{};
    for (std::size_t n = 0; n < count && text.next(triplet) > 0; n += triplet.size())
        std::copy(triplet.begin(), triplet.end(), bytes.begin() + static_cast<std::ptrdiff_t>(n));
    return bytes;
}

} // namespace

XmlArrayPrefix XmlArrayPrefix::read(std::string const& path, std::int64_t position, Format const& format)
{
    auto const size = static_cast<std::size_t>(format.bytesOfNumber);
    Bytes const bytes =
        format.isBase64 ? decoded(Base64Text(path, position), 3 * size) : bytesAt(path, position, 3 * size);
    XmlArrayPrefix prefix;
    for (std::size_t number = 0; number < 3; ++number) {
        for (std::size_t n = 0; n < size; ++n)
            prefix.numbers[number] =
                256.0 * prefix.numbers[number] + bytes[number * size + (format.isBigEndian ? n : size - 1 - n)];
    }
    return prefix;
}

} // namespace veldraw::app
