#pragma once

#include "kernel/data/DataSet.h"

#include <vector>

namespace veldraw::kernel {

/// Gives out numbers for new time strands of a data set.
class StrandNumbers
{
public:
    explicit StrandNumbers(DataSet const& dataSet);

    /// The number after the highest one in use or, when that would be too large, the lowest free number.
    int next();

    /// Whether this is the number of a strand; false for the one of static zones.
    static bool isStrand(int strand) { return strand >= 0 && strand < staticStrand; }

private:
    NumberSet m_used;
};

/// The enabled zones of each field map. Each time strand is a map, and each static zone; map n is at index n - 1.
///
/// Maps are numbered in the order of their lowest zones, enabled or not, so that a map keeps its number while zones are
/// disabled. The set of a map without an enabled zone is empty.
std::vector<NumberSet> fieldMaps(DataSet const& dataSet);

/// The numbers of the field maps that have an enabled zone.
NumberSet enabledFieldMaps(DataSet const& dataSet);

} // namespace veldraw::kernel
