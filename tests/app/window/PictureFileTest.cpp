#include "app/window/PictureFile.h"

#include "app/window/PicturePrint.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"

#include <QFile>
#include <QPrinter>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

QByteArray contentOfFile(QString const& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

app::PagePicture clearWithABlueHalf()
{
    app::PagePicture picture;
    picture.size = {40, 30};
    picture.pixels = [] {
        QImage pixels(40, 30, QImage::Format_ARGB32_Premultiplied);
        pixels.fill(Qt::transparent);
        QPainter(&pixels).fillRect(0, 0, 20, 30, Qt::blue);
        return pixels;
    };
    picture.paint = [](QPainter& painter) {
        painter.fillRect(0, 0, 20, 30, Qt::blue);
        painter.drawText(10, 20, QStringLiteral("Druck"));
    };
    return picture;
}

/// Width and height of the sheet of a document, points.
QStringList sheetOf(QByteArray const& document)
{
    QRegularExpression const box(QStringLiteral("/MediaBox \\[0 0 ([0-9.]+) ([0-9.]+)\\]"));
    return box.match(QString::fromLatin1(document.constData(), document.size())).capturedTexts().mid(1);
}

} // namespace

TEST(PictureFile, APngKeepsWhatIsTransparentAndAJpegIsWhiteThere)
{
    QTemporaryDir const folder;
    for (char const* name : {"a.png", "a.jpg"})
        ASSERT_EQ("",
                  app::writePicture(clearWithABlueHalf(), folder.filePath(QString::fromLatin1(name))).toStdString());
    QImage const png(folder.filePath(QStringLiteral("a.png")));
    EXPECT_EQ(0, qAlpha(png.pixel(30, 10)));
    EXPECT_EQ(QColor(Qt::blue), png.pixelColor(10, 10));
    QImage const jpeg(folder.filePath(QStringLiteral("a.jpg")));
    EXPECT_LT(240, qGreen(jpeg.pixel(35, 15)));
}

TEST(PictureFile, APdfHasTheSizeOfThePictureAndLettersInsteadOfPixels)
{
    QTemporaryDir const folder;
    ASSERT_EQ("", app::writePicture(clearWithABlueHalf(), folder.filePath(QStringLiteral("a.pdf"))).toStdString());
    QByteArray const document = contentOfFile(folder.filePath(QStringLiteral("a.pdf")));
    EXPECT_TRUE(document.startsWith("%PDF-"));
    EXPECT_TRUE(document.trimmed().endsWith("%%EOF"));
    QStringList const sheet = sheetOf(document);
    ASSERT_EQ(2, sheet.size());
    EXPECT_NEAR(30.0, sheet[0].toDouble(), 0.5) << "40 pixels of a 96th inch";
    EXPECT_NEAR(22.5, sheet[1].toDouble(), 0.5);
    EXPECT_TRUE(document.contains("/Type /Font"));
    EXPECT_FALSE(document.contains("/Subtype /Image"));
}

TEST(PictureFile, APdfOfALinePlotHasNoPixelsAndOneOfAFieldPlotHasThoseOfItsScene)
{
    QTemporaryDir const folder;
    PlotTestPage lines({SampleData::waveFrame(SampleData::waves(300))});
    PlotTestPage field({SampleData::frame("Flow", SampleData::block(30, 20, 12), PlotType_Cartesian3D)});
    lines.picture();
    field.picture();
    ASSERT_EQ(
        "",
        app::writePicture(app::pictureOf(lines.view(), {}), folder.filePath(QStringLiteral("a.pdf"))).toStdString());
    ASSERT_EQ(
        "",
        app::writePicture(app::pictureOf(field.view(), {}), folder.filePath(QStringLiteral("b.pdf"))).toStdString());
    EXPECT_FALSE(contentOfFile(folder.filePath(QStringLiteral("a.pdf"))).contains("/Subtype /Image"));
    EXPECT_TRUE(contentOfFile(folder.filePath(QStringLiteral("b.pdf"))).contains("/Subtype /Image"));
    EXPECT_TRUE(contentOfFile(folder.filePath(QStringLiteral("b.pdf"))).contains("/Type /Font"));
}

TEST(PictureFile, AnotherFormatAndMissingMemoryAreReasons)
{
    QTemporaryDir const folder;
    EXPECT_EQ("pictures are .png, .jpg or .pdf",
              app::writePicture(clearWithABlueHalf(), folder.filePath(QStringLiteral("a.bmp"))).toStdString());
    app::PagePicture nothing = clearWithABlueHalf();
    nothing.pixels = [] { return QImage(); };
    nothing.paint = [](QPainter&) { throw std::bad_alloc(); };
    for (char const* name : {"a.png", "a.pdf"})
        EXPECT_EQ("there is no memory for it",
                  app::writePicture(nothing, folder.filePath(QString::fromLatin1(name))).toStdString());
    EXPECT_FALSE(QFile::exists(folder.filePath(QStringLiteral("a.png"))));
    EXPECT_FALSE(QFile::exists(folder.filePath(QStringLiteral("a.pdf"))));
}

TEST(PicturePrint, FillsTheSheetInOneDirectionAndKeepsTheShape)
{
    QTemporaryDir const folder;
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(folder.filePath(QStringLiteral("sheet.pdf")));
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setPageOrientation(QPageLayout::Landscape);
    QTransform used;
    app::PagePicture picture = clearWithABlueHalf();
    picture.paint = [&used](QPainter& painter) { used = painter.transform(); };
    ASSERT_EQ("", app::printPicture(picture, printer).toStdString());
    QRectF const room(QPointF(), printer.pageRect(QPrinter::DevicePixel).size());
    QRectF const painted = used.mapRect(QRectF(0, 0, 40, 30));
    EXPECT_NEAR(room.height(), painted.height(), 1.0);
    EXPECT_NEAR(40.0 / 30.0, painted.width() / painted.height(), 1e-6);
    EXPECT_NEAR(room.center().x(), painted.center().x(), 1.0);
    EXPECT_TRUE(contentOfFile(folder.filePath(QStringLiteral("sheet.pdf"))).startsWith("%PDF-"));
}

TEST(PicturePrint, APrinterThatDoesNotTakeItIsAReason)
{
    auto const handler = qInstallMessageHandler([](QtMsgType, QMessageLogContext const&, QString const&) {});
    auto const back = qScopeGuard([handler] { qInstallMessageHandler(handler); }); // Qt warns of it too
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QStringLiteral("/nowhere/sheet.pdf"));
    EXPECT_EQ("the printer does not take it", app::printPicture(clearWithABlueHalf(), printer).toStdString());
}

} // namespace veldraw::tests
