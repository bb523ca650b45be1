#pragma once

#include "kernel/operations/FrameOperation.h"

namespace veldraw::kernel {

/// Gives a frame another name. "Rename Frame"; event 11.
class RenameFrame : public FrameOperation
{
public:
    /// @param newName UTF-8, may be empty
    RenameFrame(UniqueId frame, std::string newName)
        : FrameOperation(frame)
        , m_newName(std::move(newName))
    {
    }

    std::string name() const override { return "Rename Frame"; }
    CommandText command() const override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    std::string m_newName;
};

/// Puts a frame elsewhere on its page. "Move Frame"; event 11. Refused: a size that is negative, numbers that are not finite.
class MoveFrame : public FrameOperation
{
public:
    /// @param rectangle in inches of the paper
    MoveFrame(UniqueId frame, Rectangle const& rectangle)
        : FrameOperation(frame)
        , m_rectangle(rectangle)
    {
    }

    std::string name() const override { return "Move Frame"; }
    CommandText command() const override;
    std::string reasonAgainst() const override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    Rectangle m_rectangle;
};

} // namespace veldraw::kernel
