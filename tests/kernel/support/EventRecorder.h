#pragma once

#include "kernel/session/Session.h"

#include <string>
#include <vector>

namespace veldraw::tests {

/// Hears the events of a session and writes each down as a short text, such as "2 variables 2 3" or "10 frame".
class EventRecorder
{
public:
    explicit EventRecorder(kernel::EventHub& hub);
    ~EventRecorder();

    /// What has been heard since the last call, without event 51, which follows others by itself (see EventHub).
    std::vector<std::string> take();

    /// The events as they came, for what the text leaves out.
    std::vector<kernel::StateChangeEvent> const& events() const { return m_events; }

    EventRecorder(EventRecorder const&) = delete;
    EventRecorder& operator=(EventRecorder const&) = delete;

private:
    kernel::EventHub& m_hub;
    kernel::EventHub::Subscription m_subscription;
    std::vector<kernel::StateChangeEvent> m_events;
};

} // namespace veldraw::tests
