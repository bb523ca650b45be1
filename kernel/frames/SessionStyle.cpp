// What a frame is called and shows.
#include "kernel/frames/RefusalReasons.h"
#include "kernel/frames/SessionChange.h"
#include "kernel/frames/SessionGuard.h"

namespace veldraw::kernel {

namespace {

StateChangeEvent styleEvent(UniqueId frame, std::vector<std::string> path)
{
    return {StateChange_Style, {}, {}, std::move(path), frame};
}

/// Where a frame keeps the variable of a letter; null when its plot type has no such assignment.
UniqueId* assignmentOf(Frame& frame, char letter)
{
    bool const is2D = frame.plotType == PlotType_Cartesian2D;
    switch (letter) {
    case 'X':
    case 'Y':
    case 'Z': {
        auto const axis = static_cast<std::size_t>(letter - 'X');
        if (is2D) {
            return axis < frame.axes2D.size() ? &frame.axes2D[axis] : nullptr;
        }
        return &frame.axes3D[axis];
    }
    case 'U':
    case 'V':
    case 'W':
        return &frame.vector[static_cast<std::size_t>(letter - 'U')];
    case 'C':
        return &frame.contourVariable;
    default:
        return nullptr;
    }
}

std::vector<std::string> assignmentPath(Frame const& frame, char letter)
{
    bool const is2D = frame.plotType == PlotType_Cartesian2D;
    if (letter == 'C') {
        return {"GlobalContour", "Var"};
    }
    bool const isAxis = letter >= 'X';
    char const* const axis = is2D ? "TwoDAxis" : "ThreeDAxis";
    char const* const vector = is2D ? "GlobalTwoDVector" : "GlobalThreeDVector";
    return {isAxis ? axis : vector, std::string(1, letter) + "Var"};
}

} // namespace

bool Session::renameFrame(UniqueId frame, std::string const& name)
{
    return guarded(*this, [&] {
        std::shared_ptr<Frame> const found = this->frame(frame);
        if (!found) {
            return refuse(noFrame);
        }
        change("Rename Frame", found, found->name, name, {StateChange_FrameMovedOrRenamed, {}, {}, {}, frame});
        return true;
    });
}

bool Session::setPlotType(UniqueId frame, PlotType_e plotType)
{
    return guarded(*this, [&] {
        std::shared_ptr<Frame> const found = this->frame(frame);
        if (!found) {
            return refuse(noFrame);
        }
        if (plotType < PlotType_Cartesian3D || plotType > PlotType_PolarLine) {
            return refuse("There is no such plot type.");
        }
        change("Plot Type", found, found->plotType, plotType, styleEvent(frame, {"PlotType"}));
        return true;
    });
}

bool Session::assignVariable(UniqueId frame, char assignment, int variable)
{
    return guarded(*this, [&] {
        std::shared_ptr<Frame> const found = this->frame(frame);
        if (!found || !found->dataSet) {
            return refuse(found ? frameWithoutData : noFrame);
        }
        UniqueId* const place = assignmentOf(*found, assignment);
        std::shared_ptr<Variable> const assigned = found->dataSet->variable(variable);
        if (place == nullptr || (variable != 0 && !assigned)) {
            return refuse(place == nullptr ? "There is no such assignment." : "There is no such variable.");
        }
        change("Assign Variable", found, *place, assigned ? assigned->id : UniqueId{0},
               styleEvent(frame, assignmentPath(*found, assignment)));
        return true;
    });
}

bool Session::setLayer(UniqueId frame, bool Frame::*layer, bool on, char const* step, char const* group,
                       char const* name)
{
    return guarded(*this, [&] {
        std::shared_ptr<Frame> const found = this->frame(frame);
        if (!found) {
            return refuse(noFrame);
        }
        change(step, found, (*found).*layer, on, styleEvent(frame, {group, name}));
        return true;
    });
}

bool Session::setShowContour(UniqueId frame, bool on)
{
    return setLayer(frame, &Frame::showContour, on, "Contour", "FieldLayers", "ShowContour");
}

bool Session::setShowMesh(UniqueId frame, bool on)
{
    return setLayer(frame, &Frame::showMesh, on, "Mesh", "FieldLayers", "ShowMesh");
}

bool Session::setStretchAxes(UniqueId frame, bool on)
{
    return setLayer(frame, &Frame::stretchAxes, on, "Stretch Axes", "FieldAxes", "Stretch");
}

bool Session::setShowLines(UniqueId frame, bool on)
{
    return setLayer(frame, &Frame::showLines, on, "Line Layers", "LinePlotLayers", "ShowLines");
}

bool Session::setShowSymbols(UniqueId frame, bool on)
{
    return setLayer(frame, &Frame::showSymbols, on, "Line Layers", "LinePlotLayers", "ShowSymbols");
}

} // namespace veldraw::kernel
