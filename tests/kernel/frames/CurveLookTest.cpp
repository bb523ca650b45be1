#include "kernel/frames/CurveLook.h"

#include <gtest/gtest.h>
#include <limits>

namespace veldraw::tests {

using kernel::CurveLook;

TEST(CurveLook, WritesAndReadsColoursAsSixDigits)
{
    EXPECT_EQ(CurveLook::colourText(CurveLook::automaticColour), "automatic");
    EXPECT_EQ(CurveLook::colourText(0), "000000");
    EXPECT_EQ(CurveLook::colourText(0x1F6FB5), "1F6FB5");
    EXPECT_EQ(CurveLook::colourOf("automatic"), CurveLook::automaticColour);
    EXPECT_EQ(CurveLook::colourOf("1f6FB5"), 0x1F6FB5);
    EXPECT_EQ(CurveLook::colourOf("#00000a"), 10);
    for (char const* const wrong : {"", "#", "red", "1F6FB", "1F6FB55", "1F6FBG", "-1F6FB", "##1F6FB", " 1F6FB"}) {
        EXPECT_FALSE(CurveLook::colourOf(wrong)) << wrong;
    }
}

TEST(CurveLook, IsRefusedBeyondItsLimits)
{
    auto const refusal = [](int colour, kernel::LineStyle style, double width) {
        return CurveLook{colour, style, width, {}}.refusal();
    };
    auto const solid = kernel::LineStyle::Solid;
    EXPECT_EQ(CurveLook().refusal(), "");
    EXPECT_EQ(refusal(0xFFFFFF, kernel::LineStyle::None, 0.5), "");
    EXPECT_EQ(refusal(0, solid, 20.0), "");
    EXPECT_EQ(refusal(0x1000000, solid, 2.0), "There is no such colour.");
    EXPECT_EQ(refusal(-2, solid, 2.0), "There is no such colour.");
    EXPECT_EQ(refusal(0, static_cast<kernel::LineStyle>(6), 2.0), "There is no such line style.");
    EXPECT_EQ(refusal(0, static_cast<kernel::LineStyle>(-1), 2.0), "There is no such line style.");
    double const none = std::numeric_limits<double>::quiet_NaN();
    for (double const width : {0.4, 20.1, none}) {
        EXPECT_EQ(refusal(0, solid, width), "A line is 0.5 to 20 pixels wide.") << width;
    }
}

} // namespace veldraw::tests
