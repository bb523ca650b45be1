#include "kernel/mesh/PointBins.h"

#include "kernel/base/Parallel.h"
#include "kernel/compute/ValueBlock.h"
#include "kernel/compute/WideLanes.h"

#include <atomic>
#include <cmath>
#include <stdexcept>

namespace veldraw::kernel {

namespace {

constexpr double pointsInBin = 1;
constexpr std::size_t manyInBin = 64; // more get a grid of their own

bool isFinite(Point const& point)
{
    return std::isfinite(point[0]) && std::isfinite(point[1]) && std::isfinite(point[2]);
}

/// Numbers of cubic bins along the axes of a box, about @p count altogether; 1 along an axis on which the box is thinner than
/// a bin.
std::array<std::uint32_t, 3> binsOf(Box const& box, double count)
{
    std::array<std::uint32_t, 3> bins{1, 1, 1};
    std::array<bool, 3> isCut{true, true, true};
    for (int round = 0; round < 3; ++round) {
        double logarithm = -std::log(count);
        int axes = 0;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            double const length = box.high[axis] - box.low[axis];
            isCut[axis] = isCut[axis] && length > 0 && std::isfinite(length);
            logarithm += isCut[axis] ? std::log(length) : 0;
            axes += isCut[axis] ? 1 : 0;
        }
        double const side = std::exp(logarithm / std::max(axes, 1));
        bool isDone = true;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            double const along = isCut[axis] ? (box.high[axis] - box.low[axis]) / side : 1;
            isDone = isDone && along >= 1;
            isCut[axis] = isCut[axis] && along >= 1;
            bins[axis] = along >= 1 && along <= 2 * count ? static_cast<std::uint32_t>(along) : 1;
        }
        if (isDone) {
            break;
        }
    }
    return bins;
}

/// As Grid::bin() does, for numbers of bins of 31 bits, which processors convert several of at a time.
VELDRAW_WIDE_LANES("avx512f", "avx2")
void findBins(double const* coordinates, std::size_t count, double low, double perLength, double last,
              std::uint32_t* bins)
{
    for (std::size_t at = 0; at < count; ++at) {
        double const from = (coordinates[at] - low) * perLength;
        double const above = from > 0.0 ? from : 0.0;
        bins[at] = static_cast<std::uint32_t>(static_cast<std::int32_t>(above < last ? above : last));
    }
}

} // namespace

/// Sorts the slots of finite places into the bins of grids, and finally reads their coordinates.
class PointBins::Builder
{
public:
    Builder(PointBins& bins, ValuePlaces const& places, Progress& progress)
        : m_bins(bins)
        , m_places(places)
        , m_progress(progress)
    {
    }

    void build()
    {
        collect();
        if (m_bins.m_slots.isEmpty()) {
            return;
        }
        addGrid(m_bins.m_box, 0, m_bins.m_slots.size());
        for (std::size_t grid = 0; grid < m_bins.m_grids.size(); ++grid) {
            addGridsWithin(grid);
        }
        returnFreedMemory(); // of sorting; the coordinates take the most
        readCoordinates();
    }

private:
    /// What is found in a chunk of all slots.
    struct Chunk
    {
        Box box;
        std::size_t count = 0; ///< of finite places
        std::vector<std::int64_t> leftOut;
    };

    Point placeOf(std::int64_t slot) const
    {
        Point point{};
        m_places.read(slot, point.data());
        return point;
    }

    void lookAtBlock(std::int64_t first, std::int64_t count, Chunk& chunk) const
    {
        for (std::int64_t slot = first; slot < first + count; ++slot) {
            if (!m_places.exists(slot)) {
                continue;
            }
            Point const point = placeOf(slot);
            if (isFinite(point)) {
                chunk.box.add(point);
                ++chunk.count;
            } else {
                chunk.leftOut.push_back(slot);
            }
        }
    }

    /// Finds the slots with a finite place, and the box of all places.
    void collect()
    {
        std::int64_t const count = m_places.slotCount();
        std::vector<Chunk> chunks(static_cast<std::size_t>(parallelChunkCount(count)));
        parallelFor(count, [&](std::int64_t first, std::int64_t last, std::int64_t chunk) {
            for (std::int64_t begin = first; begin < last; begin += blockSize) {
                m_progress.check();
                std::int64_t const size = std::min(blockSize, last - begin);
                lookAtBlock(begin, size, chunks[static_cast<std::size_t>(chunk)]);
                m_progress.advance(size);
            }
        });
        std::vector<std::size_t> starts{0};
        for (Chunk const& chunk : chunks) {
            m_bins.m_box.add(chunk.box);
            m_bins.m_leftOut.insert(m_bins.m_leftOut.end(), chunk.leftOut.begin(), chunk.leftOut.end());
            starts.push_back(starts.back() + chunk.count);
        }
        m_bins.m_slots = ZeroedArray<std::uint32_t>(starts.back());
        parallelFor(count, [&](std::int64_t first, std::int64_t last, std::int64_t chunk) {
            auto const& leftOut = chunks[static_cast<std::size_t>(chunk)].leftOut;
            auto next = leftOut.begin();
            std::uint32_t* slots = m_bins.m_slots.begin() + starts[static_cast<std::size_t>(chunk)];
            for (std::int64_t slot = first; slot < last; ++slot) {
                if (next != leftOut.end() && *next == slot) {
                    ++next;
                } else if (m_places.exists(slot)) {
                    *slots++ = static_cast<std::uint32_t>(slot);
                }
            }
        });
    }

    /// Adds a grid for the slots at the positions from @p first to @p last and puts these into the order of its bins.
    void addGrid(Box const& box, std::size_t first, std::size_t last)
    {
        Grid grid;
        grid.box = box;
        grid.bins = binsOf(box, std::max(1.0, static_cast<double>(last - first) / pointsInBin));
        for (std::size_t axis = 0; axis < 3; ++axis) {
            bool const isCut = grid.bins[axis] > 1;
            grid.binsPerLength[axis] = isCut ? grid.bins[axis] / (box.high[axis] - box.low[axis]) : 0;
        }
        grid.firstBin = m_bins.m_starts.size();
        m_bins.m_starts.resize(grid.firstBin + grid.binCount() + 1, static_cast<Position>(first));
        sort(grid, first, last);
        m_bins.m_grids.push_back(grid);
    }

    void sort(Grid const& grid, std::size_t first, std::size_t last)
    {
        auto const count = static_cast<std::int64_t>(last - first);
        ZeroedArray<std::uint32_t> binOf(last - first);
        std::vector<std::atomic<Position>> ends(
            grid.binCount());                        // at first the numbers of slots, then where the next one goes
        bool const isWhole = m_bins.m_grids.empty(); // the grids within count for nothing in the progress
        Progress part(m_progress, isWhole ? m_places.slotCount() : 0);
        part.setTotal(2 * count);
        forEachBlock(count, part, [&](std::int64_t begin, std::int64_t size) {
            for (auto at = static_cast<std::size_t>(begin); at < static_cast<std::size_t>(begin + size); ++at) {
                binOf[at] = static_cast<std::uint32_t>(grid.bin(placeOf(m_bins.m_slots[first + at])));
                ends[binOf[at]].fetch_add(1, std::memory_order_relaxed);
            }
        });
        auto next = static_cast<Position>(first);
        for (std::size_t bin = 0; bin < grid.binCount(); ++bin) {
            m_bins.m_starts[grid.firstBin + bin] = next;
            next += ends[bin].exchange(next, std::memory_order_relaxed);
        }
        m_bins.m_starts[grid.firstBin + grid.binCount()] = next;
        ZeroedArray<std::uint32_t> slots(last - first);
        std::copy(m_bins.m_slots.begin() + first, m_bins.m_slots.begin() + last, slots.begin());
        forEachBlock(count, part, [&](std::int64_t begin, std::int64_t size) {
            for (auto at = static_cast<std::size_t>(begin); at < static_cast<std::size_t>(begin + size); ++at) {
                m_bins.m_slots[ends[binOf[at]].fetch_add(1, std::memory_order_relaxed)] = slots[at];
            }
        });
    }

    /// Adds grids for the bins of a grid that have many slots at more than one place.
    void addGridsWithin(std::size_t number)
    {
        Grid const grid = m_bins.m_grids[number];
        if (grid.binCount() == 1) {
            return; // the places lie too close for numbers to tell
        }
        for (std::size_t bin = grid.firstBin; bin < grid.firstBin + grid.binCount(); ++bin) {
            std::size_t const first = m_bins.m_starts[bin];
            std::size_t const last = m_bins.m_starts[bin + 1];
            if (last - first <= manyInBin) {
                continue;
            }
            Box box;
            for (std::size_t position = first; position < last; ++position) {
                m_progress.check();
                box.add(placeOf(m_bins.m_slots[position]));
            }
            if (box.low != box.high) {
                noteGrid(number, bin);
                addGrid(box, first, last);
            }
        }
    }

    /// Notes that the next grid is that of a bin.
    void noteGrid(std::size_t number, std::size_t bin)
    {
        Grid& grid = m_bins.m_grids[number];
        if (!grid.hasGrids) {
            grid.hasGrids = true;
            grid.firstGrid = m_bins.m_gridOfBin.size();
            m_bins.m_gridOfBin.resize(grid.firstGrid + grid.binCount());
        }
        m_bins.m_gridOfBin[grid.firstGrid + bin - grid.firstBin] = static_cast<std::uint32_t>(m_bins.m_grids.size());
    }

    void readCoordinates()
    {
        std::size_t const count = m_bins.m_slots.size();
        m_bins.m_coordinates = ZeroedArray<double>(count * m_bins.m_dimensions);
        forEachBlock(static_cast<std::int64_t>(count), m_progress, [&](std::int64_t first, std::int64_t size) {
            for (auto at = static_cast<std::size_t>(first); at < static_cast<std::size_t>(first + size); ++at) {
                m_places.read(m_bins.m_slots[at], m_bins.m_coordinates.begin() + at * m_bins.m_dimensions);
            }
        });
    }

    PointBins& m_bins;
    ValuePlaces const& m_places;
    Progress& m_progress;
};

void PointBins::binsAlong(std::size_t axis, double const* coordinates, std::size_t count, std::uint32_t* bins) const
{
    if (m_grids.empty()) {
        return;
    }
    Grid const& grid = m_grids.front();
    if (grid.bins[axis] > static_cast<std::uint32_t>(std::numeric_limits<std::int32_t>::max())) {
        std::transform(coordinates, coordinates + count, bins,
                       [&](double coordinate) { return grid.bin(axis, coordinate); });
        return;
    }
    findBins(coordinates, count, grid.box.low[axis], grid.binsPerLength[axis], grid.bins[axis] - 1, bins);
}

PointBins::PointBins(ValuePlaces const& places, int dimensions, Progress& progress)
    : m_dimensions(static_cast<std::size_t>(dimensions))
{
    if (places.slotCount() >= std::numeric_limits<std::uint32_t>::max()) {
        throw std::runtime_error("The destination zone has too many points.");
    }
    progress.setTotal(3 * places.slotCount());
    Builder(*this, places, progress).build();
}

} // namespace veldraw::kernel
