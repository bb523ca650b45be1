#pragma once

#include "kernel/data/VariableAddition.h"
#include "kernel/data/ZoneAddition.h"

namespace veldraw::kernel {

/// Puts a probed line into a data set: its zone, and the variable for the distance where that is new. Both are there before the first
/// event is sent.
class ProbedLineChange : public Change
{
public:
    /// @param variable null for none; @param zone with a field for each variable, the new one included
    /// @throws std::bad_alloc
    ProbedLineChange(EventHub& hub, std::shared_ptr<DataSet> const& dataSet, std::shared_ptr<Variable> const& variable,
                     ZoneAddition::Copy zone);

    void apply() noexcept override;
    void revert() noexcept override;
    HeldMemory held() const noexcept override;

private:
    void tell(std::vector<StateChangeEvent> const& events) noexcept;

    EventHub& m_hub;
    EventHub m_silent; // of the zone, which is told together with the variable
    std::vector<StateChangeEvent> m_events;
    std::vector<StateChangeEvent> m_eventsBack;
    VariableAddition m_variable;
    ZoneAddition m_zone;
};

} // namespace veldraw::kernel
