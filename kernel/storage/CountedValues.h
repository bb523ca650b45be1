#pragma once

#include "kernel/storage/HiddenSlots.h"

#include <array>
#include <memory>

namespace veldraw::kernel {

/// Which values of a buffer count in a range.
struct CountedValues
{
    /// Point dimensions of an ordered zone that has the values at its cells: slots without a cell do not count. Else zeros.
    std::array<std::int64_t, 3> cellsOf{};

    /// Slots that do not count either; null for none.
    std::shared_ptr<HiddenSlots const> hidden;

    bool areAll() const { return !hidden && cellsOf == std::array<std::int64_t, 3>{}; }
    bool leaveOut(std::int64_t slot) const { return hidden && hidden->contains(slot); }
};

inline bool operator==(CountedValues const& left, CountedValues const& right)
{
    return left.cellsOf == right.cellsOf && left.hidden == right.hidden;
}

inline bool operator!=(CountedValues const& left, CountedValues const& right)
{
    return !(left == right);
}

} // namespace veldraw::kernel
