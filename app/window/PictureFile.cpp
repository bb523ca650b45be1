#include "app/window/PictureFile.h"

#include "app/export/writing/AtomicFiles.h"
#include "app/export/writing/ExportError.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageWriter>

namespace veldraw::app {

namespace {

void write(QByteArray const& content, QString const& path)
{
    AtomicFiles files;
    QFile file(QString::fromStdString(files.add(path.toStdString())));
    if (!file.open(QIODevice::WriteOnly))
        throw ExportError(file.errorString().toStdString());
    if (file.write(content) != content.size() || !file.flush())
        throw ExportError("the disk may be full"); // Qt does not know why a part was written
    file.close();
    kernel::Progress unwatched;
    files.commit(unwatched);
}

} // namespace

QString writePicture(QImage const& picture, QString const& path)
{
    QBuffer content;
    content.open(QIODevice::WriteOnly);
    QImageWriter writer(&content, QFileInfo(path).suffix().toLatin1());
    if (!writer.write(picture))
        return writer.errorString();
    try {
        write(content.data(), path);
    } catch (ExportError const& error) {
        return QString::fromStdString(error.what());
    }
    return {};
}

} // namespace veldraw::app
