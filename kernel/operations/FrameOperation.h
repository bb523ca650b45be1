#pragma once

#include "kernel/events/EventHub.h"
#include "kernel/frames/Frame.h"
#include "kernel/operations/Operation.h"

#include <vector>

namespace veldraw::kernel {

constexpr char noFrame[] = "There is no such frame.";

/// An operation that changes a frame's name, place, or what it shows. It is allowed while the frame's data set is locked.
class FrameOperation : public Operation
{
public:
    std::string find(Pages const& pages) override;
    UniqueId subject() const override { return m_id; }

protected:
    explicit FrameOperation(UniqueId frame)
        : m_id(frame)
    {
    }

    /// The frame that find() has found; null before.
    std::shared_ptr<Frame> const& frame() const { return m_frame; }

    /// Event @p kind about the frame.
    StateChangeEvent eventOf(StateChange_e kind) const { return frameEvent(kind, m_id); }

    /// Event 7 about a style value of the frame.
    StateChangeEvent styleEvent(std::vector<std::string> path) const
    {
        return {StateChange_Style, {}, {}, std::move(path), m_id};
    }

private:
    UniqueId m_id;
    std::shared_ptr<Frame> m_frame;
};

/// An operation on the data set of a frame, in which the frame's plot type or axis variables count. It is refused while the data
/// set is locked.
class FrameDataOperation : public FrameOperation
{
public:
    std::string find(Pages const& pages) override;
    DataSet const* lockable() const override { return frame()->dataSet.get(); }

protected:
    using FrameOperation::FrameOperation;

    DataSet const& dataSet() const { return *frame()->dataSet; }

    /// Why the variable of an axis, 0 to 2, cannot tell where the points are; empty when it can. Of the second one: in a zone.
    std::string reasonAgainstAxis(std::size_t axis) const;
    std::string reasonAgainstCoordinate(std::size_t axis, int zone) const;
};

} // namespace veldraw::kernel
