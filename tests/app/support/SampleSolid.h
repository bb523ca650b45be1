#pragma once

#include "kernel/data/DataSet.h"

#include <memory>

namespace veldraw::tests {

/// Zones of volume cells of every shape, made of the cubes of a lattice.
class SampleSolid
{
public:
    using Shape = kernel::Connectivity::Shape;

    /// n x n x n cubes, each cut into cells of one shape: five tetrahedra, six pyramids, two prisms or the brick itself. Points are
    /// numbered in no order, one of 31 cubes is missing.
    static std::shared_ptr<kernel::Zone> cubes(int n, ZoneType_e type, Shape shape);

    /// The same with bricks, prisms and pyramids in columns, a triangle apart from them, and last a line if wanted.
    static std::shared_ptr<kernel::Zone> everything(int n, bool withLine);
};

} // namespace veldraw::tests
