#include "kernel/compute/RotateValues.h"

#include "kernel/compute/RotateBlock.h"
#include "kernel/compute/ValueBlock.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <type_traits>

namespace veldraw::kernel {

namespace {

/// The @p Size components that a rotation involves: their buffers, and their part of the matrix.
template <std::size_t Size>
struct InvolvedComponents
{
    Buffer const* sources[Size];
    Buffer* targets[Size];
    double matrix[Size][Size];
    double matrixRest[Size][Size];
    double origin[Size];
};

template <std::size_t Size>
InvolvedComponents<Size> involvedComponents(Rotation const& rotation, ComponentBuffers const& buffers,
                                            std::array<std::size_t, 3> const& parts)
{
    InvolvedComponents<Size> components{};
    for (std::size_t row = 0; row < Size; ++row) {
        components.sources[row] = buffers.sources[parts[row]].get();
        components.targets[row] = buffers.targets[parts[row]].get();
        components.origin[row] = rotation.origin()[parts[row]];
        for (std::size_t column = 0; column < Size; ++column) {
            components.matrix[row][column] = rotation.entry(parts[row], parts[column]);
            components.matrixRest[row][column] = rotation.entryRest(parts[row], parts[column]);
        }
    }
    return components;
}

/// Whether all values are finite. Adding one to the exponent of an infinity or a NaN overflows into the sign bit.
template <typename Element>
bool areFinite(Element const* values, std::int64_t count)
{
    using Bits = std::conditional_t<sizeof(Element) == 4, std::uint32_t, std::uint64_t>;
    constexpr int fraction = std::numeric_limits<Element>::digits - 1;
    constexpr Bits sign = Bits{1} << (8 * sizeof(Bits) - 1);
    constexpr Bits exponent = (sign - 1) >> fraction << fraction;
    Bits all = 0;
    for (std::int64_t at = 0; at < count; ++at) {
        Bits bits = 0;
        std::memcpy(&bits, values + at, sizeof bits);
        all |= (bits & exponent) + (Bits{1} << fraction);
    }
    return (all & sign) == 0;
}

template <std::size_t Size, typename Element>
void keepWhatIsNotFinite(BlockToRotate<Size, Element> const& block)
{
    for (std::int64_t at = 0; at < block.count; ++at) {
        bool const isFinite = std::all_of(block.from, block.from + Size,
                                          [at](Element const* values) { return std::isfinite(values[at]); });
        for (std::size_t part = 0; part < Size && !isFinite; ++part) {
            block.to[part][at] = block.from[part][at];
        }
    }
}

template <std::size_t Size, typename Element>
void rotateFinite(BlockToRotate<Size, Element> const& block)
{
    rotateBlock(block);
    // A component that is not finite makes every result not finite, also by a factor of 0, so checking one result is enough.
    if (!areFinite(block.to[0], block.count)) {
        keepWhatIsNotFinite(block);
    }
}

/// Whether all components are contiguous values of @p type, and all results are needed.
template <std::size_t Size>
bool isAllOf(InvolvedComponents<Size> const& rotation, FieldDataType_e type)
{
    bool all = true;
    for (std::size_t part = 0; part < Size; ++part) {
        Buffer const* const source = rotation.sources[part];
        Buffer const* const target = rotation.targets[part];
        all = all && source != nullptr && source->isContiguous() && source->type() == type;
        all = all && target != nullptr && target->type() == type;
    }
    return all;
}

/// Rotates a block directly from buffer to buffer.
template <std::size_t Size, typename Element>
void rotateDirectly(InvolvedComponents<Size> const& rotation, std::int64_t first, std::int64_t count)
{
    BlockToRotate<Size, Element> block{rotation.matrix, rotation.matrixRest, rotation.origin, {}, {}, count};
    for (std::size_t part = 0; part < Size; ++part) {
        block.from[part] = static_cast<Element const*>(rotation.sources[part]->data()) + first;
        block.to[part] = static_cast<Element*>(rotation.targets[part]->mutableData()) + first;
    }
    rotateFinite(block);
}

/// Rotates a block through arrays of double, for all other types and strides.
template <std::size_t Size>
void rotateWidened(InvolvedComponents<Size> const& rotation, std::int64_t first, std::int64_t count)
{
    double before[Size][blockSize];
    double after[Size][blockSize];
    BlockToRotate<Size, double> block{rotation.matrix, rotation.matrixRest, rotation.origin, {}, {}, count};
    for (std::size_t part = 0; part < Size; ++part) {
        block.from[part] = before[part];
        block.to[part] = after[part];
        if (rotation.sources[part] == nullptr) {
            std::fill_n(before[part], count, 0.0);
        } else {
            readBlock(*rotation.sources[part], first, count, before[part]);
        }
    }
    rotateFinite(block);
    for (std::size_t part = 0; part < Size; ++part) {
        if (rotation.targets[part] != nullptr) {
            writeBlock(after[part], first, count, *rotation.targets[part]);
        }
    }
}

template <std::size_t Size>
void rotateAll(InvolvedComponents<Size> const& rotation, std::int64_t count, Progress& progress)
{
    auto rotatePart = &rotateWidened<Size>;
    if (isAllOf(rotation, FieldDataType_Float)) {
        rotatePart = &rotateDirectly<Size, float>;
    } else if (isAllOf(rotation, FieldDataType_Double)) {
        rotatePart = &rotateDirectly<Size, double>;
    }
    forEachBlock(count, progress,
                 [&rotation, rotatePart](std::int64_t first, std::int64_t size) { rotatePart(rotation, first, size); });
}

} // namespace

void rotateValues(Rotation const& rotation, ComponentBuffers const& buffers, Progress& progress)
{
    std::array<std::size_t, 3> parts{};
    std::size_t size = 0;
    for (std::size_t component = 0; component < 3; ++component) {
        if (rotation.involves(component)) {
            parts[size++] = component;
        }
    }
    if (size == 2) {
        rotateAll(involvedComponents<2>(rotation, buffers, parts), buffers.count, progress);
    } else if (size == 3) {
        rotateAll(involvedComponents<3>(rotation, buffers, parts), buffers.count, progress);
    }
}

} // namespace veldraw::kernel
