#pragma once

#include "kernel/data/Zone.h"
#include "kernel/storage/Buffer.h"

#include <memory>
#include <pybind11/numpy.h>
#include <vector>

namespace veldraw::python {

/// How many values an array of NumPy has along each dimension, and how far apart they are in the memory of a field, in values.
struct ArrayLayout
{
    std::vector<pybind11::ssize_t> shape;
    std::vector<pybind11::ssize_t> steps;

    pybind11::ssize_t size() const;
};

/// The layout of a field: of an ordered zone I x J x K values, the first index being the quickest in memory, without dimensions of 1 at
/// the end; of cells one less along each. Slots of no cell are left out. Of other zones one dimension.
ArrayLayout layoutOf(kernel::Zone const& zone, ValueLocation_e location);

/// What NumPy calls a type of values; bits are booleans.
pybind11::dtype dtypeOf(FieldDataType_e type);

/// The values of a buffer, without a copy but for bits. The array keeps the buffer alive.
pybind11::array viewOf(std::shared_ptr<kernel::Buffer const> const& buffer, ArrayLayout const& layout);

/// The same to be written; not for bits.
pybind11::array writableViewOf(std::shared_ptr<kernel::Buffer> const& buffer, ArrayLayout const& layout);

/// As many zeros, in no memory worth mentioning.
pybind11::array zerosFor(FieldDataType_e type, ArrayLayout const& layout);

void forbidWriting(pybind11::array const& array);

} // namespace veldraw::python
