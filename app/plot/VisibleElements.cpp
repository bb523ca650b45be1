#include "app/plot/VisibleElements.h"

namespace veldraw::app {

namespace {

using kernel::Connectivity;

struct Lists
{
    std::vector<std::int64_t> offsets{0};
    std::vector<std::int64_t> indices;
    std::vector<Connectivity::Shape> shapes;
    std::vector<std::int64_t> faceOffsets;
    std::shared_ptr<Connectivity const> source; // keeps the faces of polyhedra
};

std::shared_ptr<Connectivity const> some(std::shared_ptr<Connectivity const> const& cells,
                                         std::vector<std::int64_t> const& numbers)
{
    auto const lists = std::make_shared<Lists>();
    lists->source = cells;
    for (std::int64_t const cell : numbers) {
        lists->indices.insert(lists->indices.end(), cells->indices + cells->offsets[cell],
                              cells->indices + cells->offsets[cell + 1]);
        lists->offsets.push_back(static_cast<std::int64_t>(lists->indices.size()));
        if (cells->shapes)
            lists->shapes.push_back(cells->shapes[cell]);
        if (cells->faceOffsets)
            lists->faceOffsets.push_back(cells->faceOffsets[cell]);
    }
    auto const result = std::make_shared<Connectivity>();
    result->cellCount = static_cast<std::int64_t>(numbers.size());
    result->indexCount = static_cast<std::int64_t>(lists->indices.size());
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

VisibleElements VisibleElements::of(kernel::Zone const& zone)
{
    VisibleElements result;
    for (std::int64_t cell = 0; cell < zone.connectivity->cellCount; ++cell)
        if (!zone.isHidden(ValueLocation_CellCentered, cell))
            result.cells.push_back(cell);
    auto const visible = std::make_shared<kernel::Zone>(zone.name, zone.type, zone.i,
                                                        static_cast<std::int64_t>(result.cells.size()), zone.k);
    visible->connectivity = some(zone.connectivity, result.cells);
    result.zone = visible;
    return result;
}

} // namespace veldraw::app
