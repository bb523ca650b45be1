#include "app/window/PictureFile.h"

#include "app/export/writing/ExportError.h"
#include "app/export/writing/FileSave.h"
#include "app/export/writing/OutputFile.h"
#include "host/MessageLog.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageWriter>

namespace veldraw::app {

void writeFile(QByteArray const& content, QString const& path)
{
    FileSave save(path.toStdString());
    OutputFile file(save.path());
    file.write(content.constData(), static_cast<std::size_t>(content.size()));
    file.close();
    kernel::Progress unwatched;
    std::vector<std::string> remarks;
    save.commit(unwatched, remarks);
    for (std::string const& remark : remarks)
        host::MessageLog::instance().add(MessageBoxType_Warning, remark);
}

QByteArray encoded(QImage const& picture, QString const& extension)
{
    QBuffer content;
    content.open(QIODevice::WriteOnly);
    QImageWriter writer(&content, extension.toLatin1());
    if (!writer.write(picture))
        throw ExportError(writer.errorString().toStdString());
    return content.data();
}

QString writePicture(QImage const& picture, QString const& path)
{
    try {
        writeFile(encoded(picture, QFileInfo(path).suffix()), path);
    } catch (ExportError const& error) {
        return QString::fromStdString(error.what());
    }
    return {};
}

} // namespace veldraw::app
