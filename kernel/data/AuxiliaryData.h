#pragma once

#include <string>
#include <vector>

namespace veldraw::kernel {

/// Named texts that stay with their owner: a zone, a variable, a data set, a frame, a line map, a page or the layout.
class AuxiliaryData
{
public:
    struct Item
    {
        std::string name;
        std::string value;
        bool retain = true; ///< written when the owner is saved
    };

    int size() const { return static_cast<int>(m_items.size()); }

    /// @param number one-based, in order of names without regard to case
    Item const& item(int number) const;

    /// One-based number of the item called @p name (case ignored), 0 if there is none.
    int indexOf(std::string const& name) const;

    /// Whether @p text can be a name: a letter, followed by letters, digits, _ or .
    static bool isName(std::string const& text);

    /// Whether @p text can be a value: anything without zero bytes, which the C functions and files take for its end.
    static bool isValue(std::string const& text) { return text.find('\0') == std::string::npos; }

    /// Adds the item or alters its value. @return false for a text that cannot be a name, or a value
    bool set(std::string const& name, std::string const& value, bool retain);

    /// @return false when there is no such item
    bool remove(std::string const& name);

private:
    std::vector<Item> m_items;
};

} // namespace veldraw::kernel
