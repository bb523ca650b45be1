#include "kernel/compute/NeighborSearch.h"

#include "kernel/compute/FamilyLooks.h"
#include "kernel/compute/LeafVicinity.h"
#include "kernel/compute/NearestList.h"

#include <algorithm>
#include <array>
#include <limits>

namespace veldraw::kernel {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr std::size_t width = familyWidth;
constexpr std::size_t mostLevels = 12;
constexpr std::size_t looksBetweenChecks = 4096;

/// The nearest N of all points.
struct NearestResult
{
    static constexpr bool needsOctants = false;

    VELDRAW_INLINE double worst(unsigned) const { return nearest.worst(); }
    VELDRAW_INLINE void offer(double squaredDistance, std::uint32_t place, unsigned)
    {
        nearest.offer(squaredDistance, place);
    }

    NearestList nearest;
};

/// The nearest points of each octant.
struct OctantResult
{
    static constexpr bool needsOctants = true;

    VELDRAW_INLINE double worst(unsigned octants) const
    {
        double worst = -1.0;
        for (unsigned left = octants; left != 0; left &= left - 1) {
            double const bound = nearest[static_cast<unsigned>(__builtin_ctz(left))].worst();
            worst = bound > worst ? bound : worst;
        }
        return worst;
    }

    VELDRAW_INLINE void offer(double squaredDistance, std::uint32_t place, unsigned octant)
    {
        nearest[octant].offer(squaredDistance, place);
    }

    std::array<NearestList, 8> nearest;
};

/// The parts of the tree that are still to be looked at. Distances and nodes stand in arrays of their own, which are quicker to
/// move about than structures.
struct OpenNodes
{
    double squares[mostLevels * width];
    std::uint64_t nodes[mostLevels * width];
    std::size_t size = 0;

    VELDRAW_INLINE void insert(std::size_t bottom, double square, std::uint64_t node)
    {
        std::size_t at = size++;
        for (; at > bottom && squares[at - 1] < square; --at) {
            squares[at] = squares[at - 1];
            nodes[at] = nodes[at - 1];
        }
        squares[at] = square;
        nodes[at] = node;
    }
};

/// A node in one number: its place in its level, the level (0: a leaf) and the octants that it reaches into.
VELDRAW_INLINE std::uint64_t packed(std::size_t level, std::size_t place, unsigned octants)
{
    return place | std::uint64_t{level} << 40U | std::uint64_t{octants} << 48U;
}

VELDRAW_INLINE std::size_t placeOf(std::uint64_t node)
{
    return node & 0xffffffffffU;
}

VELDRAW_INLINE std::size_t levelOf(std::uint64_t node)
{
    return node >> 40U & 0xffU;
}

VELDRAW_INLINE unsigned octantsOf(std::uint64_t node)
{
    return static_cast<unsigned>(node >> 48U);
}

template <std::size_t Axes, typename Result>
VELDRAW_INLINE void lookAtLeaf(SearchTree<Axes> const& tree, std::size_t leaf, double const* target, Result& result)
{
    double squares[width];
    double const* const places = tree.leaf(leaf * width);
    measurePoints<Axes>(places, target, squares);
    unsigned octants[width] = {};
    if constexpr (Result::needsOctants) {
        for (std::size_t axis = 0; axis < Axes; ++axis) {
            for (std::size_t point = 0; point < width; ++point) {
                octants[point] |= places[axis * width + point] >= target[axis] ? 1U << axis : 0U;
            }
        }
    }
    for (unsigned left = hits(squares, result.worst(Sides<Axes>::all)); left != 0; left &= left - 1) {
        auto const point = static_cast<unsigned>(__builtin_ctz(left));
        if (squares[point] <= result.worst(1U << octants[point])) {
            result.offer(squares[point], static_cast<std::uint32_t>(leaf * width + point), octants[point]);
        }
    }
}

/// Opens the children of a node that may have nearer points, so that the nearest one is next.
template <std::size_t Axes, typename Result>
VELDRAW_INLINE void open(SearchTree<Axes> const& tree, std::uint64_t parent, double const* target, Result const& result,
                         OpenNodes& open)
{
    std::size_t const level = levelOf(parent) - 1;
    std::size_t const place = placeOf(parent);
    double squares[width];
    unsigned octants[width];
    measureBoxes<Axes, Result::needsOctants>(tree.levels[level].data() + place * SearchTree<Axes>::familySize, target,
                                             squares, octants);
    std::size_t const bottom = open.size;
    for (unsigned left = hits(squares, result.worst(Sides<Axes>::all)); left != 0; left &= left - 1) {
        auto const child = static_cast<unsigned>(__builtin_ctz(left));
        if (squares[child] <= result.worst(octants[child])) {
            open.insert(bottom, squares[child], packed(level, place * width + child, octants[child]));
        }
    }
}

/// Looks at the whole tree, nearest parts first. @return false when the progress was interrupted meanwhile
template <std::size_t Axes, typename Result>
VELDRAW_INLINE bool search(SearchTree<Axes> const& tree, double const* target, Progress const& progress, Result& result)
{
    OpenNodes nodes;
    std::size_t looks = 0;
    nodes.insert(0, 0.0, packed(tree.levels.size(), 0, Sides<Axes>::all));
    while (nodes.size > 0) {
        --nodes.size;
        if (++looks % looksBetweenChecks == 0 && progress.isInterrupted()) {
            return false;
        }
        std::uint64_t const node = nodes.nodes[nodes.size];
        if (nodes.squares[nodes.size] > result.worst(octantsOf(node))) {
            continue;
        }
        if (levelOf(node) == 0) {
            lookAtLeaf(tree, placeOf(node), target, result);
        } else {
            open(tree, node, target, result, nodes);
        }
    }
    return true;
}

/// Points that may be neighbours, not yet put in order.
struct Candidates
{
    double squares[mostAtOnce];
    std::uint32_t places[mostAtOnce];
    std::size_t count = 0;
};

template <std::size_t Axes>
VELDRAW_INLINE void collect(SearchTree<Axes> const& tree, std::size_t leaf, double const* target, double limit,
                            Candidates& candidates)
{
    double squares[width];
    measurePoints<Axes>(tree.leaf(leaf * width), target, squares);
    for (unsigned left = hits(squares, limit); left != 0; left &= left - 1) {
        auto const point = static_cast<unsigned>(__builtin_ctz(left));
        candidates.squares[candidates.count] = squares[point];
        candidates.places[candidates.count++] = static_cast<std::uint32_t>(leaf * width + point);
    }
}

/// Looks at the leaves of a vicinity alone.
template <std::size_t Axes>
VELDRAW_INLINE void search(SearchTree<Axes> const& tree, LeafVicinity<Axes> const& vicinity, double const* target,
                           NearestResult& result)
{
    Candidates candidates;
    for (std::size_t family = 0; family < vicinity.familyCount(); ++family) {
        double squares[width];
        unsigned octants[width];
        measureBoxes<Axes, false>(vicinity.family(family), target, squares, octants);
        for (unsigned left = hits(squares, result.worst(0)); left != 0; left &= left - 1) {
            if (candidates.count + width > mostAtOnce) {
                result.nearest.offerAll(candidates.squares, candidates.places, candidates.count);
                candidates.count = 0;
            }
            auto const child = static_cast<unsigned>(__builtin_ctz(left));
            collect(tree, vicinity.leaf(family, child), target, result.worst(0), candidates);
        }
    }
    if (result.nearest.isEmpty()) {
        result.nearest.fill(candidates.squares, candidates.places, candidates.count);
    } else {
        result.nearest.offerAll(candidates.squares, candidates.places, candidates.count);
    }
}

VELDRAW_WIDE_LANES("avx2")
void searchNear(SearchTree<2> const& tree, LeafVicinity<2> const& vicinity, double const* target,
                NearestResult& result) noexcept
{
    search(tree, vicinity, target, result);
}

VELDRAW_WIDE_LANES("avx2")
void searchNear(SearchTree<3> const& tree, LeafVicinity<3> const& vicinity, double const* target,
                NearestResult& result) noexcept
{
    search(tree, vicinity, target, result);
}

VELDRAW_WIDE_LANES("avx2")
bool searchTree(SearchTree<2> const& tree, double const* target, Progress const& progress,
                NearestResult& result) noexcept
{
    return search(tree, target, progress, result);
}

VELDRAW_WIDE_LANES("avx2")
bool searchTree(SearchTree<3> const& tree, double const* target, Progress const& progress,
                NearestResult& result) noexcept
{
    return search(tree, target, progress, result);
}

VELDRAW_WIDE_LANES("avx2")
bool searchTree(SearchTree<2> const& tree, double const* target, Progress const& progress,
                OctantResult& result) noexcept
{
    return search(tree, target, progress, result);
}

VELDRAW_WIDE_LANES("avx2")
bool searchTree(SearchTree<3> const& tree, double const* target, Progress const& progress,
                OctantResult& result) noexcept
{
    return search(tree, target, progress, result);
}

template <std::size_t Axes>
double squaredDistance(SearchTree<Axes> const& tree, std::uint32_t place, double const* target)
{
    double const* const leaf = tree.leaf(place);
    double square = 0.0;
    for (std::size_t axis = 0; axis < Axes; ++axis) {
        double const difference = leaf[axis * width] - target[axis];
        square += difference * difference;
    }
    return square;
}

/// @throws Interrupted
void throwUnless(bool isComplete)
{
    if (!isComplete) {
        throw Interrupted();
    }
}

template <std::size_t Axes>
class TreeSearch : public NeighborSearch
{
public:
    TreeSearch(PointReader const& reader, std::vector<std::uint32_t> points, Progress& progress)
        : m_tree(reader, std::move(points), progress)
    {
    }

    void find(double const* targets, std::size_t count, NeighborChoice const& choice, Progress const& progress,
              Neighborhoods& found) const override
    {
        found.neighbors.clear();
        found.begins.assign(1, 0);
        bool const isOctant = choice.selection == PtSelection_Octant;
        NearestResult nearest;
        OctantResult octants;
        LeafVicinity<Axes> vicinity;
        for (std::size_t target = 0; target < count; ++target) {
            if (isOctant) {
                findInOctants(targets + target * Axes, choice.count, octants, progress, found);
            } else {
                findNearest(targets + target * Axes, choice.count, nearest, vicinity, progress, found);
            }
            found.begins.push_back(found.neighbors.size());
        }
    }

    std::uint32_t size() const override { return static_cast<std::uint32_t>(m_tree.points.size()); }
    std::uint32_t point(std::uint32_t place) const override { return m_tree.points[place]; }

    void read(Neighbor const* neighbors, std::size_t count, double* coordinates) const override
    {
        for (std::size_t point = 0; point < count; ++point) {
            double const* const leaf = m_tree.leaf(neighbors[point].place);
            for (std::size_t axis = 0; axis < Axes; ++axis) {
                coordinates[point * Axes + axis] = leaf[axis * width];
            }
        }
    }

private:
    /// @return a distance, squared, within which there are enough points: that of the farthest of the neighbours of the target before
    double boundFor(double const* target, std::size_t capacity, Neighborhoods const& found) const
    {
        std::size_t const last = found.begins.size() - 1;
        if (last == 0 || found.begins[last] - found.begins[last - 1] != capacity) {
            return infinity;
        }
        double bound = 0.0;
        for (std::size_t at = found.begins[last - 1]; at < found.begins[last]; ++at) {
            bound = std::max(bound, squaredDistance(m_tree, found.neighbors[at].place, target));
        }
        return bound;
    }

    void findNearest(double const* target, std::int64_t count, NearestResult& result, LeafVicinity<Axes>& vicinity,
                     Progress const& progress, Neighborhoods& found) const
    {
        auto const capacity = static_cast<std::size_t>(std::min<std::int64_t>(count, size()));
        double const bound = boundFor(target, capacity, found);
        result.nearest.reset(capacity, bound, m_tree.points);
        if (vicinity.isReadyFor(m_tree, target, bound)) {
            searchNear(m_tree, vicinity, target, result);
        } else {
            throwUnless(searchTree(m_tree, target, progress, result));
        }
        result.nearest.sort(progress);
        found.neighbors.insert(found.neighbors.end(), result.nearest.list().begin(), result.nearest.list().end());
    }

    void findInOctants(double const* target, std::int64_t count, OctantResult& result, Progress const& progress,
                       Neighborhoods& found) const
    {
        constexpr std::int64_t octants = std::int64_t{1} << Axes;
        std::int64_t const share = count / octants;
        auto const rest = static_cast<std::size_t>(count % octants);
        auto const capacity = static_cast<std::size_t>(std::min<std::int64_t>(share + (rest > 0 ? 1 : 0), size()));
        for (std::size_t octant = 0; octant < octants; ++octant) {
            result.nearest[octant].reset(capacity, infinity, m_tree.points);
        }
        throwUnless(searchTree(m_tree, target, progress, result));
        std::vector<Neighbor> next; // of each octant that has more than its share
        auto const begin = static_cast<std::ptrdiff_t>(found.neighbors.size());
        for (std::size_t octant = 0; octant < octants; ++octant) {
            result.nearest[octant].sort(progress);
            std::vector<Neighbor> const& list = result.nearest[octant].list();
            std::size_t const own = std::min(list.size(), static_cast<std::size_t>(share));
            found.neighbors.insert(found.neighbors.end(), list.begin(),
                                   list.begin() + static_cast<std::ptrdiff_t>(own));
            if (own < list.size()) {
                next.push_back(list[own]);
            }
        }
        NearestFirst const isBefore{m_tree.points.data()};
        std::sort(next.begin(), next.end(), isBefore);
        next.resize(std::min(next.size(), rest));
        found.neighbors.insert(found.neighbors.end(), next.begin(), next.end());
        std::sort(found.neighbors.begin() + begin, found.neighbors.end(), isBefore);
    }

    SearchTree<Axes> m_tree;
};

} // namespace

std::unique_ptr<NeighborSearch> NeighborSearch::make(PointReader const& reader, std::vector<std::uint32_t> points,
                                                     Progress& progress)
{
    if (reader.dimensions() == 2) {
        return std::make_unique<TreeSearch<2>>(reader, std::move(points), progress);
    }
    return std::make_unique<TreeSearch<3>>(reader, std::move(points), progress);
}

} // namespace veldraw::kernel
