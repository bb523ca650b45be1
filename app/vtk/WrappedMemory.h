#pragma once

#include <vtkDataArray.h>
#include <vtkSmartPointer.h>

#include <cstdint>
#include <memory>

namespace veldraw::app {

/// VTK arrays over memory of ours, without a copy.
///
/// VTK hands nothing but the address to the function that frees an array, and shallow copies of the array share the
/// memory. So what keeps each address alive is noted here and dropped when VTK frees the address, once for each time it
/// was wrapped.
class WrappedMemory
{
public:
    /// A plain array over @p values values that stand side by side at @p memory.
    /// @param vtkType    VTK_FLOAT and so on; VTK_BIT takes bits, the highest of a byte first
    /// @param components values a tuple
    /// @param keeper     keeps @p memory alive; released when VTK no longer needs it
    static vtkSmartPointer<vtkDataArray> wrap(int vtkType, void const* memory, std::int64_t values, int components,
                                              std::shared_ptr<void const> keeper);

    /// The same for an empty array that is there already.
    static void setUp(vtkDataArray& array, void const* memory, std::int64_t values, int components,
                      std::shared_ptr<void const> keeper);

    /// Notes that @p memory needs @p keeper; for arrays that are set up elsewhere with release() as their free
    /// function.
    static void keep(void const* memory, std::shared_ptr<void const> keeper);

    /// Free function for VTK arrays; null is allowed.
    static void release(void* memory);
};

} // namespace veldraw::app
