#pragma once

#include <array>
#include <cstdint>

namespace veldraw::kernel {

/// The neighbors of a row of values: along each axis the values before and the values after them, as rows of the same length.
struct NeighborRows
{
    std::array<double const*, 6> rows{};
    int axes = 0;

    void add(double const* before, double const* after)
    {
        auto const place = static_cast<std::size_t>(2 * axes++);
        rows[place] = before;
        rows[place + 1] = after;
    }
};

/// One pass over a row: value + weight * (mean of its neighbors - value), for @p count values. Equal values stay as they are to
/// the last bit. The result overlaps with nothing that is read.
void smoothRow(double const* row, NeighborRows const& neighbors, double weight, std::int64_t count, double* result);

/// The same where NaN stands for a hole, which has no part in the means and stays one.
void smoothRowWithHoles(double const* row, NeighborRows const& neighbors, double weight, std::int64_t count,
                        double* result);

/// Sets values at the border: to the next inner ones, or where @p inner is not null to 2 * next - inner, the values that
/// continue the two linearly. What would be no finite number, and a hole, stays.
/// @param step from one value to the next, in all three
/// @return the largest change
double extrapolateRow(double const* next, double const* inner, std::int64_t step, std::int64_t count, double* border);

/// The largest difference of two values at the same place; holes do not count.
double largestDifference(double const* left, double const* right, std::int64_t count);

} // namespace veldraw::kernel
