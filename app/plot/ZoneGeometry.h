#pragma once

#include "app/plot/ZoneShape.h"
#include "app/plot/ZoneSource.h"
#include "kernel/base/Progress.h"

#include <vtkPolyData.h>
#include <vtkSmartPointer.h>

#include <array>
#include <memory>
#include <vector>

namespace veldraw::app {

/// Points, cells and normals that are drawn of a zone, without colours. Never changed once it is made.
///
/// It holds what is drawn in single precision, scaled to the scene, and nothing of the kernel's buffers: an edit of a
/// value needs no copy on account of the picture, and a deleted variable's memory is free at once.
class ZoneGeometry
{
public:
    using Numbers = std::vector<std::int64_t>;
    using Bounds = std::array<double, 6>;

    /// @param before an older geometry, whose unchanged parts are reused; may be null
    /// @throws kernel::Interrupted, std::bad_alloc
    static std::shared_ptr<ZoneGeometry const> create(ZoneSource const& source, ZoneGeometry const* before,
                                                      kernel::Progress const& progress);

    /// Roughly the number of points and corners of cells that create() would read.
    static std::int64_t work(GeometryKey const& key, ZoneGeometry const* before);

    GeometryKey const& key() const { return m_key; }
    vtkPolyData& drawing() const { return *m_drawing; }

    /// Where the points of a cut through cells are between those of the zone; empty for all else.
    std::vector<ZoneShape::Mix> const& mixes() const { return m_shape->mixes; }

    /// Which point, or value slot of a cell, each drawn one is; empty = in order.
    Numbers const& points() const { return m_ownPoints ? *m_ownPoints : m_shape->points; }
    Numbers const& cells() const { return m_ownCells ? *m_ownCells : m_shape->cells; }

    /// Low and high end of the drawn cells along each axis of the scene; a low end above the high one where none is drawn. Points
    /// in no cell do not count: what is hidden or has no place would stand for a place where nothing is seen.
    Bounds const& bounds() const { return m_bounds; }

    /// Whether it has the directions that a light needs.
    bool isLit() const;

    long long bytes() const;

    ZoneGeometry(ZoneGeometry const&) = delete;
    ZoneGeometry& operator=(ZoneGeometry const&) = delete;

private:
    explicit ZoneGeometry(GeometryKey key);
    bool takeOver(ZoneSource const& source, ZoneGeometry const& before);
    void build(ZoneSource const& source, kernel::Progress const& progress);
    void makeShape(ZoneSource const& source, kernel::Progress const& progress);
    void findBounds(bool areAllPlaced);
    void leaveOutUnplaced(vtkPoints& points);
    void addNormals(bool hasSharpEdges, kernel::Progress const& progress);

    GeometryKey m_key;
    bool m_isOfPoints = false;                // a one-dimensional ordered zone that is no curve
    std::shared_ptr<ZoneShape const> m_shape; // also keeps memory that the cells of the drawing stand in
    vtkSmartPointer<vtkPolyData> m_drawing;
    Bounds m_bounds{};
    std::shared_ptr<Numbers const> m_ownPoints; // where points were doubled at sharp edges; else null
    std::shared_ptr<Numbers const> m_ownCells;  // where cells were left out; else null
};

} // namespace veldraw::app
