#pragma once

#include "kernel/data/DataSet.h"

#include <QString>

namespace veldraw::app {

/// The range of a variable over all zones, in the words that the user reads.
///
/// Limits are estimated where a file states them and nobody has looked at the values, and where the values of some zones are not
/// known at all. Finding them out may cost a look at every loaded value.
class VariableRange
{
public:
    /// @param variable one-based
    VariableRange(kernel::DataSet const& dataSet, int variable);

    /// Not valid when no zone has limits.
    kernel::ValueRange const& limits() const { return m_limits; }

    /// For a narrow column: "-1.5 … 3.25", "≈ 0 … 4" where it is estimated, else "not loaded", "not known" or "no values".
    QString text() const;

    /// For a report: "-1.5 to 3.25", "about 0 to 4", or the same words. Nine digits; a limit in single precision by the shortest
    /// text that reads back as the same number.
    QString reportText() const;

    /// Why the limits are estimated or missing, and what to do about it; empty for exact ones.
    QString explanation() const;

private:
    enum class Gap
    {
        None,
        Mapped,   ///< values of some zone are mapped, and too many to be looked through unasked
        NotLoaded ///< values of some zone are not loaded
    };

    void add(kernel::Field const& field, kernel::ValueRange const& range);
    QString missingText() const;

    kernel::ValueRange m_limits;
    FieldDataType_e m_minType = FieldDataType_Double; // how the field that has the limit stores it
    FieldDataType_e m_maxType = FieldDataType_Double;
    Gap m_gap = Gap::None; // that keeps the limits from being exact
};

} // namespace veldraw::app
