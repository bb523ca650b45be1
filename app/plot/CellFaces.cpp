#include "app/plot/CellFaces.h"

namespace veldraw::app {

namespace {

using Table = CellFaces::Table;

constexpr int none = CellFaces::noCorner;

constexpr Table noFaces{};
constexpr Table ofTetrahedron{4, {{{0, 1, 3, none}, {1, 2, 3, none}, {2, 0, 3, none}, {0, 2, 1, none}}}};
constexpr Table ofBrick{6, {{{0, 4, 7, 3}, {1, 2, 6, 5}, {0, 1, 5, 4}, {3, 7, 6, 2}, {0, 3, 2, 1}, {4, 5, 6, 7}}}};
constexpr Table ofPyramid{5, {{{0, 3, 2, 1}, {0, 1, 4, none}, {1, 2, 4, none}, {2, 3, 4, none}, {3, 0, 4, none}}}};
constexpr Table ofPrism{5, {{{0, 1, 2, none}, {3, 5, 4, none}, {0, 3, 4, 1}, {1, 4, 5, 2}, {2, 5, 3, 0}}}};

} // namespace

CellFaces::Table const& CellFaces::facesOf(Shape shape)
{
    switch (shape) {
    case Shape::Tetrahedron:
        return ofTetrahedron;
    case Shape::Brick:
        return ofBrick;
    case Shape::Pyramid:
        return ofPyramid;
    case Shape::Prism:
        return ofPrism;
    default:
        return noFaces;
    }
}

CellFaces::CellFaces(kernel::Zone const& zone)
    : m_cells(*zone.connectivity)
    , m_shape(kernel::Connectivity::shapeOf(zone.type))
{
}

CellFaces::Table const& CellFaces::faces(std::int64_t cell) const
{
    Shape const ofCell = shape(cell);
    return cornerCount(cell) == kernel::Connectivity::cornerCount(ofCell) ? facesOf(ofCell) : noFaces;
}

bool CellFaces::isFlat(Shape shape)
{
    return shape == Shape::LineSegment || shape == Shape::Triangle || shape == Shape::Quad || shape == Shape::Polygon;
}

} // namespace veldraw::app
