#pragma once

#include "kernel/data/FieldReplacement.h"
#include "kernel/data/ZonesAndVariables.h"
#include "kernel/operations/DataSetOperation.h"
#include "kernel/storage/Buffer.h"

namespace veldraw::kernel {

/// Gives a field other values, of the same type and number. "Edit Values"; event 0 with the zones and variables that have the new values,
/// then event 22 if the field shared its values and does not any more. No step when all values are the same. No command stands for it.
///
/// The values are copied, so that whoever made them cannot change them afterwards. Undo brings back the old ones, which the step holds.
///
/// Refused: a locked data set, numbers that do not exist, a passive field, values of another type or number.
class ReplaceValues : public DataSetOperation
{
public:
    /// @param zone, variable one-based numbers
    /// @param values as in Field; slots that belong to no cell have any
    /// @param autoBranch whether a field that shares its values gets some of its own; otherwise all that share them get the new ones
    ReplaceValues(DataSet const& dataSet, int zone, int variable, std::shared_ptr<Buffer const> values, bool autoBranch)
        : DataSetOperation(dataSet)
        , m_zone(zone)
        , m_variable(variable)
        , m_values(std::move(values))
        , m_autoBranch(autoBranch)
    {
    }

    std::string name() const override { return "Edit Values"; }
    CommandText command() const override { return {}; }
    std::string reasonAgainst() const override;
    bool isLong() const override { return true; }
    std::shared_ptr<DeferredLoad> needs() override;
    void compute(Progress& progress) override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    Field const& field() const { return *dataSet()->field(m_zone, m_variable); }
    std::vector<FieldReplacement::ZonePart> newFields(ZonesAndVariables const& places,
                                                      std::shared_ptr<ShareGroup> const& group) const;

    int m_zone;
    int m_variable;
    std::shared_ptr<Buffer const> m_values;
    bool m_autoBranch;
    std::shared_ptr<DeferredLoad> m_load;
    std::shared_ptr<Buffer> m_copy; // null when all values are the same
};

} // namespace veldraw::kernel
