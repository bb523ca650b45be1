#include "kernel/compute/SearchTree.h"

#include "kernel/base/Parallel.h"
#include "kernel/compute/PointDivision.h"

#include <algorithm>
#include <array>
#include <limits>

namespace veldraw::kernel {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr std::size_t width = familyWidth;

/// Puts the coordinates of a leaf, point after point, in the order of axes.
template <std::size_t Axes>
void transpose(double* leaf)
{
    std::array<double, SearchTree<Axes>::leafSize> copy;
    std::copy_n(leaf, copy.size(), copy.begin());
    for (std::size_t point = 0; point < width; ++point) {
        for (std::size_t axis = 0; axis < Axes; ++axis) {
            leaf[axis * width + point] = copy[point * Axes + axis];
        }
    }
}

} // namespace

template <std::size_t Axes>
SearchTree<Axes>::SearchTree(PointReader const& reader, std::vector<std::uint32_t> numbers, Progress& progress)
    : points(std::move(numbers))
{
    fillLeaves(reader, progress);
    addLevel(leaves.begin(), points.size(), false, progress);
    std::size_t nodes = leafCount();
    while (nodes > width) {
        addLevel(levels.back().data(), nodes, true, progress);
        nodes = (nodes + width - 1) / width;
    }
}

template <std::size_t Axes>
void SearchTree<Axes>::fillLeaves(PointReader const& reader, Progress& progress)
{
    leaves = ZeroedArray<double>(leafCount() * leafSize);
    std::fill(leaves.begin() + points.size() * Axes, leaves.end(), infinity);
    double* const places = leaves.begin();
    parallelFor(static_cast<std::int64_t>(points.size()), [&](std::int64_t first, std::int64_t last, std::int64_t) {
        progress.check();
        for (auto at = static_cast<std::size_t>(first); at < static_cast<std::size_t>(last); ++at) {
            reader.read(points[at], places + at * Axes);
        }
    });
    dividePoints(Axes, width, places, points, progress);
    parallelFor(static_cast<std::int64_t>(leafCount()), [&](std::int64_t first, std::int64_t last, std::int64_t) {
        progress.check();
        for (auto leaf = static_cast<std::size_t>(first); leaf < static_cast<std::size_t>(last); ++leaf) {
            transpose<Axes>(places + leaf * leafSize);
        }
    });
}

/// Adds the boxes of all leaves or families of @p parts, which hold @p count points or boxes.
template <std::size_t Axes>
void SearchTree<Axes>::addLevel(double const* parts, std::size_t count, bool areBoxes, Progress const& progress)
{
    std::size_t const boxes = (count + width - 1) / width;
    std::vector<double> level((boxes + width - 1) / width * familySize);
    std::size_t const partSize = areBoxes ? familySize : leafSize;
    auto const fill = [&](std::int64_t first, std::int64_t last, std::int64_t) {
        progress.check();
        for (auto box = static_cast<std::size_t>(first); box < static_cast<std::size_t>(last); ++box) {
            std::size_t const inPart = std::min(count - std::min(count, box * width), width);
            for (std::size_t axis = 0; axis < Axes; ++axis) {
                double const* const low = parts + box * partSize + axis * width * (areBoxes ? 2 : 1);
                double const* const high = low + (areBoxes ? width : 0);
                double* const target = level.data() + box / width * familySize + 2 * axis * width;
                target[box % width] = inPart > 0 ? *std::min_element(low, low + inPart) : infinity;
                target[width + box % width] = inPart > 0 ? *std::max_element(high, high + inPart) : -infinity;
            }
        }
    };
    parallelFor(static_cast<std::int64_t>((boxes + width - 1) / width * width), fill);
    levels.push_back(std::move(level));
}

template struct SearchTree<2>;
template struct SearchTree<3>;

} // namespace veldraw::kernel
