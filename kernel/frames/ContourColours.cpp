#include "kernel/frames/ContourColours.h"

#include <cmath>

namespace veldraw::kernel {

std::string ContourColours::refusal() const
{
    if (!std::isfinite(min) || !std::isfinite(max)) {
        return "The limits of a contour are finite numbers.";
    }
    if (!(min < max)) {
        return "The lower limit of a contour has to be below the upper one.";
    }
    if (levels < 0 || levels > mostLevels) {
        return "A contour has up to " + std::to_string(mostLevels) + " levels.";
    }
    bool const exists = static_cast<int>(map) >= 0 && static_cast<int>(map) < colourMapCount;
    return exists ? "" : "There is no such colour map.";
}

std::vector<std::string> const& ContourColours::mapWords()
{
    static std::vector<std::string> const words{"viridis", "inferno", "cool-to-warm", "rainbow", "grey"};
    return words;
}

bool operator==(ContourColours const& a, ContourColours const& b)
{
    auto const areSame = [](double left, double right) { return !(left < right) && !(left > right); };
    return a.isFixed == b.isFixed && areSame(a.min, b.min) && areSame(a.max, b.max) && a.levels == b.levels &&
           a.map == b.map;
}

} // namespace veldraw::kernel
