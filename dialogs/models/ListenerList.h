#pragma once

#include <algorithm>
#include <memory>
#include <vector>

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// The listeners of a widget observable or a table model; none is owned.
///
/// While they are being told something, listeners may come and go: who came is told from the next time on, who left is
/// not told any more, and the list itself may be destroyed, which ends the round. A listener that throws ends it too.
template <typename Listener>
class ListenerList
{
public:
    ListenerList() = default;
    ListenerList(ListenerList const&) = delete;
    ListenerList& operator=(ListenerList const&) = delete;
    ~ListenerList() { m_listeners->clear(); }

    /// Has no effect when the listener is there already.
    void add(Listener* listener)
    {
        if (!contains(*m_listeners, listener))
            m_listeners->push_back(listener);
    }

    void remove(Listener* listener)
    {
        m_listeners->erase(std::remove(m_listeners->begin(), m_listeners->end(), listener), m_listeners->end());
    }

    /// Calls @p tellOne with each listener, in the order of their coming.
    template <typename TellOne>
    void tell(TellOne const& tellOne) const
    {
        Listeners const listenersNow = *m_listeners;
        std::shared_ptr<Listeners> const listenersStill = m_listeners;
        for (Listener* const listener : listenersNow) {
            if (contains(*listenersStill, listener))
                tellOne(*listener);
        }
    }

private:
    using Listeners = std::vector<Listener*>;

    static bool contains(Listeners const& listeners, Listener const* listener)
    {
        return std::find(listeners.begin(), listeners.end(), listener) != listeners.end();
    }

    std::shared_ptr<Listeners> const m_listeners = std::make_shared<Listeners>();
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
