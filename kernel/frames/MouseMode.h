#pragma once

namespace veldraw::kernel {

/// What dragging with the mouse does in the work area.
enum class MouseMode
{
    Select = 1,
    Rotate = 2,
    Pan = 3,
    Zoom = 4
};

} // namespace veldraw::kernel
