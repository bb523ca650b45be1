#include "dialogs/spreadsheet/DataSpreadsheetPropertiesManager.h"

#include "dialogs/frame/QtDialogAbstract.h"
#include "dialogs/models/QTableModelAdapter.h"
#include "dialogs/spreadsheet/FEZoneVarTableModel.h"
#include "dialogs/spreadsheet/IJKLineZoneVarTableModel.h"
#include "dialogs/spreadsheet/OrderedZoneVarTableModel.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/SetValue.h"
#include "platform/exception/IOException.h"
#include "platform/exception/InvalidPropertyValueException.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/models/FakeTable.h"
#include "tests/dialogs/spreadsheet/SheetStage.h"
#include "tests/dialogs/support/RecordedMessages.h"
#include "tests/support/FakeStateChange.h"
#include "tests/support/KernelSpy.h"

#include <QWidget>

#include <boost/make_shared.hpp>

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using namespace tables;
using sdk::ui::common::IdleDispatcher;
using testing::ElementsAre;
using testing::IsEmpty;
using Manager = sdk::ui::propertymanager::DataSpreadsheetPropertiesManager;

/// A dialog that is nothing but somebody's owner.
class OwnerDialog : public dialogs::common::QtDialogAbstract
{
public:
    explicit OwnerDialog(QWidget& parent)
        : QtDialogAbstract(parent, nullptr)
    {
    }
};

/// A volume (20 x 5 x 4), planes, a line, and finite elements; X and Y everywhere, P at the cells of some.
class DataSpreadsheetPropertiesManagerTest : public testing::Test
{
protected:
    DataSpreadsheetPropertiesManagerTest()
    {
        restoreChoices();
        for (int const zone : {addOrdered("volume", 20, 5, 4), addOrdered("IJ", 20, 5, 1), addOrdered("IK", 20, 1, 4),
                               addOrdered("JK", 1, 5, 4), addOrdered("line", 1, 6, 1), addOrdered("big", 60, 60, 60),
                               stage.addZone("triangles", ZoneType_FETriangle, 5, 3, 0)})
            stage.fillAll(zone);
        stage.fill(triangles, 3, FieldDataType_Float, ValueLocation_CellCentered);
    }
    ~DataSpreadsheetPropertiesManagerTest() override { restoreChoices(); }

    int addOrdered(std::string const& name, std::int64_t i, std::int64_t j, std::int64_t k)
    {
        return stage.addZone(name, ZoneType_Ordered, i, j, k);
    }

    static void restoreChoices()
    {
        Manager::spreadsheetZone()->setValue(1);
        Manager::spreadsheetVariable()->setValue(1);
        Manager::spreadsheetPlane()->setValue(IJKPlanes_K);
        Manager::spreadsheetIIndex()->setValue(1);
        Manager::spreadsheetJIndex()->setValue(1);
        Manager::spreadsheetKIndex()->setValue(1);
        Manager::spreadsheetAlterShared()->setValue(false);
        Manager::spreadsheetFormat()->setValue(NumberFormat_BestFloat);
        Manager::spreadsheetPrecision()->setValue(3);
        Manager::spreadsheetValueLocation()->setValue(ValueLocation_Nodal);
    }

    Manager& manager()
    {
        if (!m_manager) {
            stage.show();
            m_manager = std::make_unique<Manager>(owner);
        }
        return *m_manager;
    }
    void choose(int zone)
    {
        manager();
        Manager::spreadsheetZone()->setValue(zone);
    }
    std::string size()
    {
        TableModelProxy const& table = *manager().tableModelProxy();
        return std::to_string(table.rowCount()) + "x" + std::to_string(table.columnCount());
    }

    static constexpr int volume = 1;
    static constexpr int planeIJ = 2;
    static constexpr int planeIK = 3;
    static constexpr int planeJK = 4;
    static constexpr int line = 5;
    static constexpr int big = 6;
    static constexpr int triangles = 7;

    RecordedMessages messages;
    SheetStage stage{{"X", "Y", "P"}};
    QWidget parent;
    OwnerDialog owner{parent};
    std::unique_ptr<Manager> m_manager;
};

TEST_F(DataSpreadsheetPropertiesManagerTest, OffersItsChoicesInOrder)
{
    auto const labels = [](auto const& list) {
        std::vector<std::string> texts;
        for (int row = 0; row < list->size(); ++row)
            texts.push_back(list->getStr(row) + ": " + std::to_string(list->get(row)));
        return texts;
    };
    EXPECT_THAT(labels(manager().planeListModel()), ElementsAre("I: 0", "J: 1", "K: 2"));
    EXPECT_THAT(labels(manager().formatListModel()),
                ElementsAre("Integer: 0", "Float: 1", "Exponent: 2", "Best Float: 3"));
    EXPECT_THAT(labels(manager().valueLocationListModel()), ElementsAre("Cell center: 0", "Node: 1"));
    EXPECT_EQ(manager().zoneListModel()->size(), 7);
    EXPECT_EQ(manager().variableListModel()->size(), 3);
    EXPECT_EQ(&manager().owner(), &owner);
}

/// What the choices are before anybody has chosen.
class FirstChoices : public testing::Environment
{
public:
    void SetUp() override
    {
        texts = std::to_string(Manager::spreadsheetZone()->value()) + ' ' +
                std::to_string(Manager::spreadsheetVariable()->value()) + ' ' +
                std::to_string(Manager::spreadsheetPlane()->value()) + ' ' +
                std::to_string(Manager::spreadsheetIIndex()->value()) + ' ' +
                std::to_string(Manager::spreadsheetJIndex()->value()) + ' ' +
                std::to_string(Manager::spreadsheetKIndex()->value()) + ' ' +
                std::to_string(Manager::spreadsheetAlterShared()->value()) + ' ' +
                std::to_string(Manager::spreadsheetFormat()->value()) + ' ' +
                std::to_string(Manager::spreadsheetPrecision()->value()) + ' ' +
                std::to_string(Manager::spreadsheetValueLocation()->value());
    }

    std::string texts;
};

// Set up before the first test; it belongs to the test framework.
auto const& firstChoices =
    static_cast<FirstChoices&>(*testing::AddGlobalTestEnvironment(new FirstChoices)); // NOLINT(cert-err58-cpp)

TEST_F(DataSpreadsheetPropertiesManagerTest, BeginsWithTheFirstZoneAndVariableInPlaneKInBestFloatAtTheNodes)
{
    EXPECT_EQ(firstChoices.texts, "1 1 2 1 1 1 0 3 3 1");
}

TEST_F(DataSpreadsheetPropertiesManagerTest, TakesNoughtToSixteenDigits)
{
    Manager::spreadsheetPrecision()->setValue(0);
    Manager::spreadsheetPrecision()->setValue(16);
    EXPECT_THROW(Manager::spreadsheetPrecision()->setValue(-1), InvalidPropertyValueException);
    EXPECT_THROW(Manager::spreadsheetPrecision()->setValue(17), InvalidPropertyValueException);
    EXPECT_EQ(Manager::spreadsheetPrecision()->value(), 16);
}

TEST_F(DataSpreadsheetPropertiesManagerTest, ShowsAVolumeByPlanesAndEverythingElseInItsOwnWay)
{
    auto const shown = [this](int zone) {
        choose(zone);
        return size() + " " + manager().cornerLabel()->value();
    };
    EXPECT_EQ(shown(volume), "20x5 I \\ J");
    EXPECT_EQ(shown(planeIJ), "20x5 I \\ J");
    EXPECT_EQ(shown(planeIK), "20x4 I \\ K");
    EXPECT_EQ(shown(planeJK), "5x4 J \\ K");
    EXPECT_EQ(shown(line), "6x3 J \\ V");
    EXPECT_EQ(shown(triangles), "5x2 N \\ V");
    EXPECT_TRUE(boost::dynamic_pointer_cast<FEZoneVarTableModel>(manager().tableModel()));
    choose(line);
    EXPECT_TRUE(boost::dynamic_pointer_cast<IJKLineZoneVarTableModel>(manager().tableModel()));
    choose(volume);
    EXPECT_TRUE(boost::dynamic_pointer_cast<OrderedZoneVarTableModel>(manager().tableModel()));
    Manager::spreadsheetPlane()->setValue(IJKPlanes_J);
    EXPECT_EQ(size() + " " + manager().cornerLabel()->value(), "20x4 I \\ K");
}

TEST_F(DataSpreadsheetPropertiesManagerTest, TurnsThePlaneToWhereAFlatZoneLies)
{
    auto const planeOf = [this](int zone) {
        Manager::spreadsheetPlane()->setValue(IJKPlanes_J);
        choose(zone);
        return Manager::spreadsheetPlane()->value();
    };
    EXPECT_EQ(planeOf(planeIJ), IJKPlanes_K);
    EXPECT_EQ(planeOf(planeIK), IJKPlanes_J);
    EXPECT_EQ(planeOf(planeJK), IJKPlanes_I);
    EXPECT_EQ(planeOf(line), IJKPlanes_I) << "a line along J";
    EXPECT_EQ(planeOf(triangles), IJKPlanes_K);
    // Points, elements and faces are no three directions.
    int const polyhedra = stage.addZone("polyhedra", ZoneType_FEPolyhedron, 8, 2, 11);
    stage.fillAll(polyhedra);
    stage.session().events().emitEvent({StateChange_ZonesAdded, {polyhedra}, {}, {}, 0});
    EXPECT_EQ(planeOf(polyhedra), IJKPlanes_K);
    EXPECT_EQ(manager().cornerLabel()->value(), "N \\ V");
    choose(volume);
    Manager::spreadsheetPlane()->setValue(IJKPlanes_J);
    EXPECT_EQ(Manager::spreadsheetPlane()->value(), IJKPlanes_J) << "a volume takes any";
    choose(planeIJ);
    Manager::spreadsheetPlane()->setValue(IJKPlanes_I);
    EXPECT_EQ(Manager::spreadsheetPlane()->value(), IJKPlanes_K) << "and springs back in a flat one";
}

TEST_F(DataSpreadsheetPropertiesManagerTest, TurnsThePlaneAcrossALineAndNamesTheLine)
{
    int const alongI = addOrdered("I", 7, 1, 1);
    int const alongK = addOrdered("K", 1, 1, 8);
    int const point = addOrdered("point", 1, 1, 1);
    auto const shown = [this](int zone) {
        choose(zone);
        return size() + " " + manager().cornerLabel()->value() + " " +
               std::to_string(Manager::spreadsheetPlane()->value());
    };
    Manager::spreadsheetPlane()->setValue(IJKPlanes_I);
    EXPECT_EQ(shown(alongI), "7x3 I \\ V 2");
    EXPECT_EQ(shown(line), "6x3 J \\ V 0");
    EXPECT_EQ(shown(alongK), "8x3 K \\ V 1");
    EXPECT_EQ(shown(point), "1x3 I \\ V 2");
}

TEST_F(DataSpreadsheetPropertiesManagerTest, ShowsFiniteElementsByTheirPointsAlsoWhereTheyFormALine)
{
    int const segments = stage.addZone("segments", ZoneType_FELineSeg, 9, 8, 0);
    stage.fillAll(segments);
    choose(segments);
    EXPECT_EQ(size() + " " + manager().cornerLabel()->value(), "9x3 N \\ V");
    EXPECT_TRUE(boost::dynamic_pointer_cast<FEZoneVarTableModel>(manager().tableModel()));
}

TEST_F(DataSpreadsheetPropertiesManagerTest, HasNoPlaneToChooseInAFlatZoneAndItsOneIndexIsOne)
{
    choose(volume);
    Manager::spreadsheetKIndex()->setValue(4);
    EXPECT_TRUE(manager().planeIndexRelevance()->isRelevant());
    choose(planeIJ);
    EXPECT_FALSE(manager().planeIndexRelevance()->isRelevant());
    EXPECT_EQ(Manager::spreadsheetKIndex()->value(), 1);
    EXPECT_EQ(manager().indexProperty()->value(), 1);
}

TEST_F(DataSpreadsheetPropertiesManagerTest, CutsAnIndexToASmallerZoneForGood)
{
    choose(big);
    Manager::spreadsheetPlane()->setValue(IJKPlanes_I);
    manager().indexProperty()->setValue(50);
    choose(volume);
    EXPECT_EQ(Manager::spreadsheetIIndex()->value(), 20);
    choose(big);
    EXPECT_EQ(manager().indexProperty()->value(), 20);
    Manager::spreadsheetIIndex()->setValue(-3);
    EXPECT_EQ(Manager::spreadsheetIIndex()->value(), 1);
}

TEST_F(DataSpreadsheetPropertiesManagerTest, CutsAllThreeIndicesWhicheverPlaneIsShown)
{
    choose(big);
    Manager::spreadsheetIIndex()->setValue(50);
    Manager::spreadsheetJIndex()->setValue(50);
    Manager::spreadsheetKIndex()->setValue(50);
    choose(volume);
    EXPECT_EQ(Manager::spreadsheetIIndex()->value(), 20);
    EXPECT_EQ(Manager::spreadsheetJIndex()->value(), 5);
    EXPECT_EQ(Manager::spreadsheetKIndex()->value(), 4);
}

TEST_F(DataSpreadsheetPropertiesManagerTest, HasOneCellPlaneLessThanPointsButNeverLessThanOne)
{
    stage.fill(volume, 3, FieldDataType_Float, ValueLocation_CellCentered);
    stage.fill(planeIJ, 3, FieldDataType_Float, ValueLocation_CellCentered);
    choose(volume);
    Manager::spreadsheetVariable()->setValue(3);
    manager().indexProperty()->setValue(4);
    EXPECT_EQ(manager().indexProperty()->value(), 3);
    choose(planeIJ);
    EXPECT_EQ(manager().indexProperty()->value(), 1);
    EXPECT_EQ(size(), "19x4");
}

TEST_F(DataSpreadsheetPropertiesManagerTest, CutsAllThreeIndicesToTheCellsOfACellCentredVariable)
{
    stage.fill(volume, 3, FieldDataType_Float, ValueLocation_CellCentered);
    choose(volume);
    Manager::spreadsheetIIndex()->setValue(50);
    Manager::spreadsheetJIndex()->setValue(50);
    Manager::spreadsheetKIndex()->setValue(50);
    Manager::spreadsheetVariable()->setValue(3);
    EXPECT_EQ(Manager::spreadsheetIIndex()->value(), 19);
    EXPECT_EQ(Manager::spreadsheetJIndex()->value(), 4);
    EXPECT_EQ(Manager::spreadsheetKIndex()->value(), 3);
}

TEST_F(DataSpreadsheetPropertiesManagerTest, KeepsPlaneAndIndexForAVolumeWhoseDimensionsAreLoadedOnlyNow)
{
    int const later = stage.addDeferredZone("later", 30, 40, 50);
    choose(big);
    Manager::spreadsheetPlane()->setValue(IJKPlanes_J);
    manager().indexProperty()->setValue(35);
    choose(later);
    IdleDispatcher::flush();
    EXPECT_EQ(Manager::spreadsheetPlane()->value(), IJKPlanes_J);
    EXPECT_EQ(manager().indexProperty()->value(), 35);
    EXPECT_EQ(size(), "30x50");
}

TEST_F(DataSpreadsheetPropertiesManagerTest, LeavesTheIndicesAloneForFiniteElements)
{
    choose(big);
    Manager::spreadsheetJIndex()->setValue(50);
    choose(triangles);
    EXPECT_EQ(Manager::spreadsheetJIndex()->value(), 50);
}

TEST_F(DataSpreadsheetPropertiesManagerTest, RemembersAnIndexForEachDirectionAndTellsTheOneThatShows)
{
    choose(big);
    Manager::spreadsheetKIndex()->setValue(7);
    Manager::spreadsheetIIndex()->setValue(30);
    std::vector<long long> told;
    boost::signals2::scoped_connection const connection(
        manager().indexProperty()->connectValueChanged([&told](long long value) { told.push_back(value); }));
    Manager::spreadsheetPlane()->setValue(IJKPlanes_I);
    EXPECT_EQ(manager().indexProperty()->value(), 30);
    Manager::spreadsheetPlane()->setValue(IJKPlanes_K);
    EXPECT_EQ(manager().indexProperty()->value(), 7);
    EXPECT_THAT(told, ElementsAre(30, 7));
    Manager::spreadsheetJIndex()->setValue(7);
    Manager::spreadsheetPlane()->setValue(IJKPlanes_J);
    EXPECT_THAT(told, ElementsAre(30, 7)) << "the same value in another direction is no news";
}

TEST_F(DataSpreadsheetPropertiesManagerTest, StepsTheIndexWithinThePlanesOfTheZone)
{
    choose(volume);
    EXPECT_EQ(manager().indexCalculator()->increment(4.0), 4.0);
    EXPECT_EQ(manager().indexCalculator()->increment(3.0), 4.0);
    EXPECT_EQ(manager().indexCalculator()->decrement(1.0), 1.0);
}

TEST_F(DataSpreadsheetPropertiesManagerTest, ReplacesTheTableForEachOfEightChoicesAndForTheIndexOfThePlaneShown)
{
    choose(big);
    auto const replaces = [this](auto const& change) {
        auto const before = manager().tableModel();
        change();
        return manager().tableModel() != before;
    };
    EXPECT_TRUE(replaces([] { Manager::spreadsheetZone()->setValue(volume); }));
    EXPECT_TRUE(replaces([] { Manager::spreadsheetVariable()->setValue(2); }));
    EXPECT_TRUE(replaces([] { Manager::spreadsheetPlane()->setValue(IJKPlanes_J); }));
    EXPECT_TRUE(replaces([] { Manager::spreadsheetJIndex()->setValue(3); }));
    EXPECT_FALSE(replaces([] { Manager::spreadsheetIIndex()->setValue(3); })) << "not the index that is shown";
    EXPECT_TRUE(replaces([] { Manager::spreadsheetAlterShared()->setValue(true); }));
    EXPECT_TRUE(replaces([] { Manager::spreadsheetFormat()->setValue(NumberFormat_Float); }));
    EXPECT_TRUE(replaces([] { Manager::spreadsheetPrecision()->setValue(9); }));
    EXPECT_TRUE(replaces([] { Manager::spreadsheetValueLocation()->setValue(ValueLocation_CellCentered); }));
}

TEST_F(DataSpreadsheetPropertiesManagerTest, ReplacesTheTableOnceAChangeHoweverManyCorrectionsItBrings)
{
    choose(big);
    Manager::spreadsheetPlane()->setValue(IJKPlanes_I);
    manager().indexProperty()->setValue(50);
    TableLog log(*manager().tableModelProxy());
    choose(planeIJ);
    EXPECT_THAT(log.take(), ElementsAre("data"));
}

TEST_F(DataSpreadsheetPropertiesManagerTest, LetsTheOldTableGo)
{
    boost::weak_ptr<TableModelInterface> const old = manager().tableModel();
    Manager::spreadsheetFormat()->setValue(NumberFormat_Exponent);
    EXPECT_TRUE(old.expired());
}

TEST_F(DataSpreadsheetPropertiesManagerTest, GoesToTheFirstEnabledZoneAtIdleWhenTheSelectedOneIsDisabledOrDeleted)
{
    choose(line);
    stage.session().perform(kernel::EnableZone(stage.dataSet(), volume, false));
    stage.session().perform(kernel::EnableZone(stage.dataSet(), line, false));
    EXPECT_EQ(Manager::spreadsheetZone()->value(), line) << "not before idle";
    IdleDispatcher::flush();
    EXPECT_EQ(Manager::spreadsheetZone()->value(), planeIJ);
    EXPECT_EQ(size(), "20x5");
}

TEST_F(DataSpreadsheetPropertiesManagerTest, GoesToTheFirstEnabledVariableAtIdle)
{
    manager();
    Manager::spreadsheetVariable()->setValue(3);
    stage.session().perform(kernel::DeleteVariables(stage.dataSet(), {1, 3}));
    IdleDispatcher::flush();
    EXPECT_EQ(Manager::spreadsheetVariable()->value(), 1);
    EXPECT_EQ(manager().tableModelProxy()->getStr({1, 0}), "201");
}

TEST_F(DataSpreadsheetPropertiesManagerTest, CorrectsAStaleSelectionWhenItIsMade)
{
    Manager::spreadsheetZone()->setValue(99);
    Manager::spreadsheetVariable()->setValue(99);
    manager();
    EXPECT_EQ(Manager::spreadsheetZone()->value(), 1);
    EXPECT_EQ(Manager::spreadsheetVariable()->value(), 1);
}

TEST_F(DataSpreadsheetPropertiesManagerTest, KeepsTheTableWhenValuesAreEdited)
{
    auto const before = manager().tableModel();
    EXPECT_TRUE(manager().tableModelProxy()->setStr({0, 0}, "5"));
    IdleDispatcher::flush();
    EXPECT_EQ(manager().tableModel(), before);
}

TEST_F(DataSpreadsheetPropertiesManagerTest, LetsTheUserChooseBetweenTheLocationsOfAMixedZone)
{
    choose(triangles);
    EXPECT_TRUE(manager().valueLocationRelevance()->isRelevant());
    EXPECT_EQ(size(), "5x2");
    EXPECT_EQ(manager().tableModelProxy()->columnName(1), "Y");
    Manager::spreadsheetValueLocation()->setValue(ValueLocation_CellCentered);
    EXPECT_EQ(size(), "3x1");
    EXPECT_EQ(manager().tableModelProxy()->columnName(0), "P");
}

TEST_F(DataSpreadsheetPropertiesManagerTest, HasNoLocationToChooseWhenTheVariablesOfTheOtherOneAreDisabled)
{
    Manager::spreadsheetValueLocation()->setValue(ValueLocation_CellCentered);
    choose(triangles);
    EXPECT_EQ(size(), "3x1");
    stage.session().perform(kernel::EnableVariable(stage.dataSet(), 3, false));
    EXPECT_FALSE(manager().valueLocationRelevance()->isRelevant());
    IdleDispatcher::flush();
    EXPECT_EQ(size(), "5x2");
}

TEST_F(DataSpreadsheetPropertiesManagerTest, FollowsOnlyTheVariablesAtTheLocationThatIsShown)
{
    choose(triangles);
    TableLog log(*manager().tableModelProxy());
    stage.session().perform(kernel::SetValue(stage.dataSet(), triangles, 3, 0, -1.0, false));
    EXPECT_THAT(log.take(), IsEmpty()) << "a value at the cells";
    stage.session().perform(kernel::SetValue(stage.dataSet(), triangles, 2, 0, -1.0, false));
    EXPECT_THAT(log.take(), ElementsAre("data"));
}

TEST_F(DataSpreadsheetPropertiesManagerTest, LetsTheUserChooseBetweenTheLocationsOfAMixedLine)
{
    stage.fill(line, 2, FieldDataType_Float, ValueLocation_CellCentered);
    choose(line);
    EXPECT_TRUE(manager().valueLocationRelevance()->isRelevant());
    EXPECT_EQ(size(), "6x2");
    Manager::spreadsheetValueLocation()->setValue(ValueLocation_CellCentered);
    EXPECT_EQ(size(), "5x1");
}

TEST_F(DataSpreadsheetPropertiesManagerTest, ShowsAPlaneAtTheVariablesOwnLocationWhateverWasChosen)
{
    stage.fill(volume, 3, FieldDataType_Float, ValueLocation_CellCentered);
    Manager::spreadsheetValueLocation()->setValue(ValueLocation_CellCentered);
    choose(volume);
    EXPECT_FALSE(manager().valueLocationRelevance()->isRelevant());
    EXPECT_EQ(size(), "20x5");
    Manager::spreadsheetVariable()->setValue(3);
    EXPECT_EQ(size(), "19x4");
}

TEST_F(DataSpreadsheetPropertiesManagerTest, TakesTheOneLocationOfAZoneWhateverWasChosen)
{
    stage.fill(triangles, 3, FieldDataType_Float, ValueLocation_Nodal);
    Manager::spreadsheetValueLocation()->setValue(ValueLocation_CellCentered);
    choose(triangles);
    EXPECT_FALSE(manager().valueLocationRelevance()->isRelevant());
    EXPECT_EQ(size(), "5x3");
}

TEST_F(DataSpreadsheetPropertiesManagerTest, TakesCellsWhereAllValuesOfAZoneAreThere)
{
    for (int variable = 1; variable <= 3; ++variable) {
        stage.fill(triangles, variable, FieldDataType_Float, ValueLocation_CellCentered);
        stage.fill(line, variable, FieldDataType_Float, ValueLocation_CellCentered);
    }
    Manager::spreadsheetValueLocation()->setValue(ValueLocation_Nodal);
    choose(triangles);
    EXPECT_EQ(size(), "3x3") << "elements";
    EXPECT_EQ(manager().tableModel()->getStr(ModelIndex(2, 1)), "202");
    choose(line);
    EXPECT_EQ(size(), "5x3");
}

TEST_F(DataSpreadsheetPropertiesManagerTest, LeavesTableAndChoicesUntilTheDataSetChangesWhenDimensionsCannotBeHad)
{
    manager();
    KernelSpy spy;
    auto const before = manager().tableModel();
    spy.failNext("VelUtilZoneGetIJK", 2);
    try {
        Manager::spreadsheetZone()->setValue(big);
        FAIL() << "the failure must come through";
    } catch (IOException const& failure) {
        EXPECT_EQ(failure.message(), "Failed to load zone metrics.");
    }
    EXPECT_EQ(manager().tableModel(), before);
    Manager::spreadsheetFormat()->setValue(NumberFormat_Integer);
    Manager::spreadsheetZone()->setValue(line);
    EXPECT_EQ(manager().tableModel(), before) << "choices are not followed";
    stage.session().perform(kernel::RenameZone(stage.dataSet(), 1, "renamed"));
    IdleDispatcher::flush();
    EXPECT_EQ(size(), "6x3");
    Manager::spreadsheetZone()->setValue(volume);
    EXPECT_EQ(size(), "5x4") << "choices are followed again, in the plane that the line lay in";
}

TEST_F(DataSpreadsheetPropertiesManagerTest, KeepsPlaneAndIndexWhenDimensionsCannotBeLoaded)
{
    int const later = stage.addDeferredZone("later", 1, 4, 5);
    choose(big);
    Manager::spreadsheetPlane()->setValue(IJKPlanes_J);
    manager().indexProperty()->setValue(35);
    KernelSpy spy;
    for (int const call : {1, 2, 3})
        spy.failNext("VelUtilZoneGetIJK", call);
    EXPECT_THROW(Manager::spreadsheetZone()->setValue(later), IOException);
    EXPECT_EQ(Manager::spreadsheetPlane()->value(), IJKPlanes_J);
    EXPECT_EQ(Manager::spreadsheetJIndex()->value(), 35);
}

TEST_F(DataSpreadsheetPropertiesManagerTest, TellsAFailureAtIdleOnce)
{
    manager();
    KernelSpy spy;
    stage.session().perform(kernel::RenameZone(stage.dataSet(), 1, "renamed"));
    spy.failNext("VelUtilZoneGetIJK", 2);
    IdleDispatcher::flush();
    EXPECT_THAT(messages.take(), ElementsAre("error: Failed to load zone metrics."));
}

/// A zone whose file cannot be read any more.
class NoDimensions : public kernel::DimensionsLoader
{
public:
    kernel::ZoneDimensions load(kernel::Progress&) override { throw std::runtime_error("The file has gone."); }
};

TEST_F(DataSpreadsheetPropertiesManagerTest, TellsAtIdleWhyDimensionsCannotBeHad)
{
    int const later = stage.addDeferredZone("later", 1, 4, 5);
    stage.dataSet().zone(later)->dimensionsLoader = std::make_shared<NoDimensions>();
    choose(big);
    for (int zone = 1; zone < later; ++zone)
        stage.session().perform(kernel::EnableZone(stage.dataSet(), zone, false));
    IdleDispatcher::flush();
    EXPECT_THAT(messages.take(), ElementsAre("error: Failed to load zone metrics."));
    EXPECT_EQ(messages.details(), "The size of zone \"later\" cannot be loaded: The file has gone.");
}

TEST_F(DataSpreadsheetPropertiesManagerTest, TellsNothingAtIdleWhenTheUserStoppedTheLoadingOfDimensions)
{
    manager();
    KernelSpy spy;
    auto const before = manager().tableModel();
    stage.session().perform(kernel::RenameZone(stage.dataSet(), 1, "renamed"));
    stage.session().setInterrupted(true);
    spy.failNext("VelUtilZoneGetIJK", 2);
    IdleDispatcher::flush();
    stage.session().setInterrupted(false);
    EXPECT_THAT(messages.take(), IsEmpty());
    EXPECT_EQ(manager().tableModel(), before);
}

TEST_F(DataSpreadsheetPropertiesManagerTest, LetsItsMakerKnowThatDimensionsCannotBeHad)
{
    stage.show();
    KernelSpy spy;
    spy.failNext("VelUtilZoneGetIJK");
    EXPECT_THROW(Manager{owner}, IOException);
}

TEST_F(DataSpreadsheetPropertiesManagerTest, IsEmptyWithoutADataSetAndFillsWhenOneComes)
{
    Manager empty(owner);
    QTableModelAdapter adapter(*empty.tableModelProxy());
    EXPECT_EQ(adapter.rowCount(), 0);
    EXPECT_EQ(adapter.columnCount(), 0);
    for (auto const& rule : {empty.alterRelevance(), empty.planeIndexRelevance(), empty.variableRelevance(),
                             empty.valueLocationRelevance(), empty.lineOrFiniteElementRelevance()})
        EXPECT_FALSE(rule->isRelevant());
    stage.show();
    IdleDispatcher::flush();
    EXPECT_EQ(adapter.rowCount(), 20);
    EXPECT_EQ(adapter.columnCount(), 5);
}

TEST_F(DataSpreadsheetPropertiesManagerTest, EmptiesTheViewWhenTheDataSetGoesAndKeepsTheOldTable)
{
    QTableModelAdapter const adapter(*manager().tableModelProxy());
    auto const before = manager().tableModel();
    stage.hide();
    IdleDispatcher::flush();
    EXPECT_EQ(adapter.rowCount(), 0);
    EXPECT_EQ(adapter.columnCount(), 0);
    EXPECT_EQ(manager().tableModel(), before);
    Manager::spreadsheetFormat()->setValue(NumberFormat_Float);
    EXPECT_EQ(manager().tableModel(), before);
    stage.show();
    IdleDispatcher::flush();
    EXPECT_EQ(adapter.rowCount(), 20);
}

TEST_F(DataSpreadsheetPropertiesManagerTest, KeepsTheSelectionWhileAllZonesAreDisabled)
{
    choose(line);
    for (int zone = 1; zone <= 7; ++zone)
        stage.session().perform(kernel::EnableZone(stage.dataSet(), zone, false));
    IdleDispatcher::flush();
    EXPECT_EQ(Manager::spreadsheetZone()->value(), line);
    EXPECT_EQ(size(), "0x0");
    stage.session().perform(kernel::EnableZone(stage.dataSet(), line, true));
    IdleDispatcher::flush();
    EXPECT_EQ(size(), "6x3");
}

TEST_F(DataSpreadsheetPropertiesManagerTest, KeepsItsChoicesForTheNextManager)
{
    choose(big);
    Manager::spreadsheetPlane()->setValue(IJKPlanes_I);
    manager().indexProperty()->setValue(33);
    m_manager.reset();
    EXPECT_EQ(manager().indexProperty()->value(), 33);
    EXPECT_EQ(manager().tableModelProxy()->getStr({0, 0}), "132");
}

TEST_F(DataSpreadsheetPropertiesManagerTest, ListensToNothingOnceItIsGone)
{
    manager();
    m_manager.reset();
    Manager::spreadsheetZone()->setValue(line);
    stage.session().perform(kernel::RenameZone(stage.dataSet(), 1, "renamed"));
    IdleDispatcher::flush();
    EXPECT_EQ(Manager::spreadsheetZone()->value(), line);
}

// ---- rules ------------------------------------------------------------------------------------------------------------

TEST_F(DataSpreadsheetPropertiesManagerTest, OffersPrecisionForFloatAndExponentOnly)
{
    auto const isOffered = [this](NumberFormat_e format) {
        Manager::spreadsheetFormat()->setValue(format);
        return manager().precisionRelevance()->isRelevant();
    };
    EXPECT_FALSE(isOffered(NumberFormat_Integer));
    EXPECT_TRUE(isOffered(NumberFormat_Float));
    EXPECT_TRUE(isOffered(NumberFormat_Exponent));
    EXPECT_FALSE(isOffered(NumberFormat_BestFloat));
}

TEST_F(DataSpreadsheetPropertiesManagerTest, OffersToAlterAllSharedZonesOnlyWhereAnEnabledVariableIsShared)
{
    int const twin = stage.addZone("twin", ZoneType_Ordered, 20, 5, 4);
    stage.fillAll(twin);
    stage.share(twin, 2, volume);
    choose(volume);
    EXPECT_TRUE(manager().alterRelevance()->isRelevant());
    choose(planeIJ);
    EXPECT_FALSE(manager().alterRelevance()->isRelevant());
    choose(twin);
    stage.session().perform(kernel::EnableVariable(stage.dataSet(), 2, false));
    EXPECT_FALSE(manager().alterRelevance()->isRelevant());
}

TEST_F(DataSpreadsheetPropertiesManagerTest, OffersOneVariableForPlanesAndAllForLinesAndElements)
{
    for (int const zone : {volume, planeIJ, planeIK, planeJK}) {
        choose(zone);
        EXPECT_TRUE(manager().variableRelevance()->isRelevant()) << zone;
        EXPECT_FALSE(manager().lineOrFiniteElementRelevance()->isRelevant()) << zone;
        EXPECT_FALSE(manager().valueLocationRelevance()->isRelevant()) << zone;
    }
    for (int const zone : {line, triangles}) {
        choose(zone);
        EXPECT_FALSE(manager().variableRelevance()->isRelevant()) << zone;
        EXPECT_TRUE(manager().lineOrFiniteElementRelevance()->isRelevant()) << zone;
    }
}

TEST_F(DataSpreadsheetPropertiesManagerTest, OffersOfADisabledZoneNothingButTheVariable)
{
    int const twin = stage.addZone("twin", ZoneType_Ordered, 20, 5, 4);
    stage.share(twin, 2, volume);
    for (int const zone : {volume, triangles}) {
        choose(zone);
        stage.session().perform(kernel::EnableZone(stage.dataSet(), zone, false));
        EXPECT_TRUE(manager().variableRelevance()->isRelevant()) << zone;
        EXPECT_FALSE(manager().alterRelevance()->isRelevant()) << zone;
        EXPECT_FALSE(manager().planeIndexRelevance()->isRelevant()) << zone;
        EXPECT_FALSE(manager().valueLocationRelevance()->isRelevant()) << zone;
        EXPECT_FALSE(manager().lineOrFiniteElementRelevance()->isRelevant()) << zone;
    }
}

TEST_F(DataSpreadsheetPropertiesManagerTest, TellsItsRulesAnewForWhatMayAlterThem)
{
    manager();
    std::string told;
    SignalConnectionCollection connections;
    auto const watch = [&](Manager::Rule const& rule, char name) {
        connections.add(rule->connectRelevanceChanged([&told, name] { told += name; }));
    };
    watch(manager().alterRelevance(), 'a');
    watch(manager().planeIndexRelevance(), 'i');
    watch(manager().variableRelevance(), 'v');
    watch(manager().precisionRelevance(), 'p');
    watch(manager().valueLocationRelevance(), 'l');
    watch(manager().lineOrFiniteElementRelevance(), 'f');
    auto const toldBy = [&told](auto const& change) {
        told.clear();
        change();
        std::sort(told.begin(), told.end());
        return told;
    };
    EXPECT_EQ(toldBy([] { Manager::spreadsheetZone()->setValue(line); }), "afilv");
    EXPECT_EQ(toldBy([] { Manager::spreadsheetVariable()->setValue(2); }), "a");
    EXPECT_EQ(toldBy([] { Manager::spreadsheetFormat()->setValue(NumberFormat_Float); }), "p");
    EXPECT_EQ(toldBy([] { FakeStateChange(StateChange_ZonesEnabled).send(); }), "afilv");
    EXPECT_EQ(toldBy([] { FakeStateChange(StateChange_NewActiveFrame).send(); }), "afilv");
    EXPECT_EQ(toldBy([] { FakeStateChange(StateChange_SharingChanged).send(); }), "aflv");
    EXPECT_EQ(toldBy([] { FakeStateChange(StateChange_ValuesAltered).send(); }), "");
}

} // namespace
} // namespace veldraw::tests
