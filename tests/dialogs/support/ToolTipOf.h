#pragma once

#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>
#include <QWidget>

#include <string>

namespace veldraw::tests {

/// The tool tip that a widget shows when the mouse rests on it, empty if it shows none.
inline std::string toolTipOf(QWidget& widget)
{
    QPoint const middle = widget.rect().center();
    QHelpEvent asked(QEvent::ToolTip, middle, widget.mapToGlobal(middle));
    QApplication::sendEvent(&widget, &asked);
    return asked.isAccepted() ? QToolTip::text().toStdString() : std::string();
}

} // namespace veldraw::tests
