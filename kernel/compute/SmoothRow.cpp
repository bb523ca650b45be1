#include "kernel/compute/SmoothRow.h"

#include "kernel/compute/WideLanes.h"

#include <cmath>

namespace veldraw::kernel {

namespace {

struct SmoothedRow
{
    double const* __restrict row;
    NeighborRows const& neighbors;
    double weight;
    std::int64_t count;
    double* __restrict result;
};

template <int axes>
VELDRAW_INLINE void smooth(SmoothedRow const& work)
{
    auto const [a, b, c, d, e, f] = work.neighbors.rows;
    double const* __restrict const row = work.row;
    double* __restrict const result = work.result;
    double const share = work.weight / (2 * axes);
    std::int64_t const count = work.count;
#pragma GCC ivdep
    for (std::int64_t at = 0; at < count; ++at) {
        // By pairs: the sum of equal values is then the value times their number, rounded once, and the difference is 0.
        double sum = a[at] + b[at];
        if constexpr (axes > 1) {
            sum += c[at] + d[at];
        }
        if constexpr (axes > 2) {
            sum += e[at] + f[at];
        }
        result[at] = row[at] + share * (sum - 2 * axes * row[at]);
    }
}

VELDRAW_INLINE void addDifference(double neighbor, double value, double& sum, double& count)
{
    double const difference = neighbor - value;
    bool const isNumber = !std::isnan(difference);
    sum += isNumber ? difference : 0.0;
    count += isNumber ? 1.0 : 0.0;
}

template <int axes>
VELDRAW_INLINE void smoothWithHoles(SmoothedRow const& work)
{
    auto const [a, b, c, d, e, f] = work.neighbors.rows;
    double const* __restrict const row = work.row;
    double* __restrict const result = work.result;
    std::int64_t const count = work.count;
#pragma GCC ivdep
    for (std::int64_t at = 0; at < count; ++at) {
        double sum = 0.0;
        double numbers = 0.0;
        addDifference(a[at], row[at], sum, numbers);
        addDifference(b[at], row[at], sum, numbers);
        if constexpr (axes > 1) {
            addDifference(c[at], row[at], sum, numbers);
            addDifference(d[at], row[at], sum, numbers);
        }
        if constexpr (axes > 2) {
            addDifference(e[at], row[at], sum, numbers);
            addDifference(f[at], row[at], sum, numbers);
        }
        result[at] = row[at] + work.weight * sum / (numbers > 0.0 ? numbers : 1.0);
    }
}

VELDRAW_WIDE_LANES("avx512f", "avx2")
void smoothOne(SmoothedRow const& work)
{
    smooth<1>(work);
}

VELDRAW_WIDE_LANES("avx512f", "avx2")
void smoothTwo(SmoothedRow const& work)
{
    smooth<2>(work);
}

VELDRAW_WIDE_LANES("avx512f", "avx2")
void smoothThree(SmoothedRow const& work)
{
    smooth<3>(work);
}

VELDRAW_WIDE_LANES("avx512f", "avx2")
void smoothOneWithHoles(SmoothedRow const& work)
{
    smoothWithHoles<1>(work);
}

VELDRAW_WIDE_LANES("avx512f", "avx2")
void smoothTwoWithHoles(SmoothedRow const& work)
{
    smoothWithHoles<2>(work);
}

VELDRAW_WIDE_LANES("avx512f", "avx2")
void smoothThreeWithHoles(SmoothedRow const& work)
{
    smoothWithHoles<3>(work);
}

} // namespace

void smoothRow(double const* row, NeighborRows const& neighbors, double weight, std::int64_t count, double* result)
{
    SmoothedRow const work{row, neighbors, weight, count, result};
    neighbors.axes == 3 ? smoothThree(work) : neighbors.axes == 2 ? smoothTwo(work) : smoothOne(work);
}

void smoothRowWithHoles(double const* row, NeighborRows const& neighbors, double weight, std::int64_t count,
                        double* result)
{
    SmoothedRow const work{row, neighbors, weight, count, result};
    neighbors.axes == 3   ? smoothThreeWithHoles(work)
    : neighbors.axes == 2 ? smoothTwoWithHoles(work)
                          : smoothOneWithHoles(work);
}

double extrapolateRow(double const* next, double const* inner, std::int64_t step, std::int64_t count, double* border)
{
    double largest = 0.0;
    for (std::int64_t at = 0; at < count * step; at += step) {
        double const value = inner != nullptr ? 2 * next[at] - inner[at] : next[at];
        double const change = std::fabs(value - border[at]);
        if (std::isfinite(change)) { // neither the value nor what it follows from is a hole
            largest = change > largest ? change : largest;
            border[at] = value;
        }
    }
    return largest;
}

VELDRAW_WIDE_LANES("avx512f", "avx2")
double largestDifference(double const* left, double const* right, std::int64_t count)
{
    double largest = 0.0;
    for (std::int64_t at = 0; at < count; ++at) {
        double const difference = std::fabs(left[at] - right[at]);
        largest = difference > largest ? difference : largest;
    }
    return largest;
}

} // namespace veldraw::kernel
