#include "kernel/frames/CutDefaults.h"

#include "kernel/frames/Frame.h"

#include <algorithm>
#include <cmath>

namespace veldraw::kernel {

namespace {

CutLimits limitsOfVariable(Frame const& frame, int variable)
{
    CutLimits limits;
    bool isKnown = false;
    for (int const zone : frame.dataSet->enabledZones()) {
        ValueRange const part = frame.dataSet->zone(zone)->range(variable);
        if (part.isValid()) {
            limits.min = isKnown ? std::min(limits.min, part.min) : part.min;
            limits.max = isKnown ? std::max(limits.max, part.max) : part.max;
            isKnown = true;
        }
    }
    return limits;
}

CutLimits limitsOfIndex(Frame const& frame, int axis)
{
    std::int64_t most = 1;
    for (int const number : frame.dataSet->enabledZones()) {
        Zone const& zone = *frame.dataSet->zone(number);
        std::array<std::int64_t, 3> const counts{zone.i, zone.j, zone.k};
        most = zone.isOrdered() ? std::max(most, counts[static_cast<std::size_t>(axis)]) : most;
    }
    return {1.0, static_cast<double>(most)};
}

/// The corners of the box lie at the ends of the ways along each axis, so each adds its own two ends.
CutLimits limitsOfPlane(Frame const& frame, Cut const& cut)
{
    double const length = std::hypot(cut.normal[0], cut.normal[1], cut.normal[2]);
    std::array<int, 3> const variables = frame.axisVariables();
    CutLimits limits;
    for (std::size_t axis = 0; length > 0.0 && axis < 3; ++axis) {
        CutLimits const box = limitsOfVariable(frame, variables[axis]);
        double const low = cut.normal[axis] / length * (box.min - cut.origin[axis]);
        double const high = cut.normal[axis] / length * (box.max - cut.origin[axis]);
        limits.min += std::min(low, high);
        limits.max += std::max(low, high);
    }
    return limits;
}

double middleOf(CutLimits const& limits)
{
    return 0.5 * limits.min + 0.5 * limits.max;
}

} // namespace

CutLimits limitsOf(Cut const& cut, Frame const& frame)
{
    if (!frame.dataSet) {
        return {};
    }
    if (cut.isOfIndex()) {
        return limitsOfIndex(frame, cut.axis());
    }
    if (cut.kind == CutKind::Plane) {
        return limitsOfPlane(frame, cut);
    }
    int const variable = cut.kind == CutKind::IsoSurface ? frame.dataSet->variableNumber(cut.variable)
                                                         : frame.axisVariables()[static_cast<std::size_t>(cut.axis())];
    return limitsOfVariable(frame, variable);
}

Cut defaultCut(CutKind kind, Frame const& frame)
{
    Cut cut;
    cut.kind = kind;
    cut.variable = kind == CutKind::IsoSurface ? frame.contourVariable : 0;
    if (kind != CutKind::Plane) {
        cut.position = middleOf(limitsOf(cut, frame));
        cut.position = cut.isOfIndex() ? std::floor(cut.position) : cut.position;
        return cut;
    }
    std::array<int, 3> const variables = frame.axisVariables();
    for (std::size_t axis = 0; frame.dataSet && axis < 3; ++axis) {
        CutLimits const box = limitsOfVariable(frame, variables[axis]);
        cut.origin[axis] = middleOf(box);
        // Across the diagonal whatever the proportions are: the normal of the plane through the middles of the box's edges.
        cut.normal[axis] = box.max > box.min ? 1.0 / (box.max - box.min) : 0.0;
    }
    double const length = std::hypot(cut.normal[0], cut.normal[1], cut.normal[2]);
    if (!(length > 0.0 && std::isfinite(length))) {
        cut.normal = {1.0, 0.0, 0.0};
        return cut;
    }
    std::transform(cut.normal.begin(), cut.normal.end(), cut.normal.begin(), [length](double n) { return n / length; });
    return cut;
}

} // namespace veldraw::kernel
