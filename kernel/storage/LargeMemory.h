#pragma once

#include <cstdint>
#include <memory>

namespace veldraw::kernel {

/// Zeroed memory, aligned to 64 bytes at least.
///
/// Large pieces come straight from the system on huge pages, since writing to fresh small pages costs more than the
/// arithmetic; they go back to the system the moment the last holder lets go.
/// @throws std::bad_alloc
std::shared_ptr<void> allocateZeroed(std::int64_t bytes);

} // namespace veldraw::kernel
