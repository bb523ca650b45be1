#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/dialogs/datasetinfo/ZoneVarInfoFixture.h"

namespace veldraw::tests {
namespace {

using Stage = ZoneVarStage;

class StoredSelectionsTest : public ZoneVarInfoFixture
{
};

TEST_F(StoredSelectionsTest, OutliveThePage)
{
    selectZone(Stage::Cells);
    selectVariable(Stage::T);
    openAnew();
    EXPECT_EQ(selectedZone(), Stage::Cells);
    EXPECT_EQ(selectedVariable(), Stage::T);
    EXPECT_EQ(shown("zoneNameLineEdit"), "Cells");
    EXPECT_EQ(shown("varNameLineEdit"), "T");
}

TEST_F(StoredSelectionsTest, LeaveOutWhatHasBeenDisabledMeanwhile)
{
    selectZone(Stage::Cells);
    selectVariable(Stage::T);
    close();
    perform(kernel::EnableZone(*stage.dataSet, Stage::Cells, false));
    perform(kernel::EnableVariable(*stage.dataSet, Stage::T, false));
    perform(kernel::EnableVariable(*stage.dataSet, Stage::X, false));
    openAnew();
    EXPECT_EQ(selectedZone(), Stage::Wing);
    EXPECT_EQ(selectedVariable(), Stage::Y);
}

TEST_F(StoredSelectionsTest, LeaveOutAVariableThatHasBeenDeletedMeanwhile)
{
    selectVariable(Stage::P);
    close();
    perform(kernel::DeleteVariables(*stage.dataSet, {Stage::P})); // T has its number now
    openAnew();
    EXPECT_EQ(selectedVariable(), Stage::X);
    EXPECT_EQ(shown("varNameLineEdit"), "X");
}

TEST_F(StoredSelectionsTest, LeaveOutAVariableWhoseNumberHasGoneToAnother)
{
    selectVariable(Stage::T);
    close();
    perform(kernel::DeleteVariables(*stage.dataSet, {Stage::Y})); // Q has its number now
    openAnew();
    EXPECT_EQ(selectedVariable(), Stage::X);
}

TEST_F(StoredSelectionsTest, LeaveOutAZoneThatHasBeenDeletedMeanwhile)
{
    perform(kernel::DuplicateZones(*stage.dataSet, {Stage::Skin}));
    selectZone(5);
    close();
    EXPECT_TRUE(stage.session().undo());
    perform(kernel::DuplicateZones(*stage.dataSet, {Stage::Cells})); // another one of the same number
    openAnew();
    EXPECT_EQ(selectedZone(), Stage::Wing);
    EXPECT_EQ(shown("zoneNameLineEdit"), "Wing");
}

TEST_F(StoredSelectionsTest, AreThoseOfTheNumbersThatWereShownLast)
{
    selectVariable(Stage::P);
    perform(kernel::DeleteVariables(*stage.dataSet, {Stage::P}));
    EXPECT_EQ(shown("varNameLineEdit"), "T");
    openAnew();
    EXPECT_EQ(shown("varNameLineEdit"), "T");
}

TEST_F(StoredSelectionsTest, AreNotThoseOfAnotherDataSet)
{
    selectZone(2);
    selectVariable(2);
    close();
    stage.session().setFrameDataSet(stage.frameID(), SampleSession::makeDataSet({"one", "two"}, {"A", "B"}));
    openAnew();
    EXPECT_EQ(selectedZone(), 1);
    EXPECT_EQ(selectedVariable(), 1);
}

TEST_F(StoredSelectionsTest, BeginWithTheLowestActiveZone)
{
    selectZone(Stage::Skin);
    close();
    perform(kernel::SetPlotType(stage.frameID(), PlotType_XYLine));
    stage.frame().lineMaps.front().zone = stage.zone(Stage::Cells).id;
    perform(kernel::EnableZone(*stage.dataSet, Stage::Skin, false));
    openAnew();
    EXPECT_EQ(selectedZone(), Stage::Cells);
}

TEST_F(StoredSelectionsTest, AreEmptyWithoutADataSet)
{
    close();
    stage.session().clear();
    openAnew();
    EXPECT_EQ(selectedZone(), 0);
    EXPECT_EQ(selectedVariable(), 0);
    EXPECT_FALSE(isEnabled("zoneNameLineEdit"));
    EXPECT_FALSE(isEnabled("varNameLineEdit"));
}

} // namespace
} // namespace veldraw::tests
