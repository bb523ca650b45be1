#pragma once

#include <algorithm>
#include <random>
#include <vector>

namespace veldraw::tests {

/// The choices of a storm, the same for the same seed.
class StormDice
{
public:
    explicit StormDice(unsigned seed)
        : m_random(seed)
    {
    }

    /// From 0, the end excluded. 0 also where there is nothing to choose.
    int below(int end) { return std::uniform_int_distribution<int>(0, std::max(end, 1) - 1)(m_random); }

    /// From 1 to @p count.
    int oneOf(int count) { return 1 + below(count); }

    template <typename T>
    T const& pick(std::vector<T> const& choices)
    {
        return choices[static_cast<std::size_t>(below(static_cast<int>(choices.size())))];
    }

private:
    std::mt19937 m_random;
};

} // namespace veldraw::tests
