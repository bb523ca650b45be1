#include "app/window/InputGuard.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWindow>

namespace veldraw::app {

namespace {

bool isInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::ContextMenu:
    case QEvent::InputMethod:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::NativeGesture:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

} // namespace

InputGuard::InputGuard(QWidget& allowed)
    : m_allowed(&allowed)
{
    QCoreApplication::instance()->installEventFilter(this);
}

InputGuard::~InputGuard() = default;

bool InputGuard::eventFilter(QObject* receiver, QEvent* event)
{
    if (!isInput(event->type()) || isAllowed(receiver))
        return false;
    event->ignore(); // else a close would count as granted, and a drop as taken
    return true;
}

bool InputGuard::isAllowed(QObject const* receiver) const
{
    if (!m_allowed)
        return false;
    if (auto const* const widget = qobject_cast<QWidget const*>(receiver))
        return widget == m_allowed || m_allowed->isAncestorOf(widget);
    return qobject_cast<QWindow const*>(receiver) && receiver == m_allowed->windowHandle();
}

} // namespace veldraw::app
