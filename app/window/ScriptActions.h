#pragma once

#include "app/commands/CommandList.h"
#include "app/commands/ProgramOperations.h"
#include "app/window/CentralView.h"
#include "kernel/session/Session.h"

#include <QObject>

class QWidget;

namespace veldraw::app {

class DocumentController;

/// Saves the journal as a script, and runs scripts in the window.
class ScriptActions : public QObject, private FileOperations
{
    Q_OBJECT

public:
    /// @param window parent of questions and messages
    ScriptActions(kernel::Session& session, DocumentController& documents, CentralView const& view, QWidget& window);

    /// Asks for a name and saves the journal, again until that succeeds or the user cancels.
    void saveByDialog();

    /// Asks for a script and runs it.
    void runByDialog();

    /// Runs the commands of a script. The first one that fails is told with its place and ends the run; what was done before stays, and can be
    /// undone step by step. Nothing is done where a command is wrong by itself.
    bool run(QString const& path);

Q_SIGNALS:
    /// One sentence for the status bar.
    void told(QString const& text);

private:
    void open(QStringList const& paths, bool inNewFrames) override;
    void save(QString const& path, bool overwrite) override;
    void savePicture(QString const& path, PictureOptions const& options) override;
    void runAll(std::vector<PlacedCommand> const& commands);
    bool write(QString const& path);

    kernel::Session& m_session;
    DocumentController& m_documents;
    CentralView m_view;
    QWidget& m_window;
    operations::Registry m_operations;
    QString m_folder; // of the last script
};

} // namespace veldraw::app
