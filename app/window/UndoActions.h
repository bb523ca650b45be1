#pragma once

#include "app/window/SessionFollower.h"

#include <QObject>

class QAction;

namespace veldraw::app {

/// "Undo <name>" and "Redo <name>", which follow the session's history. Both are refused while an AppLock is held.
class UndoActions : public QObject
{
    Q_OBJECT

public:
    explicit UndoActions(kernel::Session& session, QObject* parent = nullptr);

    QAction& undo() { return *m_undo; }
    QAction& redo() { return *m_redo; }

    /// The history has changed: texts and states follow at the next idle moment.
    void scheduleRefresh() { m_follower.schedule(); }

Q_SIGNALS:
    /// What was done, for the status bar.
    void done(QString const& text);

private:
    void run(bool isUndo);
    void refresh();

    kernel::Session& m_session;
    QAction* m_undo;
    QAction* m_redo;
    SessionFollower m_follower;
};

} // namespace veldraw::app
