#pragma once

#include "kernel/frames/Frame.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace veldraw::kernel {

/// A walk over frames: which ones, and on which of them it stands. Empty: nobody walks.
struct FrameLoop
{
    std::vector<std::weak_ptr<Frame>> frames;
    std::size_t position = 0;
};

} // namespace veldraw::kernel
