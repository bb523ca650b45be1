#pragma once

#include "kernel/frames/Page.h"

namespace veldraw::kernel {

/// Where @p count frames stand in a grid over the whole paper of @p page, row by row.
std::vector<Rectangle> gridOver(Page const& page, std::size_t count);

/// A place for one more frame: most of the paper, a little lower and further right for each frame that is there.
Rectangle nextFreePlace(Page const& page);

} // namespace veldraw::kernel
