#pragma once

#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/support/ActionUnderSpy.h"

#include <algorithm>

namespace veldraw::tests {

/// An interpolation dialog on the screen as the kernel sees it.
/// @tparam Fixture the dialog's, an InterpolationFixture with the name of its `kernelFunction`, and the messages `failed` and `done`
template <typename Fixture>
class InterpolationUnderSpy : public ActionUnderSpy<Fixture>
{
protected:
    /// What the kernel is asked for by a click on the button.
    std::vector<std::string> interpolationsOfClick()
    {
        this->spy.reset();
        this->clickAction();
        return this->spy.callsOf(Fixture::kernelFunction);
    }

    /// Interpolates from Wing to Body once for each kernel call of the action, which fails then.
    /// @param fail KernelSpy::failCall or KernelSpy::failFrom
    void sweep(void (KernelSpy::*fail)(int))
    {
        bool const laterCallsToo = fail == &KernelSpy::failFrom;
        this->selectWingToBody();
        std::vector<std::string> const calls = this->callsOfAction();
        auto const kernelCall = static_cast<std::size_t>(
            std::find_if(calls.begin(), calls.end(),
                         [](std::string const& call) { return isCallOf(call, Fixture::kernelFunction); }) -
            calls.begin());
        ASSERT_LT(kernelCall + 1, calls.size());
        for (std::size_t failing = 0; failing < calls.size(); ++failing) {
            std::string const when = calls[failing] + " fails";
            bool const succeeds = laterCallsToo ? failing > kernelCall : failing != kernelCall;
            this->sample.session().undo();
            sdk::ui::common::IdleDispatcher::flush();
            this->messages.take();
            (this->spy.*fail)(static_cast<int>(failing) + 1);
            this->clickAction();
            this->spy.reset();
            EXPECT_EQ(this->bodyIsLikeWing(3), succeeds) << when;
            EXPECT_EQ(this->values(2, 3) == this->untouched, !succeeds) << when;
            bool const told = !laterCallsToo && !isCallOf(calls[failing], "VelUtilDialogMessageBox");
            this->expectTold(told ? std::vector<std::string>{succeeds ? Fixture::done : Fixture::failed}
                                  : std::vector<std::string>(),
                             when);
            if (!succeeds)
                this->clickAction();
            EXPECT_TRUE(this->bodyIsLikeWing(3)) << when << ", then nothing";
        }
    }
};

} // namespace veldraw::tests
