#pragma once

#include "app/commands/ProgramOperations.h"
#include "app/recovery/LeftWork.h"
#include "app/recovery/RecoveryKeeper.h"
#include "app/recovery/RecoveryReplay.h"

#include <QObject>

#include <memory>
#include <vector>

class QWidget;

namespace veldraw::app {

class DocumentController;

/// Keeps unsaved work on the disk while the window is there, and offers what an earlier run has left.
class RecoveryActions : public QObject, private FileOperations
{
    Q_OBJECT

public:
    /// Where the program keeps unsaved work: a folder of the user's data, or the one that VELDRAW_RECOVERY_FOLDER names.
    static QString standardFolder();

    /// @param window parent of questions and messages
    RecoveryActions(kernel::Session& session, DocumentController& documents, QWidget& window, QString const& folder);

    /// Asks about each work that an earlier run has left, until one of them is to be recovered. What could not be repeated is told.
    /// @return whether something was recovered
    bool offer();

    /// To be called when the window closes, after the question about unsaved changes.
    void end();

Q_SIGNALS:
    /// One sentence for the status bar.
    void told(QString const& text);

private:
    enum class Answer
    {
        Recover,
        Discard,
        Later
    };

    void open(QStringList const& paths, bool inNewFrames) override;
    void save(QString const& path, bool overwrite) override;
    void savePicture(QString const& path, PictureOptions const& options) override;

    Answer ask(LeftWork const& work);
    bool recover(std::unique_ptr<LeftWork> work);
    void tellRest(ReplayOutcome const& outcome);
    void discardRecovered();

    kernel::Session& m_session;
    DocumentController& m_documents;
    QWidget& m_window;
    std::string const m_folder;
    std::unique_ptr<LeftWork> m_recovered; // that is not whole, until what could be recovered is saved or discarded
    RecoveryKeeper m_keeper;
};

} // namespace veldraw::app
