#include "app/plot/CellCut.h"

#include <algorithm>

namespace veldraw::app {

using Shape = kernel::Connectivity::Shape;

void CellCut::Pieces::append(Pieces const& other)
{
    corners.insert(corners.end(), other.corners.begin(), other.corners.end());
    counts.insert(counts.end(), other.counts.begin(), other.counts.end());
    cells.insert(cells.end(), other.cells.begin(), other.cells.end());
}

CellCut::CellCut(kernel::Zone const& zone, CrossedCells const& crossed)
    : m_zone(zone)
    , m_crossed(crossed)
    , m_dimensions(zone.isOrdered() ? squeezedDimensions(zone) : std::array<std::int64_t, 3>{})
{
}

void CellCut::cut(std::int64_t slot, Pieces& polygons, Pieces& lines)
{
    m_lines.clear();
    if (m_zone.isOrdered())
        return cutOrdered(slot, polygons, lines);
    kernel::Connectivity const& cells = *m_zone.connectivity;
    Shape const shape = cells.shapes ? cells.shapes[slot] : kernel::Connectivity::shapeOf(m_zone.type);
    std::int64_t const* const corners = cells.indices + cells.offsets[slot];
    std::int64_t const count = cells.offsets[slot + 1] - cells.offsets[slot];
    if (kernel::Connectivity::isFace(shape)) {
        cutFace(corners, count);
        return takeLines(slot, lines);
    }
    if (shape == Shape::Polyhedron)
        cutPolyhedron(slot);
    else if (count == kernel::Connectivity::cornerCount(shape))
        cutByTable(corners, CellFaces::facesOf(shape));
    joinLines(slot, polygons);
}

void CellCut::cutOrdered(std::int64_t slot, Pieces& polygons, Pieces& lines)
{
    std::int64_t const row = m_dimensions[0];
    std::array<std::int64_t, 8> corners{slot, slot + 1, slot + row + 1, slot + row};
    if (m_dimensions[2] < 2) {
        cutFace(corners.data(), 4);
        return takeLines(slot, lines);
    }
    for (std::size_t n = 0; n < 4; ++n)
        corners[n + 4] = corners[n] + row * m_dimensions[1];
    cutByTable(corners.data(), CellFaces::facesOf(Shape::Brick));
    joinLines(slot, polygons);
}

void CellCut::cutByTable(std::int64_t const* corners, CellFaces::Table const& table)
{
    for (int n = 0; n < table.count; ++n) {
        std::array<std::int64_t, 4> face{};
        std::int64_t count = 0;
        for (int const corner : table.faces[static_cast<std::size_t>(n)])
            if (corner != CellFaces::noCorner)
                face[static_cast<std::size_t>(count++)] = corners[corner];
        cutFace(face.data(), count);
    }
}

void CellCut::cutPolyhedron(std::int64_t cell)
{
    kernel::Connectivity const& cells = *m_zone.connectivity;
    if (!cells.faceOffsets || cells.faceOffsets[cell] < 0)
        return;
    std::int64_t const* at = cells.faceStream + cells.faceOffsets[cell];
    for (std::int64_t faces = *at++; faces > 0; --faces) {
        std::int64_t const count = *at++;
        cutFace(at, count);
        at += count;
    }
}

// Notes where the border of the face is crossed, and whether it gets before the surface there; these take turns around the face.
void CellCut::cutFace(std::int64_t const* corners, std::int64_t count)
{
    m_crossings.clear();
    for (std::int64_t n = 0; n < count; ++n) {
        std::int64_t const here = corners[n];
        std::int64_t const next = corners[n + 1 < count ? n + 1 : 0];
        bool const isBefore = m_crossed.isBefore(next);
        if (m_crossed.isBefore(here) != isBefore)
            m_crossings.emplace_back(isBefore, Meeting{std::min(here, next), std::max(here, next)});
    }
    for (std::size_t n = 0; n < m_crossings.size(); ++n)
        if (m_crossings[n].first)
            m_lines.push_back({m_crossings[n].second, m_crossings[n + 1 < m_crossings.size() ? n + 1 : 0].second});
}

// Faces of a file may be given in any direction, so that a line may have to be gone along backwards.
bool CellCut::goesOnFrom(Meeting& end)
{
    for (std::size_t n = 0; n < m_lines.size(); ++n) {
        if (m_isUsed[n])
            continue;
        bool const isForward = m_lines[n].from == end;
        if (!isForward && !(m_lines[n].to == end))
            continue;
        m_isUsed[n] = true;
        end = isForward ? m_lines[n].to : m_lines[n].from;
        return true;
    }
    return false;
}

void CellCut::joinLines(std::int64_t slot, Pieces& polygons)
{
    m_isUsed.assign(m_lines.size(), false);
    for (std::size_t n = 0; n < m_lines.size(); ++n) {
        if (m_isUsed[n])
            continue;
        m_isUsed[n] = true;
        m_loop.assign(1, m_lines[n].from);
        Meeting end = m_lines[n].to;
        bool isOpen = false;
        while (!(end == m_loop.front()) && !isOpen) {
            m_loop.push_back(end);
            isOpen = !goesOnFrom(end);
        }
        if (isOpen || m_loop.size() < 3)
            continue; // of a cell whose faces do not close
        polygons.corners.insert(polygons.corners.end(), m_loop.begin(), m_loop.end());
        polygons.counts.push_back(static_cast<int>(m_loop.size()));
        polygons.cells.push_back(slot);
    }
}

void CellCut::takeLines(std::int64_t slot, Pieces& lines) const
{
    for (Line const& line : m_lines) {
        lines.corners.insert(lines.corners.end(), {line.from, line.to});
        lines.counts.push_back(2);
        lines.cells.push_back(slot);
    }
}

} // namespace veldraw::app
