#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace veldraw::operations {

/// A place in a script or in an argument of the program. Both numbers are one-based; columns count characters, not bytes.
struct TextPlace
{
    int line = 1;
    int column = 1;
};

/// Why a command is wrong, and where.
class CommandError : public std::runtime_error
{
public:
    CommandError(std::string const& reason, TextPlace place)
        : std::runtime_error(reason)
        , m_place(place)
    {
    }

    TextPlace place() const { return m_place; }

private:
    TextPlace m_place;
};

/// One of the texts between the commas of a value.
struct ValuePart
{
    std::string text;
    bool isQuoted = false; ///< a name as it stands, whatever it looks like
    TextPlace place;
};

/// What a command says for a parameter: name=value.
struct CommandArgument
{
    std::string name;
    std::vector<ValuePart> parts; ///< at least one, which may be empty
    TextPlace place;

    /// The value as one text, with its commas.
    std::string text() const;
};

/// An operation as it is written: a name, then arguments. Nobody has checked yet whether there is such an operation.
///
///     mirror-zones zones=1:3,"Wing, left" plane=X   # a remark
struct Command
{
    std::string name;
    std::vector<CommandArgument> arguments;
    TextPlace place;

    /// The argument for a parameter; null when there is none.
    CommandArgument const* find(std::string const& parameter) const;
};

/// Reads a line. Words are separated by blanks; in double quotes blanks, commas and # stand for themselves, and \" \\ \n \r \t for a
/// quotation mark, a backslash, a line feed, a carriage return and a tabulator. kernel::CommandText writes such lines. # before a word starts a remark.
/// @param line UTF-8, without its end; @param number of the line, one-based
/// @return nothing for a line without a command
/// @throws CommandError
std::optional<Command> readCommand(std::string const& line, int number = 1);

} // namespace veldraw::operations
