#include "app/handover/Utf8.h"

#include <algorithm>

namespace veldraw::app {

namespace {

// Bytes that follow the first one of a character; -1 where none starts with it.
int bytesAfter(unsigned char first)
{
    if (first < 0x80)
        return 0;
    if (first >= 0xc2 && first < 0xe0)
        return 1;
    if (first >= 0xe0 && first < 0xf0)
        return 2;
    return first >= 0xf0 && first < 0xf5 ? 3 : -1;
}

bool isAllowedSecond(unsigned char first, unsigned char second)
{
    switch (first) {
    case 0xe0:
        return second >= 0xa0;
    case 0xed:
        return second < 0xa0;
    case 0xf0:
        return second >= 0x90;
    case 0xf4:
        return second < 0x90;
    default:
        return true;
    }
}

} // namespace

bool isUtf8(std::string_view text)
{
    for (std::size_t at = 0; at < text.size();) {
        auto const first = static_cast<unsigned char>(text[at++]);
        int const more = bytesAfter(first);
        if (more < 0 || text.size() - at < static_cast<std::size_t>(more))
            return false;
        if (more > 0 && !isAllowedSecond(first, static_cast<unsigned char>(text[at])))
            return false;
        for (int n = 0; n < more; ++n) {
            if ((static_cast<unsigned char>(text[at++]) & 0xc0U) != 0x80U)
                return false;
        }
    }
    return true;
}

std::string madeUtf8(std::string const& text)
{
    if (isUtf8(text))
        return text;
    std::string result;
    for (char const c : text) {
        auto const byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            result += c;
            continue;
        }
        result += static_cast<char>(0xc0U | (byte >> 6U));
        result += static_cast<char>(0x80U | (byte & 0x3fU));
    }
    return result;
}

std::string madeUtf8(std::string const& text, std::size_t mostBytes)
{
    std::string const whole = madeUtf8(text);
    std::size_t end = std::min(whole.size(), mostBytes);
    while (end > 0 && end < whole.size() && (static_cast<unsigned char>(whole[end]) & 0xc0U) == 0x80U)
        --end; // within a character
    return whole.substr(0, end);
}

} // namespace veldraw::app
