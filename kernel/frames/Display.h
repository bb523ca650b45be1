#pragma once

#include "kernel/base/Identifier.h"

namespace veldraw::kernel {

/// Something that the user has picked.
struct Pick
{
    static constexpr int zoneType = 15;

    int type = zoneType;
    UniqueId zone = 0; ///< of a picked zone, else 0
};

/// What dragging with the mouse does in the work area.
enum class MouseMode
{
    Select = 1,
    Rotate = 2,
    Pan = 3,
    Zoom = 4
};

struct Frame;

/// Draws the pages on a screen. Implemented by the application.
class Display
{
public:
    virtual ~Display() = default;

    /// Draws everything that has changed while drawing was suspended.
    virtual void redraw() = 0;

    /// Fits the view of @p frame to its data. @return false when that failed
    virtual bool fitData(Frame const& frame) = 0;

    /// Brings all frames of the page into view. @return false when that failed
    virtual bool fitAllFrames() = 0;
};

} // namespace veldraw::kernel
