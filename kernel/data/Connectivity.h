#pragma once

#include "platform/vdsdkbase/VelUtilTypes.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace veldraw::kernel {

/// The cells of a finite-element zone as lists of zero-based point indices. Shared between zones where it is equal,
/// immutable.
///
/// Cell c consists of the points indices[offsets[c]] ... indices[offsets[c + 1] - 1], in the corner order of the usual
/// tables for each shape. Memory is the object's own or adopted through @c owner.
struct Connectivity
{
    /// Shapes of cells, one byte each where a zone mixes them.
    enum class Shape : unsigned char
    {
        LineSegment,
        Triangle,
        Quad,
        Tetrahedron,
        Brick,
        Pyramid,
        Prism,
        Polygon,
        Polyhedron
    };

    /// Whether a cell of this shape has an area.
    static bool isFace(Shape shape)
    {
        return shape == Shape::Triangle || shape == Shape::Quad || shape == Shape::Polygon;
    }

    /// The one shape of the cells of a finite-element zone. Not for FEMixed and Ordered, which have none.
    static Shape shapeOf(ZoneType_e type);

    /// Corners of a cell of @p shape; 0 for polygons and polyhedra, which have any number.
    static int cornerCount(Shape shape);

    std::int64_t cellCount = 0;
    std::int64_t indexCount = 0;
    std::int64_t const* offsets = nullptr; ///< cellCount + 1 entries
    std::int64_t const* indices = nullptr; ///< indexCount entries
    Shape const* shapes = nullptr;         ///< cellCount entries, or null where all cells are of the zone's one shape

    /// Polyhedra only: the faces of cell c are faceStream[faceOffsets[c]] ...: the number of faces, then for each face
    /// its number of points and its points. Null otherwise, and faceOffsets[c] is -1 for a cell that is no polyhedron.
    std::int64_t const* faceOffsets = nullptr;
    std::int64_t const* faceStream = nullptr;
    std::int64_t faceStreamSize = 0;

    std::shared_ptr<void> owner; ///< keeps the arrays alive
};

} // namespace veldraw::kernel
