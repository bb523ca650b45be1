#include "kernel/compute/SignalAxis.h"

#include "kernel/base/Parallel.h"
#include "kernel/compute/ValueBlock.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <mutex>

namespace veldraw::kernel {

namespace {

constexpr double toleranceOfStep = 1e-6;  // as a part of the mean step
constexpr double toleranceOfPlace = 0.01; // the same; a tone at the highest frequency loses less than a thousandth
constexpr std::int64_t worthAThread = 8192;
constexpr double infinite = std::numeric_limits<double>::infinity();

/// Also where the sum would be infinite.
double middle(double one, double other)
{
    return 0.5 * one + 0.5 * other;
}

/// The largest power of two that is no larger than a number.
double binadeOf(double number)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    bits &= 0x7ff0000000000000U; // the exponent alone
    double binade = 0.0;
    std::memcpy(&binade, &bits, sizeof binade);
    return binade;
}

bool isWholeNumber(FieldDataType_e type)
{
    return type != FieldDataType_Float && type != FieldDataType_Double;
}

/// The distance of numbers of a type from 1 on; that of all whole numbers.
double unitOf(FieldDataType_e type)
{
    if (isWholeNumber(type)) {
        return 1.0;
    }
    return type == FieldDataType_Float ? static_cast<double>(std::numeric_limits<float>::epsilon())
                                       : std::numeric_limits<double>::epsilon();
}

/// How far places and steps may be off because places were rounded to their type.
struct Rounding
{
    double ofPlace;
    double ofStep;
};

/// Steps below two whole numbers are taken as they are: one of two among those of one is rather a place that is missing.
/// @param areBetween places are halfway between rounded ones
Rounding roundingOf(FieldDataType_e type, double largestPlace, double step, bool areBetween)
{
    double const unit = unitOf(type);
    if (isWholeNumber(type)) {
        double const allowed = step < 2.0 ? 0.0 : unit;
        return {allowed, areBetween ? 0.5 * allowed : allowed};
    }
    return {unit * largestPlace, 2.0 * unit * largestPlace}; // places may have been computed of rounded numbers
}

/// Whether steps between these two are none.
bool standsStill(double leastStep, double largestStep)
{
    return !(leastStep < 0.0) && !(largestStep > 0.0);
}

/// Whether steps between these two all rise, all fall, or are none.
bool isAxisSoFar(double leastStep, double largestStep)
{
    return leastStep > 0.0 || largestStep < 0.0 || standsStill(leastStep, largestStep);
}

/// The steps between places of which each is known.
struct PlainSteps
{
    double least = infinite;
    double largest = -infinite;
    bool areNumbers = true;

    void take(double const* places, std::int64_t count)
    {
        double sum = 0.0 * places[0]; // of products with 0: no number as soon as one of them is none
        for (std::int64_t at = 1; at < count; ++at) {
            double const step = places[at] - places[at - 1];
            least = step < least ? step : least;
            largest = step > largest ? step : largest;
            sum += 0.0 * places[at];
        }
        areNumbers = areNumbers && !std::isnan(sum);
    }

    void take(PlainSteps const& others)
    {
        least = std::min(least, others.least);
        largest = std::max(largest, others.largest);
        areNumbers = areNumbers && others.areNumbers;
    }
};

/// How places stand to those that even steps lead to.
class Evenness
{
public:
    /// Begins with a known place.
    void begin(std::int64_t number, double place)
    {
        m_number = number;
        m_place = place;
    }

    bool hasBegun() const { return m_number >= 0; }

    /// Takes the next known place. @param distance from where even steps lead
    void take(std::int64_t number, double place, double distance, FieldDataType_e type)
    {
        double const step = (place - m_place) / static_cast<double>(number - m_number);
        double const size =
            std::max(std::abs(place), std::abs(m_place)) + std::abs(step); // of any place that counts here
        double const unit = isWholeNumber(type) ? 1.0 : unitOf(type) * binadeOf(size);
        m_leastOfOne = std::max(m_leastOfOne, step - 0.5 * unit);
        m_largestOfOne = std::min(m_largestOfOne, step + 0.5 * unit);
        m_farthest = std::max(m_farthest, std::abs(distance));
        begin(number, place);
    }

    void take(Evenness const& others)
    {
        m_farthest = std::max(m_farthest, others.m_farthest);
        m_leastOfOne = std::max(m_leastOfOne, others.m_leastOfOne);
        m_largestOfOne = std::min(m_largestOfOne, others.m_largestOfOne);
    }

    double farthest() const { return m_farthest; }

    /// Whether sums that were rounded to nearest lead to these places.
    bool comesFromOneStep() const { return m_leastOfOne < m_largestOfOne; }

private:
    std::int64_t m_number = -1; // of the last place
    double m_place = 0.0;
    double m_farthest = 0.0;
    double m_leastOfOne = -infinite; // the step that was added again and again is between these two
    double m_largestOfOne = infinite;
};

/// Has each thread fill a part, block by block, and puts the parts together. @param body called with (part, first, count)
template <typename Part, typename Body>
Part gathered(std::int64_t count, Progress const& progress, Body const& body)
{
    Part whole;
    std::mutex mutex;
    parallelFor(
        count,
        [&](std::int64_t first, std::int64_t last, std::int64_t) {
            Part part;
            for (std::int64_t begin = first; begin < last; begin += blockSize) {
                progress.check();
                body(part, begin, std::min(blockSize, last - begin));
            }
            std::lock_guard<std::mutex> const lock(mutex);
            whole.take(part);
        },
        worthAThread);
    return whole;
}

} // namespace

SignalAxis::SignalAxis(std::shared_ptr<Buffer const> const& places, Values values, Progress const& progress)
    : m_places(places)
    , m_values(std::move(values))
{
    if (m_values.hidden || !takeAll(*places, progress)) {
        takeKnown(*places, progress);
    }
    if (m_fault == Fault::None && (2 * m_knownCount < count() || m_knownCount < 2)) {
        m_fault = Fault::HasGaps;
    }
    if (m_fault == Fault::None) {
        measure(*places, progress);
    }
}

double SignalAxis::placeOf(std::int64_t number) const
{
    double const place = m_places.at(number);
    return m_values.areBetween ? middle(place, m_places.at(number + 1)) : place;
}

bool SignalAxis::isKnown(std::int64_t number) const
{
    bool const isHidden = m_values.hidden && m_values.hidden->contains(number);
    return !isHidden && std::isfinite(placeOf(number));
}

double SignalAxis::stepsTo(std::int64_t number) const
{
    if (m_isEven) {
        return static_cast<double>(m_isFalling ? count() - 1 - number : number);
    }
    return m_isFalling ? static_cast<double>(count() - 1 - m_last) + (placeOf(number) - m_lastPlace) / m_spacing
                       : static_cast<double>(m_first) + (placeOf(number) - m_firstPlace) / m_spacing;
}

/// @param block has room for one more
void SignalAxis::readPlaces(Buffer const& places, std::int64_t first, std::int64_t number, double* block) const
{
    readBlock(places, first, m_values.areBetween ? number + 1 : number, block);
    for (std::int64_t at = 0; m_values.areBetween && at < number; ++at) {
        block[at] = middle(block[at], block[at + 1]);
    }
}

/// Takes places of which each is known and follows the one before, on all cores. @return false, with nothing taken, if they are none
bool SignalAxis::takeAll(Buffer const& places, Progress const& progress)
{
    auto const steps =
        gathered<PlainSteps>(count(), progress, [&](PlainSteps& part, std::int64_t first, std::int64_t number) {
            double block[blockSize + 2];
            std::int64_t const before = first > 0 ? 1 : 0;
            readPlaces(places, first - before, number + before, block);
            part.take(block, number + before);
        });
    if (count() < 2 || !steps.areNumbers || !isAxisSoFar(steps.least, steps.largest)) {
        return false;
    }
    m_last = count() - 1;
    m_firstPlace = placeOf(0);
    m_lastPlace = placeOf(m_last);
    m_leastStep = steps.least;
    m_largestStep = steps.largest;
    m_knownCount = count();
    return true;
}

/// Takes the places that are known, one after the other, up to the first that does not follow the one before.
void SignalAxis::takeKnown(Buffer const& places, Progress const& progress)
{
    for (std::int64_t first = 0; first < count() && m_fault == Fault::None; first += blockSize) {
        progress.check();
        std::int64_t const number = std::min(blockSize, count() - first);
        double block[blockSize + 1];
        readPlaces(places, first, number, block);
        for (std::int64_t at = 0; at < number && m_fault == Fault::None; ++at) {
            if (isKnown(first + at)) {
                follow(first + at, block[at]);
            }
        }
    }
}

/// Takes the next known place.
void SignalAxis::follow(std::int64_t number, double place)
{
    if (m_knownCount == 0) {
        m_first = number;
        m_firstPlace = place;
    } else {
        double const difference = place - m_lastPlace;
        double const step = number - m_last == 1 ? difference : difference / static_cast<double>(number - m_last);
        bool const wasFlat = m_knownCount > 1 && standsStill(m_leastStep, m_largestStep);
        m_second = m_knownCount == 1 ? number : m_second;
        m_leastStep = m_knownCount == 1 ? step : std::min(m_leastStep, step);
        m_largestStep = m_knownCount == 1 ? step : std::max(m_largestStep, step);
        if (!isAxisSoFar(m_leastStep, m_largestStep)) {
            m_fault = Fault::IsNotSteady;
            m_faultAt = wasFlat ? m_second : number; // where the axis stood still it is not the first step to blame
        }
    }
    m_last = number;
    m_lastPlace = place;
    ++m_knownCount;
}

void SignalAxis::measure(Buffer const& places, Progress const& progress)
{
    if (standsStill(m_leastStep, m_largestStep)) {
        m_fault = Fault::IsConstant;
        return;
    }
    m_isFalling = m_largestStep < 0.0;
    double const mean = (m_lastPlace - m_firstPlace) / static_cast<double>(m_last - m_first);
    m_spacing = std::abs(mean);
    double const lowest = 1.0 / (static_cast<double>(count()) * m_spacing);
    if (!std::isnormal(m_spacing) || !std::isnormal(lowest) || !std::isfinite(1.0 / m_spacing)) {
        m_fault = Fault::HasNoSpacing;
        return;
    }
    m_isEven = hasEvenSteps(places, mean, progress);
}

bool SignalAxis::hasEvenSteps(Buffer const& places, double mean, Progress const& progress) const
{
    double const largestPlace = std::max(std::abs(m_firstPlace), std::abs(m_lastPlace));
    Rounding const rounding = roundingOf(places.type(), largestPlace, m_spacing, m_values.areBetween);
    double const worstStep = std::max(m_largestStep - mean, mean - m_leastStep);
    if (!(worstStep <= toleranceOfStep * m_spacing + rounding.ofStep)) {
        return false;
    }
    if (worstStep * static_cast<double>(m_last - m_first) <= toleranceOfPlace * m_spacing) {
        return true; // as most are: they cannot add up to more
    }
    FieldDataType_e const type = places.type();
    auto const found =
        gathered<Evenness>(count(), progress, [&](Evenness& part, std::int64_t first, std::int64_t number) {
            double block[blockSize + 1];
            readPlaces(places, first, number, block);
            for (std::int64_t at = 0; at < number; ++at) {
                std::int64_t const next = first + at;
                if (next <= m_first || !(isWhole() || isKnown(next))) {
                    continue;
                }
                if (!part.hasBegun()) {
                    std::int64_t const before = knownBefore(next);
                    part.begin(before, placeOf(before));
                }
                double const even = m_firstPlace + static_cast<double>(next - m_first) * mean;
                part.take(next, block[at], block[at] - even, type);
            }
        });
    return found.farthest() <= toleranceOfPlace * m_spacing + rounding.ofPlace || found.comesFromOneStep();
}

/// The known value before one that is not the first of them.
std::int64_t SignalAxis::knownBefore(std::int64_t number) const
{
    do {
        --number;
    } while (!isKnown(number));
    return number;
}

} // namespace veldraw::kernel
