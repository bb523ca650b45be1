#include "app/files/PlainText.h"

#include "app/handover/Utf8.h"

#include <sstream>

namespace veldraw::app {

std::string asUtf8(std::string const& text)
{
    return madeUtf8(text);
}

std::string shortened(std::string const& text, std::size_t mostBytes)
{
    if (text.size() <= mostBytes)
        return text;
    std::size_t end = mostBytes;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xc0U) == 0x80U)
        --end; // within a character
    return text.substr(0, end) + "...";
}

std::string trimmed(std::string const& text)
{
    char const* const blanks = " \t\r\n";
    std::size_t const first = text.find_first_not_of(blanks);
    return first == std::string::npos ? std::string() : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::vector<std::string> wordsOf(std::string const& text)
{
    std::vector<std::string> words;
    std::istringstream stream(text);
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

} // namespace veldraw::app
