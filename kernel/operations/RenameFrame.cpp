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

CommandText RenameFrame::command() const
{
    return CommandText("rename-frame").quoted("name", m_newName);
}

CommandText MoveFrame::command() const
{
    return CommandText("move-frame")
        .real("x", m_rectangle.x)
        .real("y", m_rectangle.y)
        .real("width", m_rectangle.width)
        .real("height", m_rectangle.height);
}

} // namespace veldraw::kernel
