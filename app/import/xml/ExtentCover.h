#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace veldraw::app {

/// Finds out whether pieces of a grid cover all of it, each point or cell by one piece at least.
class ExtentCover
{
public:
    using Box = std::array<std::int64_t, 6>; ///< along I, J and K: the first one, and the one behind the last

    explicit ExtentCover(Box const& whole);

    /// @throws ImportError when the pieces lie so oddly that it would take too long to tell
    void add(Box const& piece);

    bool isComplete() const { return m_left.empty(); }

private:
    std::vector<Box> m_left; // what no piece has covered yet; they don't meet
    std::int64_t m_steps = 0;
};

} // namespace veldraw::app
