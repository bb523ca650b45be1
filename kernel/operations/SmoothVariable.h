#pragma once

#include "kernel/compute/SmoothingRule.h"
#include "kernel/compute/SmoothingValues.h"
#include "kernel/operations/DataSetOperation.h"
#include "kernel/operations/FrameOperation.h"

namespace veldraw::kernel {

/// Smooths a variable in one zone. "Smooth"; event 0 with the zone and the variable. No step when no value changes.
///
/// In an ordered zone a value's neighbours are the next ones along each index. In a finite-element zone those of a point are at the
/// other ends of its edges, those of a cell are the cells with which it has a side in common. See smoothGrid(),
/// neighborsOfPoints() and smoothByLists(). The border of a finite-element zone is held whatever the condition; there are no
/// unique next values inwards.
///
/// Hidden values and those that are no finite number stay as they are and are left out of the means. The result gets
/// storage of its own, so other zones that shared the values keep theirs.
///
/// Refused: a plot that is neither in a plane or in space nor of lines; a zone or variable that does not exist or is disabled; a
/// passive variable; in a plane or in space a variable on an axis, in a line plot one that no line map shows as the
/// function; less than one pass; a weight beyond its limits.
class SmoothVariable : public FrameDataOperation
{
public:
    static constexpr double leastWeight = 1.1754943508222875e-38; ///< the smallest normal number in single precision
    static constexpr double mostWeight = 0.95;

    /// @param zone, variable one-based numbers
    /// @param weight how far a pass moves a value towards the mean of its neighbours: 1 would be all the way
    SmoothVariable(UniqueId frame, int zone, int variable, int passes, double weight, BoundaryCondition_e condition);

    std::string name() const override { return "Smooth"; }
    CommandText command() const override;
    std::string reasonAgainst() const override;
    bool isLong() const override { return true; }
    std::shared_ptr<DeferredLoad> needs() override;
    void compute(Progress& progress) override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;
    std::string remark() const override { return m_report; }

private:
    Zone const& zone() const { return *dataSet().zone(m_zone); }
    Field const& field() const { return *dataSet().field(m_zone, m_variable); }
    std::string variableName() const;
    std::string reasonAgainstRule() const;
    std::string reasonAgainstField() const;
    std::string reasonAgainstPlot() const;
    bool isFunctionOfLineMap() const;
    SmoothingOutcome smooth(SmoothingValues& values, Progress& progress) const;
    std::string report(SmoothingValues const& values, SmoothingOutcome const& outcome, double seconds) const;

    int m_zone;
    int m_variable;
    SmoothingRule m_rule;
    BoundaryCondition_e m_condition;
    std::shared_ptr<DeferredLoad> m_load;
    std::shared_ptr<Buffer> m_result; // null when no value changes
    std::string m_report;
};

} // namespace veldraw::kernel
