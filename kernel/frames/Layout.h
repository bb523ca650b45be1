#pragma once

#include "kernel/data/AuxiliaryData.h"

namespace veldraw::kernel {

/// All pages as one: what is on the screen. A new one begins whenever all pages are replaced.
struct Layout
{
    AuxiliaryData auxiliaryData;
};

} // namespace veldraw::kernel
