#include "kernel/operations/SetLineMaps.h"

#include "tests/kernel/support/SessionFixture.h"

namespace veldraw::tests {

using namespace kernel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class SetLineMapsTest : public SessionFixture
{
protected:
    void SetUp() override
    {
        SessionFixture::SetUp();
        for (int map = 0; map < 2; ++map) {
            ASSERT_TRUE(session.perform(CreateLineMap(frame->id)));
        }
        recorder.take();
    }

    bool set(NumberSet const& maps, LineMapSettings const& settings)
    {
        return session.perform(SetLineMaps(frame->id, maps, settings));
    }

    std::string reasonFor(NumberSet const& maps, LineMapSettings const& settings)
    {
        expectRefused([&] { return set(maps, settings); });
        return session.lastError();
    }

    static LineMapSettings all()
    {
        LineMapSettings settings;
        settings.active = false;
        settings.name = "a b";
        settings.zone = 2;
        settings.x = 3;
        settings.y = 4;
        settings.colour = 0x1F6FB5;
        settings.style = LineStyle::DashDot;
        settings.width = 2.5;
        settings.symbols = std::optional<bool>(true);
        settings.isOnSecondAxis = true;
        return settings;
    }
};

} // namespace

TEST_F(SetLineMapsTest, GivesSomeOfThemAllSettings)
{
    ASSERT_TRUE(set({1, 3}, all()));
    for (std::size_t const at : {std::size_t{0}, std::size_t{2}}) {
        LineMap const& map = frame->lineMaps[at];
        EXPECT_FALSE(map.active);
        EXPECT_EQ(map.name, "a b");
        EXPECT_EQ(map.zone, dataSet->zone(2)->id);
        EXPECT_EQ(map.xVariable, dataSet->variable(3)->id);
        EXPECT_EQ(map.yVariable, dataSet->variable(4)->id);
        EXPECT_EQ(map.look.colour, 0x1F6FB5);
        EXPECT_EQ(map.look.style, LineStyle::DashDot);
        EXPECT_EQ(map.look.width, 2.5);
        EXPECT_EQ(map.look.symbols, std::optional<bool>(true));
        EXPECT_TRUE(map.isOnSecondAxis);
    }
    EXPECT_EQ(frame->lineMaps[1].name, "Map 2");
    EXPECT_TRUE(frame->lineMaps[1].look == CurveLook());
}

TEST_F(SetLineMapsTest, LeavesWhatIsNotNamed)
{
    ASSERT_TRUE(set({1}, all()));
    LineMapSettings settings;
    settings.width = 7.0;
    settings.symbols.emplace(); // as the plot has it
    ASSERT_TRUE(set({1}, settings));
    LineMap const& map = frame->lineMaps[0];
    EXPECT_EQ(map.name, "a b");
    EXPECT_EQ(map.look.colour, 0x1F6FB5);
    EXPECT_EQ(map.look.width, 7.0);
    EXPECT_FALSE(map.look.symbols.has_value());
}

TEST_F(SetLineMapsTest, IsAStepThatIsTakenBackAndDoneAgain)
{
    std::string const before = withoutHistory();
    ASSERT_TRUE(set({2, 3}, all()));
    EXPECT_EQ(session.history().undoName(), "Line Map");
    std::vector<std::string> const told = recorder.take();
    EXPECT_THAT(told, ElementsAre(testing::StartsWith("19"), "7 LineMap Assign frame"));
    expectUndoAndRedo(before, told, told);
    EXPECT_TRUE(set({2, 3}, all()));
    EXPECT_THAT(recorder.take(), IsEmpty()) << "nothing happens where it is so already";
    LineMapSettings look;
    look.colour = 0;
    ASSERT_TRUE(set({2}, look));
    EXPECT_THAT(recorder.take(), ElementsAre(testing::StartsWith("19"), "7 LineMap frame"));
}

TEST_F(SetLineMapsTest, IsRefusedWithAReason)
{
    EXPECT_EQ(reasonFor({}, all()), "There is no such line map.");
    EXPECT_EQ(reasonFor({0}, all()), "There is no such line map.");
    EXPECT_EQ(reasonFor({1, 4}, all()), "There is no such line map.");
    LineMapSettings settings;
    settings.zone = dataSet->zoneCount() + 1;
    EXPECT_EQ(reasonFor({1}, settings), "There is no such zone or variable.");
    settings.zone.reset();
    settings.x = dataSet->variableCount() + 1;
    EXPECT_EQ(reasonFor({1}, settings), "There is no such zone or variable.");
    settings.x.reset();
    settings.y = 0;
    EXPECT_EQ(reasonFor({1}, settings), "There is no such zone or variable.");
    settings.y.reset();
    settings.width = 0.0;
    EXPECT_EQ(reasonFor({1}, settings), "A line is 0.5 to 20 pixels wide.");
}

TEST_F(SetLineMapsTest, HasACommandThatTellsWhatIsSet)
{
    EXPECT_EQ(SetLineMaps(frame->id, {1, 2, 3}, all()).command().text(),
              "set-line-maps maps=1:3 show=no name=\"a b\" zone=2 x=3 y=4 colour=1F6FB5 line=dash-dot width=2.5 "
              "symbols=yes axis=y2");
    LineMapSettings settings;
    settings.colour = CurveLook::automaticColour;
    settings.symbols.emplace();
    EXPECT_EQ(SetLineMaps(frame->id, {2}, settings).command().text(),
              "set-line-maps maps=2 colour=automatic symbols=plot");
}

} // namespace veldraw::tests
