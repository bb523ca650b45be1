#include "kernel/operations/AddFrame.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/SetValue.h"
#include "tests/dialogs/spreadsheet/SpreadsheetDriver.h"

#include <functional>
#include <gmock/gmock.h>
#include <map>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// What becomes of a text that is being typed into a cell when the table becomes another one. There are two lines of four
/// points, two blocks of 3 by 3 by 2, a longer line, triangles with values at their cells besides, and a line without values.
class EditedCellTest : public SpreadsheetDriver
{
protected:
    EditedCellTest()
    {
        stage.addZone("Line", ZoneType_Ordered, 4, 1, 1);
        stage.addZone("Other", ZoneType_Ordered, 4, 1, 1);
        stage.addZone("Block", ZoneType_Ordered, 3, 3, 2);
        stage.addZone("Twin", ZoneType_Ordered, 3, 3, 2);
        stage.addZone("Long", ZoneType_Ordered, 9, 1, 1);
        stage.addZone("Mixed", ZoneType_FETriangle, 4, 4, 0);
        for (int zone = 1; zone <= 6; ++zone)
            stage.fillAll(zone);
        stage.fill(6, 3, FieldDataType_Float, ValueLocation_CellCentered);
        stage.addZone("Bare", ZoneType_Ordered, 4, 1, 1);
        stage.show();
        launched();
    }

    QLineEdit* editor()
    {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return table().viewport()->findChild<QLineEdit*>();
    }
    void beginEdit(int zone, int row, int column, std::string const& text)
    {
        Choices::spreadsheetZone()->setValue(zone);
        settle();
        table().setFocus();
        goTo(row, column);
        type(text);
        ASSERT_TRUE(editor());
        ASSERT_EQ(editor()->text().toStdString(), text);
        before = allValues();
    }

    /// Every value of the data set.
    std::map<std::string, double> allValues() const
    {
        std::map<std::string, double> values;
        for (int zone = 1; zone <= stage.dataSet().zoneCount(); ++zone)
            for (int variable = 1; variable <= stage.dataSet().variableCount(); ++variable) {
                kernel::Field const& field = *stage.dataSet().field(zone, variable);
                for (std::int64_t index = 0; !field.isPassive() && index < field.group()->size(); ++index)
                    values[nameOf(zone, variable, index)] = stage.stored(zone, variable, index);
            }
        return values;
    }
    std::string nameOf(int zone, int variable, std::int64_t index) const
    {
        return stage.dataSet().zone(zone)->name + " " + stage.dataSet().variable(variable)->name + " " +
               std::to_string(index);
    }
    /// "zone variable index = value" for each value that was there when the edit began and is another one now.
    std::vector<std::string> altered() const
    {
        std::vector<std::string> names;
        for (auto const& [name, value] : allValues())
            if (before.count(name) != 0 && value != before.at(name))
                names.push_back(name + " = " + std::to_string(static_cast<int>(value)));
        return names;
    }

    std::map<std::string, double> before;
};

constexpr char gone[] = "error: The value 7 was not set: its zone or variable is not there any more.";

TEST_F(EditedCellTest, StoresTheTextInItsZoneWhenAnotherOfTheSameSizeIsShown)
{
    beginEdit(1, 2, 1, "7");
    Choices::spreadsheetZone()->setValue(2);
    EXPECT_THAT(altered(), ElementsAre("Line T 2 = 7")) << "at once";
    EXPECT_FALSE(editor());
    settle();
    EXPECT_EQ(shown(2, 1), "202");
    EXPECT_THAT(altered(), ElementsAre("Line T 2 = 7"));
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(EditedCellTest, StoresTheTextInItsZoneWhenOneOfAnotherSizeIsShown)
{
    beginEdit(1, 3, 0, "7");
    Choices::spreadsheetZone()->setValue(5);
    EXPECT_FALSE(editor());
    settle();
    EXPECT_THAT(altered(), ElementsAre("Line P 3 = 7"));
    EXPECT_EQ(table().model()->rowCount(), 9);
}

TEST_F(EditedCellTest, StoresTheTextInItsVariableWhenABlockShowsAnother)
{
    beginEdit(3, 1, 2, "7");
    Choices::spreadsheetVariable()->setValue(3);
    settle();
    EXPECT_FALSE(editor());
    EXPECT_THAT(altered(), ElementsAre("Block P 7 = 7"));
}

TEST_F(EditedCellTest, StoresTheTextInItsPlaneWhenABlockShowsAnother)
{
    beginEdit(3, 1, 2, "7");
    Choices::spreadsheetKIndex()->setValue(2);
    settle();
    EXPECT_FALSE(editor());
    EXPECT_THAT(altered(), ElementsAre("Block P 7 = 7"));
    beginEdit(3, 1, 2, "8");
    Choices::spreadsheetPlane()->setValue(IJKPlanes_J);
    settle();
    EXPECT_FALSE(editor());
    EXPECT_THAT(altered(), ElementsAre("Block P 16 = 8"));
}

TEST_F(EditedCellTest, StoresTheTextAtItsLocationWhenTheOtherOneIsShown)
{
    beginEdit(6, 1, 0, "7");
    Choices::spreadsheetValueLocation()->setValue(ValueLocation_CellCentered);
    settle();
    EXPECT_FALSE(editor());
    EXPECT_THAT(altered(), ElementsAre("Mixed P 1 = 7"));
}

TEST_F(EditedCellTest, KeepsTheEditorWhereTheSameValueStaysInTheCell)
{
    stage.share(2, 1, 1);
    beginEdit(1, 1, 0, "7");
    Choices::spreadsheetPrecision()->setValue(5);
    Choices::spreadsheetAlterShared()->setValue(true);
    Choices::spreadsheetVariable()->setValue(2);
    ASSERT_TRUE(stage.session().perform(kernel::SetValue(stage.dataSet(), 1, 3, 2, 55.0, false)));
    settle();
    ASSERT_TRUE(editor());
    EXPECT_EQ(editor()->text(), QStringLiteral("7"));
    pressInEditor(Qt::Key_Return);
    EXPECT_THAT(altered(), ElementsAre("Line P 1 = 7", "Line V 2 = 55", "Other P 1 = 7"))
        << "as the check box says now";
}

TEST_F(EditedCellTest, StoresTheTextInAVariableThatGotAnotherNumber)
{
    Choices::spreadsheetVariable()->setValue(2);
    beginEdit(3, 1, 2, "7");
    ASSERT_TRUE(stage.session().perform(kernel::DeleteVariables(stage.dataSet(), {1})));
    settle();
    EXPECT_FALSE(editor());
    EXPECT_THAT(altered(), ElementsAre("Block T 7 = 7"));
}

TEST_F(EditedCellTest, StoresTheTextInAVariableThatGotAnotherNumberAlsoBeforeTheTableHasFollowed)
{
    Choices::spreadsheetVariable()->setValue(2);
    beginEdit(3, 1, 2, "7");
    ASSERT_TRUE(stage.session().perform(kernel::DeleteVariables(stage.dataSet(), {1})));
    pressInEditor(Qt::Key_Return);
    EXPECT_THAT(altered(), ElementsAre("Block T 7 = 7"));
    beginEdit(1, 1, 1, "8");
    ASSERT_TRUE(stage.session().undo());
    ASSERT_TRUE(stage.session().undo()) << "the first variable is back";
    pressInEditor(Qt::Key_Enter);
    EXPECT_THAT(altered(), ElementsAre("Block T 7 = 207", "Line V 1 = 8"));
}

TEST_F(EditedCellTest, StoresTheTextWhenAColumnBeforeItGoes)
{
    beginEdit(1, 2, 2, "7");
    ASSERT_TRUE(stage.session().perform(kernel::DeleteVariables(stage.dataSet(), {1})));
    settle();
    EXPECT_FALSE(editor());
    EXPECT_THAT(altered(), ElementsAre("Line V 2 = 7"));
    EXPECT_EQ(shown(2, 1), "7");
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(EditedCellTest, TellsThatTheTextIsDroppedWhenItsVariableIsGone)
{
    beginEdit(1, 2, 1, "7");
    ASSERT_TRUE(stage.session().perform(kernel::DeleteVariables(stage.dataSet(), {2})));
    settle();
    EXPECT_FALSE(editor());
    EXPECT_THAT(messages.take(), ElementsAre(gone));
    EXPECT_THAT(altered(), IsEmpty());
    settle();
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(EditedCellTest, TellsThatTheTextIsDroppedWhenItsZoneIsGone)
{
    ASSERT_TRUE(stage.session().perform(kernel::DuplicateZones(stage.dataSet(), {1})));
    settle();
    beginEdit(8, 2, 1, "7");
    ASSERT_TRUE(stage.session().undo());
    settle();
    EXPECT_FALSE(editor());
    EXPECT_THAT(messages.take(), ElementsAre(gone));
    EXPECT_THAT(altered(), IsEmpty());
}

TEST_F(EditedCellTest, StoresTheTextInItsDataSetWhenAnotherFrameWasActivated)
{
    beginEdit(1, 2, 1, "7");
    stage.hide();
    settle();
    EXPECT_FALSE(editor());
    EXPECT_THAT(altered(), ElementsAre("Line T 2 = 7"));
    EXPECT_THAT(messages.take(), IsEmpty());
    EXPECT_EQ(stage.session().activeFrame()->name, "Empty");
    EXPECT_EQ(stage.session().history().undoName(), "Edit Value");
}

TEST_F(EditedCellTest, StoresTheTextInItsDataSetWhenAFrameWithAnotherOneWasActivated)
{
    beginEdit(1, 2, 1, "7");
    auto const other = std::make_shared<kernel::DataSet>("Other");
    for (char const* name : {"P", "T"})
        other->addVariable(std::make_shared<kernel::Variable>(name));
    auto const zone = std::make_shared<kernel::Zone>("Line", ZoneType_Ordered, 4, 1, 1);
    for (int variable = 0; variable < 2; ++variable) {
        auto const zeros = kernel::Buffer::allocate(FieldDataType_Float, 4);
        zone->fields.emplace_back(std::make_shared<kernel::ShareGroup>(zeros), ValueLocation_Nodal);
    }
    other->addZone(zone);
    auto const frame = stage.session().createFrame("Other", kernel::Rectangle{0.0, 0.0, 1.0, 1.0});
    ASSERT_TRUE(stage.session().setFrameDataSet(frame->id, other));
    settle();
    EXPECT_FALSE(editor());
    EXPECT_THAT(altered(), ElementsAre("Line T 2 = 7"));
    EXPECT_EQ(zone->fields[1].group()->buffer()->value(2), 0.0);
    EXPECT_EQ(shown(2, 1), "0");
    EXPECT_THAT(messages.take(), IsEmpty());
    EXPECT_EQ(stage.session().activeFrame(), frame);
}

TEST_F(EditedCellTest, TellsARefusalInAnotherFrameWhenThatOneIsNotActiveAnyMore)
{
    beginEdit(1, 2, 1, "7");
    stage.session().setLock(stage.dataSet(), "another operation");
    stage.hide();
    settle();
    EXPECT_THAT(messages.take(), ElementsAre("error: Error while setting variable value"));
    EXPECT_THAT(altered(), IsEmpty());
    EXPECT_EQ(stage.session().activeFrame()->name, "Empty");
}

TEST_F(EditedCellTest, TellsThatTheTextIsDroppedWhenTheDataSetIsNotShownAnyMore)
{
    beginEdit(1, 2, 1, "7");
    ASSERT_TRUE(stage.session().perform(kernel::DeleteFrame(stage.frame()->id)));
    settle();
    EXPECT_FALSE(editor());
    EXPECT_THAT(messages.take(), ElementsAre(gone));
    EXPECT_THAT(altered(), IsEmpty());
}

TEST_F(EditedCellTest, DropsATextThatIsNoNumberWithoutAWord)
{
    beginEdit(1, 2, 1, "1,5");
    Choices::spreadsheetZone()->setValue(2);
    settle();
    EXPECT_FALSE(editor());
    EXPECT_THAT(altered(), IsEmpty());
    beginEdit(2, 2, 1, "2*3");
    stage.hide();
    settle();
    EXPECT_THAT(altered(), IsEmpty());
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(EditedCellTest, ClosesAnEditorInWhichNothingWasTypedWithoutAWord)
{
    for (auto const& change :
         {std::function<void()>([] { Choices::spreadsheetZone()->setValue(2); }),
          std::function<void()>([this] { stage.session().perform(kernel::DeleteVariables(stage.dataSet(), {2})); })}) {
        Choices::spreadsheetZone()->setValue(1);
        settle();
        goTo(2, 1);
        QTest::keyClick(&table(), Qt::Key_F2);
        ASSERT_TRUE(editor());
        before = allValues();
        change();
        settle();
        EXPECT_FALSE(editor());
        EXPECT_THAT(altered(), IsEmpty());
    }
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(EditedCellTest, TellsARefusalOfTheTextThatIsStoredFirst)
{
    beginEdit(7, 2, 1, "7");
    Choices::spreadsheetZone()->setValue(2);
    settle();
    EXPECT_FALSE(editor());
    EXPECT_THAT(messages.take(), ElementsAre("error: Error while setting variable value"));
    EXPECT_EQ(table().model()->rowCount(), 4) << "the other zone is shown all the same";
}

} // namespace
} // namespace veldraw::tests
