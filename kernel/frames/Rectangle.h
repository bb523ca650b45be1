#pragma once

#include <cmath>

namespace veldraw::kernel {

/// Position of the top left corner and size on the paper, in inches.
struct Rectangle
{
    double x = 0.0;
    double y = 0.0;
    double width = 0.0;
    double height = 0.0;

    /// Whether a frame can stand there: all is finite and the size not negative.
    bool isPlace() const
    {
        bool const isFinite = std::isfinite(x) && std::isfinite(y) && std::isfinite(width) && std::isfinite(height);
        return isFinite && width >= 0.0 && height >= 0.0;
    }
};

inline bool operator==(Rectangle const& a, Rectangle const& b)
{
    auto const same = [](double left, double right) { return !(left < right) && !(right < left); };
    return same(a.x, b.x) && same(a.y, b.y) && same(a.width, b.width) && same(a.height, b.height);
}

} // namespace veldraw::kernel
