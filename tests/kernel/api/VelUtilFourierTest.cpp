// The Fourier transform by its C function, over the one session of the process.
#include "platform/vdsdkbase/VelUtilFourier.h"

#include "kernel/base/NumberSet.h"
#include "platform/vdsdkbase/VelUtilArgList.h"
#include "tests/kernel/support/FourierFixture.h"

#include <functional>

namespace veldraw::tests {

using namespace kernel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class FourierFunction : public testing::Test
{
protected:
    FourierFunction()
    {
        dataSet = sample::ordered({"Time", "U", "V"}, 16);
        frame->dataSet = dataSet;
        session.openPage({frame});
        session.setLastError({});
    }

    ~FourierFunction() override
    {
        VelUtilArgListDealloc(&list);
        session.clear();
    }

    void appendInt(char const* name, long long value) { ASSERT_TRUE(VelUtilArgListAppendInt(list, name, value)); }

    /// All ten arguments, in their order.
    void appendAll()
    {
        dependents.members = {2, 3};
        sources.members = {1};
        appendInt("IndependentVar", 1);
        appendInt("WindowFunction", WindowFunction_Hann);
        ASSERT_TRUE(VelUtilArgListAppendSet(list, "DependentVars", &dependents));
        ASSERT_TRUE(VelUtilArgListAppendSet(list, "SourceZones", &sources));
        appendInt("IncludeConjugates", 0);
        appendInt("ObeySourceZoneBlanking", 0);
        appendInt("ReplaceMatchingResultZones", 1);
        appendInt("ReplaceMatchingResultVariables", 1);
        appendInt("FourierTransformResultingZones", reinterpret_cast<long long>(&zones));
        appendInt("FourierTransformResultingVars", reinterpret_cast<long long>(&variables));
    }

    void expectRefusal(std::string const& reason)
    {
        std::string const before = stateDigest(session);
        session.setLastError({});
        EXPECT_FALSE(VelUtilFourierTransformX(list));
        EXPECT_EQ(session.lastError(), reason);
        EXPECT_EQ(stateDigest(session), before);
        EXPECT_THAT(resultingZones.members, IsEmpty());
        EXPECT_THAT(resultingVariables.members, IsEmpty());
    }

    Session& session = Session::instance();
    std::shared_ptr<DataSet> dataSet;
    std::shared_ptr<Frame> frame = std::make_shared<Frame>("Frame 1", Rectangle{});
    ArgList_s* list = VelUtilArgListAlloc();
    Set_s dependents;
    Set_s sources;
    Set_s resultingZones;
    Set_s resultingVariables;
    Set_s* zones = &resultingZones;
    Set_s* variables = &resultingVariables;
};

} // namespace

TEST_F(FourierFunction, FillsTheCallersSetsInPlace)
{
    appendAll();
    ASSERT_TRUE(VelUtilFourierTransformX(list)) << session.lastError();
    EXPECT_EQ(zones, &resultingZones);
    EXPECT_EQ(variables, &resultingVariables);
    EXPECT_THAT(resultingZones.members, ElementsAre(2));
    EXPECT_THAT(resultingVariables.members, ElementsAre(4, 5, 6, 7, 8, 9));
    EXPECT_EQ(dataSet->zoneCount(), 2);
    EXPECT_EQ(dataSet->zone(2)->i, 9);
}

TEST_F(FourierFunction, TakesEachChoice)
{
    appendAll();
    ASSERT_TRUE(VelUtilFourierTransformX(list));
    appendInt("IncludeConjugates", 1);
    ASSERT_TRUE(VelUtilFourierTransformX(list));
    EXPECT_EQ(dataSet->zoneCount(), 2);
    EXPECT_EQ(dataSet->zone(2)->i, 16);
    appendInt("ReplaceMatchingResultZones", 0);
    ASSERT_TRUE(VelUtilFourierTransformX(list));
    EXPECT_THAT(resultingZones.members, ElementsAre(3));
    EXPECT_THAT(resultingVariables.members, ElementsAre(4, 5, 6, 7, 8, 9));
    appendInt("ReplaceMatchingResultVariables", 0);
    ASSERT_TRUE(VelUtilFourierTransformX(list));
    EXPECT_THAT(resultingVariables.members, ElementsAre(10, 11, 12, 13, 14, 15));
    auto const marks = Buffer::allocate(FieldDataType_Byte, 16);
    marks->setValue(3, Blanking::hiddenPoint);
    dataSet->zone(1)->blanking = std::make_shared<Blanking>(*dataSet->zone(1), Blanking::Marks{marks, nullptr});
    appendInt("ObeySourceZoneBlanking", 1);
    ASSERT_TRUE(VelUtilFourierTransformX(list));
    AuxiliaryData const& notes = dataSet->zone(*resultingZones.members.begin())->auxiliaryData;
    EXPECT_EQ(notes.item(notes.indexOf("Fourier.Bridged")).value, "U: 1, V: 1");
    EXPECT_EQ(notes.item(notes.indexOf("Fourier.Window")).value, "Hann");
}

TEST_F(FourierFunction, RefusesWhatIsMissingOrDoesNotFit)
{
    std::string const missing = "An argument is missing.";
    std::string const noChoice = "A choice is missing, or neither 0 nor 1.";
    Set_s* none = nullptr;
    std::vector<std::pair<std::string, std::function<void()>>> const spoilers{
        {missing, [&] { VelUtilArgListAppendDouble(list, "IndependentVar", 1.0); }},
        {missing, [&] { VelUtilArgListAppendDouble(list, "WindowFunction", 1.0); }},
        {missing, [&] { appendInt("DependentVars", 2); }},
        {missing, [&] { appendInt("SourceZones", 1); }},
        {missing, [&] { appendInt("FourierTransformResultingZones", 0); }},
        {missing, [&] { appendInt("FourierTransformResultingVars", reinterpret_cast<long long>(&none)); }},
        {missing, [&] { appendInt("FourierTransformResultingVars", reinterpret_cast<long long>(&zones)); }},
        {noChoice, [&] { appendInt("IncludeConjugates", 2); }},
        {noChoice, [&] { appendInt("ObeySourceZoneBlanking", -1); }},
        {noChoice, [&] { VelUtilArgListAppendDouble(list, "ReplaceMatchingResultZones", 1.0); }},
        {noChoice, [&] { appendInt("ReplaceMatchingResultVariables", 1LL << 40); }},
        {"There is no such window function.", [&] { appendInt("WindowFunction", 4); }},
        {"There is no such window function.", [&] { appendInt("WindowFunction", -1); }},
        {"There is no such variable.", [&] { appendInt("IndependentVar", (1LL << 32) + 1); }},
        {"There is no such variable.", [&] { appendInt("IndependentVar", -5); }},
    };
    expectRefusal(missing); // an empty list
    for (auto const& [reason, spoil] : spoilers) {
        appendAll();
        spoil();
        expectRefusal(reason);
    }
    appendAll();
    EXPECT_TRUE(VelUtilFourierTransformX(list));
}

TEST_F(FourierFunction, LeavesTheSetsAloneWhenItIsRefused)
{
    appendAll();
    dependents.members = {1};
    ASSERT_TRUE(VelUtilArgListAppendSet(list, "DependentVars", &dependents));
    expectRefusal("The independent variable \"Time\" is among the dependent ones.");
    EXPECT_FALSE(VelUtilFourierTransformX(nullptr));
    EXPECT_EQ(session.lastError(), "An argument is missing.");
    session.clear();
    EXPECT_FALSE(VelUtilFourierTransformX(list));
    EXPECT_EQ(session.lastError(), "There is no data set.");
}

} // namespace veldraw::tests
