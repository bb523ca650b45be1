#pragma once

#include "host/MessagePresenter.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/WaitState.h"

#include <utility>
#include <vector>

namespace veldraw::tests {

/// Records how the application is held whenever the user is told something, instead of showing boxes; for its scope.
class RecordedGuards
{
public:
    /// Depths of the lock and of the wait state.
    using Guards = std::vector<std::pair<int, int>>;

    RecordedGuards()
        : m_previous(host::MessagePresenter::install([this](std::string const&, MessageBoxType_e) {
            m_guards.emplace_back(sdk::AppLock::depth(), sdk::WaitState::depth());
        }))
    {
    }
    ~RecordedGuards() { host::MessagePresenter::install(m_previous); }
    RecordedGuards(RecordedGuards const&) = delete;
    RecordedGuards& operator=(RecordedGuards const&) = delete;

    /// One pair a message, in their order.
    Guards const& guards() const { return m_guards; }

private:
    Guards m_guards;
    host::MessagePresenter::Presenter m_previous;
};

} // namespace veldraw::tests
