#pragma once

#include "kernel/frames/PlotOption.h"
#include "kernel/operations/FrameOperation.h"

namespace veldraw::kernel {

/// Plots a frame's data in another way. "Plot Type"; event 7 "PlotType". Refused: a number that is no plot type.
class SetPlotType : public FrameOperation
{
public:
    SetPlotType(UniqueId frame, PlotType_e plotType)
        : FrameOperation(frame)
        , m_plotType(plotType)
    {
    }

    std::string name() const override { return "Plot Type"; }
    std::string reasonAgainst() const override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    PlotType_e m_plotType;
};

/// Puts a variable on an axis of a frame, makes it a component of its vector or its contour variable. "Assign Variable";
/// event 7: "TwoDAxis" or "ThreeDAxis", "GlobalTwoDVector" or "GlobalThreeDVector", "GlobalContour". Refused: a frame
/// without a data set, a letter that the plot type has no place for, a variable that does not exist.
class AssignVariable : public FrameOperation
{
public:
    /// @param assignment X, Y, Z, U, V, W or C (contour); @param variable one-based number, 0 for none
    AssignVariable(UniqueId frame, char assignment, int variable)
        : FrameOperation(frame)
        , m_assignment(assignment)
        , m_variable(variable)
    {
    }

    std::string name() const override { return "Assign Variable"; }
    std::string reasonAgainst() const override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    UniqueId* place() const; // null when the plot type has none

    char m_assignment;
    int m_variable;
};

/// Switches something that a frame's plot shows. The name of the step and the event 7 are those of the option.
class SetPlotOption : public FrameOperation
{
public:
    /// @param option one of plotOptions(), for instance &Frame::showMesh
    SetPlotOption(UniqueId frame, bool Frame::*option, bool isOn)
        : FrameOperation(frame)
        , m_option(plotOption(option))
        , m_isOn(isOn)
    {
    }

    std::string name() const override { return m_option.step; }
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    PlotOption const& m_option;
    bool m_isOn;
};

} // namespace veldraw::kernel
