#include "app/vtk/PointsOfAxes.h"

#include "app/vtk/DataTypes.h"
#include "app/vtk/WrappedMemory.h"

#include <vtkDoubleArray.h>
#include <vtkFloatArray.h>
#include <vtkNew.h>
#include <vtkSOADataArrayTemplate.h>

namespace veldraw::app {

namespace {

using AxisBuffers = std::array<std::shared_ptr<kernel::Buffer const>, 3>;

AxisBuffers buffersOf(std::array<kernel::Field const*, 3> const& axes)
{
    AxisBuffers buffers;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        kernel::Field const* const field = axes[axis];
        if (field && !field->isPassive() && field->location() == ValueLocation_Nodal)
            buffers[axis] = field->group()->buffer();
    }
    return buffers;
}

// Float only when every coordinate is; anything else is exact in double.
FieldDataType_e pointType(AxisBuffers const& buffers)
{
    bool some = false;
    for (auto const& buffer : buffers) {
        if (buffer && buffer->type() != FieldDataType_Float)
            return FieldDataType_Double;
        some = some || buffer;
    }
    return some ? FieldDataType_Float : FieldDataType_Double;
}

bool areInterleaved(AxisBuffers const& buffers, FieldDataType_e type)
{
    for (int axis = 0; axis < 3; ++axis) {
        auto const& buffer = buffers[static_cast<std::size_t>(axis)];
        if (!buffer || buffer->type() != type || buffer->stride() != 3 || buffer->owner() != buffers[0]->owner())
            return false;
        if (buffer->data() != static_cast<char const*>(buffers[0]->data()) + axis * bytesOf(type))
            return false;
    }
    return buffers[0]->owner() != nullptr;
}

bool areSeparate(AxisBuffers const& buffers, FieldDataType_e type)
{
    for (auto const& buffer : buffers) {
        if (buffer && (buffer->type() != type || !buffer->isContiguous()))
            return false;
    }
    return true;
}

template <typename T>
vtkSmartPointer<vtkDataArray> sideBySide(AxisBuffers const& buffers, std::int64_t count)
{
    vtkNew<vtkSOADataArrayTemplate<T>> array;
    array->SetNumberOfComponents(3);
    for (int axis = 0; axis < 3; ++axis) {
        auto const& buffer = buffers[static_cast<std::size_t>(axis)];
        WrappedMemory::keep(buffer->data(), buffer->owner());
        array->SetArray(axis, static_cast<T*>(const_cast<void*>(buffer->data())), count, true, false,
                        vtkAbstractArray::VTK_DATA_ARRAY_USER_DEFINED);
        array->SetArrayFreeFunction(axis, &WrappedMemory::release);
    }
    return array;
}

template <typename Array>
vtkSmartPointer<vtkDataArray> copied(AxisBuffers const& buffers, std::int64_t count)
{
    vtkNew<Array> array;
    array->SetNumberOfComponents(3);
    array->SetNumberOfTuples(count);
    auto* const memory = array->GetPointer(0);
    for (std::size_t axis = 0; axis < 3; ++axis) {
        kernel::Buffer const* const buffer = buffers[axis].get();
        for (std::int64_t n = 0; n < count; ++n)
            memory[3 * n + static_cast<std::int64_t>(axis)] =
                static_cast<typename Array::ValueType>(buffer ? buffer->value(n) : 0.0);
    }
    return array;
}

vtkSmartPointer<vtkDataArray> coordinates(AxisBuffers buffers, std::int64_t count)
{
    FieldDataType_e const type = pointType(buffers);
    if (count > 0 && areInterleaved(buffers, type))
        return WrappedMemory::wrap(vtkTypeOf(type), buffers[0]->data(), 3 * count, 3, buffers[0]->owner());
    if (count > 0 && areSeparate(buffers, type)) {
        std::shared_ptr<kernel::Buffer const> zeros;
        for (auto& buffer : buffers) {
            if (!buffer && !zeros)
                zeros = kernel::Buffer::allocate(type, count);
            if (!buffer)
                buffer = zeros;
        }
        return type == FieldDataType_Float ? sideBySide<float>(buffers, count) : sideBySide<double>(buffers, count);
    }
    return type == FieldDataType_Float ? copied<vtkFloatArray>(buffers, count) : copied<vtkDoubleArray>(buffers, count);
}

} // namespace

vtkSmartPointer<vtkPoints> pointsOfAxes(std::array<kernel::Field const*, 3> const& axes, std::int64_t count)
{
    vtkNew<vtkPoints> points;
    auto const array = coordinates(buffersOf(axes), count);
    points->SetDataType(array->GetDataType());
    points->SetData(array);
    return points;
}

} // namespace veldraw::app
