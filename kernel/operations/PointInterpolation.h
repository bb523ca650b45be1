#pragma once

#include "kernel/compute/NeighborSearch.h"
#include "kernel/compute/PointColumns.h"
#include "kernel/operations/Interpolation.h"
#include "kernel/operations/SourcePoints.h"

#include <functional>
#include <utility>
#include <vector>

namespace veldraw::kernel {

/// An interpolation that takes the source zones as points, without their cells: InterpolateByInverseDistance and Krige.
///
/// Source points that are hidden, without a finite place or without a finite value of a variable are left out. Places of the
/// destination that are not finite keep their values.
class PointInterpolation : public Interpolation
{
public:
    std::string reasonAgainst() const override;

protected:
    /// @param choice PtSelection_All takes all points, whatever the count
    PointInterpolation(UniqueId frame, NumberSet sources, int destination, NumberSet variables, NeighborChoice choice);

    /// Variables that have finite values at the same source points, and are wanted at the same places.
    class Task
    {
    public:
        Task(SourcePoints const& sourceReader, SourcePoints const& targetReader,
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

        std::vector<std::uint32_t> sourcePoints; ///< at least one; may be taken away when they are needed no more

        std::size_t variableCount() const { return m_variables.size(); }

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
        friend class PointInterpolation;

        struct Variable
        {
            std::size_t position; ///< among the variables of the sources
            InterpolatedField* field;
            double divisor;
        };

        std::size_t endOfPlace(std::size_t first, Progress const& progress) const;
        void addMeansOf(std::uint32_t const* points, std::size_t count, Progress const& progress);

        std::vector<Variable> m_variables;
        std::vector<std::pair<std::uint32_t, std::uint32_t>>
            m_merged;                ///< points that were kept, with the place of their means
        std::vector<double> m_means; ///< one a variable, place after place
    };

    /// Why an interpolation from so many points cannot be done; empty when it can. Asked before anything is estimated.
    virtual std::string reasonAgainstPoints(std::int64_t /*count*/) const { return {}; }

    /// Estimates all variables at all targets of a task. @throws Interrupted, std::bad_alloc, std::runtime_error
    virtual void estimate(Task& task, Progress& progress) = 0;

    /// More sentences for the report.
    virtual std::string details() const { return {}; }

    NeighborChoice const& choice() const { return m_choice; }

    /// Whether the choice takes all of so many source points.
    bool takesAll(std::int64_t sourcePoints) const;

    std::string interpolate(Fields const& fields, Progress& progress) final;

private:
    struct Layout;
    struct Group;

    std::vector<Layout> layouts(Fields const& fields) const;
    void addSources(Layout const& layout, SourcePoints& points) const;
    void checkCount(Layout const& layout, Progress& progress);
    void work(Layout const& layout, Progress& progress);
    std::vector<Group> divide(Layout const& layout, SourcePoints const& sources,
                              std::vector<std::uint32_t> const& points, Progress const& progress);
    void workOn(Group const& group, Task& task, Progress& progress);

    NeighborChoice m_choice;
    std::int64_t m_pointsLeftOut = 0;
    std::int64_t m_valuesLeftOut = 0;
    std::int64_t m_targetsLeftOut = 0;
};

} // namespace veldraw::kernel
