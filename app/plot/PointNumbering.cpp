#include "app/plot/PointNumbering.h"

namespace veldraw::app {

std::vector<std::int64_t> PointNumbering::handOut()
{
    std::vector<std::int64_t> points;
    m_before.reserve(m_words.size());
    for (std::size_t at = 0; at < m_words.size(); ++at) {
        m_before.push_back(static_cast<std::int64_t>(points.size()));
        std::uint64_t const word = m_words[at].load(std::memory_order_relaxed);
        for (std::int64_t bit = 0; word >> bit != 0; ++bit) {
            if ((word >> bit & 1) != 0)
                points.push_back(static_cast<std::int64_t>(at) * 64 + bit);
            if (bit == 63)
                break;
        }
    }
    return points;
}

} // namespace veldraw::app
