#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

namespace veldraw::app {

/// A picture as it stands in a file. @param extension of the format, "png" @throws ExportError with the reason
QByteArray encoded(QImage const& picture, QString const& extension);

/// Writes what a file is to have. A file that is there stays as it is until the new one is complete; remarks go to the message log.
/// @throws ExportError with the reason
void writeFile(QByteArray const& content, QString const& path);

/// Writes a picture in the format that the extension of @p path names. A file that is there stays as it is until the new one
/// is complete. @return why that was not possible; empty when it was
QString writePicture(QImage const& picture, QString const& path);

} // namespace veldraw::app
