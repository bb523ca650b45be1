#include "python/ArrayLayout.h"

#include "kernel/storage/CellSlots.h"

#include <algorithm>

namespace py = pybind11;

namespace veldraw::python {

namespace {

std::vector<py::ssize_t> bytesFor(ArrayLayout const& layout, kernel::Buffer const& buffer)
{
    std::vector<py::ssize_t> strides = layout.steps;
    py::ssize_t const distance = buffer.stride() * kernel::Buffer::bytesOf(buffer.type(), 1);
    for (py::ssize_t& stride : strides)
        stride *= distance;
    return strides;
}

py::capsule keeperOf(std::shared_ptr<kernel::Buffer const> const& buffer)
{
    using Kept = std::shared_ptr<kernel::Buffer const>;
    return py::capsule(new Kept(buffer), [](void* kept) { delete static_cast<Kept*>(kept); });
}

py::array arrayOver(std::shared_ptr<kernel::Buffer const> const& buffer, ArrayLayout const& layout)
{
    return py::array(dtypeOf(buffer->type()), layout.shape, bytesFor(layout, *buffer), buffer->data(),
                     keeperOf(buffer));
}

py::array bitsOf(kernel::Buffer const& buffer, ArrayLayout const& layout)
{
    auto const bytes = kernel::Buffer::allocate(FieldDataType_Byte, buffer.size());
    for (std::int64_t slot = 0; slot < buffer.size(); ++slot)
        bytes->setBits(slot, buffer.bits(slot));
    return arrayOver(bytes, layout).attr("view")(py::dtype("?")).cast<py::array>();
}

} // namespace

py::ssize_t ArrayLayout::size() const
{
    py::ssize_t count = 1;
    for (py::ssize_t const length : shape)
        count *= length;
    return count;
}

ArrayLayout layoutOf(kernel::Zone const& zone, ValueLocation_e location)
{
    if (!zone.isOrdered())
        return {{std::max<py::ssize_t>(0, zone.valueCount(location))}, {1}};
    std::int64_t const points[] = {zone.i, zone.j, zone.k};
    std::size_t dimensions = 3;
    while (dimensions > 1 && points[dimensions - 1] == 1)
        --dimensions;
    ArrayLayout layout;
    py::ssize_t step = 1;
    for (std::size_t dimension = 0; dimension < dimensions; ++dimension) {
        bool const isOfCells = location == ValueLocation_CellCentered;
        std::int64_t const length = std::max<std::int64_t>(0, points[dimension]);
        layout.shape.push_back(isOfCells ? kernel::cellsAlong(length) : length);
        layout.steps.push_back(step);
        step *= length;
    }
    return layout;
}

py::dtype dtypeOf(FieldDataType_e type)
{
    switch (type) {
    case FieldDataType_Float:
        return py::dtype("f4");
    case FieldDataType_Double:
        return py::dtype("f8");
    case FieldDataType_Int32:
        return py::dtype("i4");
    case FieldDataType_Int16:
        return py::dtype("i2");
    case FieldDataType_Byte:
        return py::dtype("u1");
    case FieldDataType_Bit:
        return py::dtype("?");
    }
    return py::dtype("f8");
}

py::array viewOf(std::shared_ptr<kernel::Buffer const> const& buffer, ArrayLayout const& layout)
{
    py::array const array = buffer->type() == FieldDataType_Bit ? bitsOf(*buffer, layout) : arrayOver(buffer, layout);
    forbidWriting(array);
    return array;
}

py::array writableViewOf(std::shared_ptr<kernel::Buffer> const& buffer, ArrayLayout const& layout)
{
    return arrayOver(buffer, layout);
}

py::array zerosFor(FieldDataType_e type, ArrayLayout const& layout)
{
    static double const zero = 0.0;
    py::capsule const nobody(&zero, [](void*) {});
    std::vector<py::ssize_t> const strides(layout.shape.size(), 0);
    py::array const array(dtypeOf(type), layout.shape, strides, &zero, nobody);
    forbidWriting(array);
    return array;
}

void forbidWriting(py::array const& array)
{
    array.attr("setflags")(py::arg("write") = false);
}

} // namespace veldraw::python
