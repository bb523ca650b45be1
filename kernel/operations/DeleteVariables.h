#pragma once

#include "kernel/operations/DataSetOperation.h"

namespace veldraw::kernel {

/// Deletes variables in all zones. "Delete Variable"; event 2. Constant time in the number of points.
///
/// Refused: a locked data set, an empty set, a number that does not exist, all variables, all enabled variables.
class DeleteVariables : public DataSetOperation
{
public:
    /// @param variables one-based numbers
    DeleteVariables(DataSet const& dataSet, NumberSet variables)
        : DataSetOperation(dataSet)
        , m_variables(std::move(variables))
    {
    }

    std::string name() const override { return "Delete Variable"; }
    CommandText command() const override;
    std::string reasonAgainst() const override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    NumberSet m_variables;
};

} // namespace veldraw::kernel
