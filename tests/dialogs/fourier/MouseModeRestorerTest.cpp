#include "dialogs/fourier/MouseModeRestorer.h"

#include "kernel/frames/Display.h"
#include "platform/vdsdkbase/VelUtilMouse.h"
#include "tests/dialogs/models/SampleSession.h"
#include "tests/support/KernelSpy.h"

#include <gmock/gmock.h>
#include <stdexcept>

namespace veldraw::tests {
namespace {

using kernel::MouseMode;
using sdk::ui::propertymanager::MouseModeRestorer;
using testing::ElementsAre;

class MouseModeRestorerTest : public testing::Test
{
protected:
    MouseModeRestorerTest() { VelUtilMouseSetMode(static_cast<int>(MouseMode::Pan)); }
    ~MouseModeRestorerTest() override { VelUtilMouseSetMode(static_cast<int>(MouseMode::Select)); }

    SampleSession const sample;
    KernelSpy spy;
};

TEST_F(MouseModeRestorerTest, GivesBackTheModeThatItFound)
{
    spy.reset();
    {
        MouseModeRestorer const restorer;
        VelUtilMouseSetMode(static_cast<int>(MouseMode::Zoom));
    }
    EXPECT_THAT(spy.calls(), ElementsAre("VelUtilMouseGetCurrentMode()", "VelUtilMouseSetMode(4)",
                                         "VelUtilMouseIsValidMode(3)", "VelUtilMouseSetMode(3)"));
    EXPECT_EQ(VelUtilMouseGetCurrentMode(), static_cast<int>(MouseMode::Pan));
}

TEST_F(MouseModeRestorerTest, GivesItBackWhenAnExceptionEndsTheScope)
{
    EXPECT_THROW(
        {
            MouseModeRestorer const restorer;
            VelUtilMouseSetMode(static_cast<int>(MouseMode::Rotate));
            throw std::runtime_error("no memory");
        },
        std::runtime_error);
    EXPECT_EQ(VelUtilMouseGetCurrentMode(), static_cast<int>(MouseMode::Pan));
}

TEST_F(MouseModeRestorerTest, LeavesTheModeAloneWhenTheOldOneIsNotValidAnyMore)
{
    {
        MouseModeRestorer const restorer;
        VelUtilMouseSetMode(static_cast<int>(MouseMode::Zoom));
        spy.reset();
        spy.failNext("VelUtilMouseIsValidMode");
    }
    EXPECT_THAT(spy.calls(), ElementsAre("VelUtilMouseIsValidMode(3)"));
    EXPECT_EQ(VelUtilMouseGetCurrentMode(), static_cast<int>(MouseMode::Zoom));
}

} // namespace
} // namespace veldraw::tests
