#include "kernel/compute/SignalAxis.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace veldraw::kernel {

namespace {

constexpr std::int64_t valuesBetweenChecks = 65536;
constexpr double tolerance = 1e-6;

/// How far a step may be off because both of its ends were rounded to their type, perhaps after a sum of rounded steps.
double roundingOfSteps(FieldDataType_e type, double largestPlace)
{
    double const share = type == FieldDataType_Float ? static_cast<double>(std::numeric_limits<float>::epsilon())
                                                     : std::numeric_limits<double>::epsilon();
    return 2.0 * share * largestPlace;
}

} // namespace

SignalAxis::SignalAxis(std::shared_ptr<Buffer const> const& places, Values values, Progress const& progress)
    : m_places(places)
    , m_values(std::move(values))
{
    examine(places->type(), progress);
}

double SignalAxis::placeOf(std::int64_t number) const
{
    double const place = m_places.at(number);
    return m_values.areBetween ? 0.5 * place + 0.5 * m_places.at(number + 1) : place;
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

void SignalAxis::examine(FieldDataType_e type, Progress const& progress)
{
    for (std::int64_t number = 0; number < count() && m_fault == Fault::None; ++number) {
        if (number % valuesBetweenChecks == 0) {
            progress.check();
        }
        if (isKnown(number)) {
            follow(number, placeOf(number));
        }
    }
    if (2 * m_knownCount < count() || m_knownCount < 2) {
        m_fault = m_fault == Fault::None ? Fault::HasGaps : m_fault;
    }
    if (m_fault == Fault::None) {
        measure(type);
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
        m_leastStep = m_knownCount == 1 ? step : std::min(m_leastStep, step);
        m_largestStep = m_knownCount == 1 ? step : std::max(m_largestStep, step);
        bool const isSteady = m_leastStep > 0.0 || m_largestStep < 0.0;
        bool const canBeConstant = !(m_leastStep < 0.0) && !(m_largestStep > 0.0);
        if (!isSteady && !canBeConstant) {
            m_fault = Fault::IsNotSteady;
            m_faultAt = number;
        }
    }
    m_last = number;
    m_lastPlace = place;
    ++m_knownCount;
}

void SignalAxis::measure(FieldDataType_e type)
{
    if (!(m_leastStep < 0.0) && !(m_largestStep > 0.0)) {
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
