#pragma once

#include "app/plot/ZoneGeometry.h"
#include "kernel/data/DataSet.h"

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::tests {

/// @param position along its axis, an index or a value, by the kind
inline kernel::Cut cutAt(kernel::CutKind kind, double position)
{
    kernel::Cut cut;
    cut.kind = kind;
    cut.position = position;
    return cut;
}

/// What a cut through a zone comes to, measured on the numbers that are drawn, in the coordinates of the data.
class CutMeasure
{
public:
    using Point = std::array<double, 3>;

    /// The cut through the first zone; variables 1, 2 and 3 are the coordinates.
    CutMeasure(kernel::DataSet const& dataSet, kernel::Cut const& cut);

    vtkPolyData& drawing() const { return m_geometry->drawing(); }
    app::ZoneGeometry const& geometry() const { return *m_geometry; }

    std::int64_t pointCount() const { return drawing().GetNumberOfPoints(); }
    std::int64_t cellCount() const { return drawing().GetNumberOfCells(); }

    /// The value of a variable at a drawn point, as the zone's values at its two points mix.
    double valueAt(std::int64_t point, int variable) const;
    Point placeOf(std::int64_t point) const { return {valueAt(point, 1), valueAt(point, 2), valueAt(point, 3)}; }

    /// Drawn points of a drawn cell, lines first.
    std::vector<std::int64_t> cornersOf(std::int64_t cell) const;

    double area() const;
    double length() const; ///< of all lines

    /// Sides of polygons that no second polygon has.
    std::vector<std::array<std::int64_t, 2>> openSides() const;

private:
    kernel::DataSet const& m_dataSet;
    std::shared_ptr<app::ZoneGeometry const> m_geometry;
};

/// Grids of the box from (0, 0, 0) to (1, 1, 1), and of others, with variables X, Y, Z and P.
namespace grids {

using Formula = std::function<double(CutMeasure::Point const&)>;
using Bend = std::function<CutMeasure::Point(CutMeasure::Point const&)>;

/// An ordered zone, bent, with P at the points.
std::shared_ptr<kernel::DataSet> ordered(int i, int j, int k, Formula const& p, Bend const& bend = {});

/// The same points and bricks, cut into cells of one type: bricks, tetrahedra (five a brick, which meet along equal faces where bricks
/// take turns), or polyhedra.
std::shared_ptr<kernel::DataSet> elements(ZoneType_e type, int n, Formula const& p);

/// Each brick cut into two prisms (shapes of six corners) or six pyramids around its middle, in a zone of mixed cells.
std::shared_ptr<kernel::DataSet> mixed(kernel::Connectivity::Shape shape, int n, Formula const& p);

/// Marks cells, by their numbers without unused slots, as hidden.
void hideCells(kernel::DataSet& dataSet, std::vector<int> const& cells);

} // namespace grids

} // namespace veldraw::tests
