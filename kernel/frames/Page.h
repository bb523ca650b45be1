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

} // namespace veldraw::kernel
