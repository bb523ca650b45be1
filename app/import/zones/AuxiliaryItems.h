#pragma once

#include "kernel/data/AuxiliaryData.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace veldraw::app {

/// Makes auxiliary data of named texts as a file has them.
///
/// A name becomes one that auxiliary data can have: what is no letter, digit, "_" or "." becomes "_", one that starts with no letter gets
/// "Item_" in front, and "_2" and so on is appended where the name is taken. Values are kept to the letter, as UTF-8. A file may be damaged,
/// or have anything at all there: values that are too long, that have zero bytes, and items beyond a number are left out.
class AuxiliaryItems
{
public:
    static constexpr int mostItems = 1000;
    static constexpr std::size_t mostBytes = 32768; ///< of a value

    void add(std::string const& name, std::string const& value);

    kernel::AuxiliaryData const& data() const { return m_data; }

    /// Sentences for the user on what was left out, a few however much that is.
    std::vector<std::string> remarks() const;

private:
    std::string freeName(std::string const& wanted);

    kernel::AuxiliaryData m_data;
    std::map<std::string, int> m_lastNumbers; // appended to a name
    std::vector<std::string> m_remarks;       // on the first few items
    std::int64_t m_unusable = 0;              // items, told or not
    std::int64_t m_excess = 0;                // items beyond the number
};

/// A name for auxiliary data that is as near to a text as it can be.
std::string auxiliaryName(std::string const& text);

/// The items of @p more besides those of @p data; where both have a name, the item of @p data stays.
void addMissing(kernel::AuxiliaryData& data, kernel::AuxiliaryData const& more);

} // namespace veldraw::app
