#include "app/plot/CutShape.h"

#include "app/plot/IndexCut.h"
#include "app/plot/MixNumbers.h"
#include "app/plot/SoundCells.h"
#include "kernel/base/Parallel.h"

#include <utility>

namespace veldraw::app {

namespace {

using Meeting = CellCut::Meeting;
using Pieces = CellCut::Pieces;

struct AllPieces
{
    Pieces polygons;
    Pieces lines;
};

// A corner right on the surface is one place, however many ways lead to it.
void joinAtCorners(Pieces& pieces, CutLevels const& levels)
{
    auto const isOn = [&levels](std::int64_t point) {
        double const level = levels.at(point);
        return !(level < 0.0) && !(level > 0.0);
    };
    auto const count = static_cast<std::int64_t>(pieces.corners.size());
    for (std::int64_t n = 0; n < count; ++n) {
        Meeting& corner = pieces.corners[static_cast<std::size_t>(n)];
        if (isOn(corner.first))
            corner.second = corner.first;
        else if (isOn(corner.second))
            corner.first = corner.second;
    }
}

AllPieces cutAll(kernel::Zone const& zone, CrossedCells const& crossed, CutLevels const& levels,
                 kernel::Progress const& progress)
{
    auto const count = static_cast<std::int64_t>(crossed.slots().size());
    std::vector<AllPieces> parts(static_cast<std::size_t>(kernel::parallelChunkCount(count)));
    kernel::parallelFor(count, [&](std::int64_t first, std::int64_t last, std::int64_t part) {
        AllPieces& pieces = parts[static_cast<std::size_t>(part)];
        CellCut cell(zone, crossed);
        for (std::int64_t n = first; n < last; ++n) {
            if ((n - first) % 4096 == 0)
                progress.check();
            cell.cut(crossed.slots()[static_cast<std::size_t>(n)], pieces.polygons, pieces.lines);
        }
        joinAtCorners(pieces.polygons, levels);
        joinAtCorners(pieces.lines, levels);
    });
    AllPieces all;
    for (AllPieces const& part : parts) {
        all.polygons.append(part.polygons);
        all.lines.append(part.lines);
    }
    return all;
}

// Pieces that shrink to less than a side, as where a corner of a cell just touches the surface, are left out.
vtkSmartPointer<vtkCellArray> numbered(Pieces const& pieces, std::size_t least, MixNumbers& numbers, ZoneShape& shape)
{
    auto cells = vtkSmartPointer<vtkCellArray>::New();
    auto corner = pieces.corners.begin();
    std::vector<vtkIdType> ids;
    for (std::size_t n = 0; n < pieces.counts.size(); ++n) {
        ids.clear();
        for (int left = pieces.counts[n]; left > 0; --left) {
            vtkIdType const id = numbers.of(*corner++);
            if (ids.empty() || ids.back() != id)
                ids.push_back(id);
        }
        while (ids.size() > 1 && ids.back() == ids.front())
            ids.pop_back();
        if (ids.size() < least)
            continue;
        cells->InsertNextCell(static_cast<vtkIdType>(ids.size()), ids.data());
        shape.cells.push_back(pieces.cells[n]);
    }
    return cells;
}

std::vector<ZoneShape::Mix> mixesOf(std::vector<Meeting> const& places, CutLevels const& levels)
{
    std::vector<ZoneShape::Mix> mixes(places.size());
    kernel::parallelFor(static_cast<std::int64_t>(places.size()),
                        [&](std::int64_t first, std::int64_t last, std::int64_t) {
                            for (auto n = static_cast<std::size_t>(first); n < static_cast<std::size_t>(last); ++n) {
                                auto const [from, to] = places[n];
                                // Halves: the whole difference may be beyond the largest number.
                                double const before = 0.5 * levels.at(from);
                                mixes[n] = {from, to, from == to ? 0.0 : before / (before - 0.5 * levels.at(to))};
                            }
                        });
    return mixes;
}

} // namespace

ZoneShape CutShape::create(kernel::Zone const& zone, kernel::Cut const& cut, CutLevels levels,
                           kernel::Progress const& progress)
{
    if (cut.isOfIndex())
        return IndexCut::create(zone, cut.axis(), cut.position);
    bool const hasCells = zone.isOrdered() ? zone.dimensionality() > 1
                                           : zone.connectivity && areSound(*zone.connectivity, zone.pointCount());
    if (!hasCells || !levels.areKnown())
        return {};
    levels.prepare(zone, progress);
    CrossedCells const crossed(zone, levels, progress);
    AllPieces const pieces = cutAll(zone, crossed, levels, progress);
    progress.check();
    ZoneShape shape;
    MixNumbers numbers(pieces.polygons.corners.size() + pieces.lines.corners.size());
    shape.lines = numbered(pieces.lines, 2, numbers, shape);
    shape.polygons = numbered(pieces.polygons, 3, numbers, shape);
    shape.mixes = mixesOf(numbers.places(), levels);
    shape.pointCount = static_cast<std::int64_t>(shape.mixes.size());
    return shape;
}

} // namespace veldraw::app
