#pragma once

#include "app/import/reading/Deferral.h"

#include <QStringList>

class QApplication;

namespace veldraw::app {

/// Shows the main window with @p files open, each in a frame of its own, and runs until it is closed.
/// @param deferral for all files that are opened in this run
/// @return exit status
int runInteractively(QApplication& application, QStringList const& files, Deferral deferral);

} // namespace veldraw::app
