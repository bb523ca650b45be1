#pragma once

#include "kernel/storage/Buffer.h"

#include <vtkDataArray.h>
#include <vtkSmartPointer.h>

#include <memory>
#include <vector>

namespace veldraw::app {

/// Buffers as the components of one VTK array.
///
/// Those that are interleaved in one piece of memory are wrapped as they are; others are put side by side, and only those that
/// have gaps between their values are copied for it. Bits are copied always. The memory is held, not the buffers: one value can
/// still be edited in place meanwhile.
/// @param components at least one, all of one type, each of @p count values or more
/// @throws std::bad_alloc
vtkSmartPointer<vtkDataArray> joinedArray(std::vector<std::shared_ptr<kernel::Buffer const>> const& components,
                                          std::int64_t count);

} // namespace veldraw::app
