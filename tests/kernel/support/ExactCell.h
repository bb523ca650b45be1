#pragma once

#include "tests/kernel/support/MeshData.h"

namespace veldraw::tests {

/// A cell in extended precision, by formulas of its own: solids and quadrilaterals as bricks some of whose corners coincide, in
/// which a place is searched for from many starts; polygons and polyhedra as such pieces around their means.
class ExactCell
{
public:
    using Shape = kernel::Connectivity::Shape;

    struct Inside
    {
        long double margin; ///< least reference coordinate, or distance of one from 1; negative outside
        long double value;  ///< what the values at the corners mix to
    };

    /// @param values one for each point of the zone
    ExactCell(sample::CellLists const& cells, std::size_t cell, std::vector<double> const& values);

    /// How far inside a place is; -1 when it is far outside.
    Inside at(kernel::Point const& place) const;

private:
    struct Corner
    {
        std::array<long double, 3> place;
        long double value;
    };

    using Brick = std::array<Corner, 8>;

    static Corner meanOf(std::vector<Corner> const& corners);
    static Inside atBrick(Brick const& brick, kernel::Point const& place);

    std::vector<Brick> m_bricks;
    kernel::Box m_box;
};

} // namespace veldraw::tests
