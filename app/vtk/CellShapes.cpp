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

} // namespace veldraw::app
