#include "kernel/style/ContourColoursItem.h"

#include "tests/support/StyleSession.h"

#include <gmock/gmock.h>

namespace veldraw::tests {

using kernel::StyleAddress;
using kernel::StyleNumber;

namespace {

class ContourColoursItemTest : public testing::Test
{
protected:
    static StyleAddress at(std::string const& name) { return {{"FieldContour", name}}; }

    SetValueReturnCode_e set(std::string const& name, double number)
    {
        return tree.set(at(name), StyleNumber::ofReal(number));
    }

    StyleSession sample;
    kernel::StyleTree& tree = sample.tree();
};

} // namespace

TEST_F(ContourColoursItemTest, EachNumberIsReadAndWritten)
{
    for (auto const& [name, number] :
         {std::pair{"Max", 7.25}, {"Min", 2.5}, {"FixedRange", 1.0}, {"Levels", 12.0}, {"ColorMap", 3.0}}) {
        ASSERT_EQ(set(name, number), SetValueReturnCode_Ok) << name;
        EXPECT_EQ(tree.get(at(name)).value().real, number) << name;
        EXPECT_EQ(set(name, number), SetValueReturnCode_Duplicate) << name;
        EXPECT_EQ(sample.session().history().undoName(), "Contour Colours");
    }
    kernel::ContourColours const wanted{true, 2.5, 7.25, 12, kernel::ColourMapKind::Rainbow};
    EXPECT_TRUE(sample.frame().contourColours == wanted);
}

TEST_F(ContourColoursItemTest, IsRefusedBeyondItsLimits)
{
    EXPECT_EQ(set("Levels", 101), SetValueReturnCode_Refused);
    EXPECT_EQ(set("ColorMap", 5), SetValueReturnCode_Refused);
    EXPECT_EQ(set("ColorMap", -1), SetValueReturnCode_Refused);
    EXPECT_EQ(set("FixedRange", 2), SetValueReturnCode_Refused);
    EXPECT_EQ(set("Min", 1.0), SetValueReturnCode_Refused) << "the upper limit is 1";
    EXPECT_EQ(tree.lastError(), "The lower limit of a contour has to be below the upper one.");
    StyleAddress address = at("Min");
    address.offset1 = 1;
    EXPECT_EQ(tree.set(address, StyleNumber::ofReal(0.5)), SetValueReturnCode_Refused);
    EXPECT_FALSE(tree.get(address).has_value());
}

} // namespace veldraw::tests
