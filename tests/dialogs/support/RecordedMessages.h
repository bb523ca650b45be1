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
        : m_previous(host::MessagePresenter::install(
              [this](std::string const& text, MessageBoxType_e type) { m_texts.push_back(kind(type) + ": " + text); }))
    {
    }
    ~RecordedMessages() { host::MessagePresenter::install(m_previous); }
    RecordedMessages(RecordedMessages const&) = delete;
    RecordedMessages& operator=(RecordedMessages const&) = delete;

    /// What was told since the last call.
    std::vector<std::string> take() { return std::exchange(m_texts, {}); }

private:
    static std::string kind(MessageBoxType_e type)
    {
        if (type == MessageBoxType_Error)
            return "error";
        return type == MessageBoxType_Information ? "information" : "warning";
    }

    std::vector<std::string> m_texts;
    host::MessagePresenter::Presenter m_previous;
};

} // namespace veldraw::tests
