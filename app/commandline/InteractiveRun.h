#pragma once

#include <QStringList>

class QApplication;

namespace veldraw::app {

/// Shows the main window with @p files open, each in a frame of its own, and runs until it is closed. @return exit status
int runInteractively(QApplication& application, QStringList const& files);

} // namespace veldraw::app
