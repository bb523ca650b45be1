#include "platform/vdsdkcommon/StateChangeEventObservable.h"

#include "host/MessageLog.h"
#include "kernel/session/Session.h"
#include "platform/signals/WholeConnection.h"
#include "platform/vdtoolbox/StateChangeListenerInterface.h"

#include <boost/signals2/expired_slot.hpp>

#include <algorithm>
#include <exception>
#include <utility>

namespace veldraw::sdk::integration {

namespace {

/// Suspends a loop over frames for a scope, so that listeners who are told in the middle of it ask about the active frame.
class SuspendedFrameLoop
{
public:
    SuspendedFrameLoop() = default;
    ~SuspendedFrameLoop() { kernel::Session::instance().exchangeFrameLoop(std::move(m_loop)); }
    SuspendedFrameLoop(SuspendedFrameLoop const&) = delete;
    SuspendedFrameLoop& operator=(SuspendedFrameLoop const&) = delete;

private:
    kernel::FrameLoop m_loop = kernel::Session::instance().exchangeFrameLoop({});
};

} // namespace

StateChangeEventObservable& StateChangeEventObservable::getInstance()
{
    static auto* const observable = new StateChangeEventObservable;
    return *observable;
}

StateChangeEventObservable::StateChangeEventObservable()
{
    // Without memory the signal keeps the slot that fails to become its first one, and calls it when its owner has gone.
    m_signal.connect([](toolbox::StateChangeEventInterface const&) {});
}

StateChangeEventObservable::~StateChangeEventObservable() = default;

void StateChangeEventObservable::addListener(toolbox::StateChangeListenerInterface* listener)
{
    if (listener && !hasListener(listener))
        m_listeners.push_back({listener, m_nextNumber++});
}

bool StateChangeEventObservable::hasListener(toolbox::StateChangeListenerInterface* listener) const
{
    return std::any_of(m_listeners.begin(), m_listeners.end(),
                       [listener](Entry const& entry) { return entry.listener == listener; });
}

void StateChangeEventObservable::removeListener(toolbox::StateChangeListenerInterface* listener)
{
    m_listeners.erase(std::remove_if(m_listeners.begin(), m_listeners.end(),
                                     [listener](Entry const& entry) { return entry.listener == listener; }),
                      m_listeners.end());
}

boost::signals2::connection StateChangeEventObservable::connectStateChanged(StateChangeSignal::slot_type const& slot)
{
    return sdk::connectWhole(slot, [this](auto const& whole) { return m_signal.connect(whole); });
}

void StateChangeEventObservable::notify(toolbox::StateChangeEventInterface const& event)
{
    SuspendedFrameLoop const suspended;
    std::vector<Entry> const entries = m_listeners;
    for (Entry const& entry : entries) {
        if (!isPresent(entry.number))
            continue;
        try {
            entry.listener->stateChanged(event);
        } catch (...) {
            reportException();
        }
    }
    m_signal(event);
}

// By number and not by address: a new listener may stand where one that has just gone stood.
bool StateChangeEventObservable::isPresent(unsigned long long number) const
{
    return std::any_of(m_listeners.begin(), m_listeners.end(),
                       [number](Entry const& entry) { return entry.number == number; });
}

int StateChangeEventObservable::listenerCount() const
{
    return static_cast<int>(m_listeners.size() + m_signal.num_slots()) - 1; // without its own
}

void StateChangeEventObservable::reportException()
{
    try {
        throw;
    } catch (boost::signals2::expired_slot const&) {
        // The slot's owner has gone; the signal forgets the slot.
    } catch (std::exception const& error) {
        host::MessageLog::instance().add(MessageBoxType_Error, error.what());
    } catch (...) {
        host::MessageLog::instance().add(MessageBoxType_Error, "Unknown error");
    }
}

} // namespace veldraw::sdk::integration
