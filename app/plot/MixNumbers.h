#pragma once

#include "app/plot/CellCut.h"

#include <cstdint>
#include <vector>

namespace veldraw::app {

/// Numbers from 0 on for the places where a surface meets a zone, the same number for the same place. A table with gaps that is
/// looked through from where a place belongs: several times as quick as one with lists.
class MixNumbers
{
public:
    /// @param most places that will be asked for, those of the same number included
    explicit MixNumbers(std::size_t most);

    /// The number of a place, a new one if it has none.
    std::int64_t of(CellCut::Meeting const& place);

    /// All places, in the order of their numbers.
    std::vector<CellCut::Meeting> const& places() const { return m_places; }

private:
    std::vector<std::int64_t> m_table; // numbers, -1 in gaps; as many as a power of two
    std::vector<CellCut::Meeting> m_places;
};

} // namespace veldraw::app
