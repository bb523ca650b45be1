#pragma once

#include <cstdint>

namespace veldraw::kernel {

/// Memory in bytes that a step of the history keeps alive.
struct HeldMemory
{
    std::int64_t values = 0; ///< of fields, where nobody else holds them, as far as that is known
    std::int64_t notes = 0;  ///< of the step itself: lists of what it is about, objects that stand nowhere else

    std::int64_t sum() const { return values + notes; }

    HeldMemory& operator+=(HeldMemory const& other)
    {
        values += other.values;
        notes += other.notes;
        return *this;
    }

    HeldMemory& operator-=(HeldMemory const& other)
    {
        values -= other.values;
        notes -= other.notes;
        return *this;
    }
};

} // namespace veldraw::kernel
