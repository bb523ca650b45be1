#include "kernel/operations/SetSolutionTime.h"

#include "kernel/data/DeferredLoad.h"
#include "kernel/data/TimeStrands.h"
#include "kernel/undo/SwapChange.h"

#include <cmath>

namespace veldraw::kernel {

std::shared_ptr<DeferredLoad> SetSolutionTime::valuesAt(Frame const& frame, double time)
{
    auto load = std::make_shared<DeferredLoad>(*frame.dataSet);
    NumberSet const variables = frame.drawnVariables();
    for (int const zone : zonesAt(*frame.dataSet, time)) {
        for (int const variable : variables) {
            load->addField(zone, variable);
        }
    }
    return load;
}

std::string SetSolutionTime::reasonAgainst() const
{
    return std::isfinite(m_time) ? "" : "A solution time is a finite number.";
}

// A step that loads nothing is a quick one, without a thread and a progress window.
bool SetSolutionTime::isLong() const
{
    return frame()->dataSet && !valuesAt(*frame(), m_time)->isEmpty();
}

std::shared_ptr<DeferredLoad> SetSolutionTime::needs()
{
    return valuesAt(*frame(), m_time);
}

std::shared_ptr<Change> SetSolutionTime::makeChange(EventHub& events)
{
    return changeTo(events, frame(), frame()->solutionTime, m_time, styleEvent({"SolutionTime"}));
}

CommandText SetSolutionTime::command() const
{
    return CommandText("set-solution-time").real("time", m_time);
}

} // namespace veldraw::kernel
