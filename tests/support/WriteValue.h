#pragma once

#include "kernel/storage/ShareGroup.h"

namespace veldraw::tests {

/// Stores a value, converted to the group's type, for all fields of a group: without a step and without an event.
inline void writeValue(kernel::ShareGroup& group, std::int64_t index, double value)
{
    group.writeBits(index, kernel::Buffer::bitsOf(group.type(), value), {});
}

} // namespace veldraw::tests
