#include "kernel/compute/LeafVicinity.h"

#include "kernel/compute/FamilyLooks.h"

#include <algorithm>
#include <cmath>

namespace veldraw::kernel {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

/// How far from the place targets may be, beside how far their neighbours are: more targets share leaves then, which each has to look at.
constexpr double room = 0.8;

/// Squares of smaller distances lose digits, so that those of boxes would be no bound of those of points.
constexpr double leastSquare = 1e-280;

/// From what step between targets on, beside how far their neighbours are, too few would share leaves.
constexpr double longStep = 0.4;

template <std::size_t Axes>
double distance(double const* a, double const* b)
{
    double square = 0.0;
    for (std::size_t axis = 0; axis < Axes; ++axis) {
        square += (a[axis] - b[axis]) * (a[axis] - b[axis]);
    }
    return std::sqrt(square);
}

/// Copies the boxes of a tree's leaves within a distance of a place, lane by lane, until there are too many.
/// @return their number
template <std::size_t Axes>
VELDRAW_INLINE std::size_t gather(SearchTree<Axes> const& tree, double const* place, double squaredDistance,
                                  std::size_t most, std::uint32_t* leaves, double* boxes)
{
    constexpr std::size_t mostNodes = 128; // eight of each level
    std::size_t levels[mostNodes] = {tree.levels.size()};
    std::size_t numbers[mostNodes] = {0};
    std::size_t size = 1;
    std::size_t count = 0;
    while (size > 0) {
        std::size_t const number = numbers[--size];
        std::size_t const level = levels[size] - 1;
        double const* const family = tree.levels[level].data() + number * SearchTree<Axes>::familySize;
        double squares[familyWidth];
        unsigned octants[familyWidth];
        measureBoxes<Axes, false>(family, place, squares, octants);
        for (unsigned left = hits(squares, squaredDistance); left != 0; left &= left - 1) {
            auto const child = static_cast<std::size_t>(__builtin_ctz(left));
            if (level > 0) {
                levels[size] = level;
                numbers[size++] = number * familyWidth + child;
                continue;
            }
            if (count == most) {
                return most + 1;
            }
            double* const box = boxes + count / familyWidth * SearchTree<Axes>::familySize + count % familyWidth;
            for (std::size_t side = 0; side < 2 * Axes; ++side) {
                box[side * familyWidth] = family[side * familyWidth + child];
            }
            leaves[count++] = static_cast<std::uint32_t>(number * familyWidth + child);
        }
    }
    return count;
}

VELDRAW_WIDE_LANES("avx2")
std::size_t gatherLeaves(SearchTree<2> const& tree, double const* place, double squaredDistance, std::size_t most,
                         std::uint32_t* leaves, double* boxes) noexcept
{
    return gather(tree, place, squaredDistance, most, leaves, boxes);
}

VELDRAW_WIDE_LANES("avx2")
std::size_t gatherLeaves(SearchTree<3> const& tree, double const* place, double squaredDistance, std::size_t most,
                         std::uint32_t* leaves, double* boxes) noexcept
{
    return gather(tree, place, squaredDistance, most, leaves, boxes);
}

} // namespace

template <std::size_t Axes>
bool LeafVicinity<Axes>::isReadyFor(SearchTree<Axes> const& tree, double const* target, double squaredDistance)
{
    double const reach = std::sqrt(squaredDistance);
    bool const isNearTheOneBefore = m_hasBefore && distance<Axes>(target, m_before) <= longStep * reach;
    std::copy_n(target, Axes, m_before);
    m_hasBefore = true;
    if (!(squaredDistance > leastSquare && squaredDistance < infinity)) {
        return false;
    }
    bool isReady = distance<Axes>(target, m_place) + reach <= m_distance;
    if (!isReady && isNearTheOneBefore) {
        choose(tree, target, (1.0 + room) * reach);
        isReady = m_distance >= reach;
    }
    return isReady;
}

template <std::size_t Axes>
void LeafVicinity<Axes>::choose(SearchTree<Axes> const& tree, double const* place, double distance)
{
    constexpr double forRounding = 1.0 + 1e-12;
    double const square = distance * distance * forRounding;
    std::copy_n(place, Axes, m_place);
    m_count = square < infinity ? gatherLeaves(tree, place, square, mostLeaves, m_leaves, m_boxes) : mostLeaves + 1;
    bool const isTooMany = m_count > mostLeaves;
    m_distance = isTooMany ? -1.0 : distance;
    m_count = isTooMany ? 0 : m_count;
    for (std::size_t at = m_count; at < familyCount() * familyWidth;
         ++at) { // nothing is in the last family's other boxes
        double* const box = m_boxes + at / familyWidth * SearchTree<Axes>::familySize + at % familyWidth;
        for (std::size_t axis = 0; axis < Axes; ++axis) {
            box[2 * axis * familyWidth] = infinity;
            box[(2 * axis + 1) * familyWidth] = -infinity;
        }
    }
}

template class LeafVicinity<2>;
template class LeafVicinity<3>;

} // namespace veldraw::kernel
