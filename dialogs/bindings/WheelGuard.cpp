#include "dialogs/bindings/WheelGuard.h"

#include <QEvent>
#include <QWidget>

namespace veldraw::sdk::ui::dialogs::propertybindings {

WheelGuard::WheelGuard(QWidget& widget)
    : QObject(&widget)
{
    // Qt would move the focus here before it delivers the notch.
    if (widget.focusPolicy() == Qt::WheelFocus)
        widget.setFocusPolicy(Qt::StrongFocus);
    widget.installEventFilter(this);
}

bool WheelGuard::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Wheel || static_cast<QWidget*>(watched)->hasFocus())
        return false;
    event->ignore();
    return true;
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
