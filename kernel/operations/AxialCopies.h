#pragma once

namespace veldraw::kernel {

/// How copies of a zone are spread about an axis: copy k, from 1 on, at offset + k * angle.
struct AxialCopies
{
    double angle = 0.0;  ///< degrees
    double offset = 0.0; ///< degrees
    int count = 1;
    bool addToStrands = true; ///< false: a strand of its own for each strand of the sources and each k
};

} // namespace veldraw::kernel
