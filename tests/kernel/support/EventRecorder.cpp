#include "tests/kernel/support/EventRecorder.h"

namespace veldraw::tests {

namespace {

void addNumbers(std::string& text, char const* what, kernel::NumberSet const& numbers)
{
    if (numbers.empty()) {
        return;
    }
    text += what;
    for (int const number : numbers) {
        text += ' ' + std::to_string(number);
    }
}

} // namespace

EventRecorder::EventRecorder(kernel::EventHub& hub)
    : m_hub(hub)
    , m_subscription(hub.subscribe([this](auto const& event) { m_events.push_back(event); }))
{
}

EventRecorder::~EventRecorder()
{
    m_hub.unsubscribe(m_subscription);
}

std::vector<std::string> EventRecorder::take()
{
    std::vector<std::string> texts;
    for (auto const& event : m_events) {
        if (event.kind == StateChange_AuxDataOwnersReplaced) {
            continue;
        }
        std::string text = std::to_string(static_cast<int>(event.kind));
        addNumbers(text, " zones", event.zones);
        addNumbers(text, " variables", event.variables);
        for (std::string const& name : event.styleNames) {
            text += ' ' + name;
        }
        text += event.frame != 0 ? " frame" : "";
        texts.push_back(text);
    }
    m_events.clear();
    return texts;
}

} // namespace veldraw::tests
