#pragma once

#include "kernel/base/Progress.h"
#include "kernel/base/ZeroedArray.h"
#include "kernel/compute/PointReader.h"

#include <vector>

namespace veldraw::kernel {

constexpr std::size_t familyWidth = 8; ///< points of a leaf, and children of a node

/// The tree of NeighborSearch: points in leaves of eight, and boxes of boxes over them. Coordinates of a leaf stand side by side,
/// axis after axis, and so do those of the boxes of eight siblings, first the low ones; what a last leaf or family lacks is filled
/// up at infinity.
template <std::size_t Axes>
struct SearchTree
{
    static constexpr std::size_t leafSize = Axes * familyWidth;
    static constexpr std::size_t familySize = 2 * Axes * familyWidth;

    std::vector<std::uint32_t> points; ///< their numbers, in the order of the leaves
    ZeroedArray<double> leaves;
    std::vector<std::vector<double>> levels; ///< from the boxes of leaves up to the last family

    /// Builds the tree on all cores. @param progress all of it is for this. @throws Interrupted, std::bad_alloc
    SearchTree(PointReader const& reader, std::vector<std::uint32_t> numbers, Progress& progress);

    /// The first coordinate of the point at a place; the next ones follow at a distance of familyWidth.
    double const* leaf(std::size_t place) const
    {
        return leaves.begin() + place / familyWidth * leafSize + place % familyWidth;
    }

private:
    std::size_t leafCount() const { return (points.size() + familyWidth - 1) / familyWidth; }
    void fillLeaves(PointReader const& reader, Progress& progress);
    void addLevel(double const* parts, std::size_t count, bool areBoxes, Progress const& progress);
};

extern template struct SearchTree<2>;
extern template struct SearchTree<3>;

} // namespace veldraw::kernel
