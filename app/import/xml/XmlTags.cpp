#include "app/import/xml/XmlTags.h"

#include "app/files/ImportError.h"
#include "app/files/PathChecks.h"
#include "app/import/xml/XmlText.h"

#include <cstdlib>
#include <limits>

namespace veldraw::app {

namespace {

constexpr std::size_t longestTag = 1 << 24;      // thousands of components may be named in one
constexpr std::size_t longestAppendedTag = 4096; // the time to read it grows with the square of its length
constexpr std::string_view appendedData = "<AppendedData";

bool isSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f';
}

XmlTags::Tag parsed(std::string const& text)
{
    XmlTags::Tag tag;
    std::size_t at = 0;
    while (at < text.size() && !isSpace(text[at]))
        tag.name += text[at++];
    while (at < text.size()) {
        std::string name;
        for (; at < text.size() && text[at] != '='; ++at) {
            if (!isSpace(text[at]))
                name += text[at];
        }
        std::size_t const open = text.find_first_of("\"'", at);
        std::size_t const close = open == std::string::npos ? open : text.find(text[open], open + 1);
        if (close == std::string::npos)
            break;
        tag.attributes.emplace(name, xmlUnescaped(text.substr(open + 1, close - open - 1)));
        at = close + 1;
    }
    if (!tag.name.empty() && tag.name.back() == '/')
        tag.name.pop_back();
    tag.isEmpty = text.back() == '/';
    return tag;
}

bool endsWith(std::string_view text, std::string_view end)
{
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

// VTK's reader takes this for the start of the values wherever it stands.
void requireNoValues(std::string_view text)
{
    if (text.find(appendedData) != std::string_view::npos)
        throw ImportError("\"<AppendedData\" stands in quotes or in a comment of it, which is not supported");
}

// What ends a piece of markup that is no tag, by its first letters; null as long as it may be one.
char const* endOfMarkup(std::string const& start)
{
    if (start == "?")
        return "?>";
    if (start == "!--")
        return "-->";
    return start == "![CDATA[" ? "]]>" : nullptr;
}

[[noreturn]] void refuseLongerThan(std::size_t longest)
{
    throw ImportError("a tag of it is longer than " + std::to_string(longest) + " bytes, which is not supported");
}

} // namespace

double XmlTags::Tag::number(std::string const& attribute, double otherwise) const
{
    auto const found = attributes.find(attribute);
    if (found == attributes.end())
        return otherwise;
    char* end = nullptr;
    double const value = std::strtod(found->second.c_str(), &end);
    return end == found->second.c_str() ? otherwise : value;
}

double XmlTags::Tag::count(std::string const& attribute, double otherwise) const
{
    auto const found = attributes.find(attribute);
    if (found == attributes.end())
        return otherwise;
    bool const isWhole = found->second.find_first_not_of("0123456789-+ \t\r\n") == std::string::npos;
    return isWhole ? number(attribute, std::numeric_limits<double>::quiet_NaN())
                   : std::numeric_limits<double>::quiet_NaN();
}

std::string XmlTags::Tag::text(std::string const& attribute) const
{
    auto const found = attributes.find(attribute);
    return found == attributes.end() ? std::string() : found->second;
}

XmlTags::XmlTags(std::string const& path, kernel::Progress const& progress)
    : m_progress(progress)
    , m_file(openToRead(path))
{
}

bool XmlTags::next(Tag& tag)
{
    std::string text;
    while (!m_atAppendedData && skipTo('<')) {
        if (!readMarkup(text))
            return false;
        if (text.compare(0, 8, "!DOCTYPE") == 0 && text.find('[') != std::string::npos)
            throw ImportError("it declares entities of its own, which are not supported");
        requireNoValues(text);
        if (text.empty() || text[0] == '?' || text[0] == '!')
            continue;
        tag = parsed(text);
        m_atAppendedData = tag.name == "AppendedData";
        if (m_atAppendedData && text.size() > longestAppendedTag)
            refuseLongerThan(longestAppendedTag);
        return true;
    }
    return false;
}

std::int64_t XmlTags::startOfAppendedData()
{
    int c = get();
    while (isSpace(static_cast<char>(c)))
        c = get();
    return c == '_' ? m_position : m_position - 1;
}

bool XmlTags::skipTo(char wanted)
{
    int c = get();
    while (c != std::char_traits<char>::eof() && c != wanted)
        c = get();
    return c == wanted;
}

bool XmlTags::skipPast(std::string_view wanted)
{
    std::string last;
    while (!endsWith(last, wanted)) {
        int const c = get();
        if (c == std::char_traits<char>::eof())
            return false;
        if (last.size() == appendedData.size())
            last.erase(0, 1);
        last += static_cast<char>(c);
        requireNoValues(last);
    }
    return true;
}

// Reads what stands between angle brackets, the first one being read. A bracket in quotes is part of the text; what is in a
// comment or the like is skipped.
bool XmlTags::readMarkup(std::string& text)
{
    text.clear();
    char quote = '\0';
    while (text.size() < longestTag) {
        int const next = get();
        if (next == std::char_traits<char>::eof())
            return false;
        char const c = static_cast<char>(next);
        if (quote == '\0' && c == '>')
            return true;
        if (quote == '\0' && (c == '"' || c == '\''))
            quote = c;
        else if (c == quote)
            quote = '\0';
        text += c;
        if (char const* const end = endOfMarkup(text))
            return skipPast(end);
    }
    refuseLongerThan(longestTag);
}

int XmlTags::get()
{
    if (++m_position % bytesBetweenChecks == 0)
        m_progress.check();
    return m_file.rdbuf()->sbumpc();
}

} // namespace veldraw::app
