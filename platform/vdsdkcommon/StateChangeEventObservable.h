#pragma once

#include "platform/PlatformApi.h"
#include "platform/vdtoolbox/StateChangeEventInterface.h"

#include <boost/signals2/signal.hpp>

#include <vector>

namespace veldraw::toolbox {
class StateChangeListenerInterface;
}

namespace veldraw::sdk::integration {

/// The one source of state changes. It is never destroyed, so whoever listens may go at any time, even while the
/// process ends.
///
/// An event is delivered synchronously, listeners first, in the order in which they were added, then the signal's
/// slots. A listener that is added during a delivery, or a slot that is connected while the slots are called, hears
/// from the next event on; who is removed is not called any more. A listener or slot that throws does not keep the
/// others from hearing the event. A lightweight frame loop that is running stands aside meanwhile: listeners find the
/// active frame, and the loop goes on where it stood.
class VELDRAW_PLATFORM_API StateChangeEventObservable
{
public:
    /// Calls a slot and the next ones even when one throws; an event has no answer.
    struct VELDRAW_PLATFORM_API CallAll
    {
        typedef void result_type;

        template <typename Iterator>
        void operator()(Iterator first, Iterator last) const
        {
            for (; first != last; ++first) {
                try {
                    *first;
                } catch (...) {
                    reportException();
                }
            }
        }
    };
    typedef boost::signals2::signal<void(toolbox::StateChangeEventInterface const&), CallAll> StateChangeSignal;

    static StateChangeEventObservable& getInstance();

    /// Adds a listener, which stays the caller's and must be removed before it goes. Adding it again changes nothing.
    virtual void addListener(toolbox::StateChangeListenerInterface* listener);
    virtual bool hasListener(toolbox::StateChangeListenerInterface* listener) const;
    virtual void removeListener(toolbox::StateChangeListenerInterface* listener);

    boost::signals2::connection connectStateChanged(StateChangeSignal::slot_type const& slot);

    /// Delivers an event. For whoever hears the kernel.
    void notify(toolbox::StateChangeEventInterface const& event);

    /// Number of listeners and connected slots.
    int listenerCount() const;

    StateChangeEventObservable(StateChangeEventObservable const&) = delete;
    StateChangeEventObservable& operator=(StateChangeEventObservable const&) = delete;

private:
    StateChangeEventObservable();
    virtual ~StateChangeEventObservable();
    bool isPresent(unsigned long long number) const;
    static void reportException();

    struct Entry
    {
        toolbox::StateChangeListenerInterface* listener;
        unsigned long long number;
    };
    std::vector<Entry> m_listeners;
    unsigned long long m_nextNumber = 0;
    StateChangeSignal m_signal;
};

} // namespace veldraw::sdk::integration
