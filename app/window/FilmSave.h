#pragma once

#include "kernel/session/Session.h"

#include <QImage>
#include <QString>

#include <functional>

class QWidget;

namespace veldraw::app {

/// Saves a film of the active frame: a picture of the page for each of its moments, numbered, in a folder of their own.
///
/// The frame goes through its moments on the screen meanwhile, and is back at its own in the end. The folder takes the place of that of an
/// earlier film as a whole; after a cancel or a failure all is as it was.
class FilmSave
{
public:
    /// @param grab takes a picture of the page as it is; @param window what the progress window stands over
    FilmSave(kernel::Session& session, std::function<QImage()> grab, QWidget& window);

    /// The folder for a film that is called "a.png": "a_film" beside it.
    static QString folderFor(QString const& path);

    /// What would be replaced, for a question; empty for nothing. @throws ExportError other things stand there
    static QString replaced(QString const& path);

    /// @return number of the pictures @throws ExportError; kernel::Interrupted after a cancel
    std::size_t save(QString const& path);

private:
    void show(double moment);

    kernel::Session& m_session;
    std::function<QImage()> m_grab;
    QWidget& m_window;
    kernel::UniqueId m_run = 0; // its moments are one step of the history
};

} // namespace veldraw::app
