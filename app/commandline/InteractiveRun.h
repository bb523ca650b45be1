#pragma once

#include "app/commandline/CommandLineOptions.h"

class QApplication;

namespace veldraw::app {

/// Shows the main window with the files of the command line open, each in a frame of its own, and runs until it is closed.
/// @param options what they say on opening holds for all files that are opened in this run
/// @return exit status
int runInteractively(QApplication& application, CommandLineOptions const& options);

} // namespace veldraw::app
