#pragma once

#include <QString>

namespace veldraw::kernel {
class Session;
}

namespace veldraw::app {

class DocumentController;

/// What the main window is called: the name of the active frame's file, or of the frame itself if its data are in no file, with
/// the mark of changes; and the title of its data set, if that says more than the name of a file.
QString mainWindowTitle(kernel::Session const& session, DocumentController const& documents);

} // namespace veldraw::app
