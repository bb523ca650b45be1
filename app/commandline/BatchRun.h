#pragma once

#include "app/commandline/BatchFiles.h"
#include "app/commandline/CommandLineOptions.h"
#include "app/commands/CommandList.h"
#include "kernel/session/Session.h"
#include "operations/CommandRunner.h"

#include <QTextStream>

namespace veldraw::app {

/// Does what the command line asks for, without a window to look at: opens, deletes, runs commands, prints, saves, takes pictures.
/// Each step does the same as its counterpart in the menus. Files that cannot be opened are told and left out; any other
/// failure ends the run, that of a command only without --keep-going.
class BatchRun
{
public:
    /// @param out gets the report of --info, @param err what went wrong, "veldraw: " first
    BatchRun(kernel::Session& session, QTextStream& out, QTextStream& err, CommandLineOptions const& options);

    /// @param commands in their order; they are run after variables have been deleted
    /// @return 0; 1 when something failed; 2 when a command is wrong by itself, and nothing was done
    int run(std::vector<PlacedCommand> const& commands);

private:
    bool doAll(std::vector<PlacedCommand> const& commands);
    bool areWellFormed(std::vector<PlacedCommand> const& commands);
    bool dryRun(std::vector<PlacedCommand> const& commands);
    bool runCommands(std::vector<PlacedCommand> const& commands);
    bool runCommand(PlacedCommand const& command);
    bool openFiles();
    bool deleteVariables();
    bool printInfo();
    bool fail(QString const& reason);

    /// Calls a function. @return whether it threw nothing; otherwise the reason is told
    template <typename Work>
    bool succeeds(Work const& work);

    kernel::Session& m_session;
    QTextStream& m_out;
    QTextStream& m_err;
    CommandLineOptions const& m_options;
    BatchFiles m_files;
    operations::Registry m_operations;
    operations::CommandRunner m_runner;
    QStringList m_opened;
};

} // namespace veldraw::app
