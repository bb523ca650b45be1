#pragma once

#include "kernel/data/Field.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>

namespace veldraw::app {

/// Reads the values of a coordinate or a curve while a drawing is built. It holds the kernel's buffer only for its own
/// lifetime.
class FieldValues
{
public:
    /// @param field may be null: all values are then missing
    explicit FieldValues(kernel::Field const* field)
        : m_isPassive(field && field->isPassive())
    {
        if (field && field->group())
            m_buffer = field->group()->buffer();
    }

    /// The value at a zero-based @p index; 0 in a passive field, not-a-number where nothing is stored or it is
    /// infinite.
    double at(std::int64_t index) const
    {
        if (m_isPassive)
            return 0.0;
        if (!m_buffer || index < 0 || index >= m_buffer->size())
            return std::numeric_limits<double>::quiet_NaN();
        double const value = m_buffer->value(index);
        return std::isfinite(value) ? value : std::numeric_limits<double>::quiet_NaN();
    }

    /// Values that are stored; 0 in a passive field.
    std::int64_t size() const { return m_buffer ? m_buffer->size() : 0; }

private:
    std::shared_ptr<kernel::Buffer const> m_buffer;
    bool m_isPassive;
};

} // namespace veldraw::app
