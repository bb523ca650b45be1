#pragma once

#include "kernel/base/Progress.h"
#include "kernel/storage/Buffer.h"
#include "kernel/storage/HiddenSlots.h"
#include "kernel/storage/ValueRange.h"

#include <limits>
#include <vector>

namespace veldraw::kernel {

/// Smallest and largest of some values. As long as there is no value, min is above max.
struct Limits
{
    double min = std::numeric_limits<double>::infinity();
    double max = -std::numeric_limits<double>::infinity();

    void add(double low, double high)
    {
        min = low < min ? low : min;
        max = high > max ? high : max;
    }
};

/// The exact range of a buffer's finite values, computed on all cores. The limits of each part of a large buffer are kept, so
/// that after the change of one value only the part with this value is read again.
class RangeOfParts
{
public:
    /// Range of the values that count; Unknown when none of them is finite. Reads only parts whose limits are not known.
    /// @param buffer the same values as in the last call, except for changes that follow() was told of
    /// @param progress looked at for a cancel, unless null
    /// @throws std::bad_alloc, Interrupted
    ValueRange range(Buffer const& buffer, CountedValues const& counted, Progress const* progress = nullptr);

    /// To be told when the value at a zero-based @p index has changed.
    /// @param counted as in range(), of the zone in which the value was changed
    void follow(std::int64_t index, double before, double after, CountedValues const& counted) noexcept;

    /// To be told when any number of values may have changed.
    void forget() noexcept { m_parts.clear(); }

private:
    struct Part
    {
        Limits limits;
        bool isKnown = false;
    };

    void lookAtUnknownParts(Buffer const& buffer, Progress const* progress);

    std::vector<Part> m_parts; // empty: nothing is known
    std::int64_t m_count = 0;
    CountedValues m_counted;
};

} // namespace veldraw::kernel
