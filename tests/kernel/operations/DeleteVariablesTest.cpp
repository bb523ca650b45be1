#include "kernel/operations/DeleteVariables.h"

#include "kernel/operations/EnableZone.h"
#include "kernel/operations/SetValue.h"
#include "tests/kernel/support/SessionFixture.h"

namespace veldraw::tests {

using namespace kernel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class DeleteVariablesTest : public SessionFixture
{
protected:
    std::vector<std::string> names() const
    {
        std::vector<std::string> result;
        for (auto const& variable : dataSet->variables()) {
            result.push_back(variable->name);
        }
        return result;
    }
};

} // namespace

TEST_F(DeleteVariablesTest, ClosesTheNumbersUpInAllZones)
{
    auto const third = dataSet->field(2, 4)->group();
    EXPECT_TRUE(session.perform(DeleteVariables(*dataSet, {1, 3})));
    EXPECT_THAT(names(), ElementsAre("Y", "P", "T"));
    EXPECT_EQ(dataSet->zone(1)->fields.size(), 3U);
    EXPECT_EQ(dataSet->field(2, 2)->group(), third);
    EXPECT_EQ(dataSet->field(1, 3)->location(), ValueLocation_CellCentered);
}

TEST_F(DeleteVariablesTest, TellsTheNumbersThatTheVariablesHad)
{
    session.perform(DeleteVariables(*dataSet, {2, 5}));
    EXPECT_THAT(recorder.take(), ElementsAre("2 variables 2 5"));
}

TEST_F(DeleteVariablesTest, IsConsistentWhenTheEventArrives)
{
    int seen = 0;
    session.events().subscribe([&](StateChangeEvent const&) {
        seen = dataSet->variableCount() * 10 + static_cast<int>(dataSet->zone(2)->fields.size());
        EXPECT_EQ(session.history().undoName(), "Delete Variable");
    });
    session.perform(DeleteVariables(*dataSet, {2, 5}));
    EXPECT_EQ(seen, 33);
}

TEST_F(DeleteVariablesTest, CanBeUndoneAndRedoneAnyNumberOfTimes)
{
    std::string const before = withoutHistory();
    ASSERT_TRUE(session.perform(DeleteVariables(*dataSet, {1, 4, 5})));
    for (int round = 0; round < 3; ++round) {
        expectUndoAndRedo(before, {"1 variables 1 4 5"}, {"2 variables 1 4 5"});
    }
}

TEST_F(DeleteVariablesTest, UnassignsAxesUntilItIsUndone)
{
    EXPECT_EQ(frame->axisVariables(), (std::array<int, 3>{1, 2, 0}));
    session.perform(DeleteVariables(*dataSet, {1}));
    EXPECT_EQ(frame->axisVariables(), (std::array<int, 3>{0, 1, 0}));
    session.undo();
    EXPECT_EQ(frame->axisVariables(), (std::array<int, 3>{1, 2, 0}));
}

TEST_F(DeleteVariablesTest, RefusesWhatCannotBeDeleted)
{
    expectRefused([&] { return session.perform(DeleteVariables(*dataSet, {})); });
    expectRefused([&] { return session.perform(DeleteVariables(*dataSet, {0})); });
    expectRefused([&] { return session.perform(DeleteVariables(*dataSet, {-1, 2})); });
    expectRefused([&] { return session.perform(DeleteVariables(*dataSet, {2, 6})); });
    expectRefused([&] { return session.perform(DeleteVariables(*dataSet, {1, 2, 3, 4, 5})); });
}

TEST_F(DeleteVariablesTest, RefusesToDeleteAllEnabledVariables)
{
    session.perform(EnableVariable(*dataSet, 4, false));
    session.perform(EnableVariable(*dataSet, 5, false));
    recorder.take();
    expectRefused([&] { return session.perform(DeleteVariables(*dataSet, {1, 2, 3})); });
    expectRefused([&] { return session.perform(DeleteVariables(*dataSet, {1, 2, 3, 4})); });
    EXPECT_TRUE(session.perform(DeleteVariables(*dataSet, {1, 2, 4, 5})));
    EXPECT_THAT(names(), ElementsAre("Z"));
}

TEST_F(DeleteVariablesTest, RefusesALockedDataSet)
{
    session.setLock(*dataSet, "somebody");
    EXPECT_THAT(recorder.take(), ElementsAre("14"));
    expectRefused([&] { return session.perform(DeleteVariables(*dataSet, {1})); });
    session.setLock(*dataSet, "");
    EXPECT_TRUE(session.perform(DeleteVariables(*dataSet, {1})));
}

TEST_F(DeleteVariablesTest, RefusesADataSetThatNoFrameShows)
{
    auto const other = sample::twoPlanes();
    std::string const before = stateDigest(*other);
    expectRefused([&] { return session.perform(DeleteVariables(*other, {1})); });
    EXPECT_EQ(stateDigest(*other), before);
}

TEST_F(DeleteVariablesTest, LeavesTheShareCountOfWhatRemainsTrue)
{
    // Variable 5 of both zones joins the storage of P.
    for (auto const& zone : dataSet->zones()) {
        zone->fields[4] = zone->fields[3];
    }
    EXPECT_EQ(dataSet->field(1, 4)->shareCount(), 4);
    session.perform(DeleteVariables(*dataSet, {5}));
    EXPECT_EQ(dataSet->field(1, 4)->shareCount(), 2);
    session.undo();
    EXPECT_EQ(dataSet->field(2, 5)->shareCount(), 4);
    EXPECT_EQ(dataSet->field(2, 5)->group(), dataSet->field(1, 4)->group());
}

TEST_F(DeleteVariablesTest, BringsTheSharingBackWhenTheOthersWereDeletedToo)
{
    for (auto const& zone : dataSet->zones()) {
        zone->fields[4] = zone->fields[3];
    }
    std::string const before = withoutHistory();
    session.perform(DeleteVariables(*dataSet, {5}));
    session.perform(DeleteVariables(*dataSet, {4}));
    session.undo();
    session.undo();
    EXPECT_EQ(withoutHistory(), before);
}

TEST_F(DeleteVariablesTest, BringsFieldsBackTogetherWhenTheirOldGroupHasGone)
{
    for (auto const& zone : dataSet->zones()) {
        zone->fields[4] = zone->fields[3];
    }
    session.perform(DeleteVariables(*dataSet, {5}));
    auto const values = dataSet->field(1, 4)->group()->buffer();
    for (auto const& zone : dataSet->zones()) {
        zone->fields[3] = sample::field({0, 0, 0, 0, 0, 0});
    }
    session.undo();
    EXPECT_EQ(dataSet->field(1, 5)->group()->buffer()->data(), values->data());
    EXPECT_EQ(dataSet->field(1, 5)->shareCount(), 2);
    EXPECT_EQ(dataSet->field(1, 5)->group(), dataSet->field(2, 5)->group());
    EXPECT_EQ(dataSet->field(1, 4)->shareCount(), 1);
    session.redo();
    session.undo();
    EXPECT_EQ(dataSet->field(2, 5)->group()->buffer()->data(), values->data());
    EXPECT_EQ(dataSet->field(2, 5)->shareCount(), 2);
}

TEST_F(DeleteVariablesTest, KeepsTheValuesOfDeletedFieldsApartFromLaterWrites)
{
    for (auto const& zone : dataSet->zones()) {
        zone->fields[4] = zone->fields[3];
    }
    session.perform(DeleteVariables(*dataSet, {5}));
    auto const group = dataSet->field(1, 4)->group();
    auto const old = group->buffer();
    session.perform(SetValue(*dataSet, 1, 4, 0, -1, false));
    EXPECT_EQ(group->buffer()->value(0), -1);
    EXPECT_EQ(old->value(0), 10);
    session.undo();
    session.undo();
    EXPECT_EQ(dataSet->field(2, 5)->group()->buffer()->value(0), 10);
}

TEST_F(DeleteVariablesTest, CountsOnlyWhatTheHistoryAloneHolds)
{
    session.perform(DeleteVariables(*dataSet, {1})); // two fields of six floats
    EXPECT_EQ(session.history().valueBytes(), 2 * 6 * 4);
    session.perform(DeleteVariables(*dataSet, {3})); // P, one buffer for both zones
    EXPECT_EQ(session.history().valueBytes(), 3 * 6 * 4);
    session.perform(DeleteVariables(*dataSet, {2})); // Z is passive
    EXPECT_EQ(session.history().valueBytes(), 3 * 6 * 4);
}

TEST_F(DeleteVariablesTest, ReleasesTheValuesWhenTheHistoryForgets)
{
    std::weak_ptr<Buffer const> const values = dataSet->field(1, 1)->group()->buffer();
    session.perform(DeleteVariables(*dataSet, {1}));
    EXPECT_FALSE(values.expired());
    session.history().clear();
    EXPECT_TRUE(values.expired());
}

TEST_F(DeleteVariablesTest, WorksWithoutZones)
{
    auto const empty = std::make_shared<DataSet>("no zones");
    empty->addVariable(std::make_shared<Variable>("a"));
    empty->addVariable(std::make_shared<Variable>("b"));
    ASSERT_TRUE(session.setFrameDataSet(frame->id, empty));
    recorder.take();
    EXPECT_TRUE(session.perform(DeleteVariables(*empty, {1})));
    EXPECT_THAT(recorder.take(), ElementsAre("2 variables 1"));
    EXPECT_TRUE(session.undo());
    EXPECT_EQ(empty->variable(1)->name, "a");
}

} // namespace veldraw::tests
