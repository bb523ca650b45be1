#include "kernel/data/Connectivity.h"

namespace veldraw::kernel {

Connectivity::Shape Connectivity::shapeOf(ZoneType_e type)
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

int Connectivity::cornerCount(Shape shape)
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

} // namespace veldraw::kernel
