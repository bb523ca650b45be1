#pragma once

#include "kernel/base/Identifier.h"

#include <set>

namespace veldraw::kernel {

/// Values of one zone that something beside the frames shows, for instance a table.
struct ShownValues
{
    UniqueId zone;
    std::set<UniqueId> variables;
};

} // namespace veldraw::kernel
