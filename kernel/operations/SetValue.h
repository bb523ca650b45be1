#pragma once

#include "kernel/operations/DataSetOperation.h"
#include "kernel/storage/Buffer.h"

namespace veldraw::kernel {

/// Stores one value, converted to the type of the field: rounded for whole numbers. "Edit Value"; event 0 with the zones
/// and variables that have the new value, then event 22 if storage was branched. No step when the field has the value already.
///
/// An edit of shared storage changes all fields on it. With automatic branching it changes this field only, which first gets a
/// copy of the values. No other edit copies values, unless something else holds the buffer at that moment. Undo stores the old
/// bits again.
///
/// Refused: a locked data set, numbers that do not exist, an index past the values or in a slot of no cell, a passive
/// field, values that are not loaded, a number beyond the limits of the type.
class SetValue : public DataSetOperation
{
public:
    /// @param zone, variable one-based numbers
    /// @param index zero-based, as in Field
    /// @param autoBranch whether a field that shares its values gets some of its own first
    SetValue(DataSet const& dataSet, int zone, int variable, std::int64_t index, double value, bool autoBranch)
        : DataSetOperation(dataSet)
        , m_zone(zone)
        , m_variable(variable)
        , m_index(index)
        , m_value(value)
        , m_autoBranch(autoBranch)
    {
    }

    std::string name() const override { return "Edit Value"; }
    CommandText command() const override;
    std::string reasonAgainst() const override;
    bool isLong() const override;
    std::shared_ptr<DeferredLoad> needs() override;
    void compute(Progress& progress) override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    char const* reasonAgainstPlace() const;
    Field const& field() const { return *dataSet()->field(m_zone, m_variable); }
    bool branches() const { return m_autoBranch && field().shareCount() > 1; }
    bool changesValue() const;
    ZonesAndVariables sharingFields() const;

    int m_zone;
    int m_variable;
    std::int64_t m_index;
    double m_value;
    bool m_autoBranch;
    std::shared_ptr<Buffer> m_copy; // of the values, where the edit cannot be made in place
};

} // namespace veldraw::kernel
