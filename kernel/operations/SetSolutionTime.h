#pragma once

#include "kernel/operations/FrameOperation.h"

namespace veldraw::kernel {

/// Moves a frame to another moment of its transient data set (see zonesAt()). Step "Solution Time"; event 7 with the path "SolutionTime".
/// Values that a field plot draws are loaded in the zones that come in sight.
///
/// Refused: a time that is not finite, values that cannot be loaded.
class SetSolutionTime : public FrameOperation
{
public:
    /// @param run of a drag or of playing, whose moments are one step together; 0: a step of its own
    SetSolutionTime(UniqueId frame, double time, UniqueId run = 0)
        : FrameOperation(frame)
        , m_time(time)
        , m_run(run)
    {
    }

    /// What a frame with a data set needs to show a moment. @throws std::bad_alloc
    static std::shared_ptr<DeferredLoad> valuesAt(Frame const& frame, double time);

    std::string name() const override { return "Solution Time"; }
    CommandText command() const override;
    std::string reasonAgainst() const override;
    bool isLong() const override;
    UniqueId run() const override { return m_run; }
    std::shared_ptr<DeferredLoad> needs() override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    double m_time;
    UniqueId m_run;
};

} // namespace veldraw::kernel
