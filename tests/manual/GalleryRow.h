#pragma once

#include <QLabel>
#include <QWidget>

#include <functional>

namespace veldraw::tests {

/// A control that is bound to a property, the text of the property's value beside it, and the way back to its start.
struct GalleryRow
{
    QWidget* control;
    QLabel* value;
    std::function<void()> reset;
};

} // namespace veldraw::tests
