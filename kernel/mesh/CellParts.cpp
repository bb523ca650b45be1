#include "kernel/mesh/CellParts.h"

#include "kernel/mesh/ZoneCells.h"

namespace veldraw::kernel {

CellParts::CellParts(ZoneType_e type, Connectivity const& cells)
    : m_cells(cells)
    , m_shape(Connectivity::shapeOf(type))
{
}

CellParts::Solid CellParts::solid(Shape shape)
{
    static constexpr Edge ofTetrahedron[] = {{0, 1}, {1, 2}, {2, 0}, {0, 3}, {1, 3}, {2, 3}};
    static constexpr Edge ofPyramid[] = {{0, 1}, {1, 2}, {2, 3}, {3, 0}, {0, 4}, {1, 4}, {2, 4}, {3, 4}};
    static constexpr Edge ofPrism[] = {{0, 1}, {1, 2}, {2, 0}, {3, 4}, {4, 5}, {5, 3}, {0, 3}, {1, 4}, {2, 5}};
    static constexpr Edge ofBrick[] = {{0, 1}, {1, 2}, {2, 3}, {3, 0}, {4, 5}, {5, 6},
                                       {6, 7}, {7, 4}, {0, 4}, {1, 5}, {2, 6}, {3, 7}};
    static constexpr Side tetrahedron[] = {{0, 1, 2, 2}, {0, 1, 3, 3}, {1, 2, 3, 3}, {2, 0, 3, 3}};
    static constexpr Side pyramid[] = {{0, 1, 2, 3}, {0, 1, 4, 4}, {1, 2, 4, 4}, {2, 3, 4, 4}, {3, 0, 4, 4}};
    static constexpr Side prism[] = {{0, 1, 2, 2}, {3, 4, 5, 5}, {0, 1, 4, 3}, {1, 2, 5, 4}, {2, 0, 3, 5}};
    static constexpr Side brick[] = {{0, 1, 2, 3}, {4, 5, 6, 7}, {0, 1, 5, 4},
                                     {1, 2, 6, 5}, {2, 3, 7, 6}, {3, 0, 4, 7}};
    switch (shape) {
    case Shape::Tetrahedron:
        return {ofTetrahedron, std::size(ofTetrahedron), tetrahedron, std::size(tetrahedron)};
    case Shape::Pyramid:
        return {ofPyramid, std::size(ofPyramid), pyramid, std::size(pyramid)};
    case Shape::Prism:
        return {ofPrism, std::size(ofPrism), prism, std::size(prism)};
    case Shape::Brick:
        return {ofBrick, std::size(ofBrick), brick, std::size(brick)};
    default:
        return {nullptr, 0, nullptr, 0}; // a polyhedron without faces
    }
}

} // namespace veldraw::kernel
