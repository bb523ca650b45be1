#pragma once

#include <string>
#include <vector>

namespace veldraw::kernel {

/// Where the colours of a contour come from.
enum class ColourMapKind
{
    Viridis,
    Inferno,
    CoolToWarm,
    Rainbow,
    Grey
};

constexpr int colourMapCount = 5;

/// Which colours a frame gives to the values of its contour variable.
struct ContourColours
{
    static constexpr int mostLevels = 100;

    bool isFixed = false; ///< whether the limits count; otherwise the colours go over the values that are shown
    double min = 0.0;     ///< finite, and below the upper limit
    double max = 1.0;
    int levels = 0; ///< number of bands where the contour has bands; 0 for about ten between round numbers
    ColourMapKind map = ColourMapKind::Viridis;

    /// Why no contour has such colours, in one sentence; empty when one may have them.
    std::string refusal() const;

    /// The names of the colour maps in commands, in the order of the kinds.
    static std::vector<std::string> const& mapWords();
};

bool operator==(ContourColours const& a, ContourColours const& b);

} // namespace veldraw::kernel
