#pragma once

#include "kernel/base/Progress.h"
#include "kernel/compute/PointReader.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <memory>
#include <vector>

namespace veldraw::kernel {

/// A source point near a target.
struct Neighbor
{
    double squaredDistance;
    std::uint32_t place; ///< in the order of NeighborSearch
};

/// Which source points are neighbours of a target.
struct NeighborChoice
{
    PtSelection_e selection = PtSelection_NearestN; ///< PtSelection_NearestN or PtSelection_Octant
    std::int64_t count = 1;                         ///< at least 1
};

/// The neighbours of a block of targets, nearest first; where distances are equal, the lower number first.
struct Neighborhoods
{
    std::vector<Neighbor> neighbors;
    std::vector<std::size_t> begins; ///< of each target, and the end

    std::size_t targetCount() const { return begins.size() - 1; }
};

/// Finds the nearest of many source points. The points are kept in leaves of eight that are near each other, with a tree of
/// boxes over them, eight to a box.
///
/// The tree is our own since it is built on all cores, can be cancelled, answers for octants too, and takes the lower number
/// where distances are equal, so that results depend neither on the tree nor on the number of threads.
class NeighborSearch
{
public:
    /// @param points the source points, at least one, all of them finite
    /// @param progress all of it is for this
    /// @throws Interrupted, std::bad_alloc
    static std::unique_ptr<NeighborSearch> make(PointReader const& reader, std::vector<std::uint32_t> points,
                                                Progress& progress);

    NeighborSearch() = default;
    virtual ~NeighborSearch() = default;

    /// Finds the neighbours of @p count targets. Quickest where each target is near the one before it. Thread-safe.
    ///
    /// Octants: N points are shared out evenly over the eight octants around a target (four quadrants in 2D), where a coordinate
    /// difference of 0 counts as positive. Each gives its nearest N / 8, rounded down; the rest are the nearest of those that
    /// come next in each octant. An octant without enough points is not made up for by others.
    /// @param targets their coordinates, one target after the other
    /// @throws Interrupted, std::bad_alloc
    virtual void find(double const* targets, std::size_t count, NeighborChoice const& choice, Progress const& progress,
                      Neighborhoods& found) const = 0;

    virtual std::uint32_t size() const = 0;

    /// Number of the source point at a place.
    virtual std::uint32_t point(std::uint32_t place) const = 0;

    /// Writes the coordinates of @p count source points, one point after the other.
    virtual void read(Neighbor const* neighbors, std::size_t count, double* coordinates) const = 0;

    NeighborSearch(NeighborSearch const&) = delete;
    NeighborSearch& operator=(NeighborSearch const&) = delete;
};

} // namespace veldraw::kernel
