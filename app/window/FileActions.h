#pragma once

#include "app/window/CentralView.h"
#include "app/window/SessionFollower.h"

#include <QObject>

class QAction;
class QMenu;

namespace veldraw::app {

class DocumentController;

/// What the File menu does with files: open, open again, save, save a picture or a film; and copy or print a picture.
class FileActions : public QObject
{
    Q_OBJECT

public:
    /// All of them must outlive the actions. @param window owns the menu
    FileActions(kernel::Session& session, DocumentController& documents, CentralView const& view, QWidget& window);

    QAction& open() { return *m_open; }
    QAction& openInNewFrame() { return *m_openInNewFrame; }
    QAction& saveAs() { return *m_saveAs; }
    QAction& savePicture() { return *m_savePicture; }
    QAction& pictureOptions() { return *m_choosePicture; } ///< that hold for all pictures
    QAction& printPicture() { return *m_printPicture; }
    QAction& copyPicture() { return *m_copyPicture; }
    QAction& saveFilm() { return *m_saveFilm; }

    /// Files that were open lately, newest first, with digits as mnemonics.
    QMenu& recentMenu() { return *m_recentMenu; }

private:
    void fillRecentMenu();
    void choosePictureOptions();
    PagePicture picture() const { return m_view.picture(m_pictureOptions); }
    void refresh();

    kernel::Session& m_session;
    DocumentController& m_documents;
    CentralView m_view;
    QWidget& m_window;
    PictureOptions m_pictureOptions;
    QAction* m_open;
    QAction* m_openInNewFrame;
    QAction* m_saveAs;
    QAction* m_savePicture;
    QAction* m_choosePicture;
    QAction* m_printPicture;
    QAction* m_copyPicture;
    QAction* m_saveFilm;
    QMenu* m_recentMenu;
    SessionFollower m_follower;
};

} // namespace veldraw::app
