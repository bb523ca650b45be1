#pragma once

#include "app/plot/CellFaces.h"
#include "kernel/base/Progress.h"

#include <cstdint>
#include <vector>

namespace veldraw::app {

/// Looks for the faces that one cell alone has, on all cores.
///
/// Two cells have a face in common when it has the same corners in both, in whatever order. Faces are sorted by their lowest
/// corner into bins, each of which is looked through by itself. There are as many rounds over the cells as it takes to have no more
/// than a few million faces in memory at once.
class FaceSearch
{
public:
    /// @param cells of points whose numbers fit into 32 bits
    /// @param pointCount the corners are below it
    FaceSearch(CellFaces const& cells, std::int64_t pointCount, kernel::Progress const& progress,
               std::int64_t facesInRound = std::int64_t{1} << 23);

    /// The place of a face: cell times placesOfCell plus its number in the cell.
    static constexpr std::int64_t placesOfCell = 8;

    /// Places of the faces that one cell alone has, in ascending order. @throws kernel::Interrupted, std::bad_alloc
    std::vector<std::int64_t> find();

private:
    static constexpr std::int64_t binCount = 4096;

    /// Bins of the faces of a chunk of cells; most chunks have neighbouring points and so a few bins only.
    struct BinRange
    {
        std::int64_t first = binCount;
        std::int64_t last = -1;
    };

    struct Face
    {
        std::array<std::uint32_t, 4> corners; ///< ascending, the last of a triangle is the highest number there is
        std::int64_t place;                   ///< its complement once another cell has the face too
    };

    std::int64_t binOf(std::uint32_t corner) const { return static_cast<std::int64_t>(corner) >> m_shift; }
    std::int64_t& facesIn(std::int64_t chunk, std::int64_t bin)
    {
        return m_counts[static_cast<std::size_t>(chunk * binCount + bin)];
    }

    template <typename Body>
    void forEachFace(std::int64_t firstCell, std::int64_t lastCell, Body const& body) const;

    void count();
    std::int64_t endOfRound(std::int64_t firstBin);
    void collect(std::int64_t firstBin, std::int64_t endBin);
    void match(std::int64_t firstBin, std::int64_t endBin, std::vector<std::int64_t>& found);
    static void matchBin(Face* faces, std::int64_t count, std::vector<std::int64_t>& table);

    CellFaces const& m_cells;
    kernel::Progress const& m_progress;
    std::int64_t m_facesInRound;
    int m_shift = 0;
    std::int64_t m_chunkCount;
    std::vector<BinRange> m_binsOfChunk;
    std::vector<std::int64_t> m_counts; // faces by chunk of cells and bin; in a round, where the chunk's next one goes
    std::vector<std::int64_t> m_starts; // of the bins in a round, with the end
    std::vector<Face> m_faces;          // of a round, bin by bin
};

} // namespace veldraw::app
