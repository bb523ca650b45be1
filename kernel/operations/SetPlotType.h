#pragma once

#include "kernel/frames/PlotOption.h"
#include "kernel/operations/FrameOperation.h"

namespace veldraw::kernel {

/// Changes the plot type of a frame. Step "Plot Type"; event 7 with the path "PlotType". Refused: a number that is no plot
/// type.
class SetPlotType : public FrameOperation
{
public:
    SetPlotType(UniqueId frame, PlotType_e plotType)
        : FrameOperation(frame)
        , m_plotType(plotType)
    {
    }

    std::string name() const override { return "Plot Type"; }
    CommandText command() const override;
    std::string reasonAgainst() const override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    PlotType_e m_plotType;
};

/// Assigns a variable to an axis of a frame, to a component of its vector, or as its contour variable. Step "Assign Variable";
/// event 7 with a path below "TwoDAxis" or "ThreeDAxis", "GlobalTwoDVector" or "GlobalThreeDVector", or "GlobalContour".
///
/// Refused: a frame without a data set, an assignment that the frame's plot type does not have (Z in 2D), a variable that
/// does not exist.
class AssignVariable : public FrameOperation
{
public:
    /// @param assignment 'X', 'Y' or 'Z' for an axis, 'U', 'V' or 'W' for a component of the vector, 'C' for the contour variable
    /// @param variable one-based number; 0 to assign none
    AssignVariable(UniqueId frame, char assignment, int variable)
        : FrameOperation(frame)
        , m_assignment(assignment)
        , m_variable(variable)
    {
    }

    std::string name() const override { return "Assign Variable"; }
    CommandText command() const override;
    std::string reasonAgainst() const override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    UniqueId*
    place() const; // member of the frame that holds the variable; null if the plot type has no such assignment

    char m_assignment;
    int m_variable;
};

/// Switches a plot option of a frame on or off. The step has the name, and event 7 the path, that plotOptions() gives for the
/// option.
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
    CommandText command() const override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    PlotOption const& m_option;
    bool m_isOn;
};

} // namespace veldraw::kernel
