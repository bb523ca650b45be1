#include "dialogs/bindings/QTextEditObservable.h"

#include "dialogs/bindings/ScopedExitAction.h"

#include <QFocusEvent>
#include <QPointer>
#include <QTextDocument>
#include <QTextEdit>

namespace veldraw::sdk::ui::dialogs::propertybindings {

QTextEditObservable::QTextEditObservable(QTextEdit& textEdit, std::function<void()> const& finished)
    : m_finished(finished)
{
    textEdit.installEventFilter(this);
}

QTextEditObservable::~QTextEditObservable() = default;

bool QTextEditObservable::eventFilter(QObject* watched, QEvent* event)
{
    // A field that is just being destroyed loses the focus too, but is no text field any more.
    auto const* const textEdit = qobject_cast<QTextEdit*>(watched);
    if (m_isTelling || !textEdit || !isFinished(*textEdit, event))
        return false;
    m_isTelling = true;
    ScopedExitAction const done([this, self = QPointer<QObject>(this)] {
        if (self)
            m_isTelling = false;
    });
    // The function may end this object, and itself with it.
    std::function<void()> const finished = m_finished;
    finished();
    return false;
}

bool QTextEditObservable::isFinished(QTextEdit const& textEdit, QEvent* event) const
{
    if (event->type() != QEvent::FocusOut || !textEdit.document()->isModified())
        return false;
    Qt::FocusReason const reason = static_cast<QFocusEvent*>(event)->reason();
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason && reason != Qt::MenuBarFocusReason;
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
