#include "kernel/session/Rehearsal.h"

#include "kernel/operations/RenameZone.h"
#include "tests/kernel/support/SampleData.h"
#include "tests/kernel/support/SessionFixture.h"

namespace veldraw::tests {

using namespace kernel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class RehearsalTest : public SessionFixture
{
};

} // namespace

TEST_F(RehearsalTest, NotesOperationsInsteadOfCarryingThemOut)
{
    std::string const name = dataSet->zone(1)->name;
    {
        Rehearsal const rehearsal;
        expectRefused([&] { return session.perform(RenameZone(*dataSet, 1, "wing")); });
        EXPECT_EQ(session.lastError(), Rehearsal::refusal);
        EXPECT_EQ(dataSet->zone(1)->name, name);
        EXPECT_THAT(rehearsal.commands(), ElementsAre("rename-zone zone=1 name=wing"));
    }
    EXPECT_TRUE(session.perform(RenameZone(*dataSet, 1, "wing")));
    EXPECT_EQ(dataSet->zone(1)->name, "wing");
    EXPECT_EQ(session.journal().entries().size(), 1U);
}

TEST_F(RehearsalTest, NotesNothingThatWouldBeRefused)
{
    Rehearsal const rehearsal;
    expectRefused([&] { return session.perform(RenameZone(*dataSet, 77, "wing")); });
    EXPECT_NE(session.lastError(), Rehearsal::refusal);
    EXPECT_THAT(rehearsal.commands(), IsEmpty());
}

} // namespace veldraw::tests
