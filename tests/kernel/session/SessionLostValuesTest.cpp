// Values that are lost while an operation reads them.
#include "kernel/operations/LoadVariables.h"
#include "kernel/operations/MirrorZones.h"
#include "kernel/operations/SetValue.h"
#include "kernel/session/Session.h"
#include "tests/kernel/support/SampleLoader.h"
#include "tests/kernel/support/SessionFixture.h"
#include "tests/kernel/support/SpatialData.h"

namespace veldraw::tests {

using namespace kernel;
using sample::Loader;
using sample::values;

namespace {

constexpr char cut[] = "another program has cut \"/a.raw\" short";

/// X of the first zone and P of both are mapped from a file.
class LostValues : public SessionFixture
{
protected:
    LostValues()
    {
        x->mapped = true;
        p->mapped = true;
        dataSet->zone(1)->fields[0] = Loader::field(x);
        dataSet->zone(1)->fields[3] = Loader::field(p);
        dataSet->zone(2)->fields[3] = dataSet->zone(1)->fields[3];
        EXPECT_TRUE(session.perform(LoadVariables(*dataSet, {1, 2}, {1, 4})));
        recorder.take();
    }

    bool mirror(int zone) { return session.perform(MirrorZones(frame->id, {zone}, 'X')); }
    bool setP(double value, bool autoBranch) { return session.perform(SetValue(*dataSet, 1, 4, 2, value, autoBranch)); }
    ShareGroup& groupOfP() { return *dataSet->field(1, 4)->group(); }

    std::shared_ptr<Loader> x = std::make_shared<Loader>(std::vector<double>{0, 1, 2, 0, 1, 2});
    std::shared_ptr<Loader> p = std::make_shared<Loader>(std::vector<double>{10, 11, 12, 13, 14, 15});
};

} // namespace

TEST_F(LostValues, LetAnOperationThatReadThemChangeNothing)
{
    x->loss = cut;
    expectRefused([&] { return mirror(1); });
    EXPECT_EQ(session.lastError(), std::string("The result would be wrong: ") + cut + ".");
    x->loss.clear();
    EXPECT_TRUE(mirror(1));
}

TEST_F(LostValues, DoNotKeepAnOperationThatReadsOthersFromItsWork)
{
    x->loss = cut;
    EXPECT_TRUE(mirror(2));
}

TEST_F(LostValues, DoNotKeepOthersFromBeingLoaded)
{
    auto const more = std::make_shared<Loader>(std::vector<double>{3, 4, 5, 3, 4, 5});
    dataSet->zone(2)->fields[0] = Loader::field(more);
    p->loss = cut;
    EXPECT_TRUE(session.perform(LoadVariables(*dataSet, {1, 2}, {1, 4})));
    EXPECT_TRUE(dataSet->field(2, 1)->isLoaded());
}

TEST_F(LostValues, AreNotCopiedForTheOneZoneThatIsEdited)
{
    p->loss = cut;
    expectRefused([&] { return setP(7.0, true); });
    EXPECT_EQ(groupOfP().whatIsLost(), cut);
}

// The copy would no longer know what is missing in it.
TEST_F(LostValues, AreNotCopiedForWhoeverHoldsThem)
{
    ASSERT_TRUE(setP(7.0, false));
    auto const held = groupOfP().buffer();
    p->loss = cut;
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(values(*dataSet, 1, 4)[2], 12.0);
    EXPECT_EQ(groupOfP().whatIsLost(), cut);
    p->loss.clear();
    ASSERT_TRUE(session.redo());
    p->loss = cut;
    EXPECT_EQ(groupOfP().whatIsLost(), "") << "a copy of all values was made in time";
}

TEST_F(LostValues, AreThoseOfTheLoadThatAnOperationDoesItself)
{
    auto const later = std::make_shared<Loader>(std::vector<double>{0, 1, 2, 0, 1, 2});
    dataSet->zone(1)->fields[0] = Loader::field(later);
    later->before = [&](Progress&) { later->loss = cut; };
    expectRefused([&] { return mirror(1); });
    EXPECT_FALSE(dataSet->field(1, 1)->isLoaded());
}

} // namespace veldraw::tests
