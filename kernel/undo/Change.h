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

/// A change that is ready to happen: everything that it needs has been allocated, so that neither doing it nor taking it
/// back can fail. Each way sends its events once the data is consistent. Both ways run with the data in exactly the state
/// that the other left it in, so they need no checks.
class Change
{
public:
    Change() = default;
    virtual ~Change() = default;

    virtual void apply() noexcept = 0;
    virtual void revert() noexcept = 0;

    /// What the change holds now, be it applied or reverted, above the little that every change needs.
    virtual HeldMemory held() const noexcept { return {}; }

    Change(Change const&) = delete;
    Change& operator=(Change const&) = delete;
};

} // namespace veldraw::kernel
