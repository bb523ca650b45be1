#include "app/plot/FaceSearch.h"

#include "kernel/base/Parallel.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace veldraw::app {

namespace {

constexpr std::uint32_t noPoint = std::numeric_limits<std::uint32_t>::max();

using Corners = std::array<std::uint32_t, 4>;

void order(std::uint32_t& a, std::uint32_t& b)
{
    if (b < a)
        std::swap(a, b);
}

Corners sortedCorners(std::int64_t const* cell, std::array<int, 4> const& face)
{
    auto const point = [cell](int corner) {
        return corner == CellFaces::noCorner ? noPoint : static_cast<std::uint32_t>(cell[corner]);
    };
    Corners corners = {point(face[0]), point(face[1]), point(face[2]), point(face[3])};
    order(corners[0], corners[1]);
    order(corners[2], corners[3]);
    order(corners[0], corners[2]);
    order(corners[1], corners[3]);
    order(corners[1], corners[2]);
    return corners;
}

std::uint32_t lowestCorner(std::int64_t const* cell, std::array<int, 4> const& face)
{
    std::int64_t const lowest = std::min({cell[face[0]], cell[face[1]], cell[face[2]]});
    return static_cast<std::uint32_t>(face[3] == CellFaces::noCorner ? lowest : std::min(lowest, cell[face[3]]));
}

std::size_t hashOf(Corners const& corners)
{
    std::uint64_t hash = corners[0];
    for (std::size_t n = 1; n < corners.size(); ++n)
        hash = (hash ^ corners[n]) * 0x9E3779B97F4A7C15U;
    return static_cast<std::size_t>(hash >> 29);
}

} // namespace

FaceSearch::FaceSearch(CellFaces const& cells, std::int64_t pointCount, kernel::Progress const& progress,
                       std::int64_t facesInRound)
    : m_cells(cells)
    , m_progress(progress)
    , m_facesInRound(facesInRound)
    , m_chunkCount(kernel::parallelChunkCount(cells.count()))
{
    while ((pointCount - 1) >> m_shift >= binCount)
        ++m_shift;
}

std::vector<std::int64_t> FaceSearch::find()
{
    count();
    std::vector<std::int64_t> found;
    for (std::int64_t bin = 0; bin < binCount;) {
        std::int64_t const end = endOfRound(bin);
        collect(bin, end);
        match(bin, end, found);
        bin = end;
    }
    std::sort(found.begin(), found.end());
    return found;
}

template <typename Body>
void FaceSearch::forEachFace(std::int64_t firstCell, std::int64_t lastCell, Body const& body) const
{
    for (std::int64_t cell = firstCell; cell < lastCell; ++cell) {
        CellFaces::Table const& table = m_cells.faces(cell);
        for (int face = 0; face < table.count; ++face)
            body(m_cells.corners(cell), table.faces[static_cast<std::size_t>(face)], cell * placesOfCell + face);
    }
}

void FaceSearch::count()
{
    m_counts.assign(static_cast<std::size_t>(m_chunkCount * binCount), 0);
    m_binsOfChunk.resize(static_cast<std::size_t>(m_chunkCount));
    kernel::parallelFor(m_cells.count(), [this](std::int64_t first, std::int64_t last, std::int64_t chunk) {
        m_progress.check();
        BinRange range;
        forEachFace(first, last, [&](auto const* corners, auto const& face, std::int64_t) {
            std::int64_t const bin = binOf(lowestCorner(corners, face));
            range = {std::min(range.first, bin), std::max(range.last, bin)};
            ++facesIn(chunk, bin);
        });
        m_binsOfChunk[static_cast<std::size_t>(chunk)] = range;
    });
}

// Chooses the bins of the next round, from firstBin on: at least one, and no more than a round has memory for. Computes where
// the faces of each bin begin.
std::int64_t FaceSearch::endOfRound(std::int64_t firstBin)
{
    m_starts.assign(1, 0);
    std::int64_t total = 0;
    std::int64_t bin = firstBin;
    for (; bin < binCount; ++bin) {
        std::int64_t inBin = 0;
        for (std::int64_t chunk = 0; chunk < m_chunkCount; ++chunk)
            inBin += facesIn(chunk, bin);
        if (bin > firstBin && total + inBin > m_facesInRound)
            break;
        for (std::int64_t chunk = 0; chunk < m_chunkCount; ++chunk)
            total += std::exchange(facesIn(chunk, bin), total);
        m_starts.push_back(total);
    }
    return bin;
}

void FaceSearch::collect(std::int64_t firstBin, std::int64_t endBin)
{
    m_faces.resize(static_cast<std::size_t>(m_starts.back()));
    kernel::parallelFor(m_cells.count(), [&](std::int64_t first, std::int64_t last, std::int64_t chunk) {
        m_progress.check();
        BinRange const& range = m_binsOfChunk[static_cast<std::size_t>(chunk)];
        if (range.last < firstBin || range.first >= endBin)
            return;
        forEachFace(first, last, [&](auto const* corners, auto const& face, std::int64_t place) {
            std::int64_t const bin = binOf(lowestCorner(corners, face));
            if (bin >= firstBin && bin < endBin)
                m_faces[static_cast<std::size_t>(facesIn(chunk, bin)++)] = {sortedCorners(corners, face), place};
        });
    });
}

void FaceSearch::match(std::int64_t firstBin, std::int64_t endBin, std::vector<std::int64_t>& found)
{
    std::int64_t const bins = endBin - firstBin;
    std::vector<std::vector<std::int64_t>> parts(static_cast<std::size_t>(kernel::parallelChunkCount(bins)));
    kernel::parallelFor(bins, [&](std::int64_t first, std::int64_t last, std::int64_t chunk) {
        std::vector<std::int64_t> table;
        for (std::int64_t bin = first; bin < last; ++bin) {
            m_progress.check();
            Face* const faces = m_faces.data() + m_starts[static_cast<std::size_t>(bin)];
            std::int64_t const count =
                m_starts[static_cast<std::size_t>(bin) + 1] - m_starts[static_cast<std::size_t>(bin)];
            matchBin(faces, count, table);
            for (std::int64_t n = 0; n < count; ++n)
                if (faces[n].place >= 0)
                    parts[static_cast<std::size_t>(chunk)].push_back(faces[n].place);
        }
    });
    for (std::vector<std::int64_t> const& part : parts)
        found.insert(found.end(), part.begin(), part.end());
}

// Marks the faces that are there more than once.
void FaceSearch::matchBin(Face* faces, std::int64_t count, std::vector<std::int64_t>& table)
{
    std::size_t size = 1;
    while (size < 2 * static_cast<std::size_t>(count))
        size *= 2;
    table.assign(size, -1);
    for (std::int64_t n = 0; n < count; ++n) {
        std::size_t slot = hashOf(faces[n].corners) & (size - 1);
        while (table[slot] >= 0 && faces[table[slot]].corners != faces[n].corners)
            slot = (slot + 1) & (size - 1);
        if (table[slot] < 0) {
            table[slot] = n;
            continue;
        }
        Face& other = faces[table[slot]];
        other.place = std::min(other.place, ~other.place);
        faces[n].place = ~faces[n].place;
    }
}

} // namespace veldraw::app
