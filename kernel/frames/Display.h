#pragma once

namespace veldraw::kernel {

struct Frame;

/// What the kernel asks of whoever draws its pages on a screen.
class Display
{
public:
    virtual ~Display() = default;

    /// Draws what has changed while drawing was suspended.
    virtual void redraw() = 0;

    /// Fits the view of @p frame to its data. @return false when that failed
    virtual bool fitData(Frame const& frame) = 0;

    /// Brings all frames of the page into view. @return false when that failed
    virtual bool fitAllFrames() = 0;
};

} // namespace veldraw::kernel
