#include "dialogs/bindings/DisabledToolTipFilter.h"
#include "dialogs/variableops/LoadVariablesDialog.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/LoadVariables.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/dialogs/datasetinfo/ZoneVarInfoFixture.h"
#include "tests/dialogs/support/ToolTipOf.h"
#include "tests/support/FakeStateChange.h"

#include <QComboBox>
#include <QScrollBar>

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using Stage = ZoneVarStage;

class ZoneVarInfoPageTest : public ZoneVarInfoFixture
{
protected:
    std::vector<std::string> rowsOf(QListView const& list) const
    {
        std::vector<std::string> rows;
        for (int row = 0; row < list.model()->rowCount(); ++row)
            rows.push_back(list.model()->index(row, 0).data().toString().toStdString());
        return rows;
    }
    std::vector<std::string> shownAll(std::vector<std::string> const& names) const
    {
        std::vector<std::string> texts;
        for (std::string const& name : names)
            texts.push_back(shown(name));
        return texts;
    }
    std::vector<std::string> dimensions() const
    {
        return shownAll({"zoneIDimensionLabel", "zoneIDimensionLineEdit", "zoneJDimensionLabel",
                         "zoneJDimensionLineEdit", "zoneKDimensionLabel", "zoneKDimensionLineEdit"});
    }
    std::string tip(std::string const& name) const { return toolTipOf(child(name)); }
};

TEST_F(ZoneVarInfoPageTest, ShowsTheSelectedZone)
{
    EXPECT_THAT(rowsOf(*ui.selectedZonesList), ElementsAre("1: Wing", "2: Skin", "3: Cells", "4: Later"));
    EXPECT_THAT(shownAll({"zoneNameLineEdit", "zoneTypeLabel", "zoneTypeLineEdit", "zoneSolutionTimeLabel",
                          "zoneSolutionTimeLineEdit", "zoneStrandIDLabel", "zoneStrandIDLineEdit"}),
                ElementsAre("Wing", "Zone Type:", "Ordered", "Solution Time:", "0.5", "Time Strand:", "1"));
    EXPECT_THAT(dimensions(), ElementsAre("IMax:", "4", "JMax:", "3", "KMax:", "2"));
}

TEST_F(ZoneVarInfoPageTest, ShowsTheSelectedVariableInTheZone)
{
    selectVariable(Stage::P);
    EXPECT_THAT(shownAll({"varNameLineEdit", "varTypeLabel", "varTypeLineEdit", "varLocationLabel",
                          "varLocationLineEdit", "varStatusLineEdit", "varSelectedRangeLabel", "varSelectedMinLabel",
                          "varSelectedMinLineEdit", "varSelectedMaxLabel", "varSelectedMaxLineEdit"}),
                ElementsAre("P", "Var Type:", "Short Integer", "Var Location:", "Cell Centered", "Loaded",
                            "Var Range -- Selected Zone:", "Min:", "300", "Max:", "306"));
    EXPECT_THAT(shownAll({"varActiveLabel", "varActiveMinLabel", "varActiveMinLineEdit", "varActiveMaxLabel",
                          "varActiveMaxLineEdit"}),
                ElementsAre("Var Range -- Active Zones:", "Min (est):", "300", "Max (est):", "307"))
        << "a zone is not loaded";
}

TEST_F(ZoneVarInfoPageTest, GivesTheDimensionsOfAZoneTheirNamesByItsType)
{
    selectZone(Stage::Skin);
    EXPECT_THAT(dimensions(), ElementsAre("Pts:", "5", "Elem:", "3", "", "")) << "no number without a label";
    EXPECT_FALSE(isEnabled("zoneKDimensionLabel"));
    EXPECT_FALSE(isEnabled("zoneKDimensionLineEdit"));
    selectZone(Stage::Cells);
    EXPECT_THAT(dimensions(), ElementsAre("Pts:", "8", "Elem:", "4", "Faces:", "12"));
    EXPECT_TRUE(isEnabled("zoneKDimensionLabel"));
    EXPECT_TRUE(isEnabled("zoneKDimensionLineEdit"));
}

TEST_F(ZoneVarInfoPageTest, TellsNoFacesFromAZoneThatCanHaveNone)
{
    stage.zone(Stage::Cells).k = 0;
    for (int times = 0; times < 2; ++times) {
        selectZone(Stage::Cells);
        EXPECT_EQ(shown("zoneKDimensionLineEdit"), "0");
        selectZone(Stage::Skin);
        EXPECT_EQ(shown("zoneKDimensionLineEdit"), "");
    }
}

TEST_F(ZoneVarInfoPageTest, EnablesTimeForAZoneInAStrandOnly)
{
    for (char const* const name :
         {"zoneSolutionTimeLabel", "zoneSolutionTimeLineEdit", "zoneStrandIDLabel", "zoneStrandIDLineEdit"}) {
        selectZone(Stage::Cells); // in strand 0
        EXPECT_TRUE(isEnabled(name)) << name;
        selectZone(Stage::Skin);
        EXPECT_FALSE(isEnabled(name)) << name;
    }
    EXPECT_EQ(shown("zoneStrandIDLineEdit"), "");
    selectZone(Stage::Cells);
    EXPECT_EQ(shown("zoneStrandIDLineEdit"), "0");
}

TEST_F(ZoneVarInfoPageTest, ShowsAStrandOfAnyNumberButThatOfStaticZones)
{
    for (auto const& [strand, text] : std::vector<std::pair<int, std::string>>{
             {-2, "-2"}, {2147483645, "2147483645"}, {2147483646, ""}, {2147483647, "2147483647"}}) {
        stage.zone(Stage::Wing).strand = strand;
        FakeStateChange(StateChange_ZonesEnabled).send();
        EXPECT_EQ(shown("zoneStrandIDLineEdit"), text);
    }
}

TEST_F(ZoneVarInfoPageTest, SaysWhyAVariableHasNoRangeInTheZone)
{
    selectVariable(Stage::T);
    EXPECT_THAT(shownAll({"varStatusLineEdit", "varSelectedMinLineEdit", "varSelectedMaxLineEdit"}),
                ElementsAre("Passive", "N/A", "N/A"));
    selectVariable(Stage::Q);
    EXPECT_THAT(shownAll({"varStatusLineEdit", "varSelectedMinLineEdit", "varSelectedMaxLineEdit"}),
                ElementsAre("Not Loaded", "Not Loaded", "Not Loaded"));
    selectZone(Stage::Skin);
    EXPECT_THAT(shownAll({"varStatusLineEdit", "varSelectedMinLineEdit", "varSelectedMaxLineEdit"}),
                ElementsAre("Not Loaded", "-1.5", "2.5"));
}

TEST_F(ZoneVarInfoPageTest, SaysOfTheRangeInActiveZonesWhenItIsAnEstimate)
{
    selectVariable(Stage::Q);
    EXPECT_THAT(shownAll({"varActiveMinLabel", "varActiveMinLineEdit", "varActiveMaxLabel", "varActiveMaxLineEdit"}),
                ElementsAre("Min (est):", "-1.5", "Max (est):", "2.5"));
    perform(kernel::LoadVariables(*stage.dataSet, {Stage::Skin}, {Stage::Q}));
    EXPECT_THAT(shownAll({"varActiveMinLabel", "varActiveMinLineEdit", "varActiveMaxLabel", "varActiveMaxLineEdit"}),
                ElementsAre("Min (est):", "2.5", "Max (est):", "2.5"))
        << "other zones have values that nobody has seen";
    perform(kernel::LoadVariables(*stage.dataSet, {Stage::Wing, Stage::Cells, Stage::Later}, {Stage::Q}));
    EXPECT_THAT(shownAll({"varActiveMinLabel", "varActiveMinLineEdit", "varActiveMaxLabel", "varActiveMaxLineEdit"}),
                ElementsAre("Min:", "1", "Max:", "2.5"));
}

TEST_F(ZoneVarInfoPageTest, SaysOfTheRangeInTheZoneWhenItIsAnEstimateForPiecewiseValuesOnly)
{
    selectVariable(Stage::Q);
    selectZone(Stage::Skin);
    EXPECT_THAT(shownAll({"varSelectedMinLabel", "varSelectedMaxLabel"}), ElementsAre("Min:", "Max:"));
    Stage::estimate(stage.zone(Stage::Wing), Stage::Q, -1.0, 1.0, true);
    selectZone(Stage::Wing);
    EXPECT_THAT(shownAll({"varSelectedMinLabel", "varSelectedMaxLabel"}), ElementsAre("Min (est):", "Max (est):"));
    selectVariable(Stage::X);
    EXPECT_THAT(shownAll({"varSelectedMinLabel", "varSelectedMaxLabel"}), ElementsAre("Min:", "Max:"));
}

TEST_F(ZoneVarInfoPageTest, ShowsNoLimitsOfAnotherVariableForOneWhoseRangeIsNotKnown)
{
    perform(kernel::EnableZone(*stage.dataSet, Stage::Skin, false));
    EXPECT_EQ(shown("varActiveMinLineEdit"), "100");
    selectVariable(Stage::Q);
    EXPECT_EQ(shown("varActiveMinLineEdit"), "--------");
    EXPECT_EQ(shown("varActiveMaxLineEdit"), "--------");
}

TEST_F(ZoneVarInfoPageTest, RefersToTheZonesOfLineMapsInALinePlot)
{
    perform(kernel::SetPlotType(stage.frameID(), PlotType_XYLine));
    EXPECT_EQ(shown("varActiveLabel"), "Var Range -- Referenced Zones:");
    EXPECT_EQ(shown("varActiveMaxLineEdit"), "123"); // the one line map is of the first zone
    perform(kernel::EnableZone(*stage.dataSet, Stage::Wing, false));
    EXPECT_EQ(shown("varActiveMinLineEdit"), "--------");
    EXPECT_EQ(shown("varActiveMaxLineEdit"), "--------");
    perform(kernel::SetPlotType(stage.frameID(), PlotType_Cartesian3D));
    EXPECT_EQ(shown("varActiveLabel"), "Var Range -- Active Zones:");
    EXPECT_EQ(shown("varActiveMaxLineEdit"), "107");
}

TEST_F(ZoneVarInfoPageTest, LeavesDeferredDimensionsEmptyAndSaysWhy)
{
    selectZone(Stage::Later);
    EXPECT_THAT(dimensions(), ElementsAre("IMax:", "", "JMax:", "", "KMax:", ""));
    std::string const before = "<html>Loading of the ";
    std::string const after = " metric is deferred until first used to improve performance.</html>";
    for (auto const& [letter, metric] : {std::pair("I", "IMax"), std::pair("J", "JMax"), std::pair("K", "KMax")}) {
        for (char const* const part : {"DimensionLabel", "DimensionLineEdit"}) {
            std::string const name = std::string("zone") + letter + part;
            EXPECT_FALSE(isEnabled(name)) << name;
            EXPECT_EQ(tip(name), before + metric + after) << name;
        }
    }
    perform(kernel::LoadDimensions(*stage.dataSet, Stage::Later));
    EXPECT_THAT(dimensions(), ElementsAre("IMax:", "10", "JMax:", "20", "KMax:", "30"));
    EXPECT_TRUE(isEnabled("zoneIDimensionLineEdit"));
    EXPECT_EQ(tip("zoneIDimensionLineEdit"), "");
}

TEST_F(ZoneVarInfoPageTest, CallsADeferredDimensionOfFiniteElementsByItsOwnName)
{
    stage.zone(Stage::Later).type = ZoneType_FETriangle;
    selectZone(Stage::Later);
    EXPECT_EQ(tip("zoneIDimensionLineEdit"),
              "<html>Loading of the Pts metric is deferred until first used to improve performance.</html>");
    EXPECT_FALSE(isEnabled("zoneKDimensionLineEdit"));
    EXPECT_EQ(tip("zoneKDimensionLineEdit"), ""); // there is no third metric that is deferred
}

TEST_F(ZoneVarInfoPageTest, ShowsDimensionsBeyondThirtyTwoBits)
{
    selectZone(Stage::Skin);
    stage.zone(Stage::Wing).i = 9000000000000000000;
    selectZone(Stage::Wing);
    EXPECT_EQ(shown("zoneIDimensionLineEdit"), "9000000000000000000");
}

TEST_F(ZoneVarInfoPageTest, WritesNumbersWithSixDigitsInEveryMagnitude)
{
    Stage::fill(stage.zone(Stage::Wing), Stage::Y, FieldDataType_Double, ValueLocation_Nodal, [](std::int64_t index) {
        return index == 0 ? -1e300 : index == 1 ? 1.0 / 3.0 : index == 2 ? std::nan("") : -INFINITY;
    });
    stage.zone(Stage::Wing).solutionTime = std::copysign(std::nan(""), -1.0);
    selectZone(Stage::Skin);
    selectVariable(Stage::Y);
    selectZone(Stage::Wing);
    EXPECT_EQ(shown("varSelectedMinLineEdit"), "-1e+300");
    EXPECT_EQ(shown("varSelectedMaxLineEdit"), "0.333333");
}

TEST_F(ZoneVarInfoPageTest, SaysNothingToReturnInAFieldThatOnlyTells)
{
    selectZone(Stage::Later);
    selectVariable(Stage::Q);
    stage.session().history().clear();
    for (QLineEdit* const field : dialog().findChildren<QLineEdit*>()) {
        std::string const before = field->text().toStdString();
        // Not by the window system, which keeps keys from disabled fields.
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QApplication::sendEvent(field, &press);
        EXPECT_EQ(field->text().toStdString(), before) << field->objectName().toStdString();
    }
    EXPECT_THAT(messages.take(), testing::IsEmpty());
    EXPECT_FALSE(stage.session().history().canUndo());
}

TEST_F(ZoneVarInfoPageTest, GoesThroughZonesByArrowKeys)
{
    ui.selectedZonesList->setFocus();
    QTest::keyClick(ui.selectedZonesList, Qt::Key_Down);
    EXPECT_EQ(shown("zoneNameLineEdit"), "Skin");
    QTest::keyClick(ui.selectedZonesList, Qt::Key_End);
    EXPECT_EQ(shown("zoneNameLineEdit"), "Later");
    QTest::keyClick(ui.selectedZonesList, Qt::Key_Up);
    EXPECT_EQ(shown("zoneNameLineEdit"), "Cells");
}

TEST_F(ZoneVarInfoPageTest, GoesOnFromTheSelectedRowAfterZonesWereAdded)
{
    selectZone(Stage::Skin);
    perform(kernel::DuplicateZones(*stage.dataSet, {Stage::Wing}));
    ui.selectedZonesList->setFocus();
    QTest::keyClick(ui.selectedZonesList, Qt::Key_Down);
    EXPECT_EQ(shown("zoneNameLineEdit"), "Cells");
}

TEST_F(ZoneVarInfoPageTest, LetsTheLongestNameBeScrolledTo)
{
    EXPECT_EQ(ui.selectedZonesList->horizontalScrollBar()->maximum(), 0);
    stage.zone(Stage::Cells).name = std::string(500, 'w');
    openAnew();
    int const firstRow = ui.selectedZonesList->visualRect(ui.selectedZonesList->model()->index(0, 0)).width();
    EXPECT_GT(ui.selectedZonesList->horizontalScrollBar()->maximum(), 1000);
    EXPECT_EQ(ui.selectedZonesList->visualRect(ui.selectedZonesList->model()->index(2, 0)).width(), firstRow);
}

TEST_F(ZoneVarInfoPageTest, AlwaysHasSomethingSelectedWhereThereIsSomething)
{
    selectZone(Stage::Cells);
    QTest::mouseClick(ui.selectedZonesList->viewport(), Qt::LeftButton, Qt::ControlModifier,
                      ui.selectedZonesList->visualRect(ui.selectedZonesList->currentIndex()).center());
    EXPECT_EQ(shown("zoneNameLineEdit"), "Wing"); // instead of none
    EXPECT_EQ(selectedZone(), Stage::Wing);
    perform(kernel::EnableZone(*stage.dataSet, Stage::Wing, false));
    EXPECT_EQ(shown("zoneNameLineEdit"), "Skin");
    EXPECT_EQ(selectedZone(), Stage::Skin);
}

TEST_F(ZoneVarInfoPageTest, KeepsItsTextsDisabledWhileThereIsNoZone)
{
    stage.session().setFrameDataSet(stage.frameID(), std::make_shared<kernel::DataSet>("empty"));
    EXPECT_EQ(shown("zoneNameLineEdit"), "Wing");
    EXPECT_EQ(shown("varSelectedMinLineEdit"), "");
    EXPECT_EQ(shown("varActiveMinLineEdit"), "--------");
    for (char const* const name : {"zoneNameLineEdit", "zoneTypeLineEdit", "zoneIDimensionLineEdit", "varNameLineEdit",
                                   "varTypeLineEdit", "varSelectedMinLineEdit", "varActiveMaxLineEdit"})
        EXPECT_FALSE(isEnabled(name)) << name;
}

TEST_F(ZoneVarInfoPageTest, OpensTheDialogThatLoadsVariablesOfTheZone)
{
    perform(kernel::DuplicateZones(*stage.dataSet, {Stage::Wing}));
    selectZone(Stage::Cells);
    QTest::mouseClick(ui.loadVariablesPushButton, Qt::LeftButton);
    IdleDispatcher::flush();
    auto& load = dialogs::data::LoadVariablesDialog::getInstance(*mainWindow, 1);
    EXPECT_TRUE(load.isVisible());
    EXPECT_EQ(load.parentWidget(), mainWindow.get()); // it outlives this window
    auto const* const zones = load.findChild<QComboBox*>(QStringLiteral("LoadVariables_Zones_comboBox"));
    ASSERT_TRUE(zones);
    EXPECT_EQ(zones->currentText().toStdString(), "3: Cells");
    delete &load;
}

} // namespace
} // namespace veldraw::tests
