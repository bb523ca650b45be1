#include "kernel/operations/InterpolateLinearly.h"

#include "kernel/base/Parallel.h"
#include "kernel/base/Text.h"
#include "kernel/compute/ValueBlock.h"
#include "kernel/mesh/MixedValue.h"
#include "kernel/operations/SourceCells.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <stdexcept>

namespace veldraw::kernel {

namespace {

constexpr std::size_t effortUnchecked = 16384; // in parts of cells that are looked at

/// Has what the next places need brought into the cache: the farther ahead, the less of their cells is known yet.
void fetchAhead(CellSearch const& search, std::vector<ZoneCells> const& cells, std::int64_t at, std::int64_t count)
{
    for (int step = 0; step < 3; ++step) {
        auto const ahead = static_cast<std::size_t>(std::min(at + 24 - 8 * step, count - 1));
        if (auto const soon = search.cellAt(ahead)) {
            cells[soon->zone].fetchAhead(soon->slot, step);
        }
    }
}

} // namespace

std::string InterpolateLinearly::reasonAgainst() const
{
    std::string reason = Interpolation::reasonAgainst();
    if (!reason.empty()) {
        return reason;
    }
    for (int const number : sources()) {
        Zone const& zone = *dataSet().zone(number);
        reason = zone.isDeferred() ? "" : reasonAgainstCells(zone.name, zone.dimensionality(), dimensions());
        if (!reason.empty()) {
            return reason;
        }
    }
    return {};
}

InterpolateLinearly::Sources InterpolateLinearly::cellsOfSources() const
{
    Sources cells;
    for (int const number : sources()) {
        cells.push_back(sourceCells(*frame(), load(), number, dimensions()));
    }
    return cells;
}

std::string InterpolateLinearly::interpolate(Fields const& fields, Progress& progress)
{
    Sources const cells = cellsOfSources();
    std::vector<Group> groups;
    for (ValueLocation_e const location : {ValueLocation_Nodal, ValueLocation_CellCentered}) {
        Group group{places(destination(), location), {}};
        for (auto const& field : fields) {
            if (field->location() == location) {
                group.targets.push_back(field.get());
            }
        }
        if (!group.targets.empty()) {
            groups.push_back(std::move(group));
        }
    }
    std::int64_t const cellCount = std::accumulate(cells.begin(), cells.end(), std::int64_t{0},
                                                   [](auto sum, auto const& zone) { return sum + zone.slotCount(); });
    std::int64_t total = progress.done();
    for (Group const& group : groups) {
        total += cellCount + 2 * group.places.slotCount();
    }
    progress.setTotal(total);
    Counts counts;
    counts.areOfCellsToo = groups.size() > 1;
    for (Group const& group : groups) {
        interpolateGroup(group, cells, counts, progress);
    }
    return report(counts);
}

void InterpolateLinearly::interpolateGroup(Group const& group, Sources const& cells, Counts& counts,
                                           Progress& progress) const
{
    std::optional<Progress> part;
    part.emplace(progress, group.places.slotCount());
    PointBins const bins(group.places, dimensions(), *part);
    CellSearch search(bins);
    for (ZoneCells const& zone : cells) {
        part.emplace(progress, zone.slotCount());
        search.addZone(zone, *part);
    }
    part.emplace(progress, group.places.slotCount());
    fill(group, search, bins, cells, counts, *part);
    for (std::int64_t const slot : bins.leftOut()) {
        fillOutside(group, slot);
    }
    auto const misplaced = static_cast<std::int64_t>(bins.leftOut().size());
    counts.outside += misplaced;
    counts.misplaced += misplaced;
    counts.hiddenCells = search.hiddenCount();
    counts.unplacedCells = search.unplacedCount();
}

InterpolateLinearly::ValuesOfGroup InterpolateLinearly::valuesOf(Group const& group) const
{
    ValuesOfGroup result;
    for (InterpolatedField const* const target : group.targets) {
        result.emplace_back();
        for (int const zone : sources()) {
            result.back().push_back(
                {QuickReader(values(zone, target->variable())), dataSet().field(zone, target->variable())->location()});
        }
    }
    return result;
}

/// Stores the values of all places whose coordinates are finite.
void InterpolateLinearly::fill(Group const& group, CellSearch const& search, PointBins const& bins,
                               Sources const& cells, Counts& counts, Progress& progress) const
{
    ValuesOfGroup const values = valuesOf(group);
    auto const count = static_cast<std::int64_t>(bins.size());
    progress.setTotal(count);
    parallelFor(count, [&](std::int64_t first, std::int64_t last, std::int64_t) {
        CellReader reader(cells);
        std::int64_t outside = 0; // what all threads count is not counted one by one
        std::int64_t withoutNumber = 0;
        std::size_t effort = 0;
        for (std::int64_t at = first; at < last; ++at) {
            if (at % blockSize == 0) {
                progress.check();
                progress.advance(std::min(blockSize, last - at));
            }
            fetchAhead(search, cells, at, count);
            auto const position = static_cast<std::size_t>(at);
            std::optional<CellSearch::Found> const found = search.cellAt(position);
            if (found) {
                auto const& weights = reader.weights(*found, bins.point(position));
                withoutNumber += fillInside(group, values, *found, weights, bins.slot(position));
            } else {
                fillOutside(group, bins.slot(position));
                ++outside;
            }
            effort += reader.partCount();
            if (effort > effortUnchecked) {
                progress.check();
                effort = 0;
            }
        }
        counts.outside += outside;
        counts.withoutNumber += withoutNumber;
    });
}

/// Stores what the values at the corners mix to, for all variables. @return how many values are no finite number
std::int64_t InterpolateLinearly::fillInside(Group const& group, ValuesOfGroup const& values,
                                             CellSearch::Found const& cell, std::vector<WeightedPoint> const& weights,
                                             std::int64_t slot) const
{
    std::int64_t withoutNumber = 0;
    for (std::size_t variable = 0; variable < group.targets.size(); ++variable) {
        SourceValues const& source = values[variable][cell.zone];
        double const value =
            source.location == ValueLocation_Nodal ? mixedValue(source.values, weights) : source.values.at(cell.slot);
        if (std::isfinite(value)) {
            group.targets[variable]->set(slot, value);
        } else {
            fillOutside(*group.targets[variable], slot);
            ++withoutNumber;
        }
    }
    return withoutNumber;
}

void InterpolateLinearly::fillOutside(Group const& group, std::int64_t slot) const
{
    for (InterpolatedField* const target : group.targets) {
        fillOutside(*target, slot);
    }
}

void InterpolateLinearly::fillOutside(InterpolatedField& target, std::int64_t slot) const
{
    if (m_mode == LinearInterpMode_SetToConstant) {
        target.set(slot, m_constant);
    }
}

std::string InterpolateLinearly::report(Counts const& counts) const
{
    std::string const noun = counts.areOfCellsToo ? "place" : "point";
    std::string text = counts.outside == 0 ? "No " + noun + " was outside the source cells."
                                           : "Outside the source cells: " + counted(counts.outside, noun) + ".";
    auto const add = [&text](std::int64_t count, std::string const& what, std::string const& fate) {
        text += count == 0 ? "" : " " + counted(count, what) + fate;
    };
    add(counts.misplaced, noun, " of these without finite coordinates.");
    add(counts.withoutNumber, "value", " treated as outside, where a source value is not finite.");
    if (counts.outside + counts.withoutNumber > 0) {
        text += m_mode == LinearInterpMode_SetToConstant
                    ? " What is outside got the constant " + textOf(m_constant) + "."
                    : std::string(" What is outside kept what it had.");
    }
    add(counts.hiddenCells, "hidden source cell", " left out.");
    add(counts.unplacedCells, "source cell", " without finite coordinates left out.");
    return text;
}

CommandText InterpolateLinearly::command() const
{
    return withZones("interpolate-linearly")
        .word("outside", m_mode == LinearInterpMode_SetToConstant ? "constant" : "unchanged")
        .real("constant", m_constant);
}

} // namespace veldraw::kernel
