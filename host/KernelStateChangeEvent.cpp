#include "host/KernelStateChangeEvent.h"

#include "kernel/events/StateChangeEvent.h"

namespace veldraw::host {

KernelStateChangeEvent::KernelStateChangeEvent(kernel::StateChangeEvent const& event)
    : m_event(event)
{
}

int KernelStateChangeEvent::kind() const
{
    return m_event.kind;
}

bool KernelStateChangeEvent::hasStyleParam() const
{
    return !m_event.styleNames.empty();
}

bool KernelStateChangeEvent::hasStyleParam(int position) const
{
    return position >= 1 && position <= static_cast<int>(m_event.styleNames.size());
}

std::string KernelStateChangeEvent::styleParam(int position) const
{
    return hasStyleParam(position) ? m_event.styleNames[static_cast<std::size_t>(position - 1)] : std::string();
}

bool KernelStateChangeEvent::hasZones() const
{
    return !m_event.zones.empty();
}

bool KernelStateChangeEvent::hasVars() const
{
    return !m_event.variables.empty();
}

toolbox::Set KernelStateChangeEvent::vars() const
{
    return toolbox::Set::Take(new Set_s{m_event.variables});
}

toolbox::Set KernelStateChangeEvent::zones() const
{
    return toolbox::Set::Take(new Set_s{m_event.zones});
}

} // namespace veldraw::host
