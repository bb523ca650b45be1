#pragma once

#include "platform/vdsdkbase/VelUtilTypes.h"

#include <cstdint>
#include <memory>

namespace veldraw::kernel {

/// Typed values of one field: a pointer, a length and a stride over memory that somebody keeps alive.
///
/// A buffer does not know which fields use it. The memory is either the buffer's own (allocate()) or adopted from whoever
/// made it, such as a file reader (adopt()); a stride lets the components of an interleaved array be fields without a
/// second copy:
///
///     auto const y = Buffer::adopt(FieldDataType_Float, pointCount, xyz + 1, 3, owner);
///
/// A buffer is filled by whoever made it, before others see it. From then on its values change only through
/// ShareGroup::writeBits(), when a user edits one.
class Buffer
{
public:
    /// A zeroed, contiguous buffer.
    /// @param type one of the six data types
    /// @param size number of values, 0 or more
    /// @throws std::bad_alloc when there is no memory
    static std::shared_ptr<Buffer> allocate(FieldDataType_e type, std::int64_t size);

    /// A buffer over memory that already exists, without a copy.
    /// @param data   first value; for bits the first byte, the highest bit of a byte coming first
    /// @param stride distance of two values in values, at least 1; always 1 for bits
    /// @param owner  keeps @p data alive as long as this buffer lives
    static std::shared_ptr<Buffer> adopt(FieldDataType_e type, std::int64_t size, void* data, std::int64_t stride,
                                         std::shared_ptr<void> owner);

    FieldDataType_e type() const { return m_type; }
    std::int64_t size() const { return m_size; }
    std::int64_t stride() const { return m_stride; }
    bool isContiguous() const { return m_stride == 1; }

    /// First value; the caller casts according to type() and steps by stride().
    void const* data() const { return m_data; }
    void* mutableData() { return m_data; }

    /// What keeps the memory alive; two buffers with the same owner are parts of one array.
    std::shared_ptr<void> const& owner() const { return m_owner; }

    /// Bytes that the values of this buffer would take without a stride.
    std::int64_t bytes() const;

    /// Bytes from the first value to the last, with what stands between them: the other components of an array.
    std::int64_t bytesWithStride() const { return bytesOf(m_type, m_size * m_stride); }

    /// Value at a zero-based @p index as a double. 32-bit and shorter integers are exact. No check of the index.
    double value(std::int64_t index) const;

    /// Stores @p value at a zero-based @p index, rounded to nearest and cut to the limits for the integer types, converted
    /// to single precision for float; a bit is set by any value but 0; NaN becomes 0 in the integer types. No check of the
    /// index.
    void setValue(std::int64_t index, double value);

    /// The value at a zero-based @p index as it is stored, in the lowest bits. No check of the index.
    std::uint64_t bits(std::int64_t index) const;
    void setBits(std::int64_t index, std::uint64_t bits) noexcept;

    /// What setValue() stores for @p value.
    static std::uint64_t bitsOf(FieldDataType_e type, double value);

    /// Bytes of @p size values without a stride.
    static std::int64_t bytesOf(FieldDataType_e type, std::int64_t size);

    /// A contiguous copy. @throws std::bad_alloc
    std::shared_ptr<Buffer> clone() const;

    Buffer(Buffer const&) = delete;
    Buffer& operator=(Buffer const&) = delete;

private:
    Buffer(FieldDataType_e type, std::int64_t size, void* data, std::int64_t stride, std::shared_ptr<void> owner);

    FieldDataType_e m_type;
    std::int64_t m_size;
    std::int64_t m_stride;
    void* m_data;
    std::shared_ptr<void> m_owner;
};

} // namespace veldraw::kernel
