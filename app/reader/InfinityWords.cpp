#include "app/reader/InfinityWords.h"

#include <algorithm>
#include <string_view>

namespace veldraw::app {

namespace {

constexpr std::string_view appendedData = "<AppendedData";
constexpr std::string_view longWord = "Infinity";
constexpr std::string_view shortWord = "inf     ";
static_assert(longWord.size() == shortWord.size(), "no byte changes its place");

bool endsWord(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '<';
}

bool startsWord(char c)
{
    return endsWord(c) || c == '>' || c == '-' || c == '+';
}

bool isInTag(std::string_view text, std::size_t at)
{
    std::size_t const last = text.find_last_of("<>", at);
    return last != std::string_view::npos && text[last] == '<';
}

} // namespace

void InfinityWords::shorten(char* bytes, std::size_t size, std::int64_t position)
{
    lookForAppendedData(bytes, size, position);
    if (position >= m_end)
        return;
    auto const text = static_cast<std::size_t>(std::min(static_cast<std::int64_t>(size), m_end - position));
    std::string_view const whole(bytes, text);
    for (std::size_t at = whole.find(longWord); at != std::string_view::npos; at = whole.find(longWord, at + 1)) {
        std::size_t const end = at + longWord.size();
        bool const isWord = (at == 0 || startsWord(whole[at - 1])) && (end == text || endsWord(whole[end]));
        if (isWord && !isInTag(whole, at))
            std::copy(shortWord.begin(), shortWord.end(), bytes + at);
    }
}

void InfinityWords::lookForAppendedData(char const* bytes, std::size_t size, std::int64_t position)
{
    if (position != m_next)
        return;
    std::string const seam = m_last + std::string(bytes, std::min(size, appendedData.size()));
    std::size_t const inSeam = seam.find(appendedData);
    std::size_t const inBytes = std::string_view(bytes, size).find(appendedData);
    if (inSeam != std::string::npos)
        m_end = std::min(m_end, position - static_cast<std::int64_t>(m_last.size() - inSeam));
    else if (inBytes != std::string_view::npos)
        m_end = std::min(m_end, position + static_cast<std::int64_t>(inBytes));
    m_last.append(bytes, size);
    m_last.erase(0, m_last.size() - std::min(m_last.size(), appendedData.size()));
    m_next = position + static_cast<std::int64_t>(size);
}

} // namespace veldraw::app
