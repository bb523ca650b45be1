#include "tests/host/MessageRecorder.h"

namespace veldraw::tests {

MessageRecorder::MessageRecorder()
    : m_previous(host::MessagePresenter::install([this](std::string const& text, MessageBoxType_e type) {
        m_messages.push_back(std::to_string(static_cast<int>(type)) + ": " + text);
        m_details.push_back(host::MessagePresenter::details());
    }))
{
}

MessageRecorder::~MessageRecorder()
{
    host::MessagePresenter::install(m_previous);
}

} // namespace veldraw::tests
