#include "kernel/operations/SetPlotType.h"
#include "tests/dialogs/smoothing/SmoothFixture.h"
#include "tests/support/FakeStateChange.h"
#include "tests/support/StyleSession.h"

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;

std::vector<std::string> pathOf(char const* name)
{
    return {"Interface", "Data", name};
}

void setStyle(double boundary, double passes, double weight)
{
    StyleSession::setNumber(pathOf("SmoothBndryCond"), boundary);
    StyleSession::setNumber(pathOf("NumSmoothPasses"), passes);
    StyleSession::setNumber(pathOf("SmoothWeight"), weight);
}

std::vector<double> settings()
{
    return {1.0 * SmoothPropertiesManager::boundaryCondition()->value(),
            1.0 * SmoothPropertiesManager::numberOfPasses()->value(), SmoothPropertiesManager::smoothWeight()->value()};
}

// What can be seen once in a process: the settings at its start, and the first managers that are made.
class SmoothAtLoad : public testing::Environment
{
public:
    void SetUp() override
    {
        atLoad = settings();
        selections = {SmoothPropertiesManager::selectedZone()->value(),
                      SmoothPropertiesManager::selectedVariable()->value()};
        SampleSession const sample({"Wing"}, {"P"});
        setStyle(2.0, 7.0, 0.25);
        SmoothPropertiesManager const first;
        ofFirstManager = settings();
        setStyle(1.0, 9.0, 0.125);
        SmoothPropertiesManager::numberOfPasses()->setValue(3);
        SmoothPropertiesManager const second;
        ofSecondManager = settings();
        setStyle(0.0, 1.0, 0.5);
    }
    static inline std::vector<double> atLoad;
    static inline std::vector<int> selections;
    static inline std::vector<double> ofFirstManager;
    static inline std::vector<double> ofSecondManager;
};
testing::Environment* const smoothAtLoad = testing::AddGlobalTestEnvironment(new SmoothAtLoad);

class SmoothPropertiesManagerTest : public SmoothFixture
{
protected:
    /// Numbers in the list of variables.
    static std::vector<int> variablesOf(SmoothPropertiesManager const& manager)
    {
        std::vector<int> numbers;
        for (int row = 0; row < manager.variableModel()->size(); ++row)
            numbers.push_back(manager.variableModel()->get(row));
        return numbers;
    }
};

TEST_F(SmoothPropertiesManagerTest, StartsWithTheSettingsOfTheLibrary)
{
    ASSERT_TRUE(smoothAtLoad);
    EXPECT_THAT(SmoothAtLoad::atLoad, ElementsAre(0.0, 1.0, 0.5));
    EXPECT_THAT(SmoothAtLoad::selections, ElementsAre(1, 1));
}

TEST_F(SmoothPropertiesManagerTest, ReadsTheKernelsSettingsForTheFirstOneOfAProcessOnly)
{
    EXPECT_THAT(SmoothAtLoad::ofFirstManager, ElementsAre(2.0, 7.0, 0.25));
    EXPECT_THAT(SmoothAtLoad::ofSecondManager, ElementsAre(2.0, 3.0, 0.25)) << "as the user left them";
}

TEST_F(SmoothPropertiesManagerTest, SelectsTheFirstOfItsListsInThePlaceOfWhatTheyDoNotHave)
{
    SmoothPropertiesManager::selectedZone()->setValue(7);
    SmoothPropertiesManager::selectedVariable()->setValue(2);
    SmoothPropertiesManager const manager;
    EXPECT_EQ(SmoothPropertiesManager::selectedZone()->value(), 1);
    EXPECT_EQ(SmoothPropertiesManager::selectedVariable()->value(), 3);
    SmoothPropertiesManager::selectedZone()->setValue(4);
    SmoothPropertiesManager::selectedVariable()->setValue(4);
    SmoothPropertiesManager const other;
    EXPECT_EQ(SmoothPropertiesManager::selectedZone()->value(), 4);
    EXPECT_EQ(SmoothPropertiesManager::selectedVariable()->value(), 4);
}

TEST_F(SmoothPropertiesManagerTest, LeavesTheSelectionsAloneWhileThereIsNothingToSelect)
{
    SmoothPropertiesManager::selectedVariable()->setValue(4);
    sample.session().clear();
    SmoothPropertiesManager const manager;
    EXPECT_EQ(manager.zoneModel()->size(), 0);
    EXPECT_EQ(manager.variableModel()->size(), 0);
    EXPECT_EQ(SmoothPropertiesManager::selectedZone()->value(), 1);
    EXPECT_EQ(SmoothPropertiesManager::selectedVariable()->value(), 4);
}

TEST_F(SmoothPropertiesManagerTest, HasListsThatCannotBeEdited)
{
    SmoothPropertiesManager const manager;
    EXPECT_FALSE(manager.zoneModel()->isEditable());
    EXPECT_FALSE(manager.variableModel()->isEditable());
    EXPECT_EQ(manager.boundaryModel()->indexOf(BoundaryCondition_SecondOrder), 2);
}

TEST_F(SmoothPropertiesManagerTest, AsksAboutTheBoundaryAgainWhenTheZoneOrTheDataChange)
{
    SmoothPropertiesManager const manager;
    int signals = 0;
    boost::signals2::scoped_connection const listening =
        manager.boundaryRelevance()->connectRelevanceChanged([&signals] { ++signals; });
    auto const signalsOf = [&signals](FakeStateChange const& event) {
        signals = 0;
        event.send();
        return signals;
    };
    SmoothPropertiesManager::selectedZone()->setValue(4);
    EXPECT_EQ(signals, 1);
    for (int const kind : {StateChange_NewActiveFrame, StateChange_ZonesAdded, StateChange_ZonesEnabled,
                           StateChange_ValuesAltered, StateChange_FrameDataSet, StateChange_StateRestored})
        EXPECT_EQ(signalsOf(FakeStateChange(kind)), 1) << "kind " << kind;
    EXPECT_EQ(signalsOf(FakeStateChange(StateChange_Style, {"FieldMap"})), 1);
    EXPECT_EQ(signalsOf(FakeStateChange(StateChange_Style, {"PlotType"})), 0);
    EXPECT_EQ(signalsOf(FakeStateChange(StateChange_MouseMode)), 0);
}

TEST_F(SmoothPropertiesManagerTest, FixesTheBoundaryOfAnUnorderedZoneAtEachChangeThatMayConcernIt)
{
    SmoothPropertiesManager const manager;
    SmoothPropertiesManager::selectedZone()->setValue(2);
    auto const fixedBy = [](FakeStateChange const& event) {
        SmoothPropertiesManager::boundaryCondition()->setValue(BoundaryCondition_FirstOrder);
        event.send();
        return SmoothPropertiesManager::boundaryCondition()->value() == BoundaryCondition_Fixed;
    };
    EXPECT_TRUE(fixedBy(FakeStateChange(StateChange_StateRestored)));
    EXPECT_TRUE(fixedBy(FakeStateChange(StateChange_Style, {"FieldMap"})));
    EXPECT_FALSE(fixedBy(FakeStateChange(StateChange_MouseMode)));
    enableZone(2, false);
    EXPECT_FALSE(fixedBy(FakeStateChange(StateChange_StateRestored))) << "the zone is disabled";
}

TEST_F(SmoothPropertiesManagerTest, SmoothsWithoutADialog)
{
    SmoothPropertiesManager manager;
    SmoothPropertiesManager::selectedZone()->setValue(line);
    SmoothPropertiesManager::selectedVariable()->setValue(3);
    manager.smooth();
    EXPECT_THAT(messages.take(), ElementsAre("information: Smoothing was successful."));
    EXPECT_EQ(values(line, 3), smoothBump);
}

TEST_F(SmoothPropertiesManagerTest, TellsThatItsVariablesChangedWhenTheyDid)
{
    SmoothPropertiesManager const manager;
    int changes = 0;
    manager.variableModel()->connectDataChanged([&changes] { ++changes; });
    FakeStateChange(StateChange_Style, {"TwoDAxis"}).send();
    EXPECT_EQ(changes, 0) << "nothing else is on the axes";
    EXPECT_THAT(variablesOf(manager), ElementsAre(3, 4));
    sample.session().perform(kernel::AssignVariable(sample.frame()->id, 'X', 3));
    EXPECT_EQ(changes, 1);
    EXPECT_THAT(variablesOf(manager), ElementsAre(1, 4));
}

} // namespace
} // namespace veldraw::tests
