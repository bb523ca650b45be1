#pragma once

#include <boost/function.hpp>
#include <boost/signals2/connection.hpp>
#include <boost/signals2/signal.hpp>

namespace veldraw::ui {

/// The two signals of a spin box whose arrows don't step by themselves.
class StepSignals
{
public:
    boost::signals2::connection connectIncrement(boost::function<void(int)> const& slot);
    boost::signals2::connection connectDecrement(boost::function<void(int)> const& slot);

    /// Tells how many steps, at least 1, are asked for: up for positive numbers, down for negative ones, none for 0.
    void tell(int steps);

private:
    boost::signals2::signal<void(int)> m_increment;
    boost::signals2::signal<void(int)> m_decrement;
};

} // namespace veldraw::ui
