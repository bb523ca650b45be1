#include "app/vtk/WrappedMemory.h"

#include <mutex>
#include <unordered_map>

namespace veldraw::app {

namespace {

struct Keepers
{
    std::mutex mutex;
    std::unordered_multimap<void const*, std::shared_ptr<void const>> byAddress;
};

// Never destroyed: VTK objects may be released while the process ends.
Keepers& keepers()
{
    static auto* const all = new Keepers;
    return *all;
}

} // namespace

vtkSmartPointer<vtkDataArray> WrappedMemory::wrap(int vtkType, void const* memory, std::int64_t values, int components,
                                                  std::shared_ptr<void const> keeper)
{
    auto array = vtkSmartPointer<vtkDataArray>::Take(vtkDataArray::CreateDataArray(vtkType));
    setUp(*array, memory, values, components, std::move(keeper));
    return array;
}

void WrappedMemory::setUp(vtkDataArray& array, void const* memory, std::int64_t values, int components,
                          std::shared_ptr<void const> keeper)
{
    array.SetNumberOfComponents(components);
    if (values == 0)
        return;
    keep(memory, std::move(keeper));
    // The wrapped memory is immutable by agreement: nothing of ours writes through a VTK array that it has not made.
    array.SetVoidArray(const_cast<void*>(memory), values, 0, vtkAbstractArray::VTK_DATA_ARRAY_USER_DEFINED);
    array.SetArrayFreeFunction(&WrappedMemory::release);
}

void WrappedMemory::keep(void const* memory, std::shared_ptr<void const> keeper)
{
    std::lock_guard<std::mutex> const lock(keepers().mutex);
    keepers().byAddress.emplace(memory, std::move(keeper));
}

void WrappedMemory::release(void* memory)
{
    std::shared_ptr<void const> last; // dropped outside the lock: it may free further arrays
    std::unique_lock<std::mutex> lock(keepers().mutex);
    auto const found = keepers().byAddress.find(memory);
    if (found == keepers().byAddress.end())
        return;
    last = std::move(found->second);
    keepers().byAddress.erase(found);
    lock.unlock();
}

} // namespace veldraw::app
