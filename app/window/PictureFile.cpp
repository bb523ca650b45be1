#include "app/window/PictureFile.h"

#include "app/export/writing/ExportError.h"
#include "app/export/writing/FileSave.h"
#include "app/export/writing/OutputFile.h"
#include "host/MessageLog.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageWriter>

namespace veldraw::app {

namespace {

void write(QByteArray const& content, QString const& path)
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
