#include "app/plot/SeenCell.h"

#include "app/plot/PickSearch.h"

namespace veldraw::app {

std::optional<SeenCell> seenCell(SeenQuestion const& question, kernel::Progress const& progress)
{
    std::optional<SeenCell> found;
    for (std::size_t thing = 0; thing < question.things.size(); ++thing) {
        ZoneGeometry const& geometry = *question.things[thing];
        ZoneGeometry::Bounds const& bounds = geometry.bounds();
        if (!(bounds[0] <= bounds[1]))
            continue; // nothing is drawn
        PickHit const hit = PickSearch(question.ray, geometry.drawing(), question.reach, bounds).nearest(progress);
        if (progress.isInterrupted())
            return std::nullopt;
        if (hit.isMiss() || (found && hit.distance > found->distance + question.ray.resolution()))
            continue;
        found = SeenCell{thing, hit.cell, hit.distance};
    }
    return found;
}

} // namespace veldraw::app
