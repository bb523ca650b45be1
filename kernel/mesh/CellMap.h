#pragma once

#include "kernel/compute/Box.h"
#include "kernel/data/Connectivity.h"

#include <optional>

namespace veldraw::kernel {

/// The map from a reference cell (unit triangle, square, tetrahedron, cube, pyramid or prism) to a cell, by the usual
/// multilinear shape functions, and its inverse.
///
/// Reference coordinates r, s, t run from 0 to 1 along the edges from the first corner: to the second corner, to the last
/// one of the base, to the first one above the base. Of a surface cell t is the distance from it.
///
/// A point belongs to a cell when its reference coordinates are in the reference cell, up to @c tolerance, and in a thin
/// cell up to what rounding makes of them. To a surface it belongs up to the distance @c surfaceTolerance. So a point on a
/// face belongs to the cells on both sides. A cell whose corners run the other way round is like any other. A flat one,
/// thinner than some 1e-12 of its size, contains nothing.
class CellMap
{
public:
    using Shape = Connectivity::Shape;

    static constexpr double tolerance = 1e-10;       ///< of reference coordinates
    static constexpr double surfaceTolerance = 1e-4; ///< relative to the sum of the sides of the cell's box
    static constexpr std::size_t mostCorners = 8;

    /// Sets the cell.
    /// @param shape of a fixed number of corners, and no line; @param corners finite, as many as the shape has
    void set(Shape shape, Point const* corners);

    /// Whether the cell contains nothing.
    bool isFlat() const { return m_isFlat; }

    /// Reference coordinates of a finite point; nothing when the cell does not contain it.
    std::optional<Point> locate(Point const& point) const;

    /// Values of the shape functions at a place: one a corner, with the sum 1.
    /// @return the number of corners
    std::size_t weigh(Point const& reference, double* weights) const;

private:
    /// The place that the map gives for some reference coordinates, and its derivatives by them.
    struct Image
    {
        Point place;
        std::array<Point, 3> derivatives;
    };

    void setTerms(Point const* corners);
    void setFrame(Point const* corners);
    Point inUnits(Point const& point) const;
    Point inFrame(Point const& vector) const;
    Image image(Point const& reference) const;
    bool isWarped() const;
    std::optional<Point> solve(Point const& place, Point reference) const;
    bool isInside(Point const& reference) const;

    Shape m_shape = Shape::Triangle;
    bool m_isFlat = true;
    double m_slack = 0; // tolerance of this cell

    // Coordinates are taken from the first corner, in units of the cell's size.
    Point m_origin{};
    double m_unit = 0;

    // place = r R + s S + t T + rs RS + st ST + rt RT + rst RST; of a pyramid rs / (1 - t) RS.
    Point m_r{}, m_s{}, m_t{}, m_rs{}, m_st{}, m_rt{}, m_rst{};

    // The inverse of the derivatives in the middle, by which places get into a frame where the cell is nearly the
    // reference cell; and the box of the corners there.
    std::array<Point, 3> m_inverse{};
    Point m_middle{};
    Point m_middlePlace{};
    Box m_box;
};

} // namespace veldraw::kernel
