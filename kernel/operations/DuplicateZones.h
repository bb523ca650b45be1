#pragma once

#include "kernel/operations/DataSetOperation.h"

namespace veldraw::kernel {

/// Appends a copy of each zone, in the order of the zones. "Create Duplicate Zone"; event 4 with the copies. Constant time
/// in the number of points.
///
/// A copy has the name, type, dimensions, solution time, strand and auxiliary data of its source, and shares its
/// connectivity and all its values: every field is on the share group of the source's field, so that nothing is
/// copied until one of them is branched off to be written. A copy in a time strand thus has its source beside it at
/// the same moment, and a copy of a static zone is static. It has an identifier of its own and is enabled, also when
/// its source is not.
///
/// Refused: a locked data set, an empty set, a number that does not exist.
class DuplicateZones : public DataSetOperation
{
public:
    /// @param zones one-based numbers
    DuplicateZones(DataSet const& dataSet, NumberSet zones)
        : DataSetOperation(dataSet)
        , m_zones(std::move(zones))
    {
    }

    std::string name() const override { return "Create Duplicate Zone"; }
    CommandText command() const override;
    std::string reasonAgainst() const override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    NumberSet m_zones;
};

} // namespace veldraw::kernel
