#pragma once

#include "kernel/operations/DataSetOperation.h"
#include "kernel/storage/Buffer.h"

namespace veldraw::kernel {

/// Stores one value, converted to the type of the field: rounded for whole numbers. "Edit Value"; event 0 with the zones
/// and variables that see the new value, and event 22 after it when storage was branched. Without a step when the value is that
/// already.
///
/// An edit of storage that is shared goes to all its fields, or, with automatic branching, to this field alone, which gets a
/// copy of the values first. No other edit copies any, unless somebody reads the buffer at that moment. To take an edit
/// back is to store the old bits again.
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
