#include "kernel/compute/SignalAxis.h"

#include "kernel/compute/ValueBlock.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace veldraw::kernel {

namespace {

constexpr double tolerance = 1e-6;

/// Also where the sum would be infinite.
double middle(double one, double other)
{
    return 0.5 * one + 0.5 * other;
}

/// How far a step may be off because both of its ends were rounded to their type, perhaps after a sum of rounded steps.
double roundingOfSteps(FieldDataType_e type, double largestPlace)
{
    double const share = type == FieldDataType_Float ? static_cast<double>(std::numeric_limits<float>::epsilon())
                                                     : std::numeric_limits<double>::epsilon();
    return 2.0 * share * largestPlace;
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

} // namespace

SignalAxis::SignalAxis(std::shared_ptr<Buffer const> const& places, Values values, Progress const& progress)
    : m_places(places)
    , m_values(std::move(values))
{
    examine(*places, progress);
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
    return (placeOf(number) - std::min(m_firstPlace, m_lastPlace)) / m_spacing;
}

void SignalAxis::examine(Buffer const& places, Progress const& progress)
{
    for (std::int64_t first = 0; first < count() && m_fault == Fault::None; first += blockSize) {
        progress.check();
        std::int64_t const number = std::min(blockSize, count() - first);
        double block[blockSize + 1];
        readBlock(places, first, m_values.areBetween ? number + 1 : number, block);
        for (std::int64_t at = 0; m_values.areBetween && at < number; ++at) {
            block[at] = middle(block[at], block[at + 1]);
        }
        if (m_values.hidden || !followAll(first, block, number)) {
            for (std::int64_t at = 0; at < number && m_fault == Fault::None; ++at) {
                if (isKnown(first + at)) {
                    follow(first + at, block[at]);
                }
            }
        }
    }
    if (m_fault == Fault::None && (2 * m_knownCount < count() || m_knownCount < 2)) {
        m_fault = Fault::HasGaps;
    }
    if (m_fault == Fault::None) {
        measure(places.type());
    }
}

/// Takes places that all follow the last one, which is what they mostly do. @return false, with nothing taken, if they do not
bool SignalAxis::followAll(std::int64_t first, double const* places, std::int64_t number)
{
    if (m_knownCount == 0 || m_last != first - 1) {
        return false;
    }
    double before = m_lastPlace;
    double least = places[0] - before;
    double largest = least;
    double sum = 0.0; // of products with 0: no number as soon as one of them is none
    for (std::int64_t at = 0; at < number; ++at) {
        double const step = places[at] - before;
        least = step < least ? step : least;
        largest = step > largest ? step : largest;
        sum += 0.0 * places[at];
        before = places[at];
    }
    least = m_knownCount == 1 ? least : std::min(m_leastStep, least);
    largest = m_knownCount == 1 ? largest : std::max(m_largestStep, largest);
    if (std::isnan(sum) || !isAxisSoFar(least, largest)) {
        return false;
    }
    m_second = m_knownCount == 1 ? first : m_second;
    m_leastStep = least;
    m_largestStep = largest;
    m_last = first + number - 1;
    m_lastPlace = before;
    m_knownCount += number;
    return true;
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

void SignalAxis::measure(FieldDataType_e type)
{
    if (standsStill(m_leastStep, m_largestStep)) {
        m_fault = Fault::IsConstant;
        return;
    }
    m_isFalling = m_largestStep < 0.0;
    double const range = m_lastPlace - m_firstPlace;
    double const mean = range / static_cast<double>(m_last - m_first);
    double const allowed =
        tolerance * std::abs(mean) + roundingOfSteps(type, std::max(std::abs(m_firstPlace), std::abs(m_lastPlace)));
    m_isEven = m_largestStep - mean <= allowed && mean - m_leastStep <= allowed;
    m_spacing = std::abs(m_isEven ? mean : range / static_cast<double>(count() - 1));
    double const lowest = 1.0 / (static_cast<double>(count()) * m_spacing);
    if (!std::isnormal(m_spacing) || !std::isnormal(lowest) || !std::isfinite(1.0 / m_spacing)) {
        m_fault = Fault::HasNoSpacing;
    }
}

} // namespace veldraw::kernel
