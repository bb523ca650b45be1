#pragma once

#include "kernel/compute/NeighborSearch.h"
#include "kernel/compute/PointColumns.h"
#include "kernel/operations/InterpolatedField.h"
#include "kernel/operations/SourcePoints.h"

#include <functional>
#include <utility>
#include <vector>

namespace veldraw::kernel {

/// Variables that have finite values at the same source points, and are wanted at the same places.
class InterpolationTask
{
public:
    struct Variable
    {
        std::size_t position; ///< among the variables of the sources
        InterpolatedField* field;
        double divisor; ///< of the values: so that no sum of them overflows
    };

    InterpolationTask(SourcePoints const& sourceReader, SourcePoints const& targetReader,
                      std::vector<std::uint32_t> const& allTargets, double scaleOfLengths)
        : sources(sourceReader)
        , targets(targetReader)
        , targetPoints(allTargets)
        , scale(scaleOfLengths)
    {
    }

    SourcePoints const& sources;
    SourcePoints const& targets;
    std::vector<std::uint32_t> const& targetPoints; ///< those that follow each other are mostly near each other
    double scale;                                   ///< of all coordinates: a power of 2

    std::vector<Variable> variables;
    std::vector<std::uint32_t> sourcePoints; ///< at least one; may be taken away when they are needed no more

    std::size_t variableCount() const { return variables.size(); }

    /// Keeps one source point of those at the same place, with the means of their values, and sorts the source points in
    /// space. @param progress all of it is for this. @return number of points that were merged into others
    std::int64_t mergeCoincidentPoints(Progress& progress);

    /// The coordinates of the source points.
    PointColumns sourceColumns(Progress const& progress) const;

    /// Copies the values of a variable at source points, divided so that no sum of them overflows.
    void gather(std::size_t variable, std::uint32_t const* points, std::size_t count, double* values) const;

    /// Called with target points and their coordinates, one target after the other.
    using UseTargets = std::function<void(std::uint32_t const* targets, std::vector<double> const& places)>;

    /// Calls @p use for all targets, on all cores, @p size at a time, and counts them as done.
    void forEachBlock(std::size_t size, Progress& progress, UseTargets const& use) const;

    /// Number of targets whose neighbourhoods are found at a time.
    static std::size_t blockSize(NeighborChoice const& choice);

    /// Stores the weighted sums of the values of neighbours. Thread-safe.
    void storeSums(NeighborSearch const& search, Neighborhoods const& found, std::vector<double> const& weights,
                   std::uint32_t const* targets) const;

    /// Stores an estimate that was computed from such values. Thread-safe.
    void store(std::size_t variable, std::uint32_t target, double estimate) const;

private:
    std::size_t endOfPlace(std::size_t first, Progress const& progress) const;
    void addMeansOf(std::uint32_t const* points, std::size_t count, Progress const& progress);

    std::vector<std::pair<std::uint32_t, std::uint32_t>>
        m_merged;                ///< points that were kept, with the place of their means
    std::vector<double> m_means; ///< one a variable, place after place
};

} // namespace veldraw::kernel
