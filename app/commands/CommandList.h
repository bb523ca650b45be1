#pragma once

#include "operations/Command.h"

#include <QString>

#include <stdexcept>
#include <vector>

namespace veldraw::app {

/// Where commands of the command line stand: in an argument, or in a script that it names.
struct CommandSource
{
    bool isScript = false;
    QString text; ///< the command itself, or the path of the script, - for standard input
};

/// A command, and what to call the text that it stands in.
struct PlacedCommand
{
    operations::Command command;
    QString source; ///< path of a script, or the option with the number of the argument
    bool isScript = false;
};

/// A place in the words of a message: "clean.vdo:3:14", "--do, column 14".
QString placeText(PlacedCommand const& command, operations::TextPlace place);

/// Why commands cannot be read. The text begins with the place.
class CommandListError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Reads commands in the order of their sources, and in the place of a "run" those of the script that it names. Paths are those of the
/// working folder.
/// @throws CommandListError for a script that cannot be read, is no text in UTF-8, has a line that is no command, or runs itself
std::vector<PlacedCommand> readCommands(std::vector<CommandSource> const& sources);

} // namespace veldraw::app
