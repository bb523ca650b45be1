#pragma once

#include "kernel/data/Zone.h"

#include <array>
#include <set>
#include <vector>

namespace veldraw::tests {

/// Smoothing as its definition says, by plain loops in extended precision. NaN is a hole.
namespace reference {

using Numbers = std::vector<long double>;

/// Values of a grid with these numbers of values along its axes, the first index fastest.
Numbers smoothGrid(Numbers values, std::array<std::int64_t, 3> const& counts, int passes, long double weight,
                   BoundaryCondition_e condition);

/// What values of a finite-element zone are next to, and which of them are at its border.
struct Mesh
{
    std::vector<std::set<std::size_t>> neighbors;
    std::vector<bool> border;
};

Mesh meshOfPoints(kernel::Zone const& zone);
Mesh meshOfCells(kernel::Zone const& zone);

Numbers smoothMesh(Numbers values, Mesh const& mesh, int passes, long double weight);

} // namespace reference

} // namespace veldraw::tests
