#pragma once

#include "app/plot/CellFaces.h"
#include "app/plot/CrossedCells.h"

#include <array>
#include <cstdint>
#include <vector>

namespace veldraw::app {

/// Cuts cells of all shapes along a surface, one after the other.
///
/// On each face of a cell the surface runs around its corners that lie before, from where it meets the face's border to where it leaves
/// it. Two cells that share a face see the same lines on it, and the lines on all faces of a cell join to closed polygons: so the whole
/// surface has no gaps, whatever the shapes. A cell without a volume is its own only face, and gives lines.
class CellCut
{
public:
    /// Where the surface meets a cell: on the way between two points of the zone, the lower number first.
    struct Meeting
    {
        std::int64_t first;
        std::int64_t second;

        bool operator==(Meeting const& other) const { return first == other.first && second == other.second; }
    };

    /// Polygons, or lines, one behind the other.
    struct Pieces
    {
        std::vector<Meeting> corners;
        std::vector<int> counts;         ///< corners of each
        std::vector<std::int64_t> cells; ///< value slot of the cell that each is in

        void append(Pieces const& other);
    };

    /// @param zone with sound cells. Both are to outlive this.
    CellCut(kernel::Zone const& zone, CrossedCells const& crossed);

    /// Cuts the cell with a value slot and appends what comes of it. @throws std::bad_alloc
    void cut(std::int64_t slot, Pieces& polygons, Pieces& lines);

private:
    struct Line
    {
        Meeting from;
        Meeting to;
    };

    void cutOrdered(std::int64_t slot, Pieces& polygons, Pieces& lines);
    void cutByTable(std::int64_t const* corners, CellFaces::Table const& table);
    void cutPolyhedron(std::int64_t cell);
    void cutFace(std::int64_t const* corners, std::int64_t count);
    void joinLines(std::int64_t slot, Pieces& polygons);
    void takeLines(std::int64_t slot, Pieces& lines) const;
    bool goesOnFrom(Meeting& end);

    kernel::Zone const& m_zone;
    CrossedCells const& m_crossed;
    std::array<std::int64_t, 3> m_dimensions{};        // of an ordered zone
    std::vector<Line> m_lines;                         // of the present cell
    std::vector<bool> m_isUsed;                        // of each line
    std::vector<Meeting> m_loop;                       // the present polygon
    std::vector<std::pair<bool, Meeting>> m_crossings; // of the present face: whether its border gets before there
};

} // namespace veldraw::app
