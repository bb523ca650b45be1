#include "kernel/operations/CutOperation.h"

#include "kernel/frames/CutDefaults.h"
#include "tests/kernel/support/SessionFixture.h"

#include <limits>

namespace veldraw::tests {

using namespace kernel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class CutOperationTest : public SessionFixture
{
protected:
    Cut cut(CutKind kind) const { return defaultCut(kind, *frame); }

    UniqueId add(CutKind kind)
    {
        EXPECT_TRUE(session.perform(AddCut(frame->id, cut(kind))));
        recorder.take();
        return frame->cuts.back().id;
    }

    bool change(UniqueId id, std::function<void(Cut&)> const& alter)
    {
        return session.perform(ChangeCut(frame->id, id, alter));
    }

    double const nan = std::numeric_limits<double>::quiet_NaN();
    double const infinite = std::numeric_limits<double>::infinity();
};

} // namespace

TEST_F(CutOperationTest, AddsEachKindAsAStep)
{
    for (int kind = 0; kind < cutKindCount; ++kind) {
        std::string const before = withoutHistory();
        ASSERT_TRUE(session.perform(AddCut(frame->id, cut(static_cast<CutKind>(kind))))) << kind;
        EXPECT_THAT(recorder.take(), ElementsAre("7 Cut frame"));
        ASSERT_EQ(frame->cuts.size(), static_cast<std::size_t>(kind) + 1);
        EXPECT_EQ(static_cast<int>(frame->cuts.back().kind), kind);
        EXPECT_EQ(session.history().undoName(), "New Slice");
        expectUndoAndRedo(before, {"7 Cut frame"}, {"7 Cut frame"});
    }
}

TEST_F(CutOperationTest, DeletesOneAndKeepsTheOthersInOrder)
{
    UniqueId const first = add(CutKind::X);
    UniqueId const second = add(CutKind::K);
    UniqueId const third = add(CutKind::Plane);
    std::string const before = withoutHistory();
    ASSERT_TRUE(session.perform(DeleteCut(frame->id, second)));
    ASSERT_EQ(frame->cuts.size(), 2U);
    EXPECT_EQ(frame->cuts[0].id, first);
    EXPECT_EQ(frame->cuts[1].id, third);
    EXPECT_EQ(session.history().undoName(), "Delete Slice");
    expectUndoAndRedo(before, {"7 Cut frame"}, {"7 Cut frame"});
    expectRefused([&] { return session.perform(DeleteCut(frame->id, second)); });
    EXPECT_EQ(session.lastError(), "There is no such slice.");
}

TEST_F(CutOperationTest, AltersOneAlone)
{
    UniqueId const first = add(CutKind::X);
    UniqueId const second = add(CutKind::X);
    double const position = frame->cuts[0].position;
    std::string const before = withoutHistory();
    ASSERT_TRUE(change(second, [](Cut& altered) {
        altered.position = 0.25;
        altered.isShown = false;
        altered.id = 7;
    }));
    EXPECT_EQ(frame->cuts[0].id, first);
    EXPECT_EQ(frame->cuts[0].position, position);
    EXPECT_EQ(frame->cuts[1].id, second) << "the identifier stays";
    EXPECT_EQ(frame->cuts[1].position, 0.25);
    EXPECT_FALSE(frame->cuts[1].isShown);
    EXPECT_EQ(session.history().undoName(), "Slice");
    expectUndoAndRedo(before, {"7 Cut frame"}, {"7 Cut frame"});
}

TEST_F(CutOperationTest, TellsNothingOfWhatIsSoAlready)
{
    UniqueId const id = add(CutKind::Y);
    ASSERT_TRUE(change(id, [](Cut& altered) { altered.isShown = true; }));
    EXPECT_THAT(recorder.take(), IsEmpty());
    EXPECT_EQ(session.history().undoName(), "New Slice");
}

TEST_F(CutOperationTest, RefusesNumbersThatAreNoPlace)
{
    UniqueId const id = add(CutKind::Plane);
    for (double const bad : {nan, infinite, -infinite}) {
        expectRefused([&] { return change(id, [bad](Cut& altered) { altered.position = bad; }); });
        expectRefused([&] { return change(id, [bad](Cut& altered) { altered.normal[1] = bad; }); });
        expectRefused([&] { return change(id, [bad](Cut& altered) { altered.origin[2] = bad; }); });
        EXPECT_EQ(session.lastError(), "The place of a slice takes finite numbers.");
    }
    expectRefused([&] { return change(id, [](Cut& altered) { altered.normal = {}; }); });
    EXPECT_EQ(session.lastError(), "The normal of a plane needs a direction: it must not be 0.");
    expectRefused([&] { return change(id, [](Cut& altered) { altered.normal.fill(1.5e308); }); });
    expectRefused([&] { return change(id, [](Cut& altered) { altered.kind = static_cast<CutKind>(8); }); });
    expectRefused([&] { return change(id, [](Cut& altered) { altered.kind = static_cast<CutKind>(-1); }); });
    EXPECT_TRUE(change(id, [](Cut& altered) { altered.normal = {0.0, 0.0, -1e-9}; })) << "as short as one likes";
}

TEST_F(CutOperationTest, RefusesAVariableThatIsNotThere)
{
    UniqueId const id = add(CutKind::IsoSurface);
    for (UniqueId const bad : {UniqueId{0}, noFrame}) {
        expectRefused([&] { return change(id, [bad](Cut& altered) { altered.variable = bad; }); });
    }
    Cut without = cut(CutKind::IsoSurface);
    without.variable = 0;
    expectRefused([&] { return session.perform(AddCut(frame->id, without)); });
}

TEST_F(CutOperationTest, GoesOnWithoutTheVariableOfAnotherCut)
{
    UniqueId const surface = add(CutKind::IsoSurface);
    frame->cuts[0].variable = noFrame; // as after the variable was deleted
    UniqueId const slice = add(CutKind::X);
    EXPECT_TRUE(change(slice, [](Cut& altered) { altered.isShown = false; }));
    EXPECT_TRUE(session.perform(DeleteCut(frame->id, surface)));
}

TEST_F(CutOperationTest, RefusesWhatIsNotThere)
{
    expectRefused([&] { return session.perform(AddCut(noFrame, cut(CutKind::X))); });
    EXPECT_EQ(session.lastError(), "There is no such frame.");
    expectRefused([&] { return change(noFrame, [](Cut& altered) { altered.position = 1.0; }); });
    EXPECT_EQ(session.lastError(), "There is no such slice.");
    frame->dataSet.reset();
    expectRefused([&] { return session.perform(AddCut(frame->id, Cut())); });
    EXPECT_EQ(session.lastError(), "The frame has no data set.");
}

TEST_F(CutOperationTest, WorksWhileTheDataSetIsLocked)
{
    session.setLock(*dataSet, "somebody");
    EXPECT_TRUE(session.perform(AddCut(frame->id, cut(CutKind::X))));
}

} // namespace veldraw::tests
