#include "kernel/data/AuxiliaryData.h"

#include "kernel/base/Text.h"

#include <algorithm>

namespace veldraw::kernel {

namespace {

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isNamePart(char c)
{
    return isLetter(c) || (c >= '0' && c <= '9') || c == '_' || c == '.';
}

} // namespace

bool AuxiliaryData::isName(std::string const& text)
{
    return !text.empty() && isLetter(text.front()) && std::all_of(text.begin(), text.end(), isNamePart);
}

AuxiliaryData::Item const& AuxiliaryData::item(int number) const
{
    static Item const none;
    return number < 1 || number > size() ? none : m_items[static_cast<std::size_t>(number - 1)];
}

int AuxiliaryData::indexOf(std::string const& name) const
{
    auto const found = std::find_if(m_items.begin(), m_items.end(), [&](Item const& candidate) {
        return compareIgnoringCase(candidate.name, name) == 0;
    });
    return found == m_items.end() ? 0 : static_cast<int>(found - m_items.begin()) + 1;
}

bool AuxiliaryData::set(std::string const& name, std::string const& value, bool retain)
{
    if (!isName(name) || !isValue(value)) {
        return false;
    }
    Item changed{name, value, retain};
    if (int const number = indexOf(name); number != 0) {
        std::swap(m_items[static_cast<std::size_t>(number - 1)], changed);
        return true;
    }
    auto const place = std::find_if(m_items.begin(), m_items.end(), [&](Item const& candidate) {
        return compareIgnoringCase(candidate.name, name) > 0;
    });
    m_items.insert(place, std::move(changed));
    return true;
}

bool AuxiliaryData::remove(std::string const& name)
{
    int const number = indexOf(name);
    if (number == 0) {
        return false;
    }
    m_items.erase(m_items.begin() + (number - 1));
    return true;
}

} // namespace veldraw::kernel
