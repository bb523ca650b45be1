#pragma once

#include "kernel/storage/Buffer.h"
#include "kernel/storage/HiddenSlots.h"
#include "kernel/storage/ValueRange.h"

#include <limits>
#include <vector>

namespace veldraw::kernel {

/// Smallest and largest of some values; the smallest is above the largest as long as there are none.
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

/// The exact range of a buffer's finite values, computed on all cores. The limits of the parts of a large buffer are kept, so
/// that after the change of one value no other part has to be looked at again.
class RangeOfParts
{
public:
    /// Range of the values that count; Unknown when none is finite. Looks at the parts that are not known.
    /// @param buffer the same as in the last call, with the same values but for what was followed since
    /// @throws std::bad_alloc
    ValueRange range(Buffer const& buffer, CountedValues const& counted);

    /// The value at a zero-based @p index has become another one. @param counted as in range(), of the zone that it was changed in
    void follow(std::int64_t index, double before, double after, CountedValues const& counted) noexcept;

    /// All may have become others.
    void forget() noexcept { m_parts.clear(); }

private:
    struct Part
    {
        Limits limits;
        bool isKnown = false;
    };

    void lookAtUnknownParts(Buffer const& buffer);

    std::vector<Part> m_parts; // empty: nothing is known
    std::int64_t m_count = 0;
    CountedValues m_counted;
};

} // namespace veldraw::kernel
