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

/// The solution times of the enabled zones in strands: ascending, each once, finite ones only. Empty for a data set without strands.
/// @throws std::bad_alloc
std::vector<double> solutionTimes(DataSet const& dataSet);

/// The enabled zones that are there at a moment: all static ones, and of each strand those with its greatest solution time that is not
/// after the moment, which may be several, such as a zone and its copy. A strand whose first time is later has not begun and has none;
/// one whose last time is earlier goes on with that. A time that is no number is before all others.
/// @throws std::bad_alloc
NumberSet zonesAt(DataSet const& dataSet, double moment);

/// Whether a zone is seen at a moment if it is enabled: it is static or among @p present, which are zonesAt() the moment.
/// @param zone one-based number of a zone that exists
bool isPresent(DataSet const& dataSet, int zone, NumberSet const& present);

} // namespace veldraw::kernel
