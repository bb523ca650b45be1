#include "dialogs/property/KernelProperty.h"

#include "dialogs/property/PropertyDependentRelevance.h"
#include "kernel/operations/LineMapOperation.h"
#include "platform/vdsdkcommon/StateChangeEventObservable.h"
#include "tests/dialogs/property/RefusalOf.h"
#include "tests/support/AllocationFailure.h"
#include "tests/support/FakeStateChange.h"
#include "tests/support/KernelSpy.h"
#include "tests/support/StyleSession.h"

#include <boost/make_shared.hpp>

#include <cmath>
#include <functional>
#include <gmock/gmock.h>
#include <new>

namespace veldraw::tests {

using sdk::integration::StateChangeEventObservable;
using sdk::styleproperties::KernelProperty;
using sdk::ui::propertymanager::PropertyDependentRelevance;
using testing::ElementsAre;
using testing::IsEmpty;
using toolbox::CheckedStyleValue;
using toolbox::StyleValue;

namespace {

CheckedStyleValue dataValue(char const* name)
{
    return StyleValue("Interface", "Data", name);
}

int observers()
{
    return StateChangeEventObservable::getInstance().listenerCount();
}

} // namespace

class KernelPropertyTest : public testing::Test
{
protected:
    void listen()
    {
        points.connectValueChanged([this](long long number) { heard.push_back(number); });
    }

    StyleSession sample;
    KernelProperty<long long> points{dataValue("InterpNPoints")};
    std::vector<long long> heard;
};

TEST_F(KernelPropertyTest, StartsWithTheKernelsValue)
{
    EXPECT_EQ(points.value(), 8);
    EXPECT_EQ(KernelProperty<double>(dataValue("InvDistExponent")).value(), 2.0);
    EXPECT_EQ(KernelProperty<PtSelection_e>(dataValue("InterpPTSelection")).value(), PtSelection_Octant);
}

TEST_F(KernelPropertyTest, WritesToTheKernelAtOnce)
{
    points.setValue(12);
    EXPECT_EQ(sample.number(pointsPath), 12.0);
    KernelProperty<PtSelection_e> selection{dataValue("InterpPTSelection")};
    selection.setValue(PtSelection_NearestN);
    EXPECT_EQ(sample.number(selectionPath), 1.0);
    KernelProperty<double> exponent{dataValue("InvDistExponent")};
    exponent.setValue(0.1);
    EXPECT_EQ(sample.number(exponentPath), 0.1);
}

TEST_F(KernelPropertyTest, AlwaysShowsWhatTheKernelHas)
{
    sample.setNumber(pointsPath, 30.0);
    EXPECT_EQ(points.value(), 30);
}

TEST_F(KernelPropertyTest, WritesNothingWhenTheKernelHasTheValueAlready)
{
    listen();
    KernelSpy spy;
    points.setValue(8);
    EXPECT_EQ(spy.count("VelUtilArgListAppendDouble"), 0);
    EXPECT_THAT(heard, IsEmpty());
    EXPECT_THAT(sample.takeEvents(), IsEmpty());
}

TEST_F(KernelPropertyTest, TellsAChangeMadeElsewhere)
{
    listen();
    sample.setNumber(pointsPath, 30.0);
    EXPECT_THAT(heard, ElementsAre(30));
}

TEST_F(KernelPropertyTest, TellsAChangeMadeElsewhereOnceToEachOfSeveralListeners)
{
    listen();
    listen();
    listen();
    sample.setNumber(pointsPath, 30.0);
    EXPECT_THAT(heard, ElementsAre(30, 30, 30));
}

TEST_F(KernelPropertyTest, TellsItsUntypedListenersToo)
{
    int changes = 0;
    points.connectPropertyChanged([&changes] { ++changes; });
    listen();
    sample.setNumber(pointsPath, 30.0);
    EXPECT_EQ(changes, 1);
}

TEST_F(KernelPropertyTest, TellsAChangeFoundByReading)
{
    listen();
    FakeStateChange(StateChange_KernelGoesDown).send();
    sample.setNumber(pointsPath, 30.0);
    EXPECT_THAT(heard, IsEmpty());
    EXPECT_EQ(points.value(), 30);
    EXPECT_THAT(heard, ElementsAre(30));
    points.value();
    EXPECT_THAT(heard, ElementsAre(30));
}

TEST_F(KernelPropertyTest, TellsNothingWhenTheFirstListenerConnects)
{
    sample.setNumber(pointsPath, 30.0);
    listen();
    EXPECT_THAT(heard, IsEmpty());
    EXPECT_EQ(points.value(), 30);
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(KernelPropertyTest, TellsNothingWhenASecondListenerConnects)
{
    listen();
    listen();
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(KernelPropertyTest, StillTellsAChangeThatWasThereBeforeTheSecondListener)
{
    listen();
    FakeStateChange(StateChange_KernelGoesDown).send();
    sample.setNumber(pointsPath, 30.0);
    listen();
    EXPECT_THAT(heard, IsEmpty());
    EXPECT_EQ(points.value(), 30);
    EXPECT_THAT(heard, ElementsAre(30, 30));
}

TEST_F(KernelPropertyTest, TellsAgainAfterItsFirstListenerHasConnected)
{
    listen();
    sample.setNumber(pointsPath, 30.0);
    sample.setNumber(pointsPath, 31.0);
    EXPECT_THAT(heard, ElementsAre(30, 31));
}

TEST_F(KernelPropertyTest, TellsItsOwnWriteOnceInSpiteOfTheKernelsEcho)
{
    listen();
    points.setValue(12);
    EXPECT_THAT(heard, ElementsAre(12));
    EXPECT_THAT(sample.takeEvents(), ElementsAre("7 Interface, Data, InterpNPoints"));
}

TEST_F(KernelPropertyTest, DoesNotReadWhileItsOwnWriteEchoes)
{
    listen();
    int readsDuringEcho = -1;
    KernelSpy spy;
    int const subscription = sample.session().events().subscribe([&](kernel::StateChangeEvent const&) {
        // The host heard the event before: had the property reacted, it would have asked by now.
        readsDuringEcho = spy.count("VelUtilArgListAlloc");
    });
    points.setValue(12);
    sample.session().events().unsubscribe(subscription);
    EXPECT_EQ(readsDuringEcho, 2); // one to compare, one to write
}

TEST_F(KernelPropertyTest, ListensOnlyWhileSomebodyListensToIt)
{
    int const before = observers();
    {
        KernelProperty<double> exponent{dataValue("InvDistExponent")};
        EXPECT_EQ(observers(), before);
        exponent.connectValueChanged([](double) {});
        EXPECT_EQ(observers(), before + 1);
    }
    EXPECT_EQ(observers(), before);
}

TEST_F(KernelPropertyTest, AddsOneMoreStateChangeConnectionForEachListener)
{
    int const before = observers();
    listen();
    listen();
    listen();
    EXPECT_EQ(observers(), before + 3);
}

TEST_F(KernelPropertyTest, DoesNotReadForListenersThatHaveGone)
{
    points.connectValueChanged([this](long long number) { heard.push_back(number); }).disconnect();
    KernelSpy spy;
    FakeStateChange(StateChange_ValuesAltered).send();
    EXPECT_EQ(spy.count(), 0);
}

TEST_F(KernelPropertyTest, NoLongerFollowsOnceTheKernelGoesDown)
{
    int const before = observers();
    listen();
    listen();
    FakeStateChange(StateChange_KernelGoesDown).send();
    EXPECT_EQ(observers(), before);
    sample.setNumber(pointsPath, 30.0);
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(KernelPropertyTest, GoesDownAmongOthersThatKeepHearing)
{
    listen();
    std::vector<int> kinds;
    boost::signals2::scoped_connection const after = StateChangeEventObservable::getInstance().connectStateChanged(
        [&kinds](toolbox::StateChangeEventInterface const& event) { kinds.push_back(event.kind()); });
    FakeStateChange(StateChange_KernelGoesDown).send();
    EXPECT_THAT(kinds, ElementsAre(15));
}

TEST_F(KernelPropertyTest, ThrowsTheKernelsWordsForARefusedValue)
{
    listen();
    EXPECT_EQ(refusalOf(points, 0LL),
              "The value 0 is not allowed for Interface, Data, InterpNPoints: it must be a whole number from 1 to "
              "2147483647.");
    EXPECT_EQ(points.value(), 8);
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(KernelPropertyTest, ThrowsUnknownErrorWhenTheKernelHasNoWords)
{
    KernelSpy spy;
    spy.failNext("VelUtilStyleGetLastErrorString");
    EXPECT_EQ(refusalOf(points, 0LL), "Unknown error");
    spy.failNext("VelUtilArgListAppendDouble");
    EXPECT_EQ(refusalOf(points, 9LL), "Unknown error");
    EXPECT_EQ(points.value(), 8);
}

TEST_F(KernelPropertyTest, GivesTheTextOfARefusalBack)
{
    KernelSpy spy;
    refusalOf(points, 0LL);
    EXPECT_EQ(spy.count("VelUtilStyleGetLastErrorString"), 1);
    EXPECT_EQ(spy.count("VelUtilStringDealloc"), 1);
}

TEST_F(KernelPropertyTest, CanBeWrittenAgainAfterARefusal)
{
    listen();
    refusalOf(points, 0LL);
    points.setValue(12);
    EXPECT_THAT(heard, ElementsAre(12));
    EXPECT_EQ(sample.number(pointsPath), 12.0);
}

TEST_F(KernelPropertyTest, RefusesNotANumber)
{
    KernelProperty<double> exponent{dataValue("InvDistExponent")};
    EXPECT_NE(refusalOf(exponent, std::nan("")), "accepted");
    EXPECT_EQ(exponent.value(), 2.0);
}

TEST_F(KernelPropertyTest, ShowsTheKernelsValueAfterARefusedWriteEvenIfThatHasChanged)
{
    FakeStateChange(StateChange_KernelGoesDown).send();
    sample.setNumber(pointsPath, 30.0);
    refusalOf(points, 0LL);
    EXPECT_EQ(points.value(), 30);
}

TEST_F(KernelPropertyTest, TakesAPendingValueWithoutShowingIt)
{
    kernel::StyleTree::Hold const operation(sample.tree());
    EXPECT_EQ(refusalOf(points, 20LL), "accepted");
    EXPECT_EQ(points.value(), 8);
}

// A first look that fails has the property write what the kernel has already.
TEST_F(KernelPropertyTest, AcceptsTheAnswerThatTheKernelHasTheValueAlready)
{
    listen();
    FakeStateChange(StateChange_KernelGoesDown).send();
    sample.setNumber(pointsPath, 30.0);
    sample.takeEvents();
    KernelSpy spy;
    spy.failNext("VelUtilArgListAlloc");
    EXPECT_EQ(refusalOf(points, 30LL), "accepted");
    EXPECT_EQ(spy.count("VelUtilArgListAppendDouble"), 1);
    EXPECT_EQ(spy.count("VelUtilStyleGetLastErrorString"), 0);
    EXPECT_THAT(heard, ElementsAre(30, 30)) << "found by reading, then told as set: the answer itself kept nothing";
    EXPECT_THAT(sample.takeEvents(), IsEmpty());
    spy.reset();
    points.setValue(30);
    EXPECT_EQ(spy.count("VelUtilArgListAppendDouble"), 0) << "compared again, not written";
}

TEST_F(KernelPropertyTest, TellsAPendingValueWhenItComesInForce)
{
    listen();
    {
        kernel::StyleTree::Hold const operation(sample.tree());
        points.setValue(20);
        heard.clear();
    }
    EXPECT_THAT(heard, ElementsAre(20));
    EXPECT_EQ(points.value(), 20);
}

TEST_F(KernelPropertyTest, WritesAfterAPendingOneEvenWhatLooksEqual)
{
    {
        kernel::StyleTree::Hold const operation(sample.tree());
        points.setValue(20);
        points.setValue(8);
    }
    EXPECT_EQ(points.value(), 8);
}

TEST_F(KernelPropertyTest, ComparesAgainOnceAWriteIsInForce)
{
    {
        kernel::StyleTree::Hold const operation(sample.tree());
        points.setValue(20);
    }
    points.setValue(21);
    KernelSpy spy;
    points.setValue(21);
    EXPECT_EQ(spy.count("VelUtilArgListAppendDouble"), 0);
}

TEST_F(KernelPropertyTest, KeepsTheLastKnownValueWhenReadingFails)
{
    listen();
    sample.setNumber(pointsPath, 30.0);
    KernelSpy spy;
    spy.failFrom(1);
    EXPECT_EQ(points.value(), 30);
    EXPECT_THAT(heard, ElementsAre(30));
}

TEST_F(KernelPropertyTest, PicksAMemberOfACollectionByItsOffset)
{
    kernel::DataSet const& dataSet = *sample.frame().dataSet;
    sample.lineMap(1).yVariable = dataSet.variable(2)->id;
    sample.lineMap(2).yVariable = dataSet.variable(3)->id;
    KernelProperty<long long> variable{CheckedStyleValue(StyleValue("LineMap", "Assign", "YAxisVar"))};
    EXPECT_EQ(variable.value(), 0);
    std::vector<long long> told;
    variable.connectValueChanged([&told](long long number) { told.push_back(number); });
    variable.setOffsets(1, -1);
    variable.setOffsets(2, -1);
    EXPECT_THAT(told, ElementsAre(2, 3));
    variable.setValue(1);
    EXPECT_EQ(sample.lineMap(2).yVariable, dataSet.variable(1)->id);
    EXPECT_EQ(sample.lineMap(1).yVariable, dataSet.variable(2)->id);
}

TEST_F(KernelPropertyTest, AsksWithBothItsOffsets)
{
    KernelSpy const spy;
    points.setOffsets(3, 7);
    EXPECT_THAT(spy.callsOf("VelUtilArgListAppendInt"),
                testing::AllOf(testing::Contains(testing::HasSubstr("\"Offset1\", 3")),
                               testing::Contains(testing::HasSubstr("\"Offset2\", 7"))));
}

TEST_F(KernelPropertyTest, StillTellsChangesAfterAListenerCouldNotConnect)
{
    bool hasFailed = true;
    for (int request = 1; hasFailed; ++request) {
        KernelProperty<long long> number{dataValue("InterpNPoints")};
        std::vector<long long> told;
        std::function<void(long long)> const listener = [&told](long long value) { told.push_back(value); };
        try {
            AllocationFailure const failure(request);
            number.connectValueChanged(std::cref(listener));
            hasFailed = failure.hasHappened();
        } catch (std::bad_alloc const&) {
        }
        number.connectValueChanged(std::cref(listener));
        FakeStateChange(StateChange_KernelGoesDown).send();
        sample.setNumber(pointsPath, 100.0 + request);
        EXPECT_EQ(number.value(), 100 + request);
        EXPECT_FALSE(told.empty()) << request;
    }
}

TEST_F(KernelPropertyTest, KeepsTheLastKnownValueWhenItsMemberIsGone)
{
    kernel::DataSet const& dataSet = *sample.frame().dataSet;
    sample.lineMap(2).yVariable = dataSet.variable(3)->id;
    KernelProperty<long long> variable{CheckedStyleValue(StyleValue("LineMap", "Assign", "YAxisVar"))};
    variable.setOffsets(2, -1);
    sample.session().perform(kernel::DeleteLineMaps(sample.frame().id, {2}));
    EXPECT_EQ(variable.value(), 3);
    EXPECT_EQ(refusalOf(variable, 1LL),
              "LineMap, Assign, YAxisVar takes the number of a line map from 1 to 1 as its one offset; 2 is none.");
}

TEST_F(KernelPropertyTest, FollowsUndo)
{
    KernelProperty<long long> dependency{CheckedStyleValue(StyleValue("LineMap", "Assign", "FunctionDependency"))};
    dependency.setOffsets(1, -1);
    std::vector<long long> told;
    dependency.connectValueChanged([&told](long long number) { told.push_back(number); });
    dependency.setValue(1);
    sample.session().undo();
    EXPECT_THAT(told, ElementsAre(1, 0));
}

TEST_F(KernelPropertyTest, MayBeReadAndSetByItsOwnListener)
{
    points.connectValueChanged([this](long long number) {
        heard.push_back(points.value());
        if (number == 30)
            points.setValue(31);
    });
    sample.setNumber(pointsPath, 30.0);
    EXPECT_THAT(heard, ElementsAre(30, 31));
    EXPECT_EQ(sample.number(pointsPath), 31.0);
}

TEST_F(KernelPropertyTest, KeepsAValueWhoseListenerThrew)
{
    points.connectValueChanged([this](long long number) {
        heard.push_back(number);
        throw std::runtime_error("listener");
    });
    EXPECT_THROW(points.setValue(12), std::runtime_error);
    EXPECT_THAT(heard, ElementsAre(12));
    EXPECT_EQ(points.value(), 12);
    EXPECT_EQ(sample.number(pointsPath), 12.0);
}

TEST_F(KernelPropertyTest, TakesTheValueOnlyWhenAssigned)
{
    KernelProperty<long long> passes{dataValue("NumSmoothPasses")};
    passes = points;
    EXPECT_EQ(sample.number({"Interface", "Data", "NumSmoothPasses"}), 8.0);
    passes = 3LL;
    EXPECT_EQ(sample.number({"Interface", "Data", "NumSmoothPasses"}), 3.0);
    EXPECT_EQ(points.value(), 8);
    passes.setValue(1);
}

TEST_F(KernelPropertyTest, IsFollowedByARuleThatWatchesIt)
{
    int const before = observers();
    auto const selection = boost::make_shared<KernelProperty<PtSelection_e>>(dataValue("InterpPTSelection"));
    {
        PropertyDependentRelevance<PtSelection_e> const usesAll(selection, PtSelection_All);
        int changes = 0;
        usesAll.connectRelevanceChanged([&changes] { ++changes; });
        EXPECT_FALSE(usesAll.isRelevant());
        sample.setNumber(selectionPath, 0.0);
        EXPECT_TRUE(usesAll.isRelevant());
        EXPECT_EQ(changes, 1);
    }
    sample.setNumber(selectionPath, 1.0);
    EXPECT_EQ(selection->value(), PtSelection_NearestN);
    EXPECT_EQ(observers(), before + 1); // ends with the property
}

} // namespace veldraw::tests
