#include "app/vtk/CellShapes.h"

#include <vtkCellType.h>

namespace veldraw::app {

using Shape = kernel::Connectivity::Shape;

unsigned char vtkCellTypeOf(Shape shape)
{
    switch (shape) {
    case Shape::LineSegment:
        return VTK_LINE;
    case Shape::Triangle:
        return VTK_TRIANGLE;
    case Shape::Quad:
        return VTK_QUAD;
    case Shape::Tetrahedron:
        return VTK_TETRA;
    case Shape::Brick:
        return VTK_HEXAHEDRON;
    case Shape::Pyramid:
        return VTK_PYRAMID;
    case Shape::Prism:
        return VTK_WEDGE;
    case Shape::Polygon:
        return VTK_POLYGON;
    case Shape::Polyhedron:
        break;
    }
    return VTK_POLYHEDRON;
}

Shape shapeOf(ZoneType_e type)
{
    switch (type) {
    case ZoneType_FELineSeg:
        return Shape::LineSegment;
    case ZoneType_FETriangle:
        return Shape::Triangle;
    case ZoneType_FEQuad:
        return Shape::Quad;
    case ZoneType_FETetra:
        return Shape::Tetrahedron;
    case ZoneType_FEBrick:
        return Shape::Brick;
    case ZoneType_FEPolygon:
        return Shape::Polygon;
    default:
        return Shape::Polyhedron;
    }
}

int cornerCount(Shape shape)
{
    switch (shape) {
    case Shape::LineSegment:
        return 2;
    case Shape::Triangle:
        return 3;
    case Shape::Quad:
    case Shape::Tetrahedron:
        return 4;
    case Shape::Pyramid:
        return 5;
    case Shape::Prism:
        return 6;
    case Shape::Brick:
        return 8;
    case Shape::Polygon:
    case Shape::Polyhedron:
        break;
    }
    return 0;
}

} // namespace veldraw::app
