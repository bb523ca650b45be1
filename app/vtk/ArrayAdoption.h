#pragma once

#include "kernel/storage/Buffer.h"

#include <vtkDataArray.h>

#include <memory>
#include <string>
#include <vector>

namespace veldraw::app {

/// The components of a VTK array as kernel buffers.
struct AdoptedArray
{
    std::vector<std::shared_ptr<kernel::Buffer>> components;
    std::string remark; ///< what was converted, in words for the user; empty when nothing was
};

/// Turns a VTK array into one buffer a component, without a copy where the kernel has the type.
///
/// The buffers of one array are interleaved (stride = number of components) and share the owner, which keeps the VTK
/// array alive. Types that the kernel lacks are converted to one that holds each of their values exactly, whatever values
/// there are: 8-bit signed integers to 16-bit, 16-bit unsigned to 32-bit, 32-bit unsigned to double. 64-bit integers become
/// double too.
/// @param array is not to be changed by anybody else afterwards
/// @throws std::bad_alloc
AdoptedArray adoptArray(vtkDataArray& array);

} // namespace veldraw::app
