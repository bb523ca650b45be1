#include "operations/BlankingText.h"

#include "kernel/data/DataSet.h"

#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

class BlankingText : public testing::Test
{
protected:
    BlankingText()
    {
        for (char const* const name : {"T", "x < 3", "p"})
            data.addVariable(std::make_shared<kernel::Variable>(name));
    }

    std::string reasonAgainst(std::string const& text) const
    {
        try {
            operations::constraintsOf(text, data);
        } catch (std::exception const& error) {
            return error.what();
        }
        return "";
    }

    kernel::UniqueId id(int variable) const { return data.variable(variable)->id; }

    kernel::DataSet data;
};

} // namespace

TEST_F(BlankingText, ListsConstraintsByNamesAndNumbers)
{
    std::vector<kernel::BlankingConstraint> const wanted{
        {id(1), false, 300.0, true}, {id(3), true, -1e-5, false}, {id(2), true, 4.0, true}};
    EXPECT_TRUE(operations::constraintsOf("T < 300; 3>-1e-5 off;x < 3 > 4", data) == wanted);
    EXPECT_TRUE(operations::constraintsOf("  ", data).empty());
}

TEST_F(BlankingText, SaysWhatIsWrong)
{
    EXPECT_EQ(reasonAgainst("T = 3"), "\"T = 3\" is no constraint: a variable, < or >, and a limit, such as T < 300.");
    EXPECT_EQ(reasonAgainst("T < 3;"), "\"\" is no constraint: a variable, < or >, and a limit, such as T < 300.");
    EXPECT_EQ(reasonAgainst("T < warm"), "\"warm\" is no limit of a constraint: a number is wanted.");
    EXPECT_EQ(reasonAgainst("T < 3 on"), "\"3 on\" is no limit of a constraint: a number is wanted.");
    EXPECT_EQ(reasonAgainst("4 < 3"), "There is no variable \"4\".");
    EXPECT_EQ(reasonAgainst("Q < 3").substr(0, 25), "There is no variable \"Q\".");
}

} // namespace veldraw::tests
