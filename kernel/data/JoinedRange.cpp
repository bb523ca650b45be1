#include "kernel/data/JoinedRange.h"

#include "kernel/data/Zone.h"

#include <algorithm>

namespace veldraw::kernel {

namespace {

/// Of a zone without a range; where all values are at hand, none of them is finite then.
bool hasUnseenValues(Zone const& zone, int variable)
{
    if (variable < 1 || variable > static_cast<int>(zone.fields.size())) {
        return false;
    }
    Field const& field = zone.fields[static_cast<std::size_t>(variable - 1)];
    return !field.isLoaded() || (!field.isPassive() && field.group()->isMapped());
}

} // namespace

void JoinedRange::add(Zone const& zone, int variable)
{
    ValueRange const ofZone = zone.range(variable);
    if (ofZone.isValid()) {
        m_isExact = m_isExact && ofZone.state == ValueRange::State::Exact;
        add(ofZone);
    } else {
        m_isExact = m_isExact && !hasUnseenValues(zone, variable);
    }
}

void JoinedRange::add(JoinedRange const& other)
{
    m_isExact = m_isExact && other.m_isExact;
    if (other.m_range.isValid()) {
        add(other.m_range);
    }
}

void JoinedRange::add(ValueRange const& other)
{
    m_range.min = m_range.isValid() ? std::min(m_range.min, other.min) : other.min;
    m_range.max = m_range.isValid() ? std::max(m_range.max, other.max) : other.max;
    m_range.state = other.state;
}

} // namespace veldraw::kernel
