// Pictures and films of the page.
#include "app/commands/ProgramOperations.h"
#include "app/window/DocumentController.h"
#include "app/window/FileNameQuestion.h"
#include "app/window/FilmSave.h"
#include "app/window/PicturePrint.h"

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPrintDialog>
#include <QPrinter>

namespace veldraw::app {

bool DocumentController::savePictureAs(PagePicture const& picture, PictureOptions const& options)
{
    if (isLocked())
        return false;
    bool isSaved = false;
    askForName(m_window, {QStringLiteral("Save Picture As"), lastFolder() + QStringLiteral("/page"), pictureFilters(),
                          [](QString const& path) { return QFileInfo::exists(path); },
                          [&](QString const& path) { return isSaved = savePicture(picture, options, path); }});
    return isSaved;
}

bool DocumentController::savePicture(PagePicture const& picture, PictureOptions const& options, QString const& path)
{
    QString const problem = writePicture(picture, path);
    if (!problem.isEmpty()) {
        tellError(QStringLiteral("%1: the picture could not be written: %2").arg(path, problem));
        return false;
    }
    record(savePictureCommand(QFileInfo(path).absoluteFilePath(), options));
    keepFolder(path);
    Q_EMIT told(QStringLiteral("Saved %1").arg(QFileInfo(path).fileName()));
    return true;
}

void DocumentController::copyPicture(PagePicture const& picture)
{
    QImage const pixels = picture.pixels();
    if (pixels.isNull())
        return tellError(QStringLiteral("The picture could not be copied: there is no memory for it"));
    QGuiApplication::clipboard()->setImage(pixels);
    Q_EMIT told(QStringLiteral("Copied the picture"));
}

void DocumentController::printPicture(PagePicture const& picture)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(picture.size.width() > picture.size.height() ? QPageLayout::Landscape
                                                                            : QPageLayout::Portrait);
    QPrintDialog dialog(&printer, &m_window);
    dialog.setObjectName(QStringLiteral("printDialog"));
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
    if (dialog.exec() != QDialog::Accepted)
        return;
    QString const problem = app::printPicture(picture, printer);
    if (!problem.isEmpty())
        return tellError(QStringLiteral("The picture could not be printed: %1").arg(problem));
    Q_EMIT told(QStringLiteral("Printed the picture"));
}

bool DocumentController::saveFilmAs(std::function<QImage()> const& grab)
{
    if (isLocked())
        return false;
    bool isSaved = false;
    auto const write = [&](QString const& path) {
        Outcome const outcome = writeFilm(path, grab);
        isSaved = outcome == Outcome::Saved;
        return outcome != Outcome::Refused;
    };
    askForName(m_window, {QStringLiteral("Save Film"),
                          lastFolder() + QStringLiteral("/page"),
                          {QStringLiteral("Numbered PNG pictures (*.png)")},
                          [](QString const&) { return false; }, // only a folder is made
                          write});
    return isSaved;
}

DocumentController::Outcome DocumentController::writeFilm(QString const& path, std::function<QImage()> const& grab)
{
    std::size_t count = 0;
    bool isKept = false;
    Outcome const outcome = attempt([&] {
        QString const replaced = FilmSave::replaced(path);
        isKept =
            !replaced.isEmpty() && !mayReplace(m_window, QStringLiteral("To save the film replaces %1.").arg(replaced));
        if (!isKept)
            count = FilmSave(m_session, grab, m_window).save(path);
    });
    if (outcome != Outcome::Saved || isKept)
        return isKept ? Outcome::Refused : outcome;
    keepFolder(path);
    Q_EMIT told(
        QStringLiteral("Saved %1 pictures in %2").arg(count).arg(QFileInfo(FilmSave::folderFor(path)).fileName()));
    return outcome;
}

} // namespace veldraw::app
