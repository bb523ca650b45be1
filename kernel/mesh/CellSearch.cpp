#include "kernel/mesh/CellSearch.h"

#include "kernel/base/Parallel.h"
#include "kernel/compute/ValueBlock.h"
#include "kernel/mesh/CellOrder.h"
#include "kernel/mesh/RowBoxes.h"

#include <stdexcept>

namespace veldraw::kernel {

namespace {

constexpr std::int64_t cellsForAllThreads = 4096;
constexpr std::size_t effortUnchecked = 16384; // in places that are looked at; takes some milliseconds
constexpr std::size_t effortToLocate = 16;     // a place in a cell, with one more for each part of it

/// Into how many parts the places are cut, each of which is searched by itself, so that all threads have work where there
/// are few cells.
std::int64_t partsFor(std::int64_t cells)
{
    return std::max<std::int64_t>(1, cellsForAllThreads / std::max<std::int64_t>(cells, 1));
}

} // namespace

/// Goes through cells on one thread.
class CellSearch::Worker
{
public:
    Worker(CellSearch& search, ZoneCells const& cells, Progress& progress)
        : m_search(search)
        , m_points(search.m_points)
        , m_cells(cells)
        , m_firstNumber(search.m_firstNumbers.back())
        , m_progress(progress)
        , m_rowBoxes(cells)
    {
    }

    /// Looks for places of a part of all positions that a cell contains. @param isFirst whether the cell is to be counted
    void visit(std::int64_t slot, std::size_t first, std::size_t last, bool isFirst)
    {
        bool const isOrdered = m_cells.isOrdered(); // then the corners are asked for when a place is in the box
        Cell const cell = isOrdered ? Cell{m_cells.orderedShape(), nullptr, 0} : m_cells.cell(slot, m_room);
        if (isOrdered ? !reach(slot) : cell.cornerCount == 0) {
            return;
        }
        if (m_cells.isHidden(slot)) {
            m_hidden += isFirst ? 1 : 0;
            return;
        }
        std::optional<Box> const found = isOrdered ? m_rowBoxes.box(slot) : m_cells.box(cell.corners, cell.cornerCount);
        if (!found) {
            m_unplaced += isFirst ? 1 : 0;
            return;
        }
        m_slot = slot;
        m_isRead = false;
        auto const number = static_cast<Number>(m_firstNumber + slot);
        Box const box = isOrdered ? *found : widened(*found, cell.shape);
        auto const lookAt = [&](std::size_t begin, std::size_t end) {
            visitPlaces(std::max(begin, first), std::min(end, last), number, box);
        };
        if (isOrdered) {
            m_points.forPositions(rangeOf(slot), box, lookAt);
        } else {
            m_points.forPositions(box, lookAt);
        }
    }

    /// Adds what was counted to the counts of the search.
    void finish()
    {
        m_search.m_hiddenCount += m_hidden;
        m_search.m_unplacedCount += m_unplaced;
    }

private:
    /// How much a cell takes that is outside its box (see CellMap), as a part of the sum of its sides.
    double marginOf(Connectivity::Shape shape) const
    {
        bool const isSurfaceInSpace = Connectivity::isFace(shape) && m_points.dimensions() == 3;
        return isSurfaceInSpace ? CellMap::surfaceTolerance : CellMap::tolerance;
    }

    /// Goes to a cell of an ordered zone. Of some cells of its row at a time the bins are found that their boxes are in.
    bool reach(std::int64_t slot)
    {
        if (m_rowBoxes.has(slot)) {
            return true;
        }
        if (!m_rowBoxes.read(slot)) {
            return false;
        }
        m_rowBoxes.widen(m_points.dimensions(), marginOf(m_cells.orderedShape()));
        for (std::size_t axis = 0; axis < 3; ++axis) {
            m_points.binsAlong(axis, m_rowBoxes.low(axis), m_rowBoxes.count(), m_firstBins[axis].data());
            m_points.binsAlong(axis, m_rowBoxes.high(axis), m_rowBoxes.count(), m_lastBins[axis].data());
        }
        return true;
    }

    PointBins::BinRange rangeOf(std::int64_t slot) const
    {
        std::size_t const at = m_rowBoxes.place(slot);
        return {{m_firstBins[0][at], m_firstBins[1][at], m_firstBins[2][at]},
                {m_lastBins[0][at], m_lastBins[1][at], m_lastBins[2][at]}};
    }

    /// The box with all that the cell takes though it is a little outside.
    Box widened(Box box, Connectivity::Shape shape) const
    {
        double const sides = (box.high[0] - box.low[0]) + (box.high[1] - box.low[1]) + (box.high[2] - box.low[2]);
        double const margin = sides * marginOf(shape);
        for (std::size_t axis = 0; axis < m_points.dimensions(); ++axis) {
            box.low[axis] -= margin;
            box.high[axis] += margin;
        }
        return box;
    }

    void visitPlaces(std::size_t first, std::size_t last, Number number, Box const& box)
    {
        for (std::size_t position = first; position < last && !isFlat(); ++position) {
            if (++m_effort > effortUnchecked) { // a large cell may have any number of places in its box
                m_progress.check();
                m_effort = 0;
            }
            Point const point = m_points.point(position);
            if (box.contains(point) && m_search.m_found[position].load(std::memory_order_relaxed) > number) {
                visitPlace(position, point, number);
            }
        }
    }

    void visitPlace(std::size_t position, Point const& point, Number number)
    {
        if (!m_isRead) {
            readCell();
        }
        m_effort += effortToLocate + m_geometry.partCount();
        if (m_geometry.locate(point)) {
            m_search.take(position, number);
        }
    }

    void readCell()
    {
        m_isRead = true;
        if (!m_cells.isOrdered()) {
            m_geometry.read(m_cells, m_cells.cell(m_slot, m_room));
            return;
        }
        std::array<Point, CellMap::mostCorners> corners;
        m_rowBoxes.corners(m_slot, corners.data());
        m_geometry.read(m_cells.orderedShape(), corners.data());
    }

    /// Whether the cell is known to contain nothing, however many places are in its box.
    bool isFlat() const { return m_isRead && m_geometry.isFlat(); }

    /// Along each axis, of each of some cells.
    using BinNumbers = std::array<std::array<std::uint32_t, RowBoxes::cellsAtATime>, 3>;

    CellSearch& m_search;
    PointBins const& m_points;
    ZoneCells const& m_cells;
    std::int64_t m_firstNumber;
    Progress& m_progress;
    RowBoxes m_rowBoxes;
    BinNumbers m_firstBins; // of the boxes that were read
    BinNumbers m_lastBins;
    ZoneCells::Corners m_room{};
    std::int64_t m_slot = 0;
    CellGeometry m_geometry;  // of the cell with that slot
    bool m_isRead = false;    // once a place is in the box of that cell
    std::size_t m_effort = 0; // since the last look for a cancel
    std::int64_t m_hidden = 0;
    std::int64_t m_unplaced = 0;
};

CellSearch::CellSearch(PointBins const& points)
    : m_points(points)
    , m_found(points.size())
    , m_firstNumbers{0}
{
    for (std::atomic<Number>& number : m_found) {
        number.store(none, std::memory_order_relaxed);
    }
}

void CellSearch::addZone(ZoneCells const& cells, Progress& progress)
{
    std::int64_t const count = cells.slotCount();
    if (m_firstNumbers.back() + count >= none) {
        throw std::runtime_error("The source zones have too many cells.");
    }
    std::int64_t const parts = partsFor(count);
    std::size_t const size = m_points.size();
    auto const begin = [&](std::int64_t part) {
        return size * static_cast<std::size_t>(part) / static_cast<std::size_t>(parts);
    };
    progress.setTotal(2 * count * parts);
    std::optional<Progress> half;
    half.emplace(progress, count * parts);
    CellOrder const order(cells, m_points.box(), *half);
    half.emplace(progress, count * parts);
    parallelFor(count * parts, [&](std::int64_t first, std::int64_t last, std::int64_t) {
        Worker worker(*this, cells, *half);
        for (std::int64_t block = first; block < last; block += blockSize) {
            half->check();
            std::int64_t const end = std::min(block + blockSize, last);
            for (std::int64_t task = block; task < end; ++task) {
                for (int step = 0; step < 3 && !cells.isOrdered(); ++step) {
                    cells.fetchAhead(order.slot(std::min(task / parts + 24 - 8 * step, count - 1)), step);
                }
                std::int64_t const part = task % parts;
                worker.visit(order.slot(task / parts), begin(part), begin(part + 1), part == 0);
            }
            half->advance(end - block);
        }
        worker.finish();
    });
    m_firstNumbers.push_back(m_firstNumbers.back() + count);
}

/// Notes that a cell contains a place, unless a lower one does.
void CellSearch::take(std::size_t position, Number number)
{
    std::atomic<Number>& found = m_found[position];
    Number present = found.load(std::memory_order_relaxed);
    while (number < present && !found.compare_exchange_weak(present, number, std::memory_order_relaxed)) {
    }
}

std::optional<CellSearch::Found> CellSearch::cellAt(std::size_t position) const
{
    Number const number = m_found[position].load(std::memory_order_relaxed);
    if (number == none) {
        return std::nullopt;
    }
    auto const next = std::upper_bound(m_firstNumbers.begin(), m_firstNumbers.end(), std::int64_t{number});
    auto const zone = static_cast<std::size_t>(next - m_firstNumbers.begin()) - 1;
    return Found{zone, number - m_firstNumbers[zone]};
}

} // namespace veldraw::kernel
