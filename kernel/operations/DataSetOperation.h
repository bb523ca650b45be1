#pragma once

#include "kernel/data/DataSet.h"
#include "kernel/data/DeferredLoad.h"
#include "kernel/operations/Operation.h"

namespace veldraw::kernel {

constexpr char noZone[] = "There is no such zone.";
constexpr char noVariable[] = "There is no such variable.";

/// An operation on a data set that a frame shows. It is refused while the data set is locked.
class DataSetOperation : public Operation
{
public:
    std::string find(Pages const& pages) override;
    UniqueId subject() const override { return m_id; }
    DataSet const* lockable() const override { return m_dataSet.get(); }

protected:
    explicit DataSetOperation(DataSet const& dataSet)
        : m_id(dataSet.id())
    {
    }

    /// The data set that find() has found; null before.
    std::shared_ptr<DataSet> const& dataSet() const { return m_dataSet; }

private:
    UniqueId m_id;
    std::shared_ptr<DataSet> m_dataSet;
};

/// Why an operation cannot work on these zones, null when it can: there must be some, and all must exist.
char const* reasonAgainstZones(DataSet const& dataSet, NumberSet const& zones);

} // namespace veldraw::kernel
