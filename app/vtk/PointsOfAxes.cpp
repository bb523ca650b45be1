#include "app/vtk/PointsOfAxes.h"

#include "app/vtk/JoinedArray.h"

#include <vtkDoubleArray.h>
#include <vtkFloatArray.h>
#include <vtkNew.h>

#include <algorithm>
#include <vector>

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

bool haveType(AxisBuffers const& buffers, FieldDataType_e type)
{
    return std::all_of(buffers.begin(), buffers.end(),
                       [type](auto const& buffer) { return !buffer || buffer->type() == type; });
}

vtkSmartPointer<vtkDataArray> joined(AxisBuffers const& buffers, FieldDataType_e type, std::int64_t count)
{
    std::vector<std::shared_ptr<kernel::Buffer const>> components;
    std::shared_ptr<kernel::Buffer const> zeros;
    for (auto const& buffer : buffers) {
        if (!buffer && !zeros)
            zeros = kernel::Buffer::allocate(type, count);
        components.push_back(buffer ? buffer : zeros);
    }
    return joinedArray(components, count);
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

vtkSmartPointer<vtkDataArray> coordinates(AxisBuffers const& buffers, std::int64_t count)
{
    FieldDataType_e const type = pointType(buffers);
    if (count > 0 && haveType(buffers, type))
        return joined(buffers, type, count);
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
