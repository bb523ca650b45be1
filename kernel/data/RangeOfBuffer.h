#pragma once

#include "kernel/data/Buffer.h"
#include "kernel/data/ValueRange.h"

#include <array>

namespace veldraw::kernel {

/// Smallest and largest finite value of @p buffer, computed on all cores; Unknown when there is no finite value.
ValueRange rangeOfBuffer(Buffer const& buffer);

/// The same over the cells of an ordered zone with the point dimensions @p dims, values addressed with nodal strides.
ValueRange rangeOfCells(Buffer const& buffer, std::array<std::int64_t, 3> const& dims);

} // namespace veldraw::kernel
