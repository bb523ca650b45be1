#include "kernel/compute/ValueBlock.h"

#include "kernel/base/Parallel.h"

#include <algorithm>

namespace veldraw::kernel {

namespace {

template <typename Element>
void widen(Buffer const& source, std::int64_t first, std::int64_t count, double* values)
{
    std::int64_t const stride = source.stride();
    auto const* const elements = static_cast<Element const*>(source.data()) + first * stride;
    if (stride == 1) { // a loop of its own, which the compiler can work on side by side
        for (std::int64_t at = 0; at < count; ++at) {
            values[at] = static_cast<double>(elements[at]);
        }
        return;
    }
    for (std::int64_t at = 0; at < count; ++at) {
        values[at] = static_cast<double>(elements[at * stride]);
    }
}

template <typename Element>
void gather(Buffer const& source, std::uint32_t const* indices, std::size_t count, double* values)
{
    auto const* const elements = static_cast<Element const*>(source.data());
    std::int64_t const stride = source.stride();
    for (std::size_t at = 0; at < count; ++at) {
        values[at] = static_cast<double>(elements[indices[at] * stride]);
    }
}

} // namespace

void readBlock(Buffer const& source, std::int64_t first, std::int64_t count, double* values)
{
    switch (source.type()) {
    case FieldDataType_Float:
        return widen<float>(source, first, count, values);
    case FieldDataType_Double:
        return widen<double>(source, first, count, values);
    case FieldDataType_Int32:
        return widen<std::int32_t>(source, first, count, values);
    case FieldDataType_Int16:
        return widen<std::int16_t>(source, first, count, values);
    case FieldDataType_Byte:
        return widen<unsigned char>(source, first, count, values);
    case FieldDataType_Bit:
        for (std::int64_t at = 0; at < count; ++at) {
            values[at] = source.value(first + at);
        }
    }
}

void gatherValues(Buffer const& source, std::uint32_t const* indices, std::size_t count, double* values)
{
    switch (source.type()) {
    case FieldDataType_Float:
        return gather<float>(source, indices, count, values);
    case FieldDataType_Double:
        return gather<double>(source, indices, count, values);
    case FieldDataType_Int32:
        return gather<std::int32_t>(source, indices, count, values);
    case FieldDataType_Int16:
        return gather<std::int16_t>(source, indices, count, values);
    case FieldDataType_Byte:
        return gather<unsigned char>(source, indices, count, values);
    case FieldDataType_Bit:
        for (std::size_t at = 0; at < count; ++at) {
            values[at] = source.value(indices[at]);
        }
    }
}

void writeBlock(double const* values, std::int64_t first, std::int64_t count, Buffer& target)
{
    if (target.type() == FieldDataType_Double) {
        std::copy(values, values + count, static_cast<double*>(target.mutableData()) + first);
        return;
    }
    float* const elements = static_cast<float*>(target.mutableData()) + first;
    for (std::int64_t at = 0; at < count; ++at) {
        elements[at] = static_cast<float>(values[at]);
    }
}

void forEachBlock(std::int64_t count, Progress& progress, std::function<void(std::int64_t, std::int64_t)> const& body)
{
    auto const workOnChunk = [&](std::int64_t first, std::int64_t last, std::int64_t) {
        for (std::int64_t begin = first; begin < last; begin += blockSize) {
            progress.check();
            std::int64_t const size = std::min(blockSize, last - begin);
            body(begin, size);
            progress.advance(size);
        }
    };
    parallelFor(count, workOnChunk, grainOfFreshMemory(count));
}

FieldDataType_e computedType(FieldDataType_e type)
{
    bool const isWide = type == FieldDataType_Double || type == FieldDataType_Int32;
    return isWide ? FieldDataType_Double : FieldDataType_Float;
}

} // namespace veldraw::kernel
