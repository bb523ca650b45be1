#include "kernel/operations/SetValueBlanking.h"

#include "kernel/frames/FrameDefaults.h"
#include "kernel/operations/DeleteVariables.h"
#include "tests/kernel/support/SampleLoader.h"
#include "tests/kernel/support/SessionFixture.h"

#include <limits>

namespace veldraw::tests {

using namespace kernel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class SetValueBlankingTest : public SessionFixture
{
protected:
    bool set(ValueBlanking const& blanking) { return session.perform(SetValueBlanking(frame->id, blanking)); }

    std::string reasonFor(ValueBlanking const& blanking)
    {
        expectRefused([&] { return set(blanking); });
        return session.lastError();
    }

    BlankingConstraint below(int variable, double limit) const
    {
        return {dataSet->variable(variable)->id, false, limit, true};
    }

    ValueBlanking twoConstraints() const
    {
        return {true, {below(4, 1.5), {dataSet->variable(5)->id, true, -2e30, false}}};
    }
};

} // namespace

TEST_F(SetValueBlankingTest, AFrameStartsWithoutOne)
{
    Frame const fresh("Frame 2", {});
    EXPECT_FALSE(fresh.valueBlanking.isOn);
    EXPECT_TRUE(fresh.valueBlanking.constraints.empty());
    ASSERT_TRUE(set(twoConstraints()));
    layOut(*frame);
    EXPECT_TRUE(frame->valueBlanking == ValueBlanking()) << "as when another data set comes";
}

TEST_F(SetValueBlankingTest, IsAStepThatIsTakenBackAndDoneAgain)
{
    std::string const before = withoutHistory();
    std::string const told = "7 ValueBlanking Constraints frame";
    ASSERT_TRUE(set(twoConstraints()));
    EXPECT_EQ(session.history().undoName(), "Value Blanking");
    EXPECT_THAT(recorder.take(), ElementsAre(told));
    expectUndoAndRedo(before, {told}, {told});
    EXPECT_TRUE(set(twoConstraints()));
    EXPECT_THAT(recorder.take(), IsEmpty()) << "nothing happens where it is so already";
}

TEST_F(SetValueBlankingTest, IsRefusedWithAReason)
{
    EXPECT_EQ(reasonFor({true, {below(4, std::numeric_limits<double>::quiet_NaN())}}),
              "The limit of a constraint is a finite number.");
    EXPECT_EQ(reasonFor({true, {below(4, 1.0), {nextUniqueId(), false, 1.0, true}}}), "There is no such variable.");
    EXPECT_EQ(reasonFor({true, std::vector<BlankingConstraint>(101, below(4, 1.0))}),
              "Value blanking has up to 100 constraints.");
    frame->dataSet = nullptr;
    EXPECT_EQ(reasonFor({true, {}}), "The frame has no data set.");
}

TEST_F(SetValueBlankingTest, HasACommandThatTellsAllOfIt)
{
    SetValueBlanking operation(frame->id, twoConstraints());
    operation.find(session.pages());
    EXPECT_EQ(operation.command().text(), "set-value-blanking on=yes constraints=\"4 < 1.5; 5 > -2e+30 off\"");
    SetValueBlanking none(frame->id, {});
    none.find(session.pages());
    EXPECT_EQ(none.command().text(), "set-value-blanking on=no constraints=\"\"");
}

TEST_F(SetValueBlankingTest, ShowsInWhatTheFrameHidesOfItsZones)
{
    EXPECT_EQ(frame->blankingOf(1), nullptr);
    ASSERT_TRUE(set({true, {below(1, 1e30)}}));
    auto const hidden = frame->blankingOf(1);
    ASSERT_NE(hidden, nullptr);
    EXPECT_EQ(hidden->hidden(ValueLocation_CellCentered)->count(), 2) << "all cells of 3 x 2 points";
    ASSERT_TRUE(session.perform(DeleteVariables(*dataSet, {1})));
    EXPECT_EQ(frame->blankingOf(1), nullptr);
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(frame->blankingOf(1)->hidden(ValueLocation_CellCentered)->count(), 2);
}

TEST_F(SetValueBlankingTest, LoadsTheValuesOfActiveConstraintsInTheZonesInSight)
{
    std::vector<std::shared_ptr<sample::Loader>> loaders;
    auto late = std::make_shared<DataSet>("late");
    for (char const* const name : {"A", "B"}) {
        late->addVariable(std::make_shared<Variable>(name));
    }
    auto zone = std::make_shared<Zone>("zone", ZoneType_Ordered, 3, 2, 1);
    for (int variable = 0; variable < 2; ++variable) {
        loaders.push_back(std::make_shared<sample::Loader>(std::vector<double>{0, 1, 2, 0, 1, 2}));
        zone->fields.push_back(sample::Loader::field(loaders.back()));
    }
    late->addZone(zone);
    ASSERT_TRUE(session.setFrameDataSet(frame->id, late));
    UniqueId const a = late->variable(1)->id;
    UniqueId const b = late->variable(2)->id;
    bool const wasLoaded = late->field(1, 2)->isLoaded();
    ASSERT_TRUE(set({true, {{a, false, 1.0, false}, {b, false, 1.5, true}}}));
    EXPECT_FALSE(wasLoaded);
    EXPECT_TRUE(late->field(1, 2)->isLoaded());
    EXPECT_FALSE(late->field(1, 1)->isLoaded()) << "its constraint is not active";
    EXPECT_EQ(frame->blankingOf(1)->hidden(ValueLocation_CellCentered)->count(), 1);
}

} // namespace veldraw::tests
