#include "app/plot/SoundCells.h"

#include "kernel/base/Parallel.h"

#include <algorithm>
#include <atomic>

namespace veldraw::app {

using kernel::Connectivity;

namespace {

bool inRange(std::int64_t const* values, std::int64_t count, std::int64_t end)
{
    return std::all_of(values, values + count, [end](std::int64_t value) { return value >= 0 && value < end; });
}

// Whether @p holds(first, last) is true of every part of [0, count), asked on all cores.
template <typename Predicate>
bool holdsThroughout(std::int64_t count, Predicate const& holds)
{
    std::atomic<bool> result{true};
    kernel::parallelFor(count, [&](std::int64_t first, std::int64_t last, std::int64_t) {
        if (result && !holds(first, last))
            result = false;
    });
    return result;
}

// Faces of polyhedra: each list must end within the stream and name points of the zone.
bool hasSoundFaces(Connectivity const& cells, std::int64_t pointCount)
{
    if (!cells.faceOffsets)
        return true;
    for (std::int64_t cell = 0; cell < cells.cellCount; ++cell) {
        std::int64_t at = cells.faceOffsets[cell];
        if (at < 0)
            continue;
        if (!cells.faceStream || at >= cells.faceStreamSize)
            return false;
        std::int64_t const faces = cells.faceStream[at++];
        for (std::int64_t face = 0; face < faces; ++face) {
            std::int64_t const points = at < cells.faceStreamSize ? cells.faceStream[at++] : -1;
            if (points < 0 || points > cells.faceStreamSize - at || !inRange(cells.faceStream + at, points, pointCount))
                return false;
            at += points;
        }
    }
    return true;
}

} // namespace

bool areSound(Connectivity const& cells, std::int64_t pointCount)
{
    if (cells.cellCount <= 0 || !cells.offsets || !cells.indices)
        return false;
    if (cells.offsets[0] != 0 || cells.offsets[cells.cellCount] > cells.indexCount)
        return false;
    auto const areSorted = [&cells](std::int64_t first, std::int64_t last) {
        return std::is_sorted(cells.offsets + first, cells.offsets + last + 1);
    };
    auto const areInRange = [&](std::int64_t first, std::int64_t last) {
        return inRange(cells.indices + first, last - first, pointCount);
    };
    return holdsThroughout(cells.cellCount, areSorted) && holdsThroughout(cells.indexCount, areInRange) &&
           hasSoundFaces(cells, pointCount);
}

} // namespace veldraw::app
