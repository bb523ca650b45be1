#pragma once

#include <QString>

#include <string>
#include <vector>

class QWidget;

namespace veldraw::app {

/// Asks whether files are to be read that another file names outside of its folder.
/// @param window  parent of the question
/// @param path    of the file that names them
/// @param outside where the names lead
bool mayFollow(QWidget& window, QString const& path, std::vector<std::string> const& outside);

} // namespace veldraw::app
