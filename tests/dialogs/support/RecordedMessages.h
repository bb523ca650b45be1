#pragma once

#include "host/MessagePresenter.h"

#include <string>
#include <utility>
#include <vector>

namespace veldraw::tests {

/// Records what the user is told, as "error: ..." or "information: ...", instead of showing boxes; for its scope.
class RecordedMessages
{
public:
    RecordedMessages()
        : m_previous(host::MessagePresenter::install([this](std::string const& text, MessageBoxType_e type) {
            m_texts.push_back(kind(type) + ": " + text);
            m_details = host::MessagePresenter::details();
        }))
    {
    }
    ~RecordedMessages() { host::MessagePresenter::install(m_previous); }
    RecordedMessages(RecordedMessages const&) = delete;
    RecordedMessages& operator=(RecordedMessages const&) = delete;

    /// What was told since the last call.
    std::vector<std::string> take() { return std::exchange(m_texts, {}); }

    /// What the last of them has under "Show Details".
    std::string const& details() const { return m_details; }

private:
    static std::string kind(MessageBoxType_e type)
    {
        if (type == MessageBoxType_Error)
            return "error";
        return type == MessageBoxType_Information ? "information" : "warning";
    }

    std::vector<std::string> m_texts;
    std::string m_details;
    host::MessagePresenter::Presenter m_previous;
};

} // namespace veldraw::tests
