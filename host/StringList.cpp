#include "platform/vdtoolbox/StringList.h"

#include <cstdarg>

namespace veldraw::toolbox {

StringList::StringList() = default;

StringList::StringList(char const* first, ...)
{
    std::va_list rest;
    va_start(rest, first);
    for (char const* text = first; text; text = va_arg(rest, char const*))
        m_strings.emplace_back(text);
    va_end(rest);
}

StringList::StringList(StringList const& other) = default;

StringList& StringList::operator=(StringList const& other) = default;

StringList::~StringList() = default;

void StringList::append(StringList const& other)
{
    std::vector<std::string> const added = other.m_strings; // the other may be this one
    m_strings.insert(m_strings.end(), added.begin(), added.end());
}

void StringList::append(std::string const& text)
{
    m_strings.push_back(text);
}

int StringList::size() const
{
    return static_cast<int>(m_strings.size());
}

std::string const& StringList::operator[](int zeroBased) const
{
    return m_strings.at(static_cast<std::size_t>(zeroBased));
}

} // namespace veldraw::toolbox
