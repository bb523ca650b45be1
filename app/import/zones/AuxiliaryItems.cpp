#include "app/import/zones/AuxiliaryItems.h"

#include "app/files/PlainText.h"

namespace veldraw::app {

namespace {

constexpr std::size_t mostItemsTold = 5;
constexpr std::size_t longestItemName = 256; // of an item
constexpr std::size_t longestTold = 40;

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isWithinCharacter(char c)
{
    return (static_cast<unsigned char>(c) & 0xc0U) == 0x80U;
}

} // namespace

std::string auxiliaryName(std::string const& text)
{
    std::string name;
    for (char const c : text) {
        bool const isAllowed = isLetter(c) || (c >= '0' && c <= '9') || c == '_' || c == '.';
        if (isAllowed)
            name += c;
        else if (!isWithinCharacter(c))
            name += '_'; // one for each character
        if (name.size() == longestItemName)
            break;
    }
    return !name.empty() && isLetter(name.front()) ? name : "Item_" + name;
}

void addMissing(kernel::AuxiliaryData& data, kernel::AuxiliaryData const& more)
{
    for (int n = 1; n <= more.size(); ++n) {
        kernel::AuxiliaryData::Item const& item = more.item(n);
        if (data.indexOf(item.name) == 0)
            data.set(item.name, item.value, item.retain);
    }
}

void AuxiliaryItems::add(std::string const& name, std::string const& value)
{
    bool const isTooLong = value.size() > mostBytes;
    if (isTooLong || value.find('\0') != std::string::npos) {
        ++m_unusable;
        if (m_remarks.size() < mostItemsTold)
            m_remarks.push_back("auxiliary data \"" + shortened(asUtf8(name), longestTold) +
                                "\" was left out: it has " +
                                (isTooLong ? "more than " + std::to_string(mostBytes) + " bytes" : "zero bytes"));
        return;
    }
    if (m_data.size() == mostItems) {
        ++m_excess;
        return;
    }
    m_data.set(freeName(auxiliaryName(asUtf8(name))), asUtf8(value), true);
}

std::string AuxiliaryItems::freeName(std::string const& wanted)
{
    int& last = m_lastNumbers.try_emplace(wanted, 1).first->second;
    std::string name = wanted;
    while (m_data.indexOf(name) != 0)
        name = wanted + "_" + std::to_string(++last);
    return name;
}

std::vector<std::string> AuxiliaryItems::remarks() const
{
    std::vector<std::string> all = m_remarks;
    std::int64_t const untold = m_unusable - static_cast<std::int64_t>(m_remarks.size());
    if (untold > 0)
        all.push_back("so were " + std::to_string(untold) + " further items of auxiliary data");
    if (m_excess > 0)
        all.push_back(std::to_string(m_excess) + " items of auxiliary data were left out: at most " +
                      std::to_string(mostItems) + " are kept");
    return all;
}

} // namespace veldraw::app
