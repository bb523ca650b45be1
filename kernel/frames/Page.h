#pragma once

#include "kernel/base/Identifier.h"
#include "kernel/data/AuxiliaryData.h"
#include "kernel/frames/Frame.h"

#include <memory>
#include <string>
#include <vector>

namespace veldraw::kernel {

/// A sheet of paper with frames on it, in drawing order. Sizes in inches.
struct Page
{
    Page();

    UniqueId id;
    std::string name;
    double paperWidth = 11.0;
    double paperHeight = 8.5;
    std::vector<std::shared_ptr<Frame>> frames;
    UniqueId activeFrame = 0;
    AuxiliaryData auxiliaryData;
};

/// A frame and its place on the paper.
struct FramePlacement
{
    std::shared_ptr<Frame> frame;
    Rectangle rectangle;
};

/// The places of @p count frames in a grid over the whole paper of @p page, row by row.
std::vector<Rectangle> gridOver(Page const& page, std::size_t count);

/// These places for @p frames, which need not be on the page yet.
std::vector<FramePlacement> gridPlaces(Page const& page, std::vector<std::shared_ptr<Frame>> const& frames);

/// A place for one more frame: most of the paper, a little lower and further right for each frame that is there.
Rectangle nextFreePlace(Page const& page);

} // namespace veldraw::kernel
