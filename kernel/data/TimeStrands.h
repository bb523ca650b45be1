#pragma once

#include "kernel/data/DataSet.h"

#include <vector>

namespace veldraw::kernel {

/// Numbers for time strands that a data set does not have yet.
class StrandNumbers
{
public:
    explicit StrandNumbers(DataSet const& dataSet);

    /// The number above all that there are; the lowest free one when there is none above.
    int next();

    /// Whether this is the number of a strand, not of a static zone.
    static bool isStrand(int strand) { return strand >= 0 && strand < staticStrand; }

private:
    NumberSet m_used;
};

/// The enabled zones of each field map: one map a time strand and one a static zone. The map with number n stands at n - 1.
///
/// Maps are numbered in the order of their lowest zones, enabled or not, so that a map keeps its number while zones are
/// disabled; a map without an enabled zone is empty.
std::vector<NumberSet> fieldMaps(DataSet const& dataSet);

} // namespace veldraw::kernel
