#include "kernel/compute/SmoothRow.h"

#include "kernel/compute/WideLanes.h"

#include <cmath>
#include <cstring>
#include <limits>

namespace veldraw::kernel {

namespace {

template <typename Number>
struct SmoothedRow
{
    Number const* __restrict row;
    NeighborRows<Number> const& neighbors;
    Number weight;
    std::int64_t count;
    Number* __restrict result;
};

template <int axes, typename Number>
VELDRAW_INLINE void smooth(SmoothedRow<Number> const& work)
{
    auto const [a, b, c, d, e, f] = work.neighbors.rows;
    Number const* __restrict const row = work.row;
    Number* __restrict const result = work.result;
    constexpr Number neighbors = 2 * axes;
    Number const share = work.weight / neighbors;
    std::int64_t const count = work.count;
#pragma GCC ivdep
    for (std::int64_t at = 0; at < count; ++at) {
        // By pairs: the sum of equal values is then the value times their number, rounded once, and the difference is 0.
        Number sum = a[at] + b[at];
        if constexpr (axes > 1) {
            sum += c[at] + d[at];
        }
        if constexpr (axes > 2) {
            sum += e[at] + f[at];
        }
        result[at] = row[at] + share * (sum - neighbors * row[at]);
    }
}

template <typename Number>
VELDRAW_INLINE void addDifference(Number neighbor, Number value, Number& sum, Number& count)
{
    Number const difference = neighbor - value;
    bool const isNumber = !std::isnan(difference);
    sum += isNumber ? difference : Number(0);
    count += isNumber ? Number(1) : Number(0);
}

template <int axes, typename Number>
VELDRAW_INLINE void smoothWithHoles(SmoothedRow<Number> const& work)
{
    auto const [a, b, c, d, e, f] = work.neighbors.rows;
    Number const* __restrict const row = work.row;
    Number* __restrict const result = work.result;
    std::int64_t const count = work.count;
#pragma GCC ivdep
    for (std::int64_t at = 0; at < count; ++at) {
        Number sum = 0;
        Number numbers = 0;
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
        result[at] = row[at] + work.weight * sum / (numbers > 0 ? numbers : Number(1));
    }
}

template <typename Number>
VELDRAW_INLINE void smoothAlongAxes(SmoothedRow<Number> const& work)
{
    work.neighbors.axes == 3 ? smooth<3>(work) : work.neighbors.axes == 2 ? smooth<2>(work) : smooth<1>(work);
}

template <typename Number>
VELDRAW_INLINE void smoothAlongAxesWithHoles(SmoothedRow<Number> const& work)
{
    work.neighbors.axes == 3   ? smoothWithHoles<3>(work)
    : work.neighbors.axes == 2 ? smoothWithHoles<2>(work)
                               : smoothWithHoles<1>(work);
}

/// Compares the bits, which stand in the order of the numbers: the compiler does that for several numbers at a time.
template <typename Bits, typename Number>
VELDRAW_INLINE Number largestOf(Number const* left, Number const* right, std::int64_t count)
{
    constexpr Number infinity = std::numeric_limits<Number>::infinity();
    Bits limit;
    std::memcpy(&limit, &infinity, sizeof limit);
    Bits largest = 0;
    for (std::int64_t at = 0; at < count; ++at) {
        Number const difference = std::fabs(left[at] - right[at]);
        Bits bits;
        std::memcpy(&bits, &difference, sizeof bits);
        bits = bits > limit ? 0 : bits;
        largest = bits > largest ? bits : largest;
    }
    Number result;
    std::memcpy(&result, &largest, sizeof result);
    return result;
}

// No templates, since the compiler makes no variants of these.

VELDRAW_WIDE_LANES("avx512f", "avx2")
void run(SmoothedRow<float> const& work)
{
    smoothAlongAxes(work);
}

VELDRAW_WIDE_LANES("avx512f", "avx2")
void run(SmoothedRow<double> const& work)
{
    smoothAlongAxes(work);
}

VELDRAW_WIDE_LANES("avx512f", "avx2")
void runWithHoles(SmoothedRow<float> const& work)
{
    smoothAlongAxesWithHoles(work);
}

VELDRAW_WIDE_LANES("avx512f", "avx2")
void runWithHoles(SmoothedRow<double> const& work)
{
    smoothAlongAxesWithHoles(work);
}

VELDRAW_WIDE_LANES("avx512f", "avx2")
double compare(float const* left, float const* right, std::int64_t count)
{
    return static_cast<double>(largestOf<std::int32_t>(left, right, count));
}

VELDRAW_WIDE_LANES("avx512f", "avx2")
double compare(double const* left, double const* right, std::int64_t count)
{
    return largestOf<std::int64_t>(left, right, count);
}

} // namespace

template <typename Number>
void smoothRow(Number const* row, NeighborRows<Number> const& neighbors, double weight, std::int64_t count,
               Number* result)
{
    run(SmoothedRow<Number>{row, neighbors, static_cast<Number>(weight), count, result});
}

template <typename Number>
void smoothRowWithHoles(Number const* row, NeighborRows<Number> const& neighbors, double weight, std::int64_t count,
                        Number* result)
{
    runWithHoles(SmoothedRow<Number>{row, neighbors, static_cast<Number>(weight), count, result});
}

template <typename Number>
double extrapolateRow(Number const* next, Number const* inner, std::int64_t step, std::int64_t count, Number* border)
{
    Number largest = 0;
    for (std::int64_t at = 0; at < count * step; at += step) {
        Number const value = inner != nullptr ? 2 * next[at] - inner[at] : next[at];
        Number const change = std::fabs(value - border[at]);
        if (std::isfinite(change)) { // neither the value nor what it follows from is a hole
            largest = change > largest ? change : largest;
            border[at] = value;
        }
    }
    return static_cast<double>(largest);
}

template <typename Number>
double largestDifference(Number const* left, Number const* right, std::int64_t count)
{
    return compare(left, right, count);
}

#define VELDRAW_SMOOTH_ROWS_OF(Number)                                                                                 \
    template void smoothRow(Number const*, NeighborRows<Number> const&, double, std::int64_t, Number*);                \
    template void smoothRowWithHoles(Number const*, NeighborRows<Number> const&, double, std::int64_t, Number*);       \
    template double extrapolateRow(Number const*, Number const*, std::int64_t, std::int64_t, Number*);                 \
    template double largestDifference(Number const*, Number const*, std::int64_t)

VELDRAW_SMOOTH_ROWS_OF(float);
VELDRAW_SMOOTH_ROWS_OF(double);

} // namespace veldraw::kernel
