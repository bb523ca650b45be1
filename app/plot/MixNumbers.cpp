#include "app/plot/MixNumbers.h"

namespace veldraw::app {

namespace {

std::size_t tableSizeFor(std::size_t most)
{
    std::size_t size = 16;
    while (size < most + most / 4)
        size *= 2;
    return size;
}

// Numbers of neighbours differ in their lowest bits, and those of the same row are alike in all others.
std::size_t mixed(CellCut::Meeting const& place)
{
    constexpr std::uint64_t spread = 0x9E3779B97F4A7C15ULL;
    auto const bits = (static_cast<std::uint64_t>(place.first) * spread) ^
                      (static_cast<std::uint64_t>(place.second - place.first) * (spread >> 1U));
    return static_cast<std::size_t>(bits ^ (bits >> 32U));
}

} // namespace

MixNumbers::MixNumbers(std::size_t most)
    : m_table(tableSizeFor(most), -1)
{
}

std::int64_t MixNumbers::of(CellCut::Meeting const& place)
{
    std::size_t const mask = m_table.size() - 1;
    for (std::size_t at = mixed(place) & mask;; at = (at + 1) & mask) {
        std::int64_t& number = m_table[at];
        if (number < 0) {
            number = static_cast<std::int64_t>(m_places.size());
            m_places.push_back(place);
            return number;
        }
        if (m_places[static_cast<std::size_t>(number)] == place)
            return number;
    }
}

} // namespace veldraw::app
