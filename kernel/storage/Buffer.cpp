#include "kernel/storage/Buffer.h"

#include "kernel/base/Parallel.h"
#include "kernel/base/SystemMemory.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <new>

namespace veldraw::kernel {

namespace {

template <typename Integer>
Integer rounded(double value)
{
    if (std::isnan(value)) {
        return 0;
    }
    double const lowest = static_cast<double>(std::numeric_limits<Integer>::min());
    double const highest = static_cast<double>(std::numeric_limits<Integer>::max());
    return static_cast<Integer>(std::clamp(std::round(value), lowest, highest));
}

unsigned char bitMask(std::int64_t index)
{
    return static_cast<unsigned char>(0x80U >> static_cast<unsigned>(index % 8));
}

/// The bits that @p value is stored in.
template <typename Pattern, typename Element>
Pattern pattern(Element value)
{
    static_assert(sizeof(Pattern) == sizeof(Element), "the same memory seen in another way");
    Pattern bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

template <typename Pattern>
Pattern patternAt(void const* data, std::int64_t position)
{
    Pattern bits = 0;
    std::memcpy(&bits, static_cast<Pattern const*>(data) + position, sizeof bits);
    return bits;
}

template <typename Pattern>
void storePattern(void* data, std::int64_t position, Pattern bits) noexcept
{
    std::memcpy(static_cast<Pattern*>(data) + position, &bits, sizeof bits);
}

template <typename Element>
void gather(Element const* source, std::int64_t stride, Element* target, std::int64_t size)
{
    parallelFor(size, [=](std::int64_t first, std::int64_t last, std::int64_t) {
        for (std::int64_t index = first; index < last; ++index) {
            target[index] = source[index * stride];
        }
    });
}

void copyBytes(void const* source, void* target, std::int64_t bytes)
{
    parallelFor(bytes, [=](std::int64_t first, std::int64_t last, std::int64_t) {
        std::memcpy(static_cast<char*>(target) + first, static_cast<char const*>(source) + first,
                    static_cast<std::size_t>(last - first));
    });
}

} // namespace

Buffer::Buffer(FieldDataType_e type, std::int64_t size, void* data, std::int64_t stride, std::shared_ptr<void> owner)
    : m_type(type)
    , m_size(size)
    , m_stride(stride)
    , m_data(data)
    , m_owner(std::move(owner))
{
}

std::shared_ptr<Buffer> Buffer::allocate(FieldDataType_e type, std::int64_t size)
{
    if (size < 0 || size > std::numeric_limits<std::int64_t>::max() / 16) {
        throw std::bad_alloc();
    }
    std::shared_ptr<void> memory = allocateZeroed(bytesOf(type, size));
    return adopt(type, size, memory.get(), 1, memory);
}

std::shared_ptr<Buffer> Buffer::adopt(FieldDataType_e type, std::int64_t size, void* data, std::int64_t stride,
                                      std::shared_ptr<void> owner)
{
    std::int64_t const usedStride = type == FieldDataType_Bit ? 1 : std::max<std::int64_t>(stride, 1);
    std::int64_t const usedSize = data == nullptr ? 0 : std::max<std::int64_t>(size, 0);
    return std::shared_ptr<Buffer>(new Buffer(type, usedSize, data, usedStride, std::move(owner)));
}

std::int64_t Buffer::bytesOf(FieldDataType_e type, std::int64_t size)
{
    switch (type) {
    case FieldDataType_Float:
    case FieldDataType_Int32:
        return size * 4;
    case FieldDataType_Double:
        return size * 8;
    case FieldDataType_Int16:
        return size * 2;
    case FieldDataType_Byte:
        return size;
    case FieldDataType_Bit:
        return size / 8 + (size % 8 != 0 ? 1 : 0);
    }
    return 0;
}

std::int64_t Buffer::bytes() const
{
    return bytesOf(m_type, m_size);
}

double Buffer::value(std::int64_t index) const
{
    std::int64_t const position = index * m_stride;
    switch (m_type) {
    case FieldDataType_Float:
        return static_cast<double>(static_cast<float const*>(m_data)[position]);
    case FieldDataType_Double:
        return static_cast<double const*>(m_data)[position];
    case FieldDataType_Int32:
        return static_cast<std::int32_t const*>(m_data)[position];
    case FieldDataType_Int16:
        return static_cast<std::int16_t const*>(m_data)[position];
    case FieldDataType_Byte:
        return static_cast<unsigned char const*>(m_data)[position];
    case FieldDataType_Bit:
        return (static_cast<unsigned char const*>(m_data)[index / 8] & bitMask(index)) != 0 ? 1.0 : 0.0;
    }
    return 0.0;
}

void Buffer::setValue(std::int64_t index, double value)
{
    setBits(index, bitsOf(m_type, value));
}

std::uint64_t Buffer::bitsOf(FieldDataType_e type, double value)
{
    switch (type) {
    case FieldDataType_Float:
        return pattern<std::uint32_t>(static_cast<float>(value));
    case FieldDataType_Double:
        return pattern<std::uint64_t>(value);
    case FieldDataType_Int32:
        return pattern<std::uint32_t>(rounded<std::int32_t>(value));
    case FieldDataType_Int16:
        return pattern<std::uint16_t>(rounded<std::int16_t>(value));
    case FieldDataType_Byte:
        return rounded<unsigned char>(value);
    case FieldDataType_Bit:
        return !std::isnan(value) && (value < 0.0 || value > 0.0) ? 1 : 0;
    }
    return 0;
}

std::uint64_t Buffer::bits(std::int64_t index) const
{
    std::int64_t const position = index * m_stride;
    switch (m_type) {
    case FieldDataType_Float:
    case FieldDataType_Int32:
        return patternAt<std::uint32_t>(m_data, position);
    case FieldDataType_Double:
        return patternAt<std::uint64_t>(m_data, position);
    case FieldDataType_Int16:
        return patternAt<std::uint16_t>(m_data, position);
    case FieldDataType_Byte:
        return patternAt<unsigned char>(m_data, position);
    case FieldDataType_Bit:
        return (static_cast<unsigned char const*>(m_data)[index / 8] & bitMask(index)) != 0 ? 1 : 0;
    }
    return 0;
}

void Buffer::setBits(std::int64_t index, std::uint64_t bits) noexcept
{
    std::int64_t const position = index * m_stride;
    switch (m_type) {
    case FieldDataType_Float:
    case FieldDataType_Int32:
        return storePattern(m_data, position, static_cast<std::uint32_t>(bits));
    case FieldDataType_Double:
        return storePattern(m_data, position, bits);
    case FieldDataType_Int16:
        return storePattern(m_data, position, static_cast<std::uint16_t>(bits));
    case FieldDataType_Byte:
        return storePattern(m_data, position, static_cast<unsigned char>(bits));
    case FieldDataType_Bit: {
        unsigned char& byte = static_cast<unsigned char*>(m_data)[index / 8];
        unsigned const mask = bitMask(index);
        byte = static_cast<unsigned char>(bits != 0 ? (byte | mask) : (byte & ~mask));
        break;
    }
    }
}

std::shared_ptr<Buffer> Buffer::clone() const
{
    std::shared_ptr<Buffer> copy = allocate(m_type, m_size);
    if (isContiguous()) {
        copyBytes(m_data, copy->m_data, bytes());
        return copy;
    }
    switch (bytesOf(m_type, 1)) // bits never have a stride
    {
    case 8:
        gather(static_cast<double const*>(m_data), m_stride, static_cast<double*>(copy->m_data), m_size);
        break;
    case 4:
        gather(static_cast<std::uint32_t const*>(m_data), m_stride, static_cast<std::uint32_t*>(copy->m_data), m_size);
        break;
    case 2:
        gather(static_cast<std::uint16_t const*>(m_data), m_stride, static_cast<std::uint16_t*>(copy->m_data), m_size);
        break;
    default:
        gather(static_cast<unsigned char const*>(m_data), m_stride, static_cast<unsigned char*>(copy->m_data), m_size);
        break;
    }
    return copy;
}

} // namespace veldraw::kernel
