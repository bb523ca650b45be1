#include "app/window/FileActions.h"

#include "app/window/DocumentController.h"
#include "app/window/Icons.h"
#include "app/window/NewAction.h"
#include "app/window/PictureOptionsDialog.h"
#include "app/window/TimePlayer.h"

#include <QFileInfo>
#include <QMenu>
#include <QTimer>

namespace veldraw::app {

using Place = DocumentController::Place;

FileActions::FileActions(kernel::Session& session, DocumentController& documents, CentralView const& view,
                         QWidget& window)
    : QObject(&window)
    , m_session(session)
    , m_documents(documents)
    , m_view(view)
    , m_window(window)
    , m_open(newAction(*this, "openAction", makeIcon(Glyph::Open), QStringLiteral("&Open..."),
                       [this] { m_documents.openByDialog(Place::FreshPage); }))
    , m_openInNewFrame(newAction(*this, "openInNewFrameAction", {}, QStringLiteral("Open in &New Frame..."),
                                 [this] { m_documents.openByDialog(Place::NewFrames); }))
    , m_saveAs(newAction(*this, "saveAsAction", makeIcon(Glyph::Save), QStringLiteral("&Save As..."),
                         [this] { m_documents.saveAs(); }))
    , m_savePicture(newAction(*this, "savePictureAction", makeIcon(Glyph::Picture),
                              QStringLiteral("Save &Picture As..."),
                              [this] { m_documents.savePictureAs(picture(), m_pictureOptions); }))
    , m_choosePicture(newAction(*this, "pictureOptionsAction", {}, QStringLiteral("Pi&cture Options..."),
                                [this] { choosePictureOptions(); }))
    , m_printPicture(newAction(*this, "printPictureAction", {}, QStringLiteral("Prin&t Picture..."),
                               [this] { m_documents.printPicture(picture()); }))
    , m_copyPicture(newAction(*this, "copyPictureAction", {}, QStringLiteral("&Copy Picture"),
                              [this] { m_documents.copyPicture(picture()); }))
    , m_saveFilm(newAction(*this, "saveFilmAction", {}, QStringLiteral("Save Fil&m..."),
                           [this] { m_documents.saveFilmAs(picture().pixels); }))
    , m_recentMenu(new QMenu(QStringLiteral("Open &Recent"), &window))
    , m_follower(session, [this] { refresh(); })
{
    m_open->setShortcut(QKeySequence::Open);
    m_openInNewFrame->setShortcut(Qt::CTRL + Qt::SHIFT + Qt::Key_O);
    m_saveAs->setShortcut(Qt::CTRL + Qt::Key_S);
    m_printPicture->setShortcut(QKeySequence::Print);
    m_choosePicture->setToolTip(
        QStringLiteral("Size, scale and background of pictures that are saved, copied or printed"));
    m_copyPicture->setShortcut(Qt::CTRL + Qt::SHIFT + Qt::Key_C);
    m_saveFilm->setToolTip(QStringLiteral("Saves a picture of each moment of a transient data set"));
    m_recentMenu->setObjectName(QStringLiteral("recentMenu"));
    connect(&m_documents, &DocumentController::recentFilesChanged, this, &FileActions::fillRecentMenu);
    fillRecentMenu();
    refresh();
}

void FileActions::fillRecentMenu()
{
    m_recentMenu->clear();
    int number = 0;
    for (QString const& path : m_documents.recentFiles().list()) {
        ++number;
        QString const mnemonic = number < 10 ? QStringLiteral("&%1").arg(number) : QStringLiteral("1&0");
        QString name = QFileInfo(path).fileName();
        name.replace(QLatin1Char('&'), QLatin1String("&&"));
        QAction* const action = m_recentMenu->addAction(mnemonic + QStringLiteral("  ") + name);
        action->setToolTip(path);
        action->setStatusTip(path);
        action->setData(path);
        // Later, since opening fills this very menu again.
        connect(action, &QAction::triggered, this,
                [this, path] { QTimer::singleShot(0, this, [this, path] { m_documents.openRecent(path); }); });
    }
    m_recentMenu->setEnabled(number > 0);
}

void FileActions::choosePictureOptions()
{
    PictureOptionsDialog dialog(m_pictureOptions, m_view.widget->size(), m_view.widget->devicePixelRatioF(), &m_window);
    if (dialog.exec() == QDialog::Accepted)
        m_pictureOptions = dialog.options();
}

void FileActions::refresh()
{
    auto const frame = m_session.activeFrame();
    m_saveAs->setEnabled(frame && frame->dataSet);
    m_savePicture->setEnabled(frame != nullptr);
    m_printPicture->setEnabled(frame != nullptr);
    m_copyPicture->setEnabled(frame != nullptr);
    m_saveFilm->setEnabled(frame && TimePlayer::momentsOf(*frame).size() > 1);
}

} // namespace veldraw::app
