#include "app/plot/VisibleElements.h"

#include "app/plot/GatherInOrder.h"

#include <algorithm>

namespace veldraw::app {

namespace {

using kernel::Connectivity;
using Numbers = std::vector<std::int64_t>;

struct Lists
{
    Numbers offsets{0};
    Numbers indices;
    std::vector<Connectivity::Shape> shapes;
    Numbers faceOffsets;
    std::shared_ptr<Connectivity const> source; // keeps the faces of polyhedra
};

// Where the corners of each of some cells begin when they stand one behind the other, with the end.
Numbers offsetsOf(Connectivity const& cells, Numbers const& numbers)
{
    Numbers offsets{0};
    offsets.reserve(numbers.size() + 1);
    for (std::int64_t const cell : numbers)
        offsets.push_back(offsets.back() + cells.offsets[cell + 1] - cells.offsets[cell]);
    return offsets;
}

std::shared_ptr<Connectivity const> some(std::shared_ptr<Connectivity const> const& cells, Numbers const& numbers,
                                         kernel::Progress const& progress)
{
    auto const lists = std::make_shared<Lists>();
    lists->source = cells;
    lists->offsets = offsetsOf(*cells, numbers);
    lists->indices.resize(static_cast<std::size_t>(lists->offsets.back()));
    lists->shapes.resize(cells->shapes ? numbers.size() : 0);
    lists->faceOffsets.resize(cells->faceOffsets ? numbers.size() : 0);
    auto const count = static_cast<std::int64_t>(numbers.size());
    kernel::parallelFor(count, [&](std::int64_t first, std::int64_t last, std::int64_t) {
        progress.check();
        for (auto n = static_cast<std::size_t>(first); n < static_cast<std::size_t>(last); ++n) {
            std::int64_t const cell = numbers[n];
            std::copy(cells->indices + cells->offsets[cell], cells->indices + cells->offsets[cell + 1],
                      lists->indices.data() + lists->offsets[n]);
            if (cells->shapes)
                lists->shapes[n] = cells->shapes[cell];
            if (cells->faceOffsets)
                lists->faceOffsets[n] = cells->faceOffsets[cell];
        }
    });
    auto const result = std::make_shared<Connectivity>();
    result->cellCount = count;
    result->indexCount = lists->offsets.back();
    result->offsets = lists->offsets.data();
    result->indices = lists->indices.data();
    result->shapes = cells->shapes ? lists->shapes.data() : nullptr;
    result->faceOffsets = cells->faceOffsets ? lists->faceOffsets.data() : nullptr;
    result->faceStream = cells->faceStream;
    result->faceStreamSize = cells->faceStreamSize;
    result->owner = lists;
    return result;
}

} // namespace

VisibleElements VisibleElements::of(kernel::Zone const& zone, kernel::Progress const& progress)
{
    VisibleElements result;
    auto const hidden = zone.hidden(ValueLocation_CellCentered);
    auto const find = [&hidden](std::int64_t first, std::int64_t last, auto const& take) {
        for (std::int64_t cell = first; cell < last; ++cell)
            if (!hidden || !hidden->contains(cell))
                take(cell);
    };
    result.cells = gatherInOrder(zone.connectivity->cellCount, find, progress);
    auto const visible = std::make_shared<kernel::Zone>(zone.name, zone.type, zone.i,
                                                        static_cast<std::int64_t>(result.cells.size()), zone.k);
    visible->connectivity = some(zone.connectivity, result.cells, progress);
    result.zone = visible;
    return result;
}

} // namespace veldraw::app
