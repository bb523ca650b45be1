#include "dialogs/bindings/QTextFieldObservable.h"

#include "dialogs/bindings/ScopedExitAction.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>

namespace veldraw::sdk::ui::dialogs::propertybindings {

namespace {

bool isReturn(QEvent const& event)
{
    if (event.type() != QEvent::KeyPress)
        return false;
    int const key = static_cast<QKeyEvent const&>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool isLeaving(QEvent const& event)
{
    if (event.type() != QEvent::FocusOut)
        return false;
    Qt::FocusReason const reason = static_cast<QFocusEvent const&>(event).reason();
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason && reason != Qt::MenuBarFocusReason;
}

// A field that is being deleted loses the focus too, when it is no line edit any more.
bool wasTyped(QObject const* field)
{
    auto const* const lineEdit = qobject_cast<QLineEdit const*>(field);
    return lineEdit && lineEdit->isModified() && lineEdit->isVisible() && lineEdit->isEnabled() &&
           !lineEdit->isReadOnly();
}

} // namespace

QTextFieldObservable::QTextFieldObservable(QLineEdit& lineEdit, std::function<bool()> const& finished)
    : m_finished(finished)
{
    lineEdit.installEventFilter(this);
}

QTextFieldObservable::~QTextFieldObservable() = default;

bool QTextFieldObservable::eventFilter(QObject* watched, QEvent* event)
{
    if (isReturn(*event)) {
        tell();
        return true;
    }
    QPointer<QObject> const field = watched;
    if (isLeaving(*event) && wasTyped(watched))
        tell();
    // An event must not go on to a field that is gone.
    return field.isNull();
}

void QTextFieldObservable::tell()
{
    if (m_isTelling)
        return;
    m_isTelling = true;
    ScopedExitAction const done([this, self = QPointer<QObject>(this)] {
        if (self)
            m_isTelling = false;
    });
    // The function may end this object, and itself with it.
    std::function<bool()> const finished = m_finished;
    finished();
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
