#include "kernel/frames/LinePlotAxes.h"

#include <cmath>

namespace veldraw::kernel {

std::string LinePlotAxes::refusal() const
{
    for (LineAxis const& axis : axes) {
        if (!std::isfinite(axis.min) || !std::isfinite(axis.max)) {
            return "The limits of an axis are finite numbers.";
        }
        if (!(axis.min < axis.max)) {
            return "The lower limit of an axis has to be below the upper one.";
        }
    }
    return {};
}

std::vector<std::string> const& LinePlotAxes::axisWords()
{
    static std::vector<std::string> const words{"x", "y", "y2"};
    return words;
}

bool operator==(LineAxis const& a, LineAxis const& b)
{
    auto const areSame = [](double left, double right) { return !(left < right) && !(left > right); };
    return a.isFixed == b.isFixed && areSame(a.min, b.min) && areSame(a.max, b.max) && a.title == b.title;
}

bool operator==(LinePlotAxes const& a, LinePlotAxes const& b)
{
    return a.axes == b.axes && a.title == b.title;
}

} // namespace veldraw::kernel
