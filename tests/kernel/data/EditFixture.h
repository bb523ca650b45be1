#pragma once

#include "kernel/operations/SetValue.h"
#include "tests/kernel/support/SessionFixture.h"

namespace veldraw::tests {

/// Edits single values of the two planes.
class EditValue : public SessionFixture
{
protected:
    kernel::Field const& field(int zone, int variable) { return *dataSet->field(zone, variable); }
    bool edit(int zone, int variable, std::int64_t index, double value, bool autoBranch = true)
    {
        return session.perform(kernel::SetValue(*dataSet, zone, variable, index, value, autoBranch));
    }
    double at(int zone, int variable, std::int64_t index)
    {
        return field(zone, variable).group()->buffer()->value(index);
    }
};

} // namespace veldraw::tests
