#pragma once

#include "app/files/PictureOptions.h"

#include <QByteArray>
#include <QImage>
#include <QPainter>
#include <QStringList>

#include <functional>

namespace veldraw::app {

class PageView;

/// A picture of the page, which is made when it is asked for.
struct PagePicture
{
    QSize size; ///< logical pixels
    /// A null image where there is no memory for it.
    std::function<QImage()> pixels = [] { return QImage(); };
    /// Paints it with lines and letters. The painter counts in logical pixels from the picture's top left corner.
    std::function<void(QPainter&)> paint = [](QPainter&) {};
};

/// @param page must outlive the picture
PagePicture pictureOf(PageView& page, PictureOptions const& options);

/// Filters for a file dialog: the formats of pictures.
QStringList pictureFilters();

/// A picture as it stands in a file. @param extension of one of the formats @throws ExportError with the reason
QByteArray encoded(PagePicture const& picture, QString const& extension);

/// A picture as it stands in a file. @param extension of the format, "png" @throws ExportError with the reason
QByteArray encoded(QImage const& picture, QString const& extension);

/// Writes what a file is to have. A file that is there stays as it is until the new one is complete; remarks go to the message log.
/// @throws ExportError with the reason
void writeFile(QByteArray const& content, QString const& path);

/// Writes a picture in the format that the extension of @p path names. A file that is there stays as it is until the new one
/// is complete. @return why that was not possible; empty when it was
QString writePicture(PagePicture const& picture, QString const& path);
QString writePicture(QImage const& picture, QString const& path);

} // namespace veldraw::app
