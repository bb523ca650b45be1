#include "kernel/operations/LineMapOperation.h"

#include "tests/kernel/support/SessionFixture.h"

namespace veldraw::tests {

using namespace kernel;

namespace {

class LineMapOperationTest : public SessionFixture
{
protected:
    std::vector<std::string> names() const
    {
        std::vector<std::string> all;
        for (LineMap const& map : frame->lineMaps) {
            all.push_back(map.name);
        }
        return all;
    }
};

} // namespace

TEST_F(LineMapOperationTest, NamesNewMapsByTheirNumbers)
{
    ASSERT_TRUE(session.perform(DeleteLineMaps(frame->id, {1})));
    for (int map = 0; map < 3; ++map) {
        ASSERT_TRUE(session.perform(CreateLineMap(frame->id)));
    }
    EXPECT_THAT(names(), testing::ElementsAre("Map 1", "Map 2", "Map 3"));
    ASSERT_TRUE(session.perform(DeleteLineMaps(frame->id, {1, 3})));
    EXPECT_THAT(names(), testing::ElementsAre("Map 2"));
}

TEST_F(LineMapOperationTest, PutsACopyBehindEachOfSomeMaps)
{
    for (int map = 0; map < 2; ++map) {
        ASSERT_TRUE(session.perform(CreateLineMap(frame->id)));
    }
    std::string const before = withoutHistory();
    recorder.take();
    ASSERT_TRUE(session.perform(DuplicateLineMaps(frame->id, {1, 3})));
    EXPECT_THAT(names(), testing::ElementsAre("Map 1", "Map 1", "Map 2", "Map 3", "Map 3"));
    EXPECT_NE(frame->lineMaps[0].id, frame->lineMaps[1].id);
    EXPECT_EQ(session.history().undoName(), "Duplicate Line Map");
    std::vector<std::string> const told = recorder.take();
    expectUndoAndRedo(before, told, told);
    expectRefused([&] { return session.perform(DuplicateLineMaps(frame->id, {})); });
    expectRefused([&] { return session.perform(DuplicateLineMaps(frame->id, {6})); });
    EXPECT_EQ(session.lastError(), "There is no such line map.");
}

TEST_F(LineMapOperationTest, MakesThePlottedMapWhereThereIsNone)
{
    ASSERT_TRUE(session.perform(DeleteLineMaps(frame->id, {1})));
    ASSERT_TRUE(session.perform(SetLinePlot(frame->id, 2, 4, 1)));
    ASSERT_THAT(names(), testing::ElementsAre("Map 1"));
    EXPECT_EQ(frame->lineMaps[0].zone, dataSet->zone(2)->id);
    EXPECT_EQ(frame->lineMaps[0].xVariable, dataSet->variable(4)->id);
    EXPECT_EQ(frame->lineMaps[0].yVariable, dataSet->variable(1)->id);
}

} // namespace veldraw::tests
