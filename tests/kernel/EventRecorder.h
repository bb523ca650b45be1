#pragma once

#include "kernel/session/Session.h"

#include <string>
#include <vector>

/// Hears the events of a session and writes each down as a short text, such as "2 variables 2 3" or "10 frame".
class EventRecorder
{
public:
    explicit EventRecorder(veldraw::kernel::EventHub& hub);
    ~EventRecorder();

    /// What has been heard since the last call.
    std::vector<std::string> take();

    /// The events as they came, for what the text leaves out.
    std::vector<veldraw::kernel::StateChangeEvent> const& events() const { return m_events; }

    EventRecorder(EventRecorder const&) = delete;
    EventRecorder& operator=(EventRecorder const&) = delete;

private:
    veldraw::kernel::EventHub& m_hub;
    veldraw::kernel::EventHub::Subscription m_subscription;
    std::vector<veldraw::kernel::StateChangeEvent> m_events;
};
