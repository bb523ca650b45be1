#pragma once

#include <QImage>
#include <QString>

namespace veldraw::app {

/// Writes a picture in the format that the extension of @p path names. A file that is there stays as it is until the new one
/// is complete. @return why that was not possible; empty when it was
QString writePicture(QImage const& picture, QString const& path);

} // namespace veldraw::app
