#pragma once

#include <array>
#include <string>
#include <vector>

namespace veldraw::kernel {

/// Which axis of a line plot.
enum class LineAxisKind
{
    X,
    Y,
    Y2 ///< at the right side
};

constexpr int lineAxisCount = 3;

/// An axis of a line plot.
struct LineAxis
{
    bool isFixed = false; ///< whether it goes from min to max; otherwise over all values of its curves
    double min = 0.0;     ///< finite, and below the upper limit
    double max = 1.0;
    std::string title; ///< empty: the names of the variables
};

bool operator==(LineAxis const& a, LineAxis const& b);

/// The axes of a line plot, and what stands above them.
struct LinePlotAxes
{
    std::array<LineAxis, lineAxisCount> axes;
    std::string title; ///< of the plot; empty for none

    LineAxis& at(LineAxisKind kind) { return axes[static_cast<std::size_t>(kind)]; }
    LineAxis const& at(LineAxisKind kind) const { return axes[static_cast<std::size_t>(kind)]; }

    /// Why no plot has such axes, in one sentence; empty when one may have them.
    std::string refusal() const;

    /// The names of the axes in commands.
    static std::vector<std::string> const& axisWords();
};

bool operator==(LinePlotAxes const& a, LinePlotAxes const& b);

} // namespace veldraw::kernel
