#include "app/commandline/BatchFiles.h"

#include "app/plot/PageView.h"
#include "app/window/PictureFile.h"

#include <QCoreApplication>

#include <stdexcept>

namespace veldraw::app {

namespace {

QSize const pictureSize(1200, 900);

} // namespace

BatchFiles::BatchFiles(kernel::Session& session, QTextStream& err, CommandLineOptions const& options)
    : DataFiles(session, {options.deferral, options.outsidePaths})
    , m_err(err)
{
}

void BatchFiles::tell(QString const& text)
{
    m_err << QStringLiteral("veldraw: %1\n").arg(text);
}

void BatchFiles::savePicture(QString const& path, PictureOptions const& options)
{
    PageView page(session());
    page.resize(pictureSize);
    page.show();
    QCoreApplication::processEvents();
    page.fitAllFrames();
    page.grabImage(); // reads what is to be drawn
    requireWholeFiles();
    QString const problem = writePicture(pictureOf(page, options), path);
    if (!problem.isEmpty())
        throw std::runtime_error(
            QStringLiteral("%1: the picture could not be written: %2").arg(path, problem).toStdString());
}

} // namespace veldraw::app
