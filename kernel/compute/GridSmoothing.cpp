#include "kernel/compute/GridSmoothing.h"

#include "kernel/base/Parallel.h"
#include "kernel/base/ZeroedArray.h"
#include "kernel/compute/GridTile.h"

#include <algorithm>
#include <mutex>
#include <thread>
#include <vector>

namespace veldraw::kernel {

namespace {

constexpr std::int64_t cachedBytes = 3 << 20; // what is used at a time stays in the caches of a processor
constexpr std::int64_t examinedAtOnce = 65536;
constexpr std::int64_t partsForThread = 4; // so that all threads have work until the end

/// Each pass in single precision may add half a last place to the error: of so many some three places are to be expected.
constexpr std::int64_t mostPassesInSingle = 64;

/// Passes that are made over a part at a time: the more axes, the more is computed around it for each of them.
std::int64_t passesAtATime(GridAxes const& axes)
{
    return axes.axes[1].hasEnds() ? 5 : 16;
}

/// The parts into which a grid is divided.
class GridDivision
{
public:
    /// @param cached numbers that fit into the cache
    GridDivision(GridAxes const& axes, std::int64_t passes, std::int64_t cached)
    {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            m_counts[axis] = axes.axes[axis].count;
        }
        std::int64_t const planes = (passes + 1) * std::min<std::int64_t>(3, m_counts[2]);
        std::int64_t const most = cached / planes;
        std::int64_t const least = 6 * passes; // so that what is computed around a part is not much beside it
        std::int64_t i = std::min(m_counts[0], std::max(least, most / (std::min(m_counts[1], least) + 2 * passes)));
        m_parts[0] = (m_counts[0] + i - 1) / i;
        std::int64_t const j = std::max(least, most / (i + 2 * passes) - 2 * passes);
        m_parts[1] = (m_counts[1] + j - 1) / j;
        std::int64_t const mostAlongLast = std::max<std::int64_t>(1, m_counts[2] / least);
        auto const wanted =
            partsForThread * static_cast<std::int64_t>(std::max(std::thread::hardware_concurrency(), 1U));
        m_parts[2] = std::clamp<std::int64_t>(wanted / (m_parts[0] * m_parts[1]), 1, mostAlongLast);
    }

    std::int64_t size() const { return m_parts[0] * m_parts[1] * m_parts[2]; }
    std::int64_t planes() const { return m_parts[0] * m_parts[1] * m_counts[2]; }

    GridSpans operator[](std::int64_t number) const
    {
        std::int64_t const numbers[3] = {number % m_parts[0], number / m_parts[0] % m_parts[1],
                                         number / m_parts[0] / m_parts[1]};
        GridSpans spans;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            spans[axis] = {border(axis, numbers[axis]), border(axis, numbers[axis] + 1)};
        }
        return spans;
    }

    /// Numbers for the passes over any part.
    std::int64_t room(std::int64_t passes) const
    {
        auto const longest = [this](std::size_t axis) { return m_counts[axis] / m_parts[axis] + 1; };
        return GridTile<double>::roomFor(passes, longest(0), longest(1));
    }

private:
    std::int64_t border(std::size_t axis, std::int64_t number) const
    {
        std::int64_t const even = m_counts[axis] / m_parts[axis];
        return number * even + std::min(number, m_counts[axis] % m_parts[axis]);
    }

    std::array<std::int64_t, 3> m_counts{};
    std::array<std::int64_t, 3> m_parts{};
};

/// Memory for each thread that computes a part, handed on from one part to the next.
template <typename Number>
class Rooms
{
public:
    using Room = std::unique_ptr<Number[]>;

    explicit Rooms(std::int64_t size)
        : m_size(static_cast<std::size_t>(size))
    {
    }

    Room take()
    {
        std::lock_guard<std::mutex> const lock(m_mutex);
        if (m_rooms.empty()) {
            return Room(new Number[m_size]);
        }
        Room room = std::move(m_rooms.back());
        m_rooms.pop_back();
        return room;
    }

    void giveBack(Room room)
    {
        std::lock_guard<std::mutex> const lock(m_mutex);
        m_rooms.push_back(std::move(room));
    }

private:
    std::size_t m_size;
    std::mutex m_mutex;
    std::vector<Room> m_rooms;
};

/// Calls @p body with the first index of a piece of a row, its length, and the row's other indices, on all cores.
template <typename Body>
void forEachPiece(GridAxes const& axes, Progress& progress, Body const& body)
{
    std::int64_t const length = axes.axes[0].count;
    std::int64_t const pieces = (length + examinedAtOnce - 1) / examinedAtOnce;
    std::int64_t const rows = axes.axes[1].count * axes.axes[2].count;
    parallelFor(rows * pieces, [&](std::int64_t begin, std::int64_t end, std::int64_t) {
        for (std::int64_t piece = begin; piece < end; ++piece) {
            progress.check();
            std::int64_t const row = piece / pieces;
            std::int64_t const first = piece % pieces * examinedAtOnce;
            body(first, std::min(examinedAtOnce, length - first), row % axes.axes[1].count, row / axes.axes[1].count);
        }
    });
}

std::int64_t slotOf(GridAxes const& axes, std::int64_t i, std::int64_t j, std::int64_t k)
{
    return i * axes.axes[0].stride + j * axes.axes[1].stride + k * axes.axes[2].stride;
}

/// Values that are held and are no holes.
std::int64_t heldNumbers(GridAxes const& axes, SmoothingValues const& values, Progress& progress)
{
    std::atomic<std::int64_t> holes{0};
    forEachPiece(axes, progress, [&](std::int64_t first, std::int64_t count, std::int64_t j, std::int64_t k) {
        bool const isRowHeld = !axes.axes[1].moving().contains(j) || !axes.axes[2].moving().contains(k);
        std::int64_t found = 0;
        for (std::int64_t i = first; values.hasHoles() && i < first + count; ++i) {
            bool const isHeld = isRowHeld || !axes.axes[0].moving().contains(i);
            found += isHeld && values.isHole(slotOf(axes, i, j, k)) ? 1 : 0;
        }
        holes += found;
    });
    return axes.heldCount() - holes;
}

/// The arrays that rounds of passes write to by turns, each round reading what the one before wrote. Where the new values have the
/// right type, their array is one of these.
template <typename Number>
class RoundArrays
{
public:
    RoundArrays(std::int64_t slots, std::int64_t rounds, SmoothingValues& values)
        : m_rounds(rounds)
        , m_results(values.newValues<Number>())
    {
        std::size_t const count = m_results != nullptr ? 1 : 2;
        m_own.resize(std::min(count, static_cast<std::size_t>(rounds - 1)));
        requireMemory(values.promisedBytes() +
                      static_cast<double>(m_own.size() * sizeof(Number)) * static_cast<double>(slots));
        for (ZeroedArray<Number>& array : m_own) {
            array = ZeroedArray<Number>(static_cast<std::size_t>(slots));
        }
    }

    /// Null for the last round, whose results are stored. The array that it reads is not that of the new values.
    Number* target(std::int64_t round)
    {
        std::int64_t const roundsAfter = m_rounds - 1 - round;
        if (roundsAfter % 2 != 0) {
            return m_own[0].begin();
        }
        return roundsAfter == 0 ? nullptr : m_results != nullptr ? m_results : m_own[1].begin();
    }

private:
    std::int64_t m_rounds;
    Number* m_results;
    std::vector<ZeroedArray<Number>> m_own;
};

/// Makes all passes, a few at a time over all parts.
template <typename Number>
double smoothInParts(GridAxes const& axes, SmoothingRule const& rule, SmoothingValues& values, Progress& progress)
{
    std::int64_t const atATime = std::min(passesAtATime(axes), rule.passes);
    std::int64_t const rounds = (rule.passes + atATime - 1) / atATime;
    GridDivision const parts(axes, atATime, cachedBytes / static_cast<std::int64_t>(sizeof(Number)));
    Rooms<Number> rooms(parts.room(atATime));
    progress.setTotal(rule.passes * parts.planes());
    RoundArrays<Number> arrays(slotOf(axes, axes.axes[0].count - 1, axes.axes[1].count - 1, axes.axes[2].count - 1) + 1,
                               rounds, values);
    std::vector<double> changes(static_cast<std::size_t>(parts.size()));
    GridPlace<Number> from{&values, nullptr};
    std::int64_t left = rule.passes;
    for (std::int64_t round = 0; round < rounds; ++round) {
        std::int64_t const passes = (left + rounds - round - 1) / (rounds - round);
        left -= passes;
        GridPlace<Number> const to{&values, arrays.target(round)};
        forEachInParallel(parts.size(), [&](std::int64_t number) {
            typename Rooms<Number>::Room room = rooms.take();
            GridTile<Number> tile(axes, rule.weight, values.hasHoles(), passes, from, to, parts[number], room.get());
            if (left == 0) {
                tile.measure();
            }
            changes[static_cast<std::size_t>(number)] = tile.run(progress);
            rooms.giveBack(std::move(room));
        });
        from = to;
    }
    return *std::max_element(changes.begin(), changes.end());
}

} // namespace

SmoothingOutcome smoothGrid(ValueGrid const& grid, SmoothingRule const& rule, BoundaryCondition_e condition,
                            SmoothingValues& values, Progress& progress)
{
    GridAxes const axes(grid, condition);
    forEachPiece(axes, progress, [&](std::int64_t first, std::int64_t count, std::int64_t j, std::int64_t k) {
        values.examine(slotOf(axes, first, j, k), count);
    });
    SmoothingOutcome outcome;
    outcome.held = heldNumbers(axes, values, progress);
    if (axes.hasInside()) {
        bool const inSingle = values.fitSingle() && rule.passes <= mostPassesInSingle;
        outcome.largestChange =
            values.inUnits((inSingle ? smoothInParts<float> : smoothInParts<double>)(axes, rule, values, progress));
    }
    return outcome;
}

} // namespace veldraw::kernel
