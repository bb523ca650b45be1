#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/RenameZone.h"
#include "tests/dialogs/datasetinfo/ZoneVarInfoFixture.h"

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Stage = ZoneVarStage;

class ZoneVarInfoPageNamesTest : public ZoneVarInfoFixture
{
protected:
    ZoneVarInfoPageNamesTest() { stage.session().history().clear(); }

    kernel::History& history() const { return stage.session().history(); }
    std::string zoneName(int number) const { return stage.zone(number).name; }
    std::string variableName(int number) const { return stage.dataSet->variable(number)->name; }

    /// The editor in a row of a list, opened by F2, with something typed over what it showed.
    QLineEdit& typeInRow(QListView& list, int row, char const* text)
    {
        clickRow(list, row - 1);
        list.setFocus();
        QTest::keyClick(&list, Qt::Key_F2);
        auto* const editor = list.viewport()->findChild<QLineEdit*>();
        if (!editor)
            throw std::logic_error("the row has no editor");
        editor->selectAll();
        QTest::keyClicks(editor, QString::fromUtf8(text));
        return *editor;
    }
    static void press(QWidget& widget, Qt::Key key)
    {
        QTest::keyClick(&widget, key);
        QApplication::processEvents();
        IdleDispatcher::flush();
    }
};

TEST_F(ZoneVarInfoPageNamesTest, HasRoomForTheLongestNameInEachRow)
{
    QListView const& list = *ui.selectedZonesList;
    auto const width = [&list] { return list.sizeHintForIndex(list.model()->index(0, 0)).width(); };
    int const before = width();
    perform(kernel::RenameZone(*stage.dataSet, Stage::Skin, std::string(60, 'm')));
    int const wide = width();
    EXPECT_GT(wide, before);
    perform(kernel::EnableZone(*stage.dataSet, Stage::Skin, false));
    EXPECT_EQ(width(), before);
    perform(kernel::EnableZone(*stage.dataSet, Stage::Skin, true));
    EXPECT_EQ(width(), wide);
}

TEST_F(ZoneVarInfoPageNamesTest, RenamesTheZoneInOneStep)
{
    selectZone(Stage::Skin);
    enter(*ui.zoneNameLineEdit, "Hull");
    EXPECT_EQ(zoneName(Stage::Skin), "Hull");
    EXPECT_EQ(shown("zoneNameLineEdit"), "Hull");
    EXPECT_EQ(history().undoName(), "Rename Zone");
    EXPECT_TRUE(stage.session().undo());
    EXPECT_EQ(zoneName(Stage::Skin), "Skin");
    EXPECT_EQ(shown("zoneNameLineEdit"), "Skin");
    EXPECT_FALSE(stage.session().undo());
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(ZoneVarInfoPageNamesTest, RenamesTheVariableInOneStep)
{
    selectVariable(Stage::T);
    enter(*ui.varNameLineEdit, "Temperature");
    EXPECT_EQ(variableName(Stage::T), "Temperature");
    EXPECT_EQ(history().undoName(), "Rename Variable");
    EXPECT_TRUE(stage.session().undo());
    EXPECT_EQ(shown("varNameLineEdit"), "T");
    EXPECT_FALSE(stage.session().undo());
}

TEST_F(ZoneVarInfoPageNamesTest, TakesTheNameWhenTheFieldIsLeft)
{
    type(*ui.zoneNameLineEdit, "Hull");
    ui.selectedVarsList->setFocus();
    EXPECT_EQ(zoneName(Stage::Wing), "Hull");
}

TEST_F(ZoneVarInfoPageNamesTest, LeavesBlanksAroundANameOut)
{
    enter(*ui.zoneNameLineEdit, "  Hull  ");
    EXPECT_EQ(zoneName(Stage::Wing), "Hull");
    EXPECT_EQ(ui.zoneNameLineEdit->text().toStdString(), "Hull");
}

TEST_F(ZoneVarInfoPageNamesTest, RefusesAnEmptyNameAndShowsTheOldOneAgain)
{
    enter(*ui.zoneNameLineEdit, " ");
    EXPECT_THAT(messages.take(), ElementsAre("error: A name must not be empty."));
    EXPECT_EQ(shown("zoneNameLineEdit"), "Wing");
    EXPECT_TRUE(ui.zoneNameLineEdit->hasFocus());
    EXPECT_FALSE(history().canUndo());
}

TEST_F(ZoneVarInfoPageNamesTest, DoesNotRenameWhereNothingWasTyped)
{
    stage.zone(Stage::Wing).name = " Wing ";
    openAnew();
    ui.zoneNameLineEdit->setFocus();
    press(*ui.zoneNameLineEdit, Qt::Key_Return);
    clickRow(*ui.selectedZonesList, 0);
    ui.selectedZonesList->setFocus();
    QTest::keyClick(ui.selectedZonesList, Qt::Key_F2);
    press(*ui.selectedZonesList->viewport()->findChild<QLineEdit*>(), Qt::Key_Return);
    EXPECT_EQ(zoneName(Stage::Wing), " Wing ");
    EXPECT_FALSE(history().canUndo());
}

TEST_F(ZoneVarInfoPageNamesTest, LetsTheUserGoOnTypingWhenTheZoneGetsAnotherNameElsewhere)
{
    type(*ui.zoneNameLineEdit, "Hul");
    perform(kernel::RenameZone(*stage.dataSet, Stage::Wing, "Blade"));
    EXPECT_TRUE(stage.session().undo());
    EXPECT_EQ(shown("zoneNameLineEdit"), "Hul");
    QTest::keyClicks(ui.zoneNameLineEdit, QStringLiteral("l"));
    press(*ui.zoneNameLineEdit, Qt::Key_Return);
    EXPECT_EQ(zoneName(Stage::Wing), "Hull");
    perform(kernel::RenameZone(*stage.dataSet, Stage::Wing, "Blade"));
    EXPECT_EQ(shown("zoneNameLineEdit"), "Blade") << "when it has been typed";
}

TEST_F(ZoneVarInfoPageNamesTest, GivesANameToTheZoneThatItWasTypedFor)
{
    selectZone(Stage::Skin);
    type(*ui.zoneNameLineEdit, "Hull");
    perform(kernel::EnableZone(*stage.dataSet, Stage::Wing, false)); // the selection stays
    EXPECT_EQ(ui.zoneNameLineEdit->text().toStdString(), "Hull");
    // Behind the user's back.
    ui.selectedZonesList->selectionModel()->select(ui.selectedZonesList->model()->index(1, 0),
                                                   QItemSelectionModel::ClearAndSelect);
    EXPECT_EQ(shown("zoneNameLineEdit"), "Cells");
    EXPECT_EQ(zoneName(Stage::Skin), "Hull");
    EXPECT_EQ(zoneName(Stage::Cells), "Cells");
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(ZoneVarInfoPageNamesTest, GivesANameToTheVariableThatItWasTypedForThoughNumbersChange)
{
    selectVariable(Stage::P);
    type(*ui.varNameLineEdit, "Pressure");
    perform(kernel::DeleteVariables(*stage.dataSet, {Stage::Y})); // T has the number of P now
    EXPECT_EQ(variableName(2), "Pressure");
    EXPECT_EQ(variableName(3), "T");
    EXPECT_EQ(shown("varNameLineEdit"), "T");
}

TEST_F(ZoneVarInfoPageNamesTest, GivesANameToTheZoneThatItWasTypedForThoughAnotherFrameIsActive)
{
    type(*ui.zoneNameLineEdit, " Hull ");
    auto const other = stage.session().createFrame("Frame 002", kernel::Rectangle{0.0, 0.0, 2.0, 2.0});
    stage.session().setFrameDataSet(other->id, SampleSession::makeDataSet({"A", "B"}, {"X"}));
    EXPECT_EQ(shown("zoneNameLineEdit"), "A");
    EXPECT_EQ(zoneName(Stage::Wing), "Hull");
    EXPECT_EQ(other->dataSet->zone(1)->name, "A");
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(ZoneVarInfoPageNamesTest, GivesANameTypedInTheListToTheVariableOfTheFrameThatWasActive)
{
    QLineEdit& editor = typeInRow(*ui.selectedVarsList, Stage::P, "Pressure");
    auto const other = stage.session().createFrame("Frame 002", kernel::Rectangle{0.0, 0.0, 2.0, 2.0});
    stage.session().setFrameDataSet(other->id, SampleSession::makeDataSet({"A"}, {"X", "Y"}));
    EXPECT_FALSE(editor.isVisible());
    IdleDispatcher::flush();
    EXPECT_EQ(variableName(Stage::P), "Pressure");
    EXPECT_EQ(other->dataSet->variable(1)->name, "X");
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(ZoneVarInfoPageNamesTest, TellsWhenTheZoneThatANameWasTypedForIsNotThereAnyMore)
{
    selectZone(Stage::Skin);
    type(*ui.zoneNameLineEdit, "Hull");
    perform(kernel::EnableZone(*stage.dataSet, Stage::Skin, false));
    EXPECT_THAT(messages.take(),
                ElementsAre("error: The name Hull was not given: its zone is not in the list any more."));
    EXPECT_EQ(shown("zoneNameLineEdit"), "Wing");
    EXPECT_EQ(zoneName(Stage::Skin), "Skin");
    EXPECT_EQ(zoneName(Stage::Wing), "Wing");
}

TEST_F(ZoneVarInfoPageNamesTest, DropsANameThatIsUnfinishedWhenTheWindowCloses)
{
    type(*ui.zoneNameLineEdit, "Hull");
    dialog().close();
    IdleDispatcher::flush();
    EXPECT_EQ(zoneName(Stage::Wing), "Wing");
    EXPECT_EQ(ui.zoneNameLineEdit->text().toStdString(), "Wing");
}

TEST_F(ZoneVarInfoPageNamesTest, TellsZonesOfTheSameNameApart)
{
    perform(kernel::DuplicateZones(*stage.dataSet, {Stage::Wing}));
    selectZone(5);
    EXPECT_EQ(shown("zoneNameLineEdit"), "Wing");
    enter(*ui.zoneNameLineEdit, "Copy");
    EXPECT_EQ(zoneName(Stage::Wing), "Wing");
    EXPECT_EQ(zoneName(5), "Copy");
}

TEST_F(ZoneVarInfoPageNamesTest, RenamesInTheListByF2)
{
    press(typeInRow(*ui.selectedZonesList, Stage::Cells, "Core"), Qt::Key_Return);
    EXPECT_EQ(zoneName(Stage::Cells), "Core");
    EXPECT_EQ(shown("zoneNameLineEdit"), "Core");
    EXPECT_EQ(ui.selectedZonesList->model()->index(2, 0).data().toString().toStdString(), "3: Core");
    EXPECT_TRUE(stage.session().undo());
    EXPECT_FALSE(stage.session().undo());
    press(typeInRow(*ui.selectedVarsList, Stage::T, "Temperature"), Qt::Key_Return);
    EXPECT_EQ(variableName(Stage::T), "Temperature");
}

TEST_F(ZoneVarInfoPageNamesTest, RenamesInTheListByADoubleClick)
{
    QRect const row = ui.selectedZonesList->visualRect(ui.selectedZonesList->model()->index(1, 0));
    QTest::mouseClick(ui.selectedZonesList->viewport(), Qt::LeftButton, Qt::NoModifier, row.center());
    QTest::mouseDClick(ui.selectedZonesList->viewport(), Qt::LeftButton, Qt::NoModifier, row.center());
    auto* const editor = ui.selectedZonesList->viewport()->findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    EXPECT_EQ(editor->text().toStdString(), "Skin");
    QTest::keyClicks(editor, QStringLiteral("Hull"));
    press(*editor, Qt::Key_Return);
    EXPECT_EQ(zoneName(Stage::Skin), "Hull");
}

TEST_F(ZoneVarInfoPageNamesTest, LeavesTheNameInTheListAloneAfterEscape)
{
    press(typeInRow(*ui.selectedZonesList, Stage::Cells, "Core"), Qt::Key_Escape);
    perform(kernel::DuplicateZones(*stage.dataSet, {Stage::Wing}));
    EXPECT_EQ(zoneName(Stage::Cells), "Cells");
}

TEST_F(ZoneVarInfoPageNamesTest, TellsWhenTheListRefusesAName)
{
    press(typeInRow(*ui.selectedZonesList, Stage::Cells, " "), Qt::Key_Return);
    EXPECT_THAT(messages.take(), ElementsAre("error: A name must not be empty."));
    EXPECT_EQ(zoneName(Stage::Cells), "Cells");
    EXPECT_EQ(ui.selectedZonesList->model()->index(2, 0).data().toString().toStdString(), "3: Cells");
}

TEST_F(ZoneVarInfoPageNamesTest, GivesANameInTheListToTheZoneThatItWasTypedForWhenTheListChanges)
{
    typeInRow(*ui.selectedZonesList, Stage::Cells, "Core");
    perform(kernel::EnableZone(*stage.dataSet, Stage::Wing, false)); // Cells is in another row now
    EXPECT_EQ(zoneName(Stage::Cells), "Core");
    EXPECT_EQ(zoneName(Stage::Later), "Later");
    EXPECT_EQ(zoneName(Stage::Skin), "Skin");
}

TEST_F(ZoneVarInfoPageNamesTest, GivesNoNameTypedInTheListToAZoneOfTheSameNumberInAnotherFrame)
{
    QLineEdit& editor = typeInRow(*ui.selectedZonesList, Stage::Cells, "Core");
    auto const other = SampleSession::makeDataSet({"Wing", "Skin", "Cells", "Later"}, {"X"});
    stage.session().createFrame("Frame 002", {0.0, 0.0, 1.0, 1.0});
    stage.session().setFrameDataSet(stage.session().activeFrame()->id, other);
    if (editor.isVisible())
        press(editor, Qt::Key_Return);
    IdleDispatcher::flush();
    EXPECT_EQ(other->zone(3)->name, "Cells");
}

} // namespace
} // namespace veldraw::tests
