#pragma once

#include <QPoint>

class QWidget;

namespace veldraw::tests {

/// Turns the wheel by one notch over the middle of a widget, as a person does: through the window, focus rules included.
/// @param notches negative: towards the person, which goes to the next value
void turnWheel(QWidget& widget, int notches = -1);

} // namespace veldraw::tests
