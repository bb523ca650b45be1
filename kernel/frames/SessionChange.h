#pragma once

#include "kernel/frames/Session.h"
#include "kernel/undo/SwapChange.h"

namespace veldraw::kernel {

template <typename Value>
void Session::change(char const* step, std::shared_ptr<void> owner, Value& target, Value value, StateChangeEvent event)
{
    if (target == value) {
        return;
    }
    std::vector<StateChangeEvent> events{std::move(event)};
    m_history.perform(step, std::make_shared<SwapChange<Value>>(m_events, std::move(owner), target, std::move(value),
                                                                std::move(events)));
}

} // namespace veldraw::kernel
