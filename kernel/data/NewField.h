#pragma once

#include "kernel/data/Field.h"

#include <cstddef>

namespace veldraw::kernel {

/// A field that an operation has made for a zone.
struct NewField
{
    std::size_t position; ///< zero-based among the zone's fields
    Field field;
};

} // namespace veldraw::kernel
