#pragma once

#include <atomic>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace veldraw::app {

/// New numbers, without gaps and in the old order, for some of many points. Takes two bits a point, used or not.
class PointNumbering
{
public:
    explicit PointNumbering(std::int64_t pointCount)
        : m_words(static_cast<std::size_t>((pointCount + 63) / 64))
    {
    }

    /// Wants a number for a point; may be called on any thread.
    void want(std::int64_t point)
    {
        std::atomic<std::uint64_t>& word = m_words[static_cast<std::size_t>(point / 64)];
        std::uint64_t const bit = std::uint64_t{1} << (point % 64);
        if ((word.load(std::memory_order_relaxed) & bit) == 0)
            word.fetch_or(bit, std::memory_order_relaxed);
    }

    /// Hands out the numbers when all points are known. @return the points in the order of their numbers
    std::vector<std::int64_t> handOut();

    /// The new number of a point that was wanted.
    std::int64_t numberOf(std::int64_t point) const
    {
        auto const at = static_cast<std::size_t>(point / 64);
        std::uint64_t const lower = (std::uint64_t{1} << (point % 64)) - 1;
        return m_before[at] +
               static_cast<std::int64_t>(std::bitset<64>(m_words[at].load(std::memory_order_relaxed) & lower).count());
    }

private:
    std::vector<std::atomic<std::uint64_t>> m_words; // a bit a point: wanted
    std::vector<std::int64_t> m_before;              // points wanted in the words before each
};

} // namespace veldraw::app
