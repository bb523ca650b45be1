#pragma once

#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/WaitState.h"
#include "tests/support/KernelSpy.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace veldraw::tests {

/// A dialog on the screen whose action is seen as the kernel sees it.
/// @tparam Fixture the dialog's, a DialogFixture
template <typename Fixture>
class ActionUnderSpy : public Fixture
{
protected:
    ActionUnderSpy() { this->launched(); }

    /// What a click on the action button calls.
    std::vector<std::string> callsOfAction()
    {
        spy.reset();
        this->clickAction();
        return spy.calls();
    }

    /// What the user was told, after which no guard is left and the dialog stays.
    void expectTold(std::vector<std::string> const& texts, std::string const& when)
    {
        EXPECT_EQ(this->messages.take(), texts) << when;
        EXPECT_EQ(sdk::AppLock::depth(), 0) << when;
        EXPECT_EQ(sdk::WaitState::depth(), 0) << when;
        EXPECT_TRUE(this->dialog().isVisible()) << when;
    }

    KernelSpy spy;
};

/// Whether a call that the spy has noted is one of @p function.
inline bool isCallOf(std::string const& call, char const* function)
{
    return call.rfind(std::string(function) + "(", 0) == 0;
}

} // namespace veldraw::tests
