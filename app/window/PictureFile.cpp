#include "app/window/PictureFile.h"

#include "app/export/writing/ExportError.h"
#include "app/export/writing/FileSave.h"
#include "app/export/writing/OutputFile.h"
#include "app/plot/PageView.h"
#include "host/MessageLog.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFileInfo>
#include <QImageWriter>
#include <QPageSize>
#include <QPdfWriter>

#include <new>

namespace veldraw::app {

namespace {

constexpr double scaleOnPaper = 3.0;    // of scenes; some 290 pixels an inch
constexpr double pointsOfAPixel = 0.75; // at 96 pixels an inch
constexpr int unitsPerInch = 1200;      // of the paper, so that thin lines stay thin

QByteArray inPdf(PagePicture const& picture)
{
    QBuffer content;
    content.open(QIODevice::WriteOnly);
    QPdfWriter writer(&content);
    writer.setCreator(QCoreApplication::applicationName());
    writer.setResolution(unitsPerInch);
    writer.setPageSize(QPageSize(QSizeF(picture.size) * pointsOfAPixel, QPageSize::Point, {}, QPageSize::ExactMatch));
    writer.setPageMargins({});
    QPainter painter(&writer);
    painter.setRenderHint(QPainter::LosslessImageRendering);
    painter.scale(writer.width() / static_cast<double>(picture.size.width()),
                  writer.height() / static_cast<double>(picture.size.height()));
    picture.paint(painter);
    if (!painter.end())
        throw ExportError("the document could not be made");
    return content.data();
}

bool isPictureFormat(QString const& extension)
{
    static QStringList const extensions{QStringLiteral("png"), QStringLiteral("jpg"), QStringLiteral("jpeg")};
    return extensions.contains(extension, Qt::CaseInsensitive);
}

QImage onWhite(QImage const& picture)
{
    QImage whole(picture.size(), QImage::Format_RGB32);
    whole.fill(Qt::white);
    QPainter(&whole).drawImage(0, 0, picture);
    return whole;
}

template <typename Picture>
QString writeEncoded(Picture const& picture, QString const& path)
{
    try {
        writeFile(encoded(picture, QFileInfo(path).suffix()), path);
    } catch (ExportError const& error) {
        return QString::fromStdString(error.what());
    } catch (std::bad_alloc const&) {
        return QStringLiteral("there is no memory for it");
    }
    return {};
}

} // namespace

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

PagePicture pictureOf(PageView& page, PictureOptions const& options)
{
    PagePicture picture;
    picture.size = options.size.isEmpty() ? page.size() : options.size;
    picture.pixels = [&page, options] { return page.takePicture(options); };
    picture.paint = [&page, options](QPainter& painter) {
        PictureOptions fine = options;
        if (fine.scale == 0.0)
            fine.scale = scaleOnPaper;
        page.paintPicture(painter, fine.problem().isEmpty() ? fine : options);
    };
    return picture;
}

QStringList pictureFilters()
{
    return {QStringLiteral("PNG picture (*.png)"), QStringLiteral("JPEG picture (*.jpg)"),
            QStringLiteral("PDF document (*.pdf)")};
}

QByteArray encoded(PagePicture const& picture, QString const& extension)
{
    if (extension.compare(QLatin1String("pdf"), Qt::CaseInsensitive) == 0)
        return inPdf(picture);
    QImage const pixels = picture.pixels();
    if (pixels.isNull())
        throw ExportError("there is no memory for it");
    return encoded(pixels, extension);
}

QByteArray encoded(QImage const& picture, QString const& extension)
{
    if (!isPictureFormat(extension))
        throw ExportError("pictures are .png, .jpg or .pdf");
    QBuffer content;
    content.open(QIODevice::WriteOnly);
    QImageWriter writer(&content, extension.toLatin1());
    bool const keepsTransparency = extension.compare(QLatin1String("png"), Qt::CaseInsensitive) == 0;
    if (!writer.write(keepsTransparency ? picture : onWhite(picture)))
        throw ExportError(writer.errorString().toStdString());
    return content.data();
}

QString writePicture(PagePicture const& picture, QString const& path)
{
    return writeEncoded(picture, path);
}

QString writePicture(QImage const& picture, QString const& path)
{
    return writeEncoded(picture, path);
}

} // namespace veldraw::app
