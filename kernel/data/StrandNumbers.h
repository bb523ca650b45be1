#pragma once

#include "kernel/data/DataSet.h"

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

} // namespace veldraw::kernel
