#pragma once

#include "platform/PlatformApi.h"

#include <string>
#include <vector>

namespace veldraw::toolbox {

/// A list of texts.
class VELDRAW_PLATFORM_API StringList
{
public:
    StringList();

    /// Texts up to a null pointer. Write the end as `(char const*)nullptr`: a plain 0 is an int and not as wide.
    StringList(char const* first, ...);

    StringList(StringList const& other);
    StringList& operator=(StringList const& other);
    virtual ~StringList();

    /// Appends the other list's texts; appending a list to itself doubles it.
    void append(StringList const& other);
    void append(std::string const& text);

    int size() const;

    /// @param zeroBased position
    /// @throws std::out_of_range
    std::string const& operator[](int zeroBased) const;

private:
    std::vector<std::string> m_strings;
};

} // namespace veldraw::toolbox
