#pragma once

#include "kernel/frames/Frame.h"

#include <QString>

namespace veldraw::app {

/// How cuts are called in lists and menus.
class CutDescription
{
public:
    /// Of a kind, for a menu, with its "&".
    static QString kindText(kernel::CutKind kind);

    /// Of one cut, such as "X = 0.25", "K = 3" or "Pressure = 101325".
    static QString textOf(kernel::Cut const& cut, kernel::Frame const& frame);

    /// What its position is called beside a field, such as "X" or "Distance".
    static QString positionText(kernel::Cut const& cut, kernel::Frame const& frame);
};

} // namespace veldraw::app
