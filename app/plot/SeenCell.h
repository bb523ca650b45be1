#pragma once

#include "app/plot/PickRay.h"
#include "app/plot/ZoneGeometry.h"

#include <memory>
#include <optional>
#include <vector>

namespace veldraw::app {

/// What is to be found out about a position of a field plot: which drawn cell is seen there. It holds all that a search reads, so that
/// one may run on another thread.
struct SeenQuestion
{
    PickRay ray;
    double reach;                                            ///< in which lines and points are met, device pixels
    std::vector<std::shared_ptr<ZoneGeometry const>> things; ///< as they are drawn, the last one on top
};

/// The cell that is seen.
struct SeenCell
{
    std::size_t thing;
    std::int64_t cell; ///< zero-based number among those that are drawn
    double distance;   ///< of the place along the ray
};

/// Searches for the nearest cell; of several at the same place it is the one that is drawn on top. @return none when nothing is
/// there, or after an interrupt
std::optional<SeenCell> seenCell(SeenQuestion const& question, kernel::Progress const& progress = {});

} // namespace veldraw::app
