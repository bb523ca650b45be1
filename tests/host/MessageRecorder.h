#pragma once

#include "host/MessagePresenter.h"

#include <string>
#include <vector>

namespace veldraw::tests {

/// Takes down what the user would be told, as "0: text" with the type in front, instead of showing it.
class MessageRecorder
{
public:
    MessageRecorder();
    ~MessageRecorder();

    std::vector<std::string> const& messages() const { return m_messages; }

    /// What each of them has under "Show Details".
    std::vector<std::string> const& details() const { return m_details; }

    MessageRecorder(MessageRecorder const&) = delete;
    MessageRecorder& operator=(MessageRecorder const&) = delete;

private:
    std::vector<std::string> m_messages;
    std::vector<std::string> m_details;
    host::MessagePresenter::Presenter m_previous;
};

} // namespace veldraw::tests
