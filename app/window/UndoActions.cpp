#include "app/window/UndoActions.h"

#include "app/window/Icons.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <QAction>
#include <QKeySequence>

namespace veldraw::app {

UndoActions::UndoActions(kernel::Session& session, QObject* parent)
    : QObject(parent)
    , m_session(session)
    , m_undo(new QAction(makeIcon(Glyph::Undo), QStringLiteral("&Undo"), this))
    , m_redo(new QAction(makeIcon(Glyph::Redo), QStringLiteral("&Redo"), this))
    , m_follower(session, [this] { refresh(); })
{
    m_undo->setObjectName(QStringLiteral("undoAction"));
    m_redo->setObjectName(QStringLiteral("redoAction"));
    m_undo->setIconText(QStringLiteral("Undo"));
    m_redo->setIconText(QStringLiteral("Redo"));
    m_undo->setShortcut(Qt::CTRL + Qt::Key_Z);
    m_redo->setShortcut(Qt::CTRL + Qt::SHIFT + Qt::Key_Z);
    // The shortcuts work in the dialogs too, so that their operations can be undone there.
    m_undo->setShortcutContext(Qt::ApplicationShortcut);
    m_redo->setShortcutContext(Qt::ApplicationShortcut);
    connect(m_undo, &QAction::triggered, this, [this] { run(true); });
    connect(m_redo, &QAction::triggered, this, [this] { run(false); });
    refresh();
}

void UndoActions::run(bool isUndo)
{
    if (sdk::AppLock::depth() > 0)
        return;
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    kernel::History& history = m_session.history();
    QString const name = QString::fromStdString(isUndo ? history.undoName() : history.redoName());
    bool const isDone = isUndo ? m_session.undo() : m_session.redo();
    m_follower.schedule();
    if (isDone)
        Q_EMIT done((isUndo ? QStringLiteral("Undone: ") : QStringLiteral("Redone: ")) + name);
}

void UndoActions::refresh()
{
    kernel::History const& history = m_session.history();
    auto const show = [](QAction& action, QString const& verb, bool isPossible, std::string const& name) {
        QString const step = QString::fromStdString(name);
        action.setEnabled(isPossible);
        action.setText(step.isEmpty() ? QLatin1Char('&') + verb
                                      : QLatin1Char('&') + verb + QLatin1Char(' ') +
                                            QString(step).replace(QLatin1Char('&'), QLatin1String("&&")));
        action.setToolTip(QStringLiteral("%1 %2 (%3)").arg(verb, step, action.shortcut().toString()).simplified());
    };
    show(*m_undo, QStringLiteral("Undo"), history.canUndo(), history.undoName());
    show(*m_redo, QStringLiteral("Redo"), history.canRedo(), history.redoName());
}

} // namespace veldraw::app
