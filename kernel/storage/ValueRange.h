#pragma once

#include "kernel/storage/HiddenSlots.h"

namespace veldraw::kernel {

/// Smallest and largest finite value of a field.
struct ValueRange
{
    enum class State
    {
        Unknown,   ///< nothing is known yet, or there is no finite value
        Estimated, ///< limits that the loader gave, not computed from the values
        Exact      ///< computed from the values
    };

    State state = State::Unknown;
    double min = 0.0;
    double max = 0.0;

    bool isValid() const { return state != State::Unknown; }
};

/// What is known of the range of a group's values. A range is of the values that count in some zone; one that was given is of
/// all values. That holds for the cells of an ordered zone too, and is an estimate where some of them are hidden.
class KnownRange
{
public:
    bool isKnownFor(CountedValues const& counted) const;
    bool isKnown() const { return m_isKnown; }
    ValueRange const& range() const { return m_range; }

    /// What the range of all values says of some of them; Unknown when it is not known.
    ValueRange estimate() const;

    /// Takes a range that was found out elsewhere; an unknown one is forgotten.
    void give(ValueRange const& range) noexcept;

    /// From now on what is known is an estimate.
    void makeEstimate() noexcept;

    /// Nothing is known, and nothing is to be computed.
    void leaveUnknown() noexcept;

    /// Takes the range that has been computed of these values.
    void setComputed(ValueRange const& range, CountedValues const& counted) noexcept;
    void forget() noexcept { *this = KnownRange(); }

    /// For values that have come into memory: anything but exact limits is computed when it is asked for.
    void forgetUnlessExact() noexcept;

    /// Follows the change of the value at @p index from @p before to @p after: stays exact where that is certain, else is
    /// forgotten; an estimate is widened. @param counted of the zone that it was changed in
    void follow(std::int64_t index, double before, double after, CountedValues const& counted) noexcept;

private:
    ValueRange m_range;
    bool m_isKnown = false;
    bool m_isGiven = false;
    CountedValues m_counted;
};

} // namespace veldraw::kernel
