#pragma once

#include <cstdint>

namespace veldraw::kernel {

/// Memory in bytes that a step of the history keeps alive.
struct HeldMemory
{
    std::int64_t values = 0; ///< values of fields that nobody else holds, as far as that is known
    std::int64_t notes = 0;  ///< lists and objects of the step itself

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

/// What an operation does to data or pages, ready to be applied and reverted.
///
/// The constructor allocates everything that is needed, so neither apply() nor revert() can fail. Each sends its events
/// once the data is consistent. Each finds the data in exactly the state in which the other left it, so neither needs to
/// check anything.
class Change
{
public:
    Change() = default;
    virtual ~Change() = default;

    virtual void apply() noexcept = 0;
    virtual void revert() noexcept = 0;

    /// Memory that the change holds now, applied or reverted, beyond the size of the object itself.
    virtual HeldMemory held() const noexcept { return {}; }

    Change(Change const&) = delete;
    Change& operator=(Change const&) = delete;
};

} // namespace veldraw::kernel
