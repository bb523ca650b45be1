#include "kernel/frames/Page.h"

namespace veldraw::kernel {

Page::Page()
    : id(nextUniqueId())
{
}

std::vector<Rectangle> gridOver(Page const& page, std::size_t count)
{
    std::size_t columns = 1;
    while (columns * columns < count) {
        ++columns;
    }
    std::size_t const rows = count == 0 ? 1 : (count + columns - 1) / columns;
    double const width = page.paperWidth / static_cast<double>(columns);
    double const height = page.paperHeight / static_cast<double>(rows);
    std::vector<Rectangle> places;
    places.reserve(count);
    for (std::size_t at = 0; at < count; ++at) {
        places.push_back(
            {static_cast<double>(at % columns) * width, static_cast<double>(at / columns) * height, width, height});
    }
    return places;
}

std::vector<FramePlacement> gridPlaces(Page const& page, std::vector<std::shared_ptr<Frame>> const& frames)
{
    std::vector<Rectangle> const places = gridOver(page, frames.size());
    std::vector<FramePlacement> placements;
    for (std::size_t at = 0; at < frames.size(); ++at) {
        placements.push_back({frames[at], places[at]});
    }
    return placements;
}

Rectangle nextFreePlace(Page const& page)
{
    double const step = 0.25 * static_cast<double>(page.frames.size() % 8);
    return {0.5 + step, 0.5 + step, 0.7 * page.paperWidth, 0.7 * page.paperHeight};
}

} // namespace veldraw::kernel
