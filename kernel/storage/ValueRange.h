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

/// What is known of the range of a group's values.
///
/// A range that was computed holds for the values that count in one zone. A range that was given, by a loader, is of all
/// values; it holds for the cells of an ordered zone too, but is only an estimate where points or cells are hidden.
class KnownRange
{
public:
    bool isKnownFor(CountedValues const& counted) const;
    bool isKnown() const { return m_isKnown; }
    ValueRange const& range() const { return m_range; }

    /// The range of all values, as an estimate for a part of them; Unknown when it is not known.
    ValueRange estimate() const;

    /// Takes the range that a loader gives; with an Unknown one nothing is known.
    void give(ValueRange const& range) noexcept;

    /// Makes an exact range an estimate for the zone with these @p counted values. What was computed of other values says nothing of
    /// these, and the range is left unknown.
    void makeEstimate(CountedValues const& counted) noexcept;

    /// Makes the range Unknown and keeps it from being computed. For mapped values without a range.
    void leaveUnknown() noexcept;

    /// Takes a range that was computed of the @p counted values.
    void setComputed(ValueRange const& range, CountedValues const& counted) noexcept;
    void forget() noexcept { *this = KnownRange(); }

    /// Keeps exact limits and forgets an estimate, which can be computed exactly once the values are in memory.
    void forgetUnlessExact() noexcept;

    /// Updates the range after the value at @p index has changed from @p before to @p after. An exact range stays exact or is
    /// forgotten; an estimate is widened.
    /// @param counted values that count in the zone in which the value was changed
    void follow(std::int64_t index, double before, double after, CountedValues const& counted) noexcept;

private:
    bool isOfAll() const { return m_isKnown && (m_isGiven || m_counted.areAll()); }

    ValueRange m_range;
    bool m_isKnown = false;
    bool m_isGiven = false;
    CountedValues m_counted;
};

} // namespace veldraw::kernel
