#pragma once

#include "kernel/compute/PlaneTriangulation.h"

namespace veldraw::kernel {

/// Which of some lines are loops, or parts of one.
///
/// A line whose last place is its first one is a loop. Others are joined where just two of their ends meet, and are parts of
/// a loop if they close up.
/// @param lines the places of each line
/// @throws std::bad_alloc
std::vector<bool> findLoops(std::vector<std::vector<PlanePlace>> const& lines);

} // namespace veldraw::kernel
