#include "kernel/operations/RenameFrame.h"

#include "kernel/undo/SwapChange.h"

namespace veldraw::kernel {

std::shared_ptr<Change> RenameFrame::makeChange(EventHub& events)
{
    return changeTo(events, frame(), frame()->name, m_newName, eventOf(StateChange_FrameMovedOrRenamed));
}

std::string MoveFrame::reasonAgainst() const
{
    return m_rectangle.isPlace() ? "" : "The frame's size is not allowed.";
}

std::shared_ptr<Change> MoveFrame::makeChange(EventHub& events)
{
    return changeTo(events, frame(), frame()->rectangle, m_rectangle, eventOf(StateChange_FrameMovedOrRenamed));
}

} // namespace veldraw::kernel
