#include "kernel/api/StyleAccess.h"
#include "kernel/operations/LineMapOperation.h"
#include "platform/exception/InvalidArgumentException.h"
#include "platform/styleproperties/CheckedStyleValue.h"
#include "platform/vdsdkbase/VelUtilString.h"
#include "platform/vdsdkbase/VelUtilStyle.h"
#include "platform/vdtoolbox/ArgList.h"
#include "platform/vdtoolbox/StringList.h"
#include "tests/support/KernelSpy.h"
#include "tests/support/StyleSession.h"

#include <cmath>
#include <gmock/gmock.h>

namespace veldraw::tests {

using testing::Contains;
using testing::HasSubstr;
using toolbox::CheckedStyleValue;
using toolbox::StringList;
using toolbox::StyleValue;

namespace {

char const* const end = nullptr;

std::string lastError()
{
    char* text = nullptr;
    std::string const copy = VelUtilStyleGetLastErrorString(&text) ? text : "none";
    VelUtilStringDealloc(&text);
    return copy;
}

} // namespace

class StyleValueTest : public testing::Test
{
protected:
    StyleSession sample;
    StyleValue points{"Interface", "Data", "InterpNPoints"};
    StyleValue exponent{StringList("Interface", "Data", "InvDistExponent", end)};
};

TEST_F(StyleValueTest, ReadsWhatTheKernelHas)
{
    sample.setNumber(pointsPath, 12.0);
    sample.setNumber(exponentPath, 3.5);
    long long whole = 0;
    double real = 0.0;
    EXPECT_EQ(points.getValue(whole), GetValueReturnCode_Ok);
    EXPECT_EQ(exponent.getValue(real), GetValueReturnCode_Ok);
    EXPECT_EQ(whole, 12);
    EXPECT_EQ(real, 3.5);
}

TEST_F(StyleValueTest, ReadsAFlag)
{
    StyleValue const keep("FileConfig", "LoadOnDemand", "KeepHighPriorityVarsAvailable");
    bool flag = true;
    EXPECT_EQ(keep.getValue(flag), GetValueReturnCode_Ok);
    EXPECT_FALSE(flag);
    sample.setNumber({"FileConfig", "LoadOnDemand", "KeepHighPriorityVarsAvailable"}, 1.0);
    EXPECT_EQ(keep.getValue(flag), GetValueReturnCode_Ok);
    EXPECT_TRUE(flag);
}

TEST_F(StyleValueTest, WritesWholeNumbersAndNumbersWithAFraction)
{
    EXPECT_EQ(points.setValue(15LL, -1, -1), SetValueReturnCode_Ok);
    EXPECT_EQ(exponent.setValue(0.75, -1, -1), SetValueReturnCode_Ok);
    EXPECT_EQ(sample.number(pointsPath), 15.0);
    EXPECT_EQ(sample.number(exponentPath), 0.75);
    EXPECT_EQ(points.setValue(15LL, -1, -1), SetValueReturnCode_Duplicate);
}

TEST_F(StyleValueTest, HandsTheValueOverAsWholeNumberAndAsDouble)
{
    KernelSpy spy;
    points.setValue(15LL, -1, -1);
    EXPECT_THAT(spy.callsOf("VelUtilArgListAppendInt"), Contains(HasSubstr("\"IValue\", 15")));
    EXPECT_THAT(spy.callsOf("VelUtilArgListAppendInt"), Contains(HasSubstr("\"AssignOperator\", 255")));
    EXPECT_THAT(spy.callsOf("VelUtilArgListAppendDouble"), Contains(HasSubstr("\"DValue\", 15")));
    EXPECT_EQ(spy.count("VelUtilArgListAlloc"), spy.count("VelUtilArgListDealloc"));
}

TEST_F(StyleValueTest, RefusesAFractionForAWholeValueInsteadOfRoundingIt)
{
    EXPECT_EQ(points.setValue(2.5, -1, -1), SetValueReturnCode_Refused);
    EXPECT_EQ(sample.number(pointsPath), 8.0);
    for (double const number : {std::nan(""), HUGE_VAL, -HUGE_VAL, 1e300})
        EXPECT_EQ(points.setValue(number, -1, -1), SetValueReturnCode_Refused) << number;
}

TEST_F(StyleValueTest, TellsWhyTheLastWriteWasRefused)
{
    points.setValue(0LL, -1, -1);
    EXPECT_EQ(lastError(),
              "The value 0 is not allowed for Interface, Data, InterpNPoints: it must be a whole number from 1 to "
              "2147483647.");
    points.setValue(1LL, -1, -1);
    EXPECT_EQ(lastError(), "none");
}

TEST_F(StyleValueTest, HasNoReasonToTellAtFirst)
{
    char* text = const_cast<char*>("untouched");
    EXPECT_FALSE(VelUtilStyleGetLastErrorString(&text));
    EXPECT_EQ(text, nullptr);
    EXPECT_FALSE(VelUtilStyleGetLastErrorString(nullptr));
}

TEST_F(StyleValueTest, LeavesTheResultAloneWhenThereIsNoSuchValue)
{
    long long whole = 77;
    double real = 7.5;
    bool flag = true;
    StyleValue const unknown("Interface", "Data", "Nonsense");
    EXPECT_EQ(unknown.getValue(whole), GetValueReturnCode_Unknown);
    EXPECT_EQ(unknown.getValue(real), GetValueReturnCode_Unknown);
    EXPECT_EQ(unknown.getValue(flag), GetValueReturnCode_Unknown);
    EXPECT_EQ(whole, 77);
    EXPECT_EQ(real, 7.5);
    EXPECT_TRUE(flag);
}

TEST_F(StyleValueTest, IsUnknownWithTooManyOrTooFewNames)
{
    long long whole = 0;
    EXPECT_EQ(StyleValue("Interface", "Data", "InterpNPoints", "a", "b", "c", "d").getValue(whole),
              GetValueReturnCode_Unknown);
    EXPECT_EQ(StyleValue(StringList()).getValue(whole), GetValueReturnCode_Unknown);
    EXPECT_EQ(points.child(nullptr).getValue(whole), GetValueReturnCode_Unknown);
    StringList eight("Interface", "Data", "InterpNPoints", "a", "b", "c", "d", "e", end);
    EXPECT_EQ(StyleValue(eight).getValue(whole), GetValueReturnCode_Unknown);
}

TEST_F(StyleValueTest, ReachesTheLineMapsOfAFrame)
{
    kernel::UniqueId const frame = sample.frame().id;
    sample.lineMap(2).yVariable = sample.frame().dataSet->variable(3)->id;
    sample.addFrame();
    StyleValue const assign(frame, "LineMap", "Assign");
    long long variable = 0;
    EXPECT_TRUE(StyleValue::returnCodeOk(assign.child("YAxisVar").getValue(variable, 2)));
    EXPECT_EQ(variable, 3);
    EXPECT_FALSE(StyleValue::returnCodeOk(assign.child("YAxisVar").getValue(variable, 3)));
    EXPECT_FALSE(StyleValue::returnCodeOk(assign.child("YAxisVar").getValue(variable)));
    EXPECT_EQ(assign.child("FunctionDependency").setValue(1LL, 2, -1), SetValueReturnCode_Ok);
    EXPECT_TRUE(sample.lineMap(2).xDependsOnY);
}

TEST_F(StyleValueTest, ChildrenOfAnActiveFrameStayWithWhicheverIsActive)
{
    StyleValue const dependency = StyleValue("LineMap", "Assign").child("FunctionDependency");
    long long number = 7;
    EXPECT_TRUE(StyleValue::returnCodeOk(dependency.getValue(number, 1)));
    EXPECT_EQ(number, 0);
    sample.session().clear();
    EXPECT_FALSE(StyleValue::returnCodeOk(dependency.getValue(number, 1)));
}

TEST_F(StyleValueTest, ClassifiesTheKernelsAnswers)
{
    EXPECT_TRUE(StyleValue::returnCodeOk(SetValueReturnCode_Ok));
    EXPECT_TRUE(StyleValue::returnCodeOk(SetValueReturnCode_Duplicate));
    EXPECT_FALSE(StyleValue::returnCodeOk(SetValueReturnCode_Refused));
    EXPECT_FALSE(StyleValue::returnCodeOk(SetValueReturnCode_Pending));
    EXPECT_TRUE(StyleValue::returnCodeOk(GetValueReturnCode_Ok));
    EXPECT_FALSE(StyleValue::returnCodeOk(GetValueReturnCode_Unknown));
}

TEST_F(StyleValueTest, NeverWritesSomewhereElseWhenMemoryFailsHalfWay)
{
    kernel::UniqueId const frame = sample.frame().id;
    sample.addFrame();
    while (sample.session().activeFrame()->lineMaps.empty())
        sample.session().perform(kernel::CreateLineMap(sample.session().activeFrame()->id));
    StyleValue dependency(frame, "LineMap", "Assign", "FunctionDependency");
    int appends = 0;
    {
        KernelSpy spy;
        dependency.setValue(0LL, 1, -1);
        appends = spy.count("VelUtilArgListAppendInt");
        ASSERT_GE(appends, 8);
    }
    for (int n = 1; n <= appends; ++n) {
        KernelSpy spy;
        spy.failNext("VelUtilArgListAppendInt", n);
        EXPECT_EQ(dependency.setValue(1LL, 1, -1), SetValueReturnCode_Refused) << n;
        EXPECT_FALSE(sample.lineMap(1).xDependsOnY) << n;
        EXPECT_FALSE(sample.session().activeFrame()->lineMaps.front().xDependsOnY) << n;
    }
    KernelSpy spy;
    spy.failNext("VelUtilArgListAppendDouble");
    EXPECT_EQ(dependency.setValue(1LL, 1, -1), SetValueReturnCode_Refused);
    spy.failNext("VelUtilArgListAlloc");
    EXPECT_EQ(dependency.setValue(1LL, 1, -1), SetValueReturnCode_Refused);
    long long number = 5;
    spy.failNext("VelUtilArgListAlloc");
    EXPECT_EQ(dependency.getValue(number, 1), GetValueReturnCode_Unknown);
    EXPECT_EQ(number, 5);
}

TEST_F(StyleValueTest, NeverAnswersWithAValueThatItHasNotReadWhenMemoryFailsHalfWay)
{
    int appends = 0;
    {
        KernelSpy const spy;
        double number = 0.0;
        exponent.getValue(number);
        appends = spy.count("VelUtilArgListAppendInt");
        ASSERT_GE(appends, 7);
    }
    for (int n = 1; n <= appends; ++n) {
        KernelSpy spy;
        double number = 5.0;
        spy.failNext("VelUtilArgListAppendInt", n);
        EXPECT_EQ(exponent.getValue(number), GetValueReturnCode_Unknown) << n;
        EXPECT_EQ(number, 5.0) << n;
    }
}

TEST_F(StyleValueTest, KnowsPlainAssignmentOnly)
{
    toolbox::ArgList list;
    list.appendInt("AssignOperator", 254);
    EXPECT_EQ(kernel::api::setStyleValue(list.getRef()), SetValueReturnCode_Refused);
    EXPECT_EQ(kernel::api::setStyleValue(nullptr), SetValueReturnCode_Refused);
    EXPECT_EQ(kernel::api::getStyleValue(nullptr), GetValueReturnCode_Unknown);
    EXPECT_FALSE(kernel::api::isStylePath(nullptr));
}

TEST_F(StyleValueTest, CheckedOneTakesValuesAndBranches)
{
    EXPECT_NO_THROW(CheckedStyleValue(StyleValue("Interface", "Data", "InterpNPoints")));
    EXPECT_NO_THROW(CheckedStyleValue("Interface", "Data", nullptr, nullptr, nullptr, nullptr, nullptr));
    EXPECT_NO_THROW(CheckedStyleValue(StyleValue(sample.frame().id, "LineMap", "Assign")));
}

TEST_F(StyleValueTest, CheckedOneThrowsForWhatTheKernelDoesNotKnow)
{
    EXPECT_THROW(CheckedStyleValue(StyleValue("Interface", "Data", "Nonsense")), InvalidArgumentException);
    EXPECT_THROW(CheckedStyleValue("Data", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr),
                 InvalidArgumentException);
    EXPECT_THROW(CheckedStyleValue(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr),
                 InvalidArgumentException);
}

TEST_F(StyleValueTest, CheckedOneReadsBelowItself)
{
    CheckedStyleValue const data("Interface", "Data", nullptr, nullptr, nullptr, nullptr, nullptr);
    long long condition = 7, passes = 7;
    double weight = 7.0;
    EXPECT_TRUE(data.read("SmoothBndryCond", condition));
    EXPECT_TRUE(data.read("NumSmoothPasses", passes));
    EXPECT_TRUE(data.read("SmoothWeight", weight));
    EXPECT_EQ(condition, 0);
    EXPECT_EQ(passes, 1);
    EXPECT_EQ(weight, 0.5);
    EXPECT_FALSE(data.read("Nonsense", passes));
    EXPECT_FALSE(data.read("Nonsense", weight));
    EXPECT_EQ(passes, 1);
}

TEST_F(StyleValueTest, CheckedOneHandsItsAddressOut)
{
    CheckedStyleValue checked(points);
    EXPECT_EQ(checked.get().setValue(9LL, -1, -1), SetValueReturnCode_Ok);
    CheckedStyleValue const& constant = checked;
    long long number = 0;
    EXPECT_TRUE(StyleValue::returnCodeOk(constant.get().getValue(number)));
    EXPECT_EQ(number, 9);
}

} // namespace veldraw::tests
