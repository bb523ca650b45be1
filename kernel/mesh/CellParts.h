#pragma once

#include "kernel/data/Connectivity.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <array>
#include <cstddef>
#include <utility>

namespace veldraw::kernel {

/// The edges and sides of the cells of a finite-element zone. Sides are the faces of a solid, the edges of a surface cell and
/// the ends of a line: what it has in common with the cell beside it.
class CellParts
{
public:
    using Shape = Connectivity::Shape;

    /// @param cells outlives this
    CellParts(ZoneType_e type, Connectivity const& cells);

    std::int64_t cellCount() const { return m_cells.cellCount; }

    /// The first and behind the last of a cell's corners.
    std::pair<std::int64_t const*, std::int64_t const*> corners(std::int64_t cell) const
    {
        return {m_cells.indices + m_cells.offsets[cell], m_cells.indices + m_cells.offsets[cell + 1]};
    }

    /// Whether all cells are surfaces, whose edges are their sides.
    bool areSurfaces() const { return m_cells.shapes == nullptr && Connectivity::isFace(m_shape); }

    /// Calls @p body with the two points of each edge of a cell. An edge of a polyhedron comes up more than once.
    template <typename Body>
    void forEachEdge(std::int64_t cell, Body const& body) const;

    /// Calls @p body with a number for each side of a cell, its points as an array, and their number, 1 or more. The number is
    /// withSide()'s for that side.
    template <typename Body>
    void forEachSide(std::int64_t cell, Body const& body) const;

    /// Calls @p body with the points of a side and their number, without going through the other sides.
    template <typename Body>
    void withSide(std::int64_t cell, std::int64_t number, Body const& body) const;

private:
    using Edge = std::array<std::uint8_t, 2>;
    using Side = std::array<std::uint8_t, 4>; // the last two are the same in a triangle

    struct Solid
    {
        Edge const* edges;
        std::size_t edgeCount;
        Side const* sides;
        std::size_t sideCount;
    };

    static Solid solid(Shape shape);

    Shape shapeOf(std::int64_t cell) const { return m_cells.shapes != nullptr ? m_cells.shapes[cell] : m_shape; }
    bool isPolyhedron(std::int64_t cell, Shape shape) const
    {
        return shape == Shape::Polyhedron && m_cells.faceOffsets != nullptr && m_cells.faceOffsets[cell] >= 0;
    }

    Connectivity const& m_cells;
    Shape m_shape; // of all cells where they have none of their own
};

template <typename Body>
void CellParts::forEachEdge(std::int64_t cell, Body const& body) const
{
    Shape const shape = shapeOf(cell);
    std::int64_t const* const points = m_cells.indices + m_cells.offsets[cell];
    std::int64_t const count = m_cells.offsets[cell + 1] - m_cells.offsets[cell];
    auto const around = [&body](std::int64_t const* polygon, std::int64_t corners) {
        for (std::int64_t at = 0; at < corners; ++at) {
            body(polygon[at], polygon[at + 1 < corners ? at + 1 : 0]);
        }
    };
    if (shape == Shape::LineSegment) {
        for (std::int64_t at = 0; at + 1 < count; ++at) {
            body(points[at], points[at + 1]);
        }
    } else if (Connectivity::isFace(shape)) {
        around(points, count);
    } else if (isPolyhedron(cell, shape)) {
        std::int64_t const* face = m_cells.faceStream + m_cells.faceOffsets[cell];
        for (std::int64_t left = *face++; left > 0; --left) {
            around(face + 1, *face);
            face += *face + 1;
        }
    } else {
        Solid const parts = solid(shape);
        for (std::size_t at = 0; at < parts.edgeCount; ++at) {
            body(points[parts.edges[at][0]], points[parts.edges[at][1]]);
        }
    }
}

template <typename Body>
void CellParts::forEachSide(std::int64_t cell, Body const& body) const
{
    Shape const shape = shapeOf(cell);
    std::int64_t const corners = m_cells.offsets[cell + 1] - m_cells.offsets[cell];
    auto const give = [&](std::int64_t number) {
        withSide(cell, number, [&](std::int64_t const* points, std::int64_t count) { body(number, points, count); });
    };
    if (shape == Shape::LineSegment) {
        for (std::int64_t number = 0; number < 2 && corners > 0; ++number) {
            give(number);
        }
    } else if (isPolyhedron(cell, shape)) {
        std::int64_t const* const stream = m_cells.faceStream + m_cells.faceOffsets[cell];
        std::int64_t number = 1;
        for (std::int64_t left = *stream; left > 0; --left) {
            constexpr std::int64_t fewest = 3; // fewer enclose nothing
            if (stream[number] >= fewest) {
                give(number);
            }
            number += stream[number] + 1;
        }
    } else {
        std::int64_t const sides =
            Connectivity::isFace(shape) ? corners : static_cast<std::int64_t>(solid(shape).sideCount);
        for (std::int64_t number = 0; number < sides; ++number) {
            give(number);
        }
    }
}

template <typename Body>
void CellParts::withSide(std::int64_t cell, std::int64_t number, Body const& body) const
{
    Shape const shape = shapeOf(cell);
    auto const [points, end] = corners(cell);
    if (shape == Shape::LineSegment) {
        body(number == 0 ? points : end - 1, std::int64_t{1});
    } else if (Connectivity::isFace(shape)) {
        std::int64_t const side[] = {points[number], points + number + 1 < end ? points[number + 1] : *points};
        body(side, std::int64_t{2});
    } else if (isPolyhedron(cell, shape)) {
        std::int64_t const* const face = m_cells.faceStream + m_cells.faceOffsets[cell] + number;
        body(face + 1, *face);
    } else {
        Side const& corners = solid(shape).sides[number];
        std::int64_t const side[] = {points[corners[0]], points[corners[1]], points[corners[2]], points[corners[3]]};
        body(side, std::int64_t{4});
    }
}

} // namespace veldraw::kernel
