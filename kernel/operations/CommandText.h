#pragma once

#include "kernel/base/NumberSet.h"

#include <array>
#include <string>

namespace veldraw::kernel {

/// An operation as a command writes it, by which it can be repeated: its name, then name=value for each parameter. Empty for an
/// operation that no command stands for.
///
///     CommandText("mirror-zones").numbers("zones", {1, 2, 3}).word("plane", "X").text(); // mirror-zones zones=1:3 plane=X
class CommandText
{
public:
    CommandText() = default;
    explicit CommandText(std::string name)
        : m_text(std::move(name))
    {
    }

    CommandText& numbers(char const* parameter, NumberSet const& numbers);
    CommandText& number(char const* parameter, long long number);
    CommandText& real(char const* parameter,
                      double number); ///< in as many digits as it takes to read the same number back
    CommandText& reals(char const* parameter, std::array<double, 3> const& numbers);
    CommandText& flag(char const* parameter, bool isOn);
    CommandText& word(char const* parameter, std::string const& word);
    CommandText& quoted(char const* parameter, std::string const& text); ///< any text

    bool isEmpty() const { return m_text.empty(); }
    std::string const& text() const { return m_text; }

private:
    std::string m_text;
};

/// Numbers as commands write them, as short as it can be: 1:3,7.
std::string listText(NumberSet const& numbers);

/// A text as a value of a command: in quotes if it needs them.
std::string quotedWhereNeeded(std::string const& text);

} // namespace veldraw::kernel
