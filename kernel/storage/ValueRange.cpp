#include "kernel/storage/ValueRange.h"

#include <algorithm>
#include <cmath>

namespace veldraw::kernel {

bool KnownRange::isKnownFor(CountedValues const& counted) const
{
    bool const isExact = m_range.state == ValueRange::State::Exact;
    return m_isKnown && (m_isGiven ? !(counted.hidden && isExact) : m_counted == counted);
}

ValueRange KnownRange::estimate() const
{
    return isOfAll() && m_range.isValid() ? ValueRange{ValueRange::State::Estimated, m_range.min, m_range.max}
                                          : ValueRange{};
}

void KnownRange::give(ValueRange const& range) noexcept
{
    forget();
    m_range = range;
    m_isKnown = range.isValid();
    m_isGiven = m_isKnown;
}

void KnownRange::makeEstimate(CountedValues const& counted) noexcept
{
    if (m_isKnown && !isOfAll() && (m_counted != counted || !m_range.isValid())) {
        leaveUnknown();
        return;
    }
    m_isGiven = isOfAll() || !m_isKnown;
    if (m_range.isValid()) {
        m_range.state = ValueRange::State::Estimated;
    }
}

void KnownRange::leaveUnknown() noexcept
{
    forget();
    m_isKnown = true;
    m_isGiven = true;
}

void KnownRange::forgetUnlessExact() noexcept
{
    if (m_range.state != ValueRange::State::Exact) {
        forget();
    }
}

void KnownRange::setComputed(ValueRange const& range, CountedValues const& counted) noexcept
{
    m_range = range;
    m_isKnown = true;
    m_isGiven = false;
    m_counted = counted;
}

void KnownRange::follow(std::int64_t index, double before, double after, CountedValues const& counted) noexcept
{
    if (!m_isKnown || (m_isGiven && !m_range.isValid())) {
        return;
    }
    if (!m_isGiven && m_counted == counted && counted.leaveOut(index)) {
        return;
    }
    bool const mayBeOther = !m_isGiven && !m_counted.areAll() && m_counted != counted;
    bool const isFinite = std::isfinite(after);
    if (mayBeOther || !m_range.isValid()) {
        forget();
        return;
    }
    if (m_range.state == ValueRange::State::Exact && std::isfinite(before)) {
        bool const wasMin = before <= m_range.min;
        bool const wasMax = before >= m_range.max;
        bool const goesBeyond = isFinite && (wasMin ? after <= before : after >= before);
        if ((wasMin || wasMax) && (!goesBeyond || (wasMin && wasMax))) {
            forget(); // another value may be at the old limit too
            return;
        }
    }
    if (isFinite) {
        m_range.min = std::min(m_range.min, after);
        m_range.max = std::max(m_range.max, after);
    }
}

} // namespace veldraw::kernel
