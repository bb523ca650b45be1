#pragma once

#include <array>
#include <cstdint>

namespace veldraw::kernel {

/// The neighbors of a row of values: along each axis the values before and the values after them, as rows of the same length.
/// @tparam Number float or double, in all of these functions
template <typename Number>
struct NeighborRows
{
    std::array<Number const*, 6> rows{};
    int axes = 0;

    void add(Number const* before, Number const* after)
    {
        auto const place = static_cast<std::size_t>(2 * axes++);
        rows[place] = before;
        rows[place + 1] = after;
    }
};

/// One pass over a row: value + weight * (mean of its neighbors - value), for @p count values. Equal values stay as they are to
/// the last bit. The result overlaps with nothing that is read.
template <typename Number>
void smoothRow(Number const* row, NeighborRows<Number> const& neighbors, double weight, std::int64_t count,
               Number* result);

/// The same where NaN stands for a hole, which has no part in the means and stays one.
template <typename Number>
void smoothRowWithHoles(Number const* row, NeighborRows<Number> const& neighbors, double weight, std::int64_t count,
                        Number* result);

/// Sets values at the border: to the next inner ones, or where @p inner is not null to 2 * next - inner, the values that
/// continue the two linearly. What would be no finite number, and a hole, stays.
/// @param step from one value to the next, in all three
/// @return the largest change
template <typename Number>
double extrapolateRow(Number const* next, Number const* inner, std::int64_t step, std::int64_t count, Number* border);

/// The largest difference of two values at the same place; holes do not count.
template <typename Number>
double largestDifference(Number const* left, Number const* right, std::int64_t count);

} // namespace veldraw::kernel
