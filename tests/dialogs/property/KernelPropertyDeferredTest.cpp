#include "dialogs/property/KernelPropertyDeferred.h"

#include "platform/exception/InvalidPropertyValueException.h"
#include "tests/support/KernelSpy.h"
#include "tests/support/StyleSession.h"

#include <gmock/gmock.h>

namespace veldraw::tests {

using sdk::styleproperties::KernelPropertyDeferred;
using testing::ElementsAre;
using testing::IsEmpty;
using toolbox::CheckedStyleValue;
using toolbox::StyleValue;

class KernelPropertyDeferredTest : public testing::Test
{
protected:
    KernelPropertyDeferredTest()
    {
        points.connectValueChanged([this](long long number) { heard.push_back(number); });
    }

    StyleSession sample;
    KernelPropertyDeferred<long long> points{CheckedStyleValue(StyleValue("Interface", "Data", "InterpNPoints"))};
    std::vector<long long> heard;
};

TEST_F(KernelPropertyDeferredTest, StartsWithTheKernelsValue)
{
    EXPECT_EQ(points.value(), 8);
    KernelPropertyDeferred<PtSelection_e> const selection{
        CheckedStyleValue(StyleValue("Interface", "Data", "InterpPTSelection"))};
    EXPECT_EQ(selection.value(), PtSelection_Octant);
}

TEST_F(KernelPropertyDeferredTest, KeepsASetValueToItselfUntilItIsSubmitted)
{
    points.setValue(12);
    EXPECT_EQ(points.value(), 12);
    EXPECT_THAT(heard, ElementsAre(12));
    EXPECT_EQ(sample.number(pointsPath), 8.0);
    EXPECT_THAT(sample.takeEvents(), IsEmpty());
    points.submit();
    EXPECT_EQ(sample.number(pointsPath), 12.0);
    EXPECT_THAT(heard, ElementsAre(12));
}

TEST_F(KernelPropertyDeferredTest, TellsNothingOfAnEqualValue)
{
    points.setValue(8);
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(KernelPropertyDeferredTest, WritesNothingWhenTheKernelHasTheSubmittedValueAlready)
{
    KernelSpy spy;
    points.submit();
    EXPECT_EQ(spy.count("VelUtilArgListAppendDouble"), 0);
    EXPECT_THAT(sample.takeEvents(), IsEmpty());
}

TEST_F(KernelPropertyDeferredTest, DoesNotFollowTheKernel)
{
    sample.setNumber(pointsPath, 30.0);
    EXPECT_EQ(points.value(), 8);
    EXPECT_THAT(heard, IsEmpty());
    points.submit();
    EXPECT_EQ(sample.number(pointsPath), 8.0);
}

TEST_F(KernelPropertyDeferredTest, AcceptsAnythingAndIsRefusedWhenSubmitted)
{
    points.setValue(0);
    EXPECT_EQ(points.value(), 0);
    try {
        points.submit();
        FAIL() << "submitted";
    } catch (InvalidPropertyValueException const& refusal) {
        EXPECT_STREQ(refusal.what(),
                     "The value 0 is not allowed for Interface, Data, InterpNPoints: it must be a whole "
                     "number from 1 to 2147483647.");
    }
    EXPECT_EQ(points.value(), 0);
    EXPECT_EQ(sample.number(pointsPath), 8.0);
    points.setValue(5);
    points.submit();
    EXPECT_EQ(sample.number(pointsPath), 5.0);
}

TEST_F(KernelPropertyDeferredTest, TakesTheValueOfAnotherMemberAndDropsItsOwn)
{
    kernel::DataSet const& dataSet = *sample.frame().dataSet;
    sample.lineMap(1).yVariable = dataSet.variable(2)->id;
    sample.lineMap(2).yVariable = dataSet.variable(3)->id;
    KernelPropertyDeferred<long long> variable{CheckedStyleValue(StyleValue("LineMap", "Assign", "YAxisVar"))};
    std::vector<long long> told;
    variable.connectValueChanged([&told](long long number) { told.push_back(number); });
    variable.setOffsets(1, -1);
    variable.setOffsets(1, -1);
    EXPECT_THAT(told, ElementsAre(2));
    variable.setValue(1);
    variable.setOffsets(2, -1);
    EXPECT_THAT(told, ElementsAre(2, 1, 3));
    variable.setValue(1);
    variable.submit();
    EXPECT_EQ(sample.lineMap(1).yVariable, dataSet.variable(2)->id);
    EXPECT_EQ(sample.lineMap(2).yVariable, dataSet.variable(1)->id);
}

TEST_F(KernelPropertyDeferredTest, SubmitsAgainWhatIsStillPending)
{
    {
        kernel::StyleTree::Hold const operation(sample.tree());
        points.setValue(20);
        points.submit();
        points.setValue(8);
        points.submit();
    }
    EXPECT_EQ(sample.number(pointsPath), 8.0);
}

TEST_F(KernelPropertyDeferredTest, TakesTheValueOnlyWhenAssigned)
{
    KernelPropertyDeferred<long long> passes{CheckedStyleValue(StyleValue("Interface", "Data", "NumSmoothPasses"))};
    passes = points;
    passes.submit();
    EXPECT_EQ(sample.number({"Interface", "Data", "NumSmoothPasses"}), 8.0);
    sample.setNumber({"Interface", "Data", "NumSmoothPasses"}, 1.0);
}

} // namespace veldraw::tests
