#pragma once

#include "kernel/data/RangeOfParts.h"

namespace veldraw::kernel {

/// What is known of the range of a group's values. A range is of all values, or of those at the cells of an ordered zone
/// with certain point dimensions; one that was given holds for either.
class KnownRange
{
public:
    using Dimensions = RangeOfParts::Dimensions;

    bool isKnownFor(Dimensions const& dims) const { return m_isKnown && (m_isGiven || m_dims == dims); }
    bool isKnown() const { return m_isKnown; }
    ValueRange const& range() const { return m_range; }

    /// Takes a range that was found out elsewhere; an unknown one is forgotten.
    void give(ValueRange const& range) noexcept;

    /// From now on what is known is an estimate.
    void makeEstimate() noexcept;

    /// Nothing is known, and nothing is to be computed.
    void leaveUnknown() noexcept;

    /// Takes the range that has been computed with these dimensions.
    void setComputed(ValueRange const& range, Dimensions const& dims) noexcept;
    void forget() noexcept { *this = KnownRange(); }

    /// For values that have come into memory: anything but exact limits is computed when it is asked for.
    void forgetUnlessExact() noexcept;

    /// Follows the change of one value from @p before to @p after: stays exact where that is certain, else is forgotten;
    /// an estimate is widened.
    void follow(double before, double after, Dimensions const& dims) noexcept;

private:
    ValueRange m_range;
    bool m_isKnown = false;
    bool m_isGiven = false;
    Dimensions m_dims{};
};

} // namespace veldraw::kernel
