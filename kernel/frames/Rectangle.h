#pragma once

namespace veldraw::kernel {

/// Position of the top left corner and size on the paper, in inches.
struct Rectangle
{
    double x = 0.0;
    double y = 0.0;
    double width = 0.0;
    double height = 0.0;
};

} // namespace veldraw::kernel
