#include "kernel/compute/InverseDistance.h"

#include "kernel/compute/Powers.h"
#include "kernel/compute/WideLanes.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace veldraw::kernel {

namespace {

constexpr std::size_t block = 512;
constexpr std::size_t lanes = 8;

VELDRAW_INLINE double larger(double a, double b)
{
    return a > b ? a : b;
}

VELDRAW_WIDE_LANES("avx512f", "avx2")
void divide(double numerator, double least, double* squares, std::size_t count)
{
    for (std::size_t point = 0; point < count; ++point) {
        squares[point] = numerator / larger(squares[point], least);
    }
}

/// Sums in as many parts as there are lanes, so that the result is the same on all processors.
VELDRAW_WIDE_LANES("avx512f", "avx2")
double sumOfProducts(double const* weights, double const* values, std::size_t count)
{
    double parts[lanes] = {};
    std::size_t first = 0;
    for (; first + lanes <= count; first += lanes) {
        for (std::size_t lane = 0; lane < lanes; ++lane) {
            parts[lane] += weights[first + lane] * values[first + lane];
        }
    }
    for (; first < count; ++first) {
        parts[0] += weights[first] * values[first];
    }
    double sum = 0.0;
    for (double const part : parts) {
        sum += part;
    }
    return sum;
}

VELDRAW_WIDE_LANES("avx512f", "avx2")
double smallest(double const* squares, std::size_t count)
{
    double parts[lanes];
    std::fill_n(parts, lanes, std::numeric_limits<double>::infinity());
    std::size_t first = 0;
    for (; first + lanes <= count; first += lanes) {
        for (std::size_t lane = 0; lane < lanes; ++lane) {
            double const square = squares[first + lane];
            parts[lane] = square < parts[lane] ? square : parts[lane];
        }
    }
    double const rest = first < count ? *std::min_element(squares + first, squares + count) : parts[0];
    return std::min(rest, *std::min_element(parts, parts + lanes));
}

VELDRAW_WIDE_LANES("avx512f", "avx2")
double sumOf(double const* weights, std::size_t count)
{
    double parts[lanes] = {};
    std::size_t first = 0;
    for (; first + lanes <= count; first += lanes) {
        for (std::size_t lane = 0; lane < lanes; ++lane) {
            parts[lane] += weights[first + lane];
        }
    }
    return std::accumulate(parts, parts + lanes, std::accumulate(weights + first, weights + count, 0.0));
}

double smallestSquare(PointColumns const& points, double const* target, Progress const& progress)
{
    double least = std::numeric_limits<double>::infinity();
    double squares[block];
    for (std::size_t first = 0; first < points[0].size(); first += block) {
        if (first % (block * 1024) == 0) {
            progress.check();
        }
        std::size_t const count = std::min(block, points[0].size() - first);
        measureSquares(points, first, count, target, squares);
        least = std::min(least, smallest(squares, count));
    }
    return least;
}

} // namespace

/// Turns squared distances into the powers of their fractions of the smallest one.
void InverseDistance::makeFractions(double smallest, double* squares, std::size_t count) const
{
    double const numerator = larger(smallest, m_minimumSquare);
    if (numerator > 0.0) {
        divide(numerator, m_minimumSquare, squares, count);
    } else {
        std::transform(squares, squares + count, squares, [](double square) { return square > 0.0 ? 0.0 : 1.0; });
    }
}

void InverseDistance::weigh(Neighborhoods const& neighborhoods, std::vector<double>& weights) const
{
    weights.resize(neighborhoods.neighbors.size());
    std::transform(neighborhoods.neighbors.begin(), neighborhoods.neighbors.end(), weights.begin(),
                   [](Neighbor const& neighbor) { return neighbor.squaredDistance; });
    for (std::size_t target = 0; target < neighborhoods.targetCount(); ++target) {
        double* const first = weights.data() + neighborhoods.begins[target];
        std::size_t const count = neighborhoods.begins[target + 1] - neighborhoods.begins[target];
        if (count > 0) {
            makeFractions(*first, first, count); // the nearest one stands first
        }
    }
    raiseFractions(weights.data(), weights.size(), m_exponent);
    for (std::size_t target = 0; target < neighborhoods.targetCount(); ++target) {
        double* const first = weights.data() + neighborhoods.begins[target];
        double* const last = weights.data() + neighborhoods.begins[target + 1];
        double const sum = std::accumulate(first, last, 0.0);
        std::transform(first, last, first, [sum](double weight) { return weight / sum; });
    }
}

void InverseDistance::average(PointColumns const& points, std::vector<double> const& targets, std::size_t variables,
                              ReadValues const& read, std::vector<double>& means, Progress const& progress) const
{
    std::size_t const axes = points[2].empty() ? 2 : 3;
    std::size_t const targetCount = targets.size() / axes;
    std::size_t const pointCount = points[0].size();
    std::vector<double> leasts(targetCount);
    for (std::size_t target = 0; target < targetCount; ++target) {
        leasts[target] = smallestSquare(points, targets.data() + target * axes, progress);
    }
    means.assign(targetCount * variables, 0.0);
    std::vector<double> sums(targetCount, 0.0);
    std::vector<double> values(variables * block);
    std::vector<double> firsts(variables); // means of differences from them, so that equal values give just this value
    for (std::size_t variable = 0; variable < variables; ++variable) {
        read(variable, 0, 1, &firsts[variable]);
    }
    double weights[block];
    for (std::size_t first = 0; first < pointCount; first += block) {
        progress.check();
        std::size_t const count = std::min(block, pointCount - first);
        for (std::size_t variable = 0; variable < variables; ++variable) {
            double* const part = values.data() + variable * block;
            read(variable, first, count, part);
            std::transform(part, part + count, part, [from = firsts[variable]](double value) { return value - from; });
        }
        for (std::size_t target = 0; target < targetCount; ++target) {
            measureSquares(points, first, count, targets.data() + target * axes, weights);
            makeFractions(leasts[target], weights, count);
            raiseFractions(weights, count, m_exponent);
            sums[target] += sumOf(weights, count);
            for (std::size_t variable = 0; variable < variables; ++variable) {
                means[target * variables + variable] += sumOfProducts(weights, values.data() + variable * block, count);
            }
        }
    }
    for (std::size_t target = 0; target < targetCount; ++target) {
        for (std::size_t variable = 0; variable < variables; ++variable) {
            double& mean = means[target * variables + variable];
            mean = firsts[variable] + mean / sums[target];
        }
    }
}

} // namespace veldraw::kernel
