#pragma once

#include "kernel/frames/FrameListChange.h"
#include "kernel/frames/Page.h"

namespace veldraw::kernel {

/// Where @p count frames stand in a grid over the whole paper of @p page, row by row.
std::vector<Rectangle> gridOver(Page const& page, std::size_t count);

/// The same for the frames that the page has or will have.
std::vector<FrameListChange::Placement> gridPlaces(Page const& page, std::vector<std::shared_ptr<Frame>> const& frames);

/// A place for one more frame: most of the paper, a little lower and further right for each frame that is there.
Rectangle nextFreePlace(Page const& page);

} // namespace veldraw::kernel
