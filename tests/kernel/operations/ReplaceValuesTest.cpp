#include "kernel/operations/ReplaceValues.h"

#include "tests/kernel/data/EditFixture.h"

namespace veldraw::tests {

using namespace kernel;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class ReplaceValuesTest : public EditValue
{
protected:
    bool replace(int zone, int variable, std::vector<double> const& values, bool autoBranch = true)
    {
        auto const buffer = sample::buffer(values, field(zone, variable).type());
        return session.perform(ReplaceValues(*dataSet, zone, variable, buffer, autoBranch));
    }

    std::vector<double> valuesOf(int zone, int variable)
    {
        std::vector<double> values;
        for (std::int64_t index = 0; index < field(zone, variable).group()->size(); ++index) {
            values.push_back(at(zone, variable, index));
        }
        return values;
    }
};

} // namespace

TEST_F(ReplaceValuesTest, StoresAllValuesInOneStepAndTakesThemBack)
{
    std::string const before = withoutHistory();
    EXPECT_EQ(dataSet->zone(1)->range(1).max, 2) << "the range is known by now";
    EXPECT_TRUE(replace(1, 1, {9, 8, 7, 6, 5, 4}));
    EXPECT_THAT(valuesOf(1, 1), ElementsAre(9, 8, 7, 6, 5, 4));
    EXPECT_EQ(dataSet->zone(1)->range(1).min, 4);
    EXPECT_EQ(dataSet->zone(1)->range(1).max, 9);
    EXPECT_EQ(session.history().undoName(), "Edit Values");
    std::vector<std::string> const events{"0 zones 1 variables 1"};
    EXPECT_EQ(recorder.take(), events);
    expectUndoAndRedo(before, events, events);
    EXPECT_TRUE(session.undo());
    EXPECT_EQ(dataSet->zone(1)->range(1).max, 2);
}

TEST_F(ReplaceValuesTest, GivesTheFieldValuesOfItsOwnWhereItSharesThem)
{
    std::string const before = withoutHistory();
    EXPECT_TRUE(replace(1, 4, {1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(at(1, 4, 3), 4);
    EXPECT_EQ(at(2, 4, 3), 13);
    EXPECT_EQ(field(1, 4).shareCount(), 1);
    std::vector<std::string> const events{"0 zones 1 variables 4", "22 zones 1 2 variables 4"};
    EXPECT_EQ(recorder.take(), events);
    expectUndoAndRedo(before, events, events);
    EXPECT_TRUE(session.undo());
    EXPECT_EQ(field(1, 4).group(), field(2, 4).group());
}

TEST_F(ReplaceValuesTest, GoesToAllWhoShareTheValuesIfWanted)
{
    std::string const before = withoutHistory();
    EXPECT_TRUE(replace(2, 4, {1, 2, 3, 4, 5, 6}, false));
    EXPECT_EQ(at(1, 4, 3), 4);
    EXPECT_EQ(field(1, 4).group(), field(2, 4).group());
    std::vector<std::string> const events{"0 zones 1 2 variables 4"};
    EXPECT_EQ(recorder.take(), events);
    expectUndoAndRedo(before, events, events);
}

TEST_F(ReplaceValuesTest, MakesNoStepOfTheValuesThatAreThere)
{
    EXPECT_TRUE(replace(1, 1, {0, 1, 2, 0, 1, 2}));
    EXPECT_TRUE(replace(1, 4, {10, 11, 12, 13, 14, 15}));
    EXPECT_FALSE(session.history().canUndo());
    EXPECT_EQ(field(1, 4).shareCount(), 2);
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST_F(ReplaceValuesTest, KeepsTheValuesFromWhoeverMadeThem)
{
    auto const buffer = sample::buffer({9, 8, 7, 6, 5, 4}, field(1, 1).type());
    ASSERT_TRUE(session.perform(ReplaceValues(*dataSet, 1, 1, buffer, true)));
    buffer->setValue(0, -1);
    EXPECT_EQ(at(1, 1, 0), 9);
}

TEST_F(ReplaceValuesTest, IsRefusedWhereThereAreNoSuchValues)
{
    EXPECT_FALSE(replace(1, 1, {1, 2}));
    EXPECT_THAT(session.lastError(), HasSubstr("type or number"));
    auto const wide = sample::buffer({9, 8, 7, 6, 5, 4}, FieldDataType_Int16);
    EXPECT_FALSE(session.perform(ReplaceValues(*dataSet, 1, 1, wide, true)));
    EXPECT_FALSE(session.perform(ReplaceValues(*dataSet, 1, 3, wide, true)));
    EXPECT_THAT(session.lastError(), HasSubstr("passive"));
    EXPECT_FALSE(session.perform(ReplaceValues(*dataSet, 3, 1, wide, true)));
    EXPECT_FALSE(session.perform(ReplaceValues(*dataSet, 1, 6, wide, true)));
    EXPECT_FALSE(session.history().canUndo());
}

} // namespace veldraw::tests
