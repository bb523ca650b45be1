#include "app/files/CommentValue.h"

#include <array>
#include <utility>

namespace veldraw::app {

namespace {

constexpr std::array<std::pair<char, char>, 5> escapes{
    {{'\n', 'n'}, {'\r', 'r'}, {'\t', 't'}, {'"', '"'}, {'\\', '\\'}}};

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

bool needsQuotes(std::string const& text)
{
    return !text.empty() && (isBlank(text.front()) || isBlank(text.back()) || text.front() == '"' ||
                             text.find_first_of("\n\r") != std::string::npos);
}

char meaningOfEscape(char escape)
{
    for (auto const& [meaning, letter] : escapes) {
        if (letter == escape)
            return meaning;
    }
    return escape;
}

} // namespace

std::string commentValue(std::string const& text)
{
    if (!needsQuotes(text))
        return text;
    std::string value = "\"";
    for (char const c : text) {
        bool isEscaped = false;
        for (auto const& [meaning, letter] : escapes) {
            if (c == meaning) {
                value += {'\\', letter};
                isEscaped = true;
            }
        }
        if (!isEscaped)
            value += c;
    }
    return value + '"';
}

std::string textOfCommentValue(std::string const& value)
{
    if (value.size() < 2 || value.front() != '"' || value.back() != '"')
        return value;
    std::string text;
    for (std::size_t at = 1; at + 1 < value.size(); ++at) {
        bool const isEscape = value[at] == '\\' && at + 2 < value.size();
        text += isEscape ? meaningOfEscape(value[++at]) : value[at];
    }
    return commentValue(text) == value ? text : value; // else somebody else's quotes
}

} // namespace veldraw::app
