#include "dialogs/datasetinfo/ZoneVarInfoPropertiesManager.h"

#include "dialogs/datasetinfo/ActiveZonesPropertyAbstract.h"
#include "kernel/operations/EnableZone.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/datasetinfo/ZoneVarStage.h"
#include "tests/support/FakeStateChange.h"
#include "tests/support/KernelSpy.h"

#include <gmock/gmock.h>
#include <map>

namespace veldraw::tests {
namespace {

using sdk::ui::common::IdleDispatcher;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using Stage = ZoneVarStage;

/// Something that is told of all active zones, where the kernel may not be asked.
class RefusedQuestion : public sdk::ui::propertymanager::ActiveZonesPropertyAbstract
{
public:
    RefusedQuestion(Selection const& zones, Selection const& variables)
        : ActiveZonesPropertyAbstract(zones, variables)
    {
    }

    bool isAnswered = false;
    int timesAsked = 0;

private:
    bool updateInActiveZones(int) override
    {
        ++timesAsked;
        return isAnswered;
    }
};

class ZoneVarInfoPropertiesManagerTest : public testing::Test
{
protected:
    void select(int zone, int variable)
    {
        manager.selectedZones()->setValue({zone});
        manager.selectedVars()->setValue({variable});
    }

    /// How often the manager asked the kernel, by function, but for what it checks before each question.
    std::map<std::string, int> questions() const
    {
        std::map<std::string, int> counts;
        for (char const* const function :
             {"VelUtilZoneGetType", "VelUtilZoneGetMetrics", "VelUtilZoneGetSolutionTime", "VelUtilZoneGetStrandID",
              "VelUtilDataValueGetType", "VelUtilDataValueGetLocation", "VelUtilVarGetStatus"})
            counts[function] = spy.count(function);
        return counts;
    }

    Stage stage;
    sdk::ui::propertymanager::ZoneVarInfoPropertiesManager manager;
    KernelSpy spy;
};

TEST_F(ZoneVarInfoPropertiesManagerTest, StartsWithItsLabelsAndAsksNothing)
{
    spy.reset();
    sdk::ui::propertymanager::ZoneVarInfoPropertiesManager const fresh;
    EXPECT_THAT(questions(), Each(testing::Pair(testing::_, 0)));
    EXPECT_THAT(fresh.selectedZones()->value(), IsEmpty());
    EXPECT_THAT(fresh.selectedVars()->value(), IsEmpty());
    EXPECT_EQ(fresh.zoneTypeLabel()->value(), "Zone Type:");
    EXPECT_EQ(fresh.solutionTimeLabel()->value(), "Solution Time:");
    EXPECT_EQ(fresh.timeStrandLabel()->value(), "Time Strand:");
    EXPECT_EQ(fresh.varTypeLabel()->value(), "Var Type:");
    EXPECT_EQ(fresh.varLocationLabel()->value(), "Var Location:");
    EXPECT_EQ(fresh.selectedRangeTitle()->value(), "Var Range -- Selected Zone:");
    EXPECT_EQ(fresh.activeRangeTitle()->value(), "Var Range -- Active Zones:");
    EXPECT_EQ(fresh.selectedMinLabel()->value(), "Min:");
    EXPECT_EQ(fresh.selectedMaxLabel()->value(), "Max:");
    EXPECT_EQ(fresh.activeMinLabel()->value(), "Min:");
    EXPECT_EQ(fresh.activeMaxLabel()->value(), "Max:");
    EXPECT_EQ(fresh.zoneName().text->value(), "");
    EXPECT_EQ(fresh.selectedMinText()->value(), "");
    EXPECT_EQ(fresh.activeMinText()->value(), "--------");
}

TEST_F(ZoneVarInfoPropertiesManagerTest, TellsTheFirstOfWhatIsSelectedAtOnce)
{
    manager.selectedZones()->setValue({Stage::Skin, Stage::Cells});
    manager.selectedVars()->setValue({Stage::Y, Stage::T});
    EXPECT_EQ(manager.zoneName().text->value(), "Skin");
    EXPECT_EQ(manager.zoneType()->value(), "FE - Triangle");
    EXPECT_EQ(manager.zoneDimensions().dimension(0)->value(), 5);
    EXPECT_EQ(manager.varName().text->value(), "Y");
    EXPECT_EQ(manager.varType()->value(), "Float");
    EXPECT_EQ(manager.selectedRange().min()->value(), 200.0);
    EXPECT_EQ(manager.activeRange().max()->value(), 223.0);
}

TEST_F(ZoneVarInfoPropertiesManagerTest, HasATextForEachTypeOfZone)
{
    std::vector<std::string> texts;
    for (int type = ZoneType_Ordered; type <= ZoneType_FEMixed; ++type) {
        stage.zone(Stage::Skin).type = static_cast<ZoneType_e>(type);
        select(Stage::Wing, Stage::X);
        select(Stage::Skin, Stage::X);
        texts.push_back(manager.zoneType()->value() + " " + manager.zoneDimensionLabels().label(2)->value());
    }
    EXPECT_THAT(texts, ElementsAre("Ordered KMax:", "FE - Triangle ", "FE - Quad ", "FE - Tetra ", "FE - Brick ",
                                   "FE - LineSeg ", "FE - Polygon Faces:", "FE - Polyhedron Faces:", "FE - Mixed "));
}

TEST_F(ZoneVarInfoPropertiesManagerTest, HasATextForEachTypeOfValues)
{
    std::vector<std::string> texts;
    for (int type = FieldDataType_Float; type <= FieldDataType_Bit; ++type) {
        Stage::fill(stage.zone(Stage::Skin), Stage::X, static_cast<FieldDataType_e>(type), ValueLocation_Nodal,
                    [](std::int64_t) { return 1.0; });
        select(Stage::Wing, Stage::X);
        select(Stage::Skin, Stage::X);
        texts.push_back(manager.varType()->value());
    }
    EXPECT_THAT(texts, ElementsAre("Float", "Double", "Long Integer", "Short Integer", "Byte", "Bit"));
}

TEST_F(ZoneVarInfoPropertiesManagerTest, LeavesATextAloneForWhatTheKernelCannotTell)
{
    select(Stage::Wing, Stage::P);
    for (char const* const function :
         {"VelUtilZoneGetType", "VelUtilDataValueGetType", "VelUtilDataValueGetLocation"}) {
        for (int time = 1; time <= 4; ++time)
            spy.failNext(function, time);
    }
    manager.selectedZones()->setValue({Stage::Skin});
    EXPECT_EQ(manager.zoneType()->value(), "Ordered");
    EXPECT_EQ(manager.zoneDimensionLabels().label(2)->value(), "KMax:");
    EXPECT_EQ(manager.varType()->value(), "Short Integer");
    EXPECT_EQ(manager.varLocation()->value(), "Cell Centered");
}

TEST_F(ZoneVarInfoPropertiesManagerTest, AsksNothingOfWhatIsNotSelectedOrNotEnabled)
{
    select(Stage::Wing, Stage::X);
    spy.reset();
    manager.selectedVars()->setValue({99});
    manager.selectedVars()->setValue({});
    manager.selectedZones()->setValue({99});
    manager.selectedZones()->setValue({});
    manager.selectedVars()->setValue({99});
    manager.selectedVars()->setValue({});
    stage.session().perform(kernel::EnableZone(*stage.dataSet, Stage::Skin, false));
    manager.selectedZones()->setValue({Stage::Skin});
    IdleDispatcher::flush();
    EXPECT_THAT(questions(), Each(testing::Pair(testing::_, 0)));
    EXPECT_EQ(manager.zoneName().text->value(), "Wing");
    EXPECT_EQ(manager.varName().text->value(), "X");
}

TEST_F(ZoneVarInfoPropertiesManagerTest, AsksNothingWithoutAPage)
{
    select(Stage::Wing, Stage::X);
    stage.session().removeAllPages();
    spy.reset();
    select(Stage::Skin, Stage::Y);
    IdleDispatcher::flush();
    EXPECT_THAT(questions(), Each(testing::Pair(testing::_, 0)));
    EXPECT_EQ(manager.zoneName().text->value(), "Wing");
}

TEST_F(ZoneVarInfoPropertiesManagerTest, AnswersAThousandEventsOfATurnOnce)
{
    select(Stage::Wing, Stage::X);
    IdleDispatcher::flush();
    spy.reset();
    for (int count = 0; count < 1000; ++count)
        FakeStateChange(StateChange_ValuesAltered).send();
    EXPECT_THAT(questions(), Each(testing::Pair(testing::_, 0)));
    IdleDispatcher::flush();
    EXPECT_EQ(spy.count("VelUtilZoneGetMetrics"), 1);
    EXPECT_EQ(spy.count("VelUtilZoneGetSolutionTime"), 1);
    EXPECT_EQ(spy.count("VelUtilZoneGetStrandID"), 1);
    EXPECT_EQ(spy.count("VelUtilZoneGetType"), 2); // for the type and for what dimensions are called
    EXPECT_EQ(spy.count("VelUtilDataValueGetType"), 1);
    EXPECT_EQ(spy.count("VelUtilDataValueGetLocation"), 1);
    EXPECT_EQ(spy.count("VelUtilVarGetStatus"), 1);
    EXPECT_EQ(spy.count("VelUtilVarRangeIsEstimated"), 2); // for the smallest and for the largest value
}

TEST_F(ZoneVarInfoPropertiesManagerTest, ChangesNothingThatIsTheSame)
{
    select(Stage::Wing, Stage::P);
    int changes = 0;
    auto const count = [&changes] { ++changes; };
    sdk::SignalConnectionCollection connections;
    connections.add(manager.zoneName().text->connectPropertyChanged(count));
    connections.add(manager.zoneType()->connectPropertyChanged(count));
    connections.add(manager.zoneDimensions().dimension(0)->connectPropertyChanged(count));
    connections.add(manager.zoneTime().solutionTime()->connectPropertyChanged(count));
    connections.add(manager.varType()->connectPropertyChanged(count));
    connections.add(manager.varStatus()->connectPropertyChanged(count));
    connections.add(manager.selectedRange().min()->connectPropertyChanged(count));
    connections.add(manager.activeRange().max()->connectPropertyChanged(count));
    stage.zone(Stage::Wing).solutionTime = std::nan("");
    FakeStateChange(StateChange_ZonesEnabled).send();
    IdleDispatcher::flush();
    EXPECT_EQ(changes, 1); // the time
    FakeStateChange(StateChange_ZonesEnabled).send();
    IdleDispatcher::flush();
    EXPECT_EQ(changes, 1); // one that is not a number stays one
}

TEST_F(ZoneVarInfoPropertiesManagerTest, GoesThroughAllZonesOnlyAfterVariableOrDataHaveChanged)
{
    select(Stage::Wing, Stage::Y);
    EXPECT_EQ(manager.activeRange().max()->value(), 223.0);
    // Behind the kernel's back: whoever asks it would see.
    Stage::fill(stage.zone(Stage::Skin), Stage::Y, FieldDataType_Float, ValueLocation_Nodal,
                [](std::int64_t) { return 1000.0; });
    manager.selectedZones()->setValue({Stage::Skin});
    EXPECT_EQ(manager.activeRange().max()->value(), 223.0);
    EXPECT_EQ(manager.selectedRange().max()->value(), 1000.0);
    FakeStateChange(StateChange_ValuesAltered).send();
    manager.selectedZones()->setValue({Stage::Cells}); // at once, though what follows events waits for idle
    EXPECT_EQ(manager.activeRange().max()->value(), 1000.0);
}

TEST_F(ZoneVarInfoPropertiesManagerTest, RemembersWhetherTheRangeInActiveZonesIsKnown)
{
    EXPECT_FALSE(manager.activeRange().isKnown()->value());
    select(Stage::Wing, Stage::X);
    EXPECT_TRUE(manager.activeRange().isKnown()->value());
    stage.session().perform(kernel::EnableZone(*stage.dataSet, Stage::Skin, false));
    manager.selectedVars()->setValue({Stage::Q});
    EXPECT_FALSE(manager.activeRange().isKnown()->value());
    EXPECT_EQ(manager.activeRange().min()->value(), 100.0); // that of X
}

TEST_F(ZoneVarInfoPropertiesManagerTest, TellsTheLimitsInActiveZonesBeforeItSaysThatTheyAreKnown)
{
    stage.session().perform(kernel::EnableZone(*stage.dataSet, Stage::Skin, false));
    select(Stage::Wing, Stage::X);
    manager.selectedVars()->setValue({Stage::Q});
    ASSERT_FALSE(manager.activeRange().isKnown()->value());
    std::vector<std::string> heard;
    manager.activeMinText()->connectValueChanged([&heard](std::string const& text) { heard.push_back(text); });
    manager.selectedVars()->setValue({Stage::Y});
    EXPECT_EQ(manager.activeMinText()->value(), "200");
    EXPECT_THAT(heard, testing::Not(testing::Contains("100"))) << "those of X";
}

TEST_F(ZoneVarInfoPropertiesManagerTest, AsksAgainWhatWasNotAnswered)
{
    select(Stage::Wing, Stage::X);
    RefusedQuestion question(manager.selectedZones(), manager.selectedVars());
    manager.selectedZones()->setValue({Stage::Skin});
    EXPECT_EQ(question.timesAsked, 1);
    manager.selectedZones()->setValue({Stage::Cells});
    EXPECT_EQ(question.timesAsked, 2);
    question.isAnswered = true;
    manager.selectedZones()->setValue({Stage::Skin});
    manager.selectedZones()->setValue({Stage::Cells});
    EXPECT_EQ(question.timesAsked, 3);
}

TEST_F(ZoneVarInfoPropertiesManagerTest, AsksUnderTheApplicationsLock)
{
    int least = 1000;
    spy.onCall([&least](std::string const&) { least = std::min(least, sdk::AppLock::depth()); });
    select(Stage::Wing, Stage::X);
    EXPECT_EQ(manager.selectedMinText()->value(), "100");
    EXPECT_EQ(manager.activeMinText()->value(), "100");
    EXPECT_EQ(least, 1);
}

TEST_F(ZoneVarInfoPropertiesManagerTest, AsksForTheTextOfALimitWithoutRecording)
{
    select(Stage::Wing, Stage::X);
    bool isRecording = false;
    spy.onCall([&isRecording](std::string const&) { isRecording = isRecording || sdk::AppLock::isRecording(); });
    EXPECT_EQ(manager.selectedMinText()->value(), "100");
    EXPECT_FALSE(isRecording);
}

TEST_F(ZoneVarInfoPropertiesManagerTest, TakesNoTextOfALimit)
{
    select(Stage::Wing, Stage::X);
    manager.selectedMinText()->setValue("7");
    manager.activeMinText()->setValue("7");
    EXPECT_EQ(manager.selectedMinText()->value(), "100");
    EXPECT_EQ(manager.activeMinText()->value(), "100");
}

} // namespace
} // namespace veldraw::tests
