#include "kernel/operations/LineMapOperation.h"
#include "tests/support/StyleSession.h"

#include <cmath>
#include <gmock/gmock.h>

namespace veldraw::tests {

using kernel::StyleAddress;
using kernel::StyleNumber;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

StyleNumber whole(long long number)
{
    return StyleNumber::ofWhole(number);
}

StyleNumber real(double number)
{
    return StyleNumber::ofReal(number);
}

StyleAddress ofMap(std::string const& name, long long map, kernel::UniqueId frame = 0)
{
    return {{"LineMap", "Assign", name}, frame, map};
}

char const* const keepVariables = "KeepHighPriorityVarsAvailable";

} // namespace

class StyleTreeTest : public testing::Test
{
protected:
    StyleSession sample;
    kernel::StyleTree& tree = sample.tree();
};

TEST_F(StyleTreeTest, StartsWithTheStartValues)
{
    kernel::Session fresh;
    auto const start = [&fresh](std::vector<std::string> const& path) {
        return fresh.style().get({path}).value().real;
    };
    EXPECT_EQ(start(exponentPath), 2.0);
    EXPECT_EQ(start(radiusPath), 0.0);
    EXPECT_EQ(start(pointsPath), 8.0);
    EXPECT_EQ(start(selectionPath), 2.0);
    EXPECT_EQ(start({"Interface", "Data", "SmoothBndryCond"}), 0.0);
    EXPECT_EQ(start({"Interface", "Data", "NumSmoothPasses"}), 1.0);
    EXPECT_EQ(start({"Interface", "Data", "SmoothWeight"}), 0.5);
    EXPECT_EQ(start({"FileConfig", "LoadOnDemand", keepVariables}), 0.0);
}

TEST_F(StyleTreeTest, AcceptsEachStartValueAsAValue)
{
    kernel::Session fresh;
    for (char const* const name : {"InvDistExponent", "InvDistMinRadius", "InterpNPoints", "InterpPTSelection",
                                   "SmoothBndryCond", "NumSmoothPasses", "SmoothWeight"}) {
        StyleAddress const address{{"Interface", "Data", name}};
        EXPECT_EQ(fresh.style().set(address, fresh.style().get(address).value()), SetValueReturnCode_Duplicate) << name;
    }
}

TEST_F(StyleTreeTest, KeepsWhatIsWritten)
{
    EXPECT_EQ(tree.set({exponentPath}, real(3.25)), SetValueReturnCode_Ok);
    EXPECT_EQ(tree.get({exponentPath}).value().real, 3.25);
    EXPECT_EQ(tree.set({pointsPath}, whole(12)), SetValueReturnCode_Ok);
    EXPECT_EQ(tree.get({pointsPath}).value().whole, 12);
}

TEST_F(StyleTreeTest, TellsAWriteWithItsWholePath)
{
    tree.set({pointsPath}, whole(12));
    EXPECT_THAT(sample.takeEvents(), ElementsAre("7 Interface, Data, InterpNPoints"));
}

TEST_F(StyleTreeTest, HasTheNewValueWhenItTells)
{
    long long seen = 0;
    int const subscription = sample.session().events().subscribe(
        [&](kernel::StateChangeEvent const&) { seen = tree.get({pointsPath}).value().whole; });
    tree.set({pointsPath}, whole(12));
    sample.session().events().unsubscribe(subscription);
    EXPECT_EQ(seen, 12);
}

TEST_F(StyleTreeTest, TellsNothingOfAValueThatIsInForceAlready)
{
    EXPECT_EQ(tree.set({pointsPath}, whole(8)), SetValueReturnCode_Duplicate);
    EXPECT_THAT(sample.takeEvents(), IsEmpty());
}

TEST_F(StyleTreeTest, LeavesTheOldValueWhenItRefuses)
{
    EXPECT_EQ(tree.set({exponentPath}, real(11.0)), SetValueReturnCode_Refused);
    EXPECT_EQ(tree.get({exponentPath}).value().real, 2.0);
    EXPECT_THAT(sample.takeEvents(), IsEmpty());
}

TEST_F(StyleTreeTest, NamesTheValueTheLimitsAndThePathOfARefusal)
{
    tree.set({exponentPath}, real(10.5));
    EXPECT_EQ(tree.lastError(),
              "The value 10.5 is not allowed for Interface, Data, InvDistExponent: it must be a number "
              "greater than 0 and less than or equal to 10.");
    tree.set({pointsPath}, whole(0));
    EXPECT_EQ(tree.lastError(),
              "The value 0 is not allowed for Interface, Data, InterpNPoints: it must be a whole number "
              "from 1 to 2147483647.");
    tree.set({radiusPath}, real(-1.0));
    EXPECT_EQ(tree.lastError(),
              "The value -1 is not allowed for Interface, Data, InvDistMinRadius: it must be a number "
              "greater than or equal to 0.");
}

TEST_F(StyleTreeTest, ForgetsTheReasonWithTheNextWrite)
{
    tree.set({exponentPath}, real(11.0));
    tree.set({exponentPath}, real(1.0));
    EXPECT_EQ(tree.lastError(), "");
}

struct Limits
{
    char const* name;
    double lowest, highest, tooLow, tooHigh;
};

class StyleLimitsTest : public testing::TestWithParam<Limits>
{
};

TEST_P(StyleLimitsTest, LieWhereTheyAre)
{
    StyleSession sample;
    Limits const& limits = GetParam();
    StyleAddress const address{{"Interface", "Data", limits.name}};
    double const before = sample.number(address.path);
    EXPECT_NE(sample.tree().set(address, real(limits.lowest)), SetValueReturnCode_Refused);
    EXPECT_EQ(sample.tree().set(address, real(limits.tooLow)), SetValueReturnCode_Refused);
    EXPECT_EQ(sample.number(address.path), limits.lowest);
    EXPECT_NE(sample.tree().set(address, real(limits.highest)), SetValueReturnCode_Refused);
    EXPECT_EQ(sample.tree().set(address, real(limits.tooHigh)), SetValueReturnCode_Refused);
    EXPECT_EQ(sample.number(address.path), limits.highest);
    EXPECT_EQ(sample.tree().set(address, real(std::nan(""))), SetValueReturnCode_Refused);
    sample.setNumber(address.path, before);
}

INSTANTIATE_TEST_SUITE_P(OfTheInterface, StyleLimitsTest,
                         testing::Values(Limits{"InvDistExponent", 1e-9, 10.0, 0.0, 10.0001},
                                         Limits{"InvDistMinRadius", 0.0, 1e300, -1e-9, HUGE_VAL},
                                         Limits{"InterpNPoints", 1.0, 2147483647.0, 0.0, 2147483648.0},
                                         Limits{"InterpPTSelection", 0.0, 2.0, -1.0, 3.0},
                                         Limits{"SmoothBndryCond", 0.0, 2.0, -1.0, 3.0},
                                         Limits{"NumSmoothPasses", 1.0, 2147483647.0, 0.0, 2147483648.0},
                                         Limits{"SmoothWeight", 1.1754943508222875e-38, 0.95, 0.0, 0.951}),
                         [](auto const& limits) { return limits.param.name; });

TEST_F(StyleTreeTest, RefusesAFractionForAWholeValue)
{
    EXPECT_EQ(tree.set({pointsPath}, real(2.5)), SetValueReturnCode_Refused);
    EXPECT_THAT(tree.lastError(), HasSubstr("The value 2.5 is not allowed"));
}

TEST_F(StyleTreeTest, RefusesAPathThatItDoesNotHave)
{
    EXPECT_EQ(tree.set({{"Interface", "Data", "Nonsense"}}, whole(1)), SetValueReturnCode_Refused);
    EXPECT_EQ(tree.lastError(), "There is no style value at Interface, Data, Nonsense.");
    EXPECT_EQ(tree.set({{"Interface", "Data"}}, whole(1)), SetValueReturnCode_Refused);
    EXPECT_FALSE(tree.get({{"Interface", "Data"}}));
    EXPECT_FALSE(tree.get({{}}));
}

TEST_F(StyleTreeTest, RefusesAnOffsetWhereThereIsNoCollection)
{
    EXPECT_EQ(tree.set({pointsPath, 0, 1}, whole(3)), SetValueReturnCode_Refused);
    EXPECT_EQ(tree.lastError(), "Interface, Data, InterpNPoints exists once and takes no offset.");
    EXPECT_FALSE(tree.get({pointsPath, 0, 1}));
    EXPECT_FALSE(tree.get({pointsPath, 0, StyleAddress::noOffset, 1}));
}

TEST_F(StyleTreeTest, KnowsValuesAndTheBranchesAboveThem)
{
    EXPECT_TRUE(tree.hasPath({"Interface"}));
    EXPECT_TRUE(tree.hasPath({"Interface", "Data"}));
    EXPECT_TRUE(tree.hasPath(pointsPath));
    EXPECT_FALSE(tree.hasPath({"Interface", "Dat"}));
    EXPECT_FALSE(tree.hasPath({"Interface", "Data", "InterpNPoints", "More"}));
    EXPECT_FALSE(tree.hasPath({"Zzz"}));
    EXPECT_FALSE(tree.hasPath({}));
}

TEST_F(StyleTreeTest, GivesEachNameAnIdentifier)
{
    for (char const* const name : {"Interface", "Data", "YAxisVar"}) {
        EXPECT_GE(tree.nameId(name), 1);
        EXPECT_EQ(tree.nameOfId(tree.nameId(name)), name);
    }
    EXPECT_EQ(tree.nameId("Nonsense"), 0);
    EXPECT_EQ(tree.nameId(""), 0);
    EXPECT_EQ(tree.nameOfId(0), "");
    EXPECT_EQ(tree.nameOfId(1LL << 40), "");
}

TEST_F(StyleTreeTest, KeepsInterfaceSettingsOutOfTheHistory)
{
    sample.session().history().clear();
    tree.set({pointsPath}, whole(12));
    EXPECT_FALSE(sample.session().history().canUndo());
}

TEST_F(StyleTreeTest, ReadsTheVariablesOfEachLineMap)
{
    kernel::DataSet const& dataSet = *sample.frame().dataSet;
    sample.lineMap(2).xVariable = dataSet.variable(2)->id;
    sample.lineMap(2).yVariable = dataSet.variable(3)->id;
    sample.lineMap(2).xDependsOnY = true;
    EXPECT_EQ(tree.get(ofMap("XAxisVar", 2)).value().whole, 2);
    EXPECT_EQ(tree.get(ofMap("YAxisVar", 2)).value().whole, 3);
    EXPECT_EQ(tree.get(ofMap("FunctionDependency", 2)).value().whole, 1);
    EXPECT_EQ(tree.get(ofMap("FunctionDependency", 1)).value().whole, 0);
}

TEST_F(StyleTreeTest, WritesTheVariableOfOneLineMapOnly)
{
    kernel::DataSet const& dataSet = *sample.frame().dataSet;
    kernel::UniqueId const other = sample.lineMap(1).yVariable;
    EXPECT_EQ(tree.set(ofMap("YAxisVar", 2), whole(3)), SetValueReturnCode_Ok);
    EXPECT_EQ(sample.lineMap(2).yVariable, dataSet.variable(3)->id);
    EXPECT_EQ(sample.lineMap(1).yVariable, other);
    EXPECT_EQ(tree.set(ofMap("YAxisVar", 2), whole(3)), SetValueReturnCode_Duplicate);
}

TEST_F(StyleTreeTest, WritesTheDependencyOfALineMap)
{
    EXPECT_EQ(tree.set(ofMap("FunctionDependency", 1), whole(1)), SetValueReturnCode_Ok);
    EXPECT_TRUE(sample.lineMap(1).xDependsOnY);
    EXPECT_EQ(tree.set(ofMap("FunctionDependency", 1), whole(2)), SetValueReturnCode_Refused);
    EXPECT_TRUE(sample.lineMap(1).xDependsOnY);
}

TEST_F(StyleTreeTest, TellsAChangedLineMapAsLineMapAndAsStyle)
{
    tree.set(ofMap("YAxisVar", 2), whole(3));
    EXPECT_THAT(sample.takeEvents(), ElementsAre("19", "7 LineMap, Assign, YAxisVar"));
}

TEST_F(StyleTreeTest, TakesAChangeOfALineMapBack)
{
    kernel::UniqueId const before = sample.lineMap(2).yVariable;
    tree.set(ofMap("YAxisVar", 2), whole(3));
    EXPECT_EQ(sample.session().history().undoName(), "Line Map");
    sample.session().undo();
    EXPECT_EQ(sample.lineMap(2).yVariable, before);
    sample.session().redo();
    EXPECT_EQ(tree.get(ofMap("YAxisVar", 2)).value().whole, 3);
}

TEST_F(StyleTreeTest, AnswersForTheFrameThatIsAskedFor)
{
    kernel::UniqueId const first = sample.frame().id;
    tree.set(ofMap("YAxisVar", 1, first), whole(3));
    std::shared_ptr<kernel::Frame> const second = sample.addFrame();
    if (second->lineMaps.empty())
        sample.session().perform(kernel::CreateLineMap(second->id));
    tree.set(ofMap("YAxisVar", 1), whole(1));
    EXPECT_EQ(tree.get(ofMap("YAxisVar", 1, first)).value().whole, 3);
    EXPECT_EQ(tree.get(ofMap("YAxisVar", 1, second->id)).value().whole, 1);
    EXPECT_EQ(tree.get(ofMap("YAxisVar", 1)).value().whole, 1);
}

TEST_F(StyleTreeTest, StretchesTheAxesOfAFrameAsAStepOfTheHistory)
{
    StyleAddress const address{{"FieldAxes", "Stretch"}};
    EXPECT_EQ(tree.get(address).value().whole, 0);
    sample.takeEvents();
    EXPECT_EQ(tree.set(address, whole(1)), SetValueReturnCode_Ok);
    EXPECT_THAT(sample.takeEvents(), ElementsAre("7 FieldAxes, Stretch"));
    EXPECT_TRUE(sample.frame().stretchAxes);
    EXPECT_EQ(tree.set(address, whole(1)), SetValueReturnCode_Duplicate);
    sample.session().undo();
    EXPECT_EQ(tree.get(address).value().whole, 0);
    EXPECT_TRUE(tree.hasPath({"FieldAxes"}));
}

TEST_F(StyleTreeTest, KeepsASwitchOfAFrameForTheFrameThatIsAskedFor)
{
    kernel::UniqueId const first = sample.frame().id;
    sample.addFrame();
    EXPECT_EQ(tree.set({{"FieldAxes", "Stretch"}, first}, whole(1)), SetValueReturnCode_Ok);
    EXPECT_EQ(tree.get({{"FieldAxes", "Stretch"}}).value().whole, 0);
    EXPECT_EQ(tree.get({{"FieldAxes", "Stretch"}, first}).value().whole, 1);
}

TEST_F(StyleTreeTest, RefusesWhatASwitchOfAFrameCannotTake)
{
    StyleAddress address{{"FieldAxes", "Stretch"}};
    EXPECT_EQ(tree.set(address, whole(2)), SetValueReturnCode_Refused);
    EXPECT_EQ(tree.lastError(),
              "The value 2 is not allowed for FieldAxes, Stretch: it must be a whole number from 0 to 1.");
    address.offset1 = 1;
    EXPECT_FALSE(tree.get(address));
    EXPECT_EQ(tree.set(address, whole(1)), SetValueReturnCode_Refused);
    EXPECT_EQ(tree.lastError(), "FieldAxes, Stretch exists once in a frame and takes no offset.");
    address = {{"FieldAxes", "Stretch"}, 987654321};
    EXPECT_FALSE(tree.get(address));
    EXPECT_EQ(tree.set(address, whole(1)), SetValueReturnCode_Refused);
    EXPECT_EQ(tree.lastError(), "There is no such frame for FieldAxes, Stretch.");
    EXPECT_FALSE(sample.frame().stretchAxes);
}

TEST_F(StyleTreeTest, RefusesWhatNamesNoLineMap)
{
    for (long long const map : {-1LL, 0LL, 3LL, 1LL << 40}) {
        EXPECT_FALSE(tree.get(ofMap("YAxisVar", map))) << map;
        EXPECT_EQ(tree.set(ofMap("YAxisVar", map), whole(1)), SetValueReturnCode_Refused) << map;
    }
    tree.set(ofMap("YAxisVar", 3), whole(1));
    EXPECT_EQ(tree.lastError(),
              "LineMap, Assign, YAxisVar takes the number of a line map from 1 to 2 as its one offset; 3 "
              "is none.");
    EXPECT_FALSE(tree.get({{"LineMap", "Assign", "YAxisVar"}, 0, 1, 1}));
}

TEST_F(StyleTreeTest, RefusesAVariableThatDoesNotExist)
{
    EXPECT_EQ(tree.set(ofMap("XAxisVar", 1), whole(4)), SetValueReturnCode_Refused);
    EXPECT_EQ(tree.lastError(),
              "The value 4 is not allowed for LineMap, Assign, XAxisVar: it must be a whole number from 1 to 3.");
}

TEST_F(StyleTreeTest, RefusesAFrameThatDoesNotExist)
{
    EXPECT_FALSE(tree.get(ofMap("YAxisVar", 1, 987654321)));
    EXPECT_EQ(tree.set(ofMap("YAxisVar", 1, 987654321), whole(1)), SetValueReturnCode_Refused);
    EXPECT_EQ(tree.lastError(), "There is no such frame for LineMap, Assign, YAxisVar.");
    sample.session().clear();
    EXPECT_FALSE(tree.get(ofMap("YAxisVar", 1)));
}

TEST_F(StyleTreeTest, RefusesAVariableWithoutADataSet)
{
    sample.frame().dataSet.reset();
    EXPECT_EQ(tree.get(ofMap("YAxisVar", 1)).value().whole, 0);
    EXPECT_EQ(tree.set(ofMap("YAxisVar", 1), whole(1)), SetValueReturnCode_Refused);
    EXPECT_EQ(tree.lastError(), "The frame has no variables for LineMap, Assign, YAxisVar.");
    EXPECT_EQ(tree.set(ofMap("FunctionDependency", 1), whole(1)), SetValueReturnCode_Ok);
}

} // namespace veldraw::tests
