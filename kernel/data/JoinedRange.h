#pragma once

#include "kernel/storage/ValueRange.h"

namespace veldraw::kernel {

struct Zone;

/// Ranges of a variable in several zones as one.
class JoinedRange
{
public:
    /// @param variable one-based number
    void add(Zone const& zone, int variable);
    void add(JoinedRange const& other);

    /// Of the zones that know theirs; Unknown when none does.
    ValueRange const& range() const { return m_range; }
    /// Whether the values may have other limits: of some zone the range is an estimate, or it has values that nobody has looked at.
    bool isEstimated() const { return m_range.isValid() && !m_isExact; }

private:
    void add(ValueRange const& other);

    ValueRange m_range;
    bool m_isExact = true;
};

} // namespace veldraw::kernel
