#pragma once

#include "kernel/storage/Buffer.h"

#include <algorithm>

namespace veldraw::kernel {

/// Reads the values of a buffer one by one, those of the usual types without a call.
class QuickReader
{
public:
    /// @param buffer null: all values are 0
    explicit QuickReader(std::shared_ptr<Buffer const> buffer = nullptr)
        : m_buffer(std::move(buffer))
    {
        if (m_buffer) {
            m_data = m_buffer->data();
            m_stride = m_buffer->stride();
            m_type = m_buffer->type();
        }
    }

    /// The value at a zero-based @p index. No check of the index.
    double at(std::int64_t index) const
    {
        switch (m_type) {
        case FieldDataType_Double:
            return static_cast<double const*>(m_data)[index * m_stride];
        case FieldDataType_Float:
            return static_cast<double>(static_cast<float const*>(m_data)[index * m_stride]);
        default:
            return m_buffer ? m_buffer->value(index) : 0.0;
        }
    }

    /// Reads @p count values from the zero-based @p first on.
    void read(std::int64_t first, std::int64_t count, double* values) const
    {
        if (m_type == FieldDataType_Double && m_stride == 1) { // loops that the compiler can work on side by side
            std::copy_n(static_cast<double const*>(m_data) + first, count, values);
        } else if (m_type == FieldDataType_Float && m_stride == 1) {
            std::copy_n(static_cast<float const*>(m_data) + first, count, values);
        } else {
            for (std::int64_t index = 0; index < count; ++index) {
                values[index] = at(first + index);
            }
        }
    }

    /// Has the processor fetch a value that is soon to be read.
    void fetch(std::int64_t index) const
    {
        if (m_type == FieldDataType_Double) {
            __builtin_prefetch(static_cast<double const*>(m_data) + index * m_stride);
        } else if (m_type == FieldDataType_Float) {
            __builtin_prefetch(static_cast<float const*>(m_data) + index * m_stride);
        }
    }

private:
    std::shared_ptr<Buffer const> m_buffer;
    void const* m_data = nullptr;
    std::int64_t m_stride = 0;
    FieldDataType_e m_type = FieldDataType_Byte;
};

} // namespace veldraw::kernel
