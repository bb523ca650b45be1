#pragma once

#include "app/commandline/CommandLineOptions.h"
#include "app/export/Exporter.h"
#include "kernel/session/Session.h"

#include <QTextStream>

namespace veldraw::app {

/// Does what the command line asks for, without a window to look at: opens, deletes, prints, saves, takes pictures.
/// Each step does the same as its counterpart in the menus. Files that cannot be opened are told and left out; any other
/// failure ends the run.
class BatchRun
{
public:
    /// @param out gets the report of --info, @param err what went wrong, "veldraw: " first
    BatchRun(kernel::Session& session, QTextStream& out, QTextStream& err);

    /// @return 0, or 1 when something failed
    int run(CommandLineOptions const& options);

private:
    QStringList openFiles(CommandLineOptions const& options);
    bool deleteVariables(QStringList const& names);
    bool printInfo(QStringList const& files);
    bool exportTo(QString const& file, Replacing replacing);
    bool savePicture(QString const& file);
    bool filesAreWhole();
    bool fail(QString const& reason);

    kernel::Session& m_session;
    QTextStream& m_out;
    QTextStream& m_err;
    bool m_areAllOpen = false; // of the files that were named
};

} // namespace veldraw::app
