#include "app/import/xml/XmlArrayPrefix.h"

#include <cctype>
#include <fstream>

namespace veldraw::app {

namespace {

constexpr std::size_t longestPrefix = 3 * 8;

using Bytes = std::array<unsigned char, longestPrefix>;

// The value of a base64 letter, -1 for others. As VTK does it, padding counts as 0 wherever it stands.
int sextet(int letter)
{
    if (letter == '=')
        return 0;
    static std::string const letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::size_t const found = letter < 0 ? std::string::npos : letters.find(static_cast<char>(letter));
    return found == std::string::npos ? -1 : static_cast<int>(found);
}

Bytes decoded(std::ifstream& file, std::size_t count)
{
    Bytes bytes{};
    int letter = file.get();
    while (std::isspace(letter) != 0)
        letter = file.get();
    unsigned int bits = 0;
    for (std::size_t letters = 1, n = 0; n < count; ++letters, letter = file.get()) {
        int const value = sextet(letter);
        if (value < 0)
            break;
        bits = (bits << 6U) + static_cast<unsigned int>(value);
        if (letters % 4 != 0)
            continue;
        for (unsigned int const shift : {16U, 8U, 0U})
            bytes[n++] = static_cast<unsigned char>(bits >> shift);
    }
    return bytes;
}

} // namespace

XmlArrayPrefix XmlArrayPrefix::read(std::string const& path, std::int64_t position, Format const& format)
{
    std::ifstream file(path, std::ios::binary);
    file.seekg(position);
    auto const size = static_cast<std::size_t>(format.bytesOfNumber);
    Bytes bytes{};
    if (format.isBase64)
        bytes = decoded(file, 3 * size);
    else
        file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(3 * size));
    XmlArrayPrefix prefix;
    for (std::size_t number = 0; number < 3; ++number) {
        for (std::size_t n = 0; n < size; ++n)
            prefix.numbers[number] =
                256.0 * prefix.numbers[number] + bytes[number * size + (format.isBigEndian ? n : size - 1 - n)];
    }
    return prefix;
}

} // namespace veldraw::app
