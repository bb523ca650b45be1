#pragma once

#include "kernel/base/Progress.h"
#include "kernel/storage/HiddenSlots.h"
#include "kernel/storage/QuickReader.h"

#include <memory>

namespace veldraw::kernel {

/// The independent variable of signals, such as time: where each of the values stands, and how far apart they are.
///
/// Places that are hidden or no finite numbers are not known, and nothing is known of the values there. The known ones have to
/// rise, or fall, from each to the next. Steps are even in two cases, which are told apart from others by what the type of the places
/// can tell apart there, its unit (1 for whole numbers):
///
/// - Each step is the mean one within a millionth and what rounding makes of it, and each place is where even steps would lead, within a
///   hundredth of a step and a unit. Places are looked at beside steps since small differences of steps may add up.
/// - All steps come from one that was added again and again, each sum rounded to a number of the type. Wherever this has led
///   in the end, it was not meant to be uneven.
class SignalAxis
{
public:
    /// Why places are no axis.
    enum class Fault
    {
        None,
        HasGaps,      ///< fewer than half of the places are known
        IsConstant,   ///< all places are the same
        IsNotSteady,  ///< some rise and some fall, or two that follow each other are the same
        HasNoSpacing, ///< the steps or their frequencies are too large for numbers
    };

    /// Where the values of the signals stand among the places.
    struct Values
    {
        std::int64_t count = 0;
        bool areBetween = false;                   ///< each halfway between two places; else each at its own
        std::shared_ptr<HiddenSlots const> hidden; ///< values that are left out; null for none
    };

    /// @throws Interrupted
    SignalAxis(std::shared_ptr<Buffer const> const& places, Values values, Progress const& progress);

    Fault fault() const { return m_fault; }
    std::int64_t faultAt() const { return m_faultAt; } ///< zero-based value that does not go on as the others

    std::int64_t count() const { return m_values.count; }

    // What follows holds without a fault.

    double spacing() const { return m_spacing; } ///< above 0: the mean step between the first known place and the last
    bool isEven() const { return m_isEven; }
    bool isFalling() const { return m_isFalling; }
    bool isWhole() const { return m_knownCount == count(); } ///< all places are known

    /// Whether the place of a value is known and the value is not hidden. @param number zero-based
    bool isKnown(std::int64_t number) const;

    /// Where in even steps a value stands whose place is known: the first and the last known one at their own numbers, counted from the end
    /// of the signal with the lowest place.
    double stepsTo(std::int64_t number) const;

private:
    double placeOf(std::int64_t number) const;
    void readPlaces(Buffer const& places, std::int64_t first, std::int64_t number, double* block) const;
    bool takeAll(Buffer const& places, Progress const& progress);
    void takeKnown(Buffer const& places, Progress const& progress);
    void follow(std::int64_t number, double place);
    void measure(Buffer const& places, Progress const& progress);
    bool hasEvenSteps(Buffer const& places, double mean, Progress const& progress) const;
    std::int64_t knownBefore(std::int64_t number) const;

    QuickReader m_places;
    Values m_values;
    Fault m_fault = Fault::None;
    std::int64_t m_faultAt = 0;
    std::int64_t m_knownCount = 0;
    std::int64_t m_first = 0; // the first, the second and the last value whose places are known
    std::int64_t m_second = 0;
    std::int64_t m_last = 0;
    double m_firstPlace = 0.0;
    double m_lastPlace = 0.0;
    double m_leastStep = 0.0;
    double m_largestStep = 0.0;
    double m_spacing = 0.0;
    bool m_isEven = true;
    bool m_isFalling = false;
};

} // namespace veldraw::kernel
