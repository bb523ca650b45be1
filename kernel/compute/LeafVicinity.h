#pragma once

#include "kernel/compute/SearchTree.h"

#include <cstdint>

namespace veldraw::kernel {

/// The leaves of a tree around a place, for targets that follow each other and are near each other: which leaves to look at is then found
/// out once for several of them. Takes no memory beside its own.
template <std::size_t Axes>
class LeafVicinity
{
public:
    /// Whether all points within a distance of a target are in the leaves, or are after these have been chosen anew: around this target,
    /// when the target before was near it. @param squaredDistance may be infinite
    bool isReadyFor(SearchTree<Axes> const& tree, double const* target, double squaredDistance);

    /// Boxes of leaves, eight to a family as in the tree.
    std::size_t familyCount() const { return (m_count + familyWidth - 1) / familyWidth; }
    double const* family(std::size_t number) const { return m_boxes + number * SearchTree<Axes>::familySize; }

    /// The number of a leaf in the tree.
    std::size_t leaf(std::size_t family, std::size_t child) const { return m_leaves[family * familyWidth + child]; }

private:
    static constexpr std::size_t mostLeaves = 96;

    void choose(SearchTree<Axes> const& tree, double const* place, double distance);

    double m_place[Axes] = {};
    double m_distance = -1.0; // from the place, within which the leaves have all points; negative: there are none
    double m_before[Axes] = {};
    bool m_hasBefore = false;
    std::size_t m_count = 0;
    std::uint32_t m_leaves[mostLeaves];
    double m_boxes[mostLeaves / familyWidth * SearchTree<Axes>::familySize];
};

extern template class LeafVicinity<2>;
extern template class LeafVicinity<3>;

} // namespace veldraw::kernel
