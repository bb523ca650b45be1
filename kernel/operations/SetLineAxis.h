#pragma once

#include "kernel/operations/FrameOperation.h"

namespace veldraw::kernel {

/// Gives an axis of a line plot a range and a title; without a step when it has them already. "Axis"; event 7. Refused: an axis that there
/// is not, limits that are not finite or not in order.
class SetLineAxis : public FrameOperation
{
public:
    SetLineAxis(UniqueId frame, LineAxisKind kind, LineAxis axis)
        : FrameOperation(frame)
        , m_kind(kind)
        , m_axis(std::move(axis))
    {
    }

    CommandText command() const override;
    std::string name() const override { return "Axis"; }
    std::string reasonAgainst() const override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    LineAxisKind m_kind;
    LineAxis m_axis;
};

/// Gives a line plot a title; without a step when it has it already. "Plot Title"; event 7.
class SetPlotTitle : public FrameOperation
{
public:
    SetPlotTitle(UniqueId frame, std::string title)
        : FrameOperation(frame)
        , m_title(std::move(title))
    {
    }

    CommandText command() const override;
    std::string name() const override { return "Plot Title"; }
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    std::string m_title;
};

} // namespace veldraw::kernel
