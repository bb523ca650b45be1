#include "kernel/operations/SetValueBlanking.h"

#include "kernel/base/Text.h"
#include "kernel/data/DeferredLoad.h"
#include "kernel/undo/SwapChange.h"

namespace veldraw::kernel {

std::string SetValueBlanking::reasonAgainst() const
{
    return frame()->dataSet ? m_blanking.refusal(*frame()->dataSet) : "The frame has no data set.";
}

/// What is to be loaded.
std::shared_ptr<DeferredLoad> SetValueBlanking::values() const
{
    DataSet const& dataSet = *frame()->dataSet;
    auto load = std::make_shared<DeferredLoad>(dataSet);
    std::vector<BlankingConstraint> const constraints = m_blanking.inForce(dataSet);
    for (int const zone : constraints.empty() ? NumberSet() : frame()->zonesInSight()) {
        for (BlankingConstraint const& constraint : constraints) {
            load->addField(zone, dataSet.variableNumber(constraint.variable));
        }
    }
    return load;
}

// A step that loads nothing is a quick one, without a thread and a progress window.
bool SetValueBlanking::isLong() const
{
    return !values()->isEmpty();
}

std::shared_ptr<DeferredLoad> SetValueBlanking::needs()
{
    return values();
}

std::shared_ptr<Change> SetValueBlanking::makeChange(EventHub& events)
{
    return changeTo(events, frame(), frame()->valueBlanking, m_blanking, styleEvent(m_style));
}

CommandText SetValueBlanking::command() const
{
    std::string list;
    for (BlankingConstraint const& constraint : m_blanking.constraints) {
        list += (list.empty() ? "" : "; ") + std::to_string(frame()->dataSet->variableNumber(constraint.variable)) +
                (constraint.isAbove ? " > " : " < ") + textOf(constraint.limit) + (constraint.isActive ? "" : " off");
    }
    return CommandText("set-value-blanking").flag("on", m_blanking.isOn).quoted("constraints", list);
}

} // namespace veldraw::kernel
