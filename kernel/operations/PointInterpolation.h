#pragma once

#include "kernel/operations/Interpolation.h"
#include "kernel/operations/InterpolationTask.h"

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

    using Task = InterpolationTask;

    /// Why an interpolation from so many points cannot be done; empty when it can. Asked before anything is estimated.
    virtual std::string reasonAgainstPoints(std::int64_t /*count*/) const { return {}; }

    /// Estimates all variables at all targets of a task. @throws Interrupted, std::bad_alloc, std::runtime_error
    virtual void estimate(Task& task, Progress& progress) = 0;

    /// More sentences for the report.
    virtual std::string details() const { return {}; }

    /// Adds the choice of points to a command.
    CommandText withPoints(CommandText text) const;

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
