#include "dialogs/property/StateChangeDependentRelevance.h"

#include "tests/dialogs/property/IgnoredSignals.h"
#include "tests/support/FakeStateChange.h"

#include <gtest/gtest.h>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::propertymanager;

using sdk::integration::StateChangeEventObservable;
using Event = StateChangeDependentRelevance::Event;

bool isTitleChange(Event const& event)
{
    return event.kind() == StateChange_DataSetTitle;
}

bool yes()
{
    return true;
}

int listenerCount()
{
    return StateChangeEventObservable::getInstance().listenerCount();
}

TEST(StateChangeDependentRelevance, AnswersByItsQueryWhetherOrNotAnybodyListens)
{
    bool answer = false;
    StateChangeDependentRelevance const rule(boost::function<bool()>([&] { return answer; }));
    EXPECT_FALSE(rule.isRelevant());
    answer = true;
    EXPECT_TRUE(rule.isRelevant());
}

TEST(StateChangeDependentRelevance, FollowsStateChangesFromItsFirstListenerToItsEnd)
{
    int const before = listenerCount();
    {
        StateChangeDependentRelevance const rule(isTitleChange, yes);
        EXPECT_EQ(listenerCount(), before);
        auto const first = rule.connectRelevanceChanged(&ignoreSignal);
        rule.connectRelevanceChanged(&ignoreSignal);
        EXPECT_EQ(listenerCount(), before + 1);
        first.disconnect();
        EXPECT_EQ(listenerCount(), before + 1);
    }
    EXPECT_EQ(listenerCount(), before);
}

TEST(StateChangeDependentRelevance, SignalsAfterTheEventsThatItsPredicateAccepts)
{
    StateChangeDependentRelevance const rule(isTitleChange, yes);
    int signals = 0;
    rule.connectRelevanceChanged([&] { ++signals; });
    FakeStateChange(StateChange_VariablesDeleted).send();
    EXPECT_EQ(signals, 0);
    FakeStateChange(StateChange_DataSetTitle).send();
    EXPECT_EQ(signals, 1);
}

TEST(StateChangeDependentRelevance, TakesFunctionObjectsToo)
{
    int accepted = 0;
    StateChangeDependentRelevance const rule(boost::function<bool(Event const&)>([&](Event const&) {
                                                 ++accepted;
                                                 return true;
                                             }),
                                             boost::function<bool()>(yes));
    rule.connectRelevanceChanged(&ignoreSignal);
    FakeStateChange(StateChange_MouseMode).send();
    EXPECT_EQ(accepted, 1);
    EXPECT_TRUE(rule.isRelevant());
}

TEST(StateChangeDependentRelevance, FollowsTheEngineAndThePlotTypeByDefault)
{
    StateChangeDependentRelevance const rule(boost::function<bool()>{yes});
    int signals = 0;
    rule.connectRelevanceChanged([&] { ++signals; });
    for (int const kind : {1, 2, 3, 4, 5, 6, 8, 9, 10, 12, 16, 17, 18, 21, 23, 24}) {
        signals = 0;
        FakeStateChange(kind).send();
        EXPECT_EQ(signals, 1) << "kind " << kind;
    }
    signals = 0;
    for (int const kind : {0, 11, 13, 14, 19, 22, 25, 26, 41, 42, 43, 51})
        FakeStateChange(kind).send();
    FakeStateChange(StateChange_Style, {"ActiveFieldMaps"}).send();
    EXPECT_EQ(signals, 0);
    FakeStateChange(StateChange_Style, {"PlotType"}).send();
    EXPECT_EQ(signals, 1);
}

TEST(StateChangeDependentRelevance, ThrowsWhenItHasNoQuery)
{
    StateChangeDependentRelevance const rule{boost::function<bool()>()};
    EXPECT_THROW(rule.isRelevant(), boost::bad_function_call);
}

} // namespace
} // namespace veldraw::tests
