#include "platform/vdsdkuicommon/HelpLauncher.h"

#include <gtest/gtest.h>

namespace veldraw::tests {

using sdk::ui::common::HelpLauncher;

TEST(HelpLauncher, OpensTopicsInTheInstalledWay)
{
    std::string opened;
    HelpLauncher::install([&opened](std::string const& topic) { opened = topic; });
    HelpLauncher::open("smooth.html");
    EXPECT_EQ(opened, "smooth.html");
    HelpLauncher::install({});
    HelpLauncher::open("mirror.html");
    EXPECT_EQ(opened, "smooth.html");
}

} // namespace veldraw::tests
