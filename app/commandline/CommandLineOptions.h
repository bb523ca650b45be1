#pragma once

#include "app/commands/CommandList.h"
#include "app/files/NamedFiles.h"
#include "app/import/reading/Deferral.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <vector>

namespace veldraw::kernel {
class Session;
}

namespace veldraw::app {

/// How much memory a session may hold for what it could do without, in bytes. What is not given stays as the session has it.
struct MemoryLimits
{
    std::optional<std::int64_t> undo;   ///< for the steps that can be taken back
    std::optional<std::int64_t> values; ///< for loaded values that a file has as well

    void applyTo(kernel::Session& session) const;
};

/// What the command line asks for.
struct CommandLineOptions
{
    QStringList files;
    QStringList variablesToDelete; ///< names, in the order given
    QString exportFile;            ///< empty: no export
    QString pictureFile;           ///< empty: no picture
    Deferral deferral = Deferral::Auto;
    MemoryLimits memory;
    OutsidePaths outsidePaths = OutsidePaths::Refuse; ///< refused, or asked about where there is a window
    bool overwrite = false;                           ///< more than the file to export may be replaced
    std::vector<CommandSource> commandSources;        ///< in the order of the command line
    std::optional<int> threads;                       ///< for computations; otherwise as many as there are processors
    bool keepGoing = false;                           ///< after a command that fails
    bool dryRun = false;                              ///< commands are checked, and nothing is done
    bool quiet = false;                               ///< nothing but failures is told
    bool verbose = false;                             ///< what came of each command is told
    bool listOperations = false;
    QString completion; ///< name of a shell whose completion is asked for; empty for none
    bool info = false;
    bool help = false; ///< on the program, or on the operation that stands in the place of a file
    bool version = false;
    QString error; ///< why the command line is wrong; empty: it is right

    /// True when the program does its job without the window and ends.
    bool isBatch() const
    {
        return info || help || version || listOperations || dryRun || !completion.isEmpty() ||
               !commandSources.empty() || !variablesToDelete.isEmpty() || !exportFile.isEmpty() ||
               !pictureFile.isEmpty();
    }

    /// @param arguments as given to the program, its own name first
    static CommandLineOptions parse(QStringList const& arguments);

    /// The text of --help.
    static QString helpText();
};

} // namespace veldraw::app
