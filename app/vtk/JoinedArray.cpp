#include "app/vtk/JoinedArray.h"

#include "app/vtk/DataTypes.h"
#include "app/vtk/WrappedMemory.h"

#include <vtkBitArray.h>
#include <vtkNew.h>
#include <vtkSOADataArrayTemplate.h>

namespace veldraw::app {

namespace {

using Components = std::vector<std::shared_ptr<kernel::Buffer const>>;

bool areInterleaved(Components const& components)
{
    kernel::Buffer const& first = *components.front();
    auto const count = static_cast<std::int64_t>(components.size());
    for (std::int64_t n = 0; n < count; ++n) {
        kernel::Buffer const& buffer = *components[static_cast<std::size_t>(n)];
        auto const* const place = static_cast<char const*>(first.data()) + n * bytesOf(first.type());
        if (buffer.stride() != count || buffer.owner() != first.owner() || buffer.data() != place)
            return false;
    }
    return first.owner() != nullptr;
}

template <typename T>
vtkSmartPointer<vtkDataArray> sideBySide(Components const& components, std::int64_t count)
{
    vtkNew<vtkSOADataArrayTemplate<T>> array;
    array->SetNumberOfComponents(static_cast<int>(components.size()));
    int number = 0;
    for (auto const& component : components) {
        auto const buffer = component->isContiguous() ? component : component->clone();
        WrappedMemory::keep(buffer->data(), buffer->owner());
        array->SetArray(number, static_cast<T*>(const_cast<void*>(buffer->data())), count, true, false,
                        vtkAbstractArray::VTK_DATA_ARRAY_USER_DEFINED);
        array->SetArrayFreeFunction(number++, &WrappedMemory::release);
    }
    return array;
}

vtkSmartPointer<vtkDataArray> copiedBits(Components const& components, std::int64_t count)
{
    vtkNew<vtkBitArray> array;
    auto const width = static_cast<vtkIdType>(components.size());
    array->SetNumberOfComponents(static_cast<int>(width));
    array->SetNumberOfTuples(count);
    for (vtkIdType component = 0; component < width; ++component) {
        kernel::Buffer const& buffer = *components[static_cast<std::size_t>(component)];
        for (vtkIdType tuple = 0; tuple < count; ++tuple)
            array->SetValue(tuple * width + component, static_cast<int>(buffer.bits(tuple)));
    }
    return array;
}

} // namespace

vtkSmartPointer<vtkDataArray> joinedArray(Components const& components, std::int64_t count)
{
    kernel::Buffer const& first = *components.front();
    auto const width = static_cast<int>(components.size());
    if (width == 1 && !first.isContiguous())
        return joinedArray({first.clone()}, count);
    // A single one that is contiguous is interleaved with itself.
    if (width == 1 || areInterleaved(components))
        return WrappedMemory::wrap(vtkTypeOf(first.type()), first.data(), width * count, width, first.owner());
    switch (first.type()) {
    case FieldDataType_Float:
        return sideBySide<float>(components, count);
    case FieldDataType_Double:
        return sideBySide<double>(components, count);
    case FieldDataType_Int32:
        return sideBySide<int>(components, count);
    case FieldDataType_Int16:
        return sideBySide<short>(components, count);
    case FieldDataType_Byte:
        return sideBySide<unsigned char>(components, count);
    case FieldDataType_Bit:
        break;
    }
    return copiedBits(components, count);
}

} // namespace veldraw::app
