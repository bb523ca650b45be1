#include "dialogs/fourier/FourierTransformPropertiesManager.h"

#include "platform/vdsdkcommon/AppLock.h"
#include "tests/dialogs/fourier/FourierManagerFixture.h"
#include "tests/dialogs/support/RecordedGuards.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

// As a library does that is loaded before the options are made.
boost::shared_ptr<PropertyAbstract<WindowFunction_e>> const askedBeforeMain =
    FourierTransformPropertiesManager::windowFunction();

// The options as they are before any test has touched them.
class FourierAtLoad : public testing::Environment
{
public:
    void SetUp() override
    {
        display = FourierTransformPropertiesManager::plotDisplay()->value();
        window = FourierTransformPropertiesManager::windowFunction()->value();
        conjugates = FourierTransformPropertiesManager::includeConjugates()->value();
        zones = FourierTransformPropertiesManager::replaceLatestResultZones()->value();
        vars = FourierTransformPropertiesManager::replaceLatestResultVars()->value();
        blanking = FourierTransformPropertiesManager::obeySourceZoneBlanking()->value();
    }
    static inline int display = -1;
    static inline int window = -1;
    static inline bool conjugates = true;
    static inline bool zones = false;
    static inline bool vars = false;
    static inline bool blanking = true;
};
testing::Environment* const fourierAtLoad = testing::AddGlobalTestEnvironment(new FourierAtLoad);

using FourierTransformPropertiesManagerTest = FourierManagerFixture;

TEST_F(FourierTransformPropertiesManagerTest, StartsWithTheOptionsOfTheLibrary)
{
    ASSERT_TRUE(fourierAtLoad);
    EXPECT_EQ(FourierAtLoad::display, FourierPlotDisplayType_InCorner);
    EXPECT_EQ(FourierAtLoad::window, WindowFunction_Rectangular);
    EXPECT_FALSE(FourierAtLoad::conjugates);
    EXPECT_TRUE(FourierAtLoad::zones);
    EXPECT_TRUE(FourierAtLoad::vars);
    EXPECT_FALSE(FourierAtLoad::blanking);
}

TEST_F(FourierTransformPropertiesManagerTest, SharesItsOptionsWithEveryOtherAndItsSelectionsWithNone)
{
    Manager::windowFunction()->setValue(WindowFunction_Hann);
    manager.independentVariable()->setValue(3);
    Manager const other;
    EXPECT_EQ(other.windowFunction()->value(), WindowFunction_Hann);
    EXPECT_EQ(other.independentVariable()->value(), 1);
    EXPECT_THAT(other.dependentVariables()->value(), IsEmpty());
    EXPECT_THAT(other.sourceZones()->value(), IsEmpty());
    EXPECT_EQ(manager.independentVariable()->value(), 3);
}

TEST_F(FourierTransformPropertiesManagerTest, HandsOutTheSameObjectsEachTime)
{
    EXPECT_EQ(Manager::plotDisplay(), Manager::plotDisplay());
    EXPECT_EQ(Manager::windowFunction(), Manager::windowFunction());
    EXPECT_EQ(Manager::includeConjugates(), Manager::includeConjugates());
    EXPECT_EQ(Manager::replaceLatestResultZones(), Manager::replaceLatestResultZones());
    EXPECT_EQ(Manager::replaceLatestResultVars(), Manager::replaceLatestResultVars());
    EXPECT_NE(Manager::replaceLatestResultVars(), Manager::replaceLatestResultZones());
    EXPECT_EQ(Manager::obeySourceZoneBlanking(), Manager::obeySourceZoneBlanking());
    EXPECT_EQ(manager.independentVariable(), manager.independentVariable());
    EXPECT_EQ(manager.dependentVariables(), manager.dependentVariables());
    EXPECT_EQ(manager.sourceZones(), manager.sourceZones());
    EXPECT_EQ(manager.variableModel(), manager.variableModel());
    EXPECT_EQ(manager.sourceZonesModel(), manager.sourceZonesModel());
    EXPECT_EQ(manager.windowFunctionModel(), manager.windowFunctionModel());
    EXPECT_EQ(manager.plotDisplayModel(), manager.plotDisplayModel());
    EXPECT_EQ(manager.transformButtonRelevance(), manager.transformButtonRelevance());
    EXPECT_EQ(Manager::relevance(), Manager::relevance());
}

TEST_F(FourierTransformPropertiesManagerTest, HandsOutItsOptionsAlsoBeforeTheProgramBegins)
{
    ASSERT_TRUE(askedBeforeMain);
    EXPECT_EQ(askedBeforeMain, Manager::windowFunction());
}

TEST_F(FourierTransformPropertiesManagerTest, RefusesNoValue)
{
    EXPECT_NO_THROW(manager.independentVariable()->setValue(-7));
    EXPECT_NO_THROW(manager.dependentVariables()->setValue({0, 99}));
    EXPECT_NO_THROW(manager.sourceZones()->setValue({99}));
    EXPECT_FALSE(manager.transformButtonRelevance()->isRelevant());
}

TEST_F(FourierTransformPropertiesManagerTest, OffersWhatCanBeChosen)
{
    EXPECT_EQ(manager.variableModel()->size(), 4);
    EXPECT_EQ(manager.sourceZonesModel()->size(), 3);
    EXPECT_FALSE(manager.variableModel()->isEditable());
    EXPECT_FALSE(manager.sourceZonesModel()->isEditable());
    EXPECT_EQ(manager.windowFunctionModel()->size(), 4);
    EXPECT_EQ(manager.windowFunctionModel()->get(2), WindowFunction_Hann);
    EXPECT_EQ(manager.windowFunctionModel()->getStr(3), "Hamming");
    EXPECT_EQ(manager.plotDisplayModel()->size(), 2);
    EXPECT_EQ(manager.plotDisplayModel()->getStr(1), "Tile with existing frames");
    sample.dataSet().zone(2)->i = 3;
    enableZone(3, false);
    EXPECT_EQ(manager.sourceZonesModel()->size(), 1);
}

TEST_F(FourierTransformPropertiesManagerTest, PassesTenArgumentsInOrder)
{
    manager.independentVariable()->setValue(4);
    manager.dependentVariables()->setValue({1, 2, 3});
    manager.sourceZones()->setValue({1, 3});
    Manager::windowFunction()->setValue(WindowFunction_Hamming);
    Manager::obeySourceZoneBlanking()->setValue(true);
    Manager::replaceLatestResultVars()->setValue(false);
    spy.reset();
    spy.failNext(kernelFunction);
    manager.transform();
    std::vector<std::string> calls = spy.calls();
    EXPECT_THAT(std::vector<std::string>(calls.begin(), calls.begin() + 12),
                ElementsAre("VelUtilArgListAlloc()", "VelUtilArgListAppendInt(list, \"IndependentVar\", 4)",
                            "VelUtilArgListAppendInt(list, \"WindowFunction\", 3)",
                            "VelUtilArgListAppendSet(list, \"DependentVars\", {1, 2, 3})",
                            "VelUtilArgListAppendSet(list, \"SourceZones\", {1, 3})",
                            "VelUtilArgListAppendInt(list, \"IncludeConjugates\", 0)",
                            "VelUtilArgListAppendInt(list, \"ObeySourceZoneBlanking\", 1)",
                            "VelUtilArgListAppendInt(list, \"ReplaceMatchingResultZones\", 1)",
                            "VelUtilArgListAppendInt(list, \"ReplaceMatchingResultVariables\", 0)",
                            StartsWith("VelUtilArgListAppendInt(list, \"FourierTransformResultingZones\", "),
                            StartsWith("VelUtilArgListAppendInt(list, \"FourierTransformResultingVars\", "),
                            "VelUtilFourierTransformX(list)"));
    EXPECT_NE(calls.at(9).substr(calls.at(9).rfind(' ')), calls.at(10).substr(calls.at(10).rfind(' ')));
}

TEST_F(FourierTransformPropertiesManagerTest, PassesEachSwitchUnderItsOwnName)
{
    struct Switch
    {
        boost::shared_ptr<PropertyAbstract<bool>> property;
        std::string argument;
    };
    std::vector<Switch> const switches{{Manager::includeConjugates(), "IncludeConjugates"},
                                       {Manager::obeySourceZoneBlanking(), "ObeySourceZoneBlanking"},
                                       {Manager::replaceLatestResultZones(), "ReplaceMatchingResultZones"},
                                       {Manager::replaceLatestResultVars(), "ReplaceMatchingResultVariables"}};
    for (Switch const& on : switches) {
        std::vector<std::string> expected;
        for (Switch const& each : switches) {
            bool const isOn = each.argument == on.argument;
            each.property->setValue(isOn);
            expected.push_back("VelUtilArgListAppendInt(list, \"" + each.argument + (isOn ? "\", 1)" : "\", 0)"));
        }
        spy.reset();
        spy.failNext(kernelFunction);
        manager.transform();
        EXPECT_THAT(spy.callsOf("VelUtilArgListAppendInt"), testing::IsSupersetOf(expected)) << on.argument;
    }
}

TEST_F(FourierTransformPropertiesManagerTest, LeavesTheIndependentVariableOutOfTheDependentOnesForTheKernelOnly)
{
    manager.independentVariable()->setValue(3);
    manager.dependentVariables()->setValue({3, 4});
    EXPECT_TRUE(manager.transformButtonRelevance()->isRelevant());
    spy.reset();
    spy.failNext(kernelFunction);
    manager.transform();
    EXPECT_THAT(spy.callsOf("VelUtilArgListAppendSet"),
                testing::Contains(std::string("VelUtilArgListAppendSet(list, \"DependentVars\", {4})")));
    EXPECT_EQ(manager.dependentVariables()->value(), (std::set<int>{3, 4}));
}

TEST_F(FourierTransformPropertiesManagerTest, TellsATransformThatFailsAndTouchesNoFrame)
{
    spy.reset();
    spy.failNext(kernelFunction);
    manager.transform();
    EXPECT_THAT(messages.take(), ElementsAre(noTransform));
    EXPECT_EQ(spy.count(kernelFunction), 1) << "nothing tries again by itself";
    std::vector<std::string> const calls = spy.calls();
    auto const transformed = std::find(calls.begin(), calls.end(), "VelUtilFourierTransformX(list)");
    EXPECT_THAT(std::vector<std::string>(transformed + 1, calls.end()),
                ElementsAre("VelUtilDialogErrMsg(\"Insufficient resources to perform Fourier transform.\")",
                            "VelUtilArgListDealloc(out)"));
    EXPECT_EQ(frames().size(), 1u);
}

TEST_F(FourierTransformPropertiesManagerTest, ChecksNothingItselfAndLeavesThatToTheKernel)
{
    manager.sourceZones()->setValue({});
    manager.dependentVariables()->setValue({1});
    manager.transform();
    EXPECT_EQ(spy.count(kernelFunction), 1);
    EXPECT_THAT(messages.take(), ElementsAre(noTransform));
    EXPECT_EQ(frames().size(), 1u);
}

TEST_F(FourierTransformPropertiesManagerTest, FailsWhenAnArgumentFindsNoMemory)
{
    for (int n = 1; n <= 8; ++n) {
        spy.reset();
        spy.failNext("VelUtilArgListAppendInt", n);
        manager.transform();
        EXPECT_THAT(messages.take(), ElementsAre(noTransform)) << n;
    }
    for (int n = 1; n <= 2; ++n) {
        spy.reset();
        spy.failNext("VelUtilArgListAppendSet", n);
        manager.transform();
        EXPECT_THAT(messages.take(), ElementsAre(noTransform)) << n;
    }
    spy.reset();
    spy.failNext("VelUtilArgListAlloc");
    manager.transform();
    EXPECT_THAT(messages.take(), ElementsAre(noTransform));
    EXPECT_EQ(sample.dataSet().zoneCount(), 3);
    EXPECT_EQ(frames().size(), 1u);
}

TEST_F(FourierTransformPropertiesManagerTest, HoldsTheApplicationWhileItTellsAFailure)
{
    RecordedGuards const recorded;
    spy.failNext(kernelFunction);
    manager.transform();
    spy.failNext("VelUtilFrameCreateNew");
    manager.transform();
    EXPECT_EQ(recorded.guards(), (RecordedGuards::Guards{{1, 0}, {1, 0}}));
    EXPECT_EQ(sdk::AppLock::depth(), 0);
}

} // namespace
} // namespace veldraw::tests
