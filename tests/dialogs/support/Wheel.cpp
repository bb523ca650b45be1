#include "tests/dialogs/support/Wheel.h"

#include <QApplication>
#include <QTest>
#include <QWheelEvent>
#include <QWidget>
#include <QWindow>
#include <qtestspontaneevent.h>

namespace veldraw::tests {

void turnWheel(QWidget& widget, int notches)
{
    QWidget& window = *widget.window();
    QPoint const global = widget.mapToGlobal(widget.rect().center());
    QWheelEvent event(window.mapFromGlobal(global), global, QPoint(), QPoint(0, 120 * notches), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event); // only what comes from outside moves the focus and goes on to parents
    qApp->notify(window.windowHandle(), &event);
}

} // namespace veldraw::tests
