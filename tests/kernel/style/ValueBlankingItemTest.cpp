#include "kernel/style/ValueBlankingItem.h"

#include "kernel/operations/SetValueBlanking.h"
#include "tests/support/StyleSession.h"

#include <gmock/gmock.h>

namespace veldraw::tests {

using kernel::StyleAddress;
using kernel::StyleNumber;

namespace {

class ValueBlankingItemTest : public testing::Test
{
protected:
    ValueBlankingItemTest()
    {
        kernel::BlankingConstraint const first{sample.frame().dataSet->variable(1)->id, false, 0.0, true};
        StyleSession::session().perform(
            kernel::SetValueBlanking(sample.frame().id, kernel::ValueBlanking{false, {first, first}}));
    }

    static StyleAddress second(std::string const& name)
    {
        StyleAddress address{{"ValueBlanking", "Constraint", name}};
        address.offset1 = 2;
        return address;
    }

    SetValueReturnCode_e set(StyleAddress const& address, double number)
    {
        return tree.set(address, StyleNumber::ofReal(number));
    }

    StyleSession sample;
    kernel::StyleTree& tree = sample.tree();
    StyleAddress const whole{{"ValueBlanking", "Include"}};
};

} // namespace

TEST_F(ValueBlankingItemTest, EachNumberIsReadAndWritten)
{
    for (auto const& [address, number] : {std::pair{whole, 1.0},
                                          {second("Include"), 0.0},
                                          {second("Above"), 1.0},
                                          {second("Limit"), -2.5},
                                          {second("Var"), 3.0}}) {
        ASSERT_EQ(set(address, number), SetValueReturnCode_Ok) << address.path.back();
        EXPECT_EQ(tree.get(address).value().real, number) << address.path.back();
        EXPECT_EQ(set(address, number), SetValueReturnCode_Duplicate) << address.path.back();
        EXPECT_EQ(sample.session().history().undoName(), "Value Blanking");
    }
    kernel::DataSet const& data = *sample.frame().dataSet;
    kernel::ValueBlanking const wanted{
        true, {{data.variable(1)->id, false, 0.0, true}, {data.variable(3)->id, true, -2.5, false}}};
    EXPECT_TRUE(sample.frame().valueBlanking == wanted);
}

TEST_F(ValueBlankingItemTest, IsRefusedBeyondItsLimits)
{
    EXPECT_EQ(set(whole, 2), SetValueReturnCode_Refused);
    EXPECT_EQ(set(second("Var"), 4), SetValueReturnCode_Refused) << "there are three variables";
    EXPECT_EQ(set(second("Above"), 0.5), SetValueReturnCode_Refused);
    StyleAddress third = second("Limit");
    third.offset1 = 3;
    EXPECT_EQ(set(third, 1.0), SetValueReturnCode_Refused);
    EXPECT_THAT(tree.lastError(), testing::HasSubstr("from 1 to 2 as its one offset; 3 is none."));
    EXPECT_FALSE(tree.get(third).has_value());
    StyleAddress withOffset = whole;
    withOffset.offset1 = 1;
    EXPECT_EQ(set(withOffset, 1.0), SetValueReturnCode_Refused);
    EXPECT_FALSE(tree.get(withOffset).has_value());
}

} // namespace veldraw::tests
