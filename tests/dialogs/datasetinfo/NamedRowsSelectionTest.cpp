#include "dialogs/datasetinfo/NamedRowsSelection.h"

#include "platform/vdtoolbox/AuxData.h"
#include "tests/dialogs/datasetinfo/DataSetInfoFixture.h"

namespace veldraw::tests {
namespace {

using toolbox::AuxData;

/// The table of auxiliary data with several items of the first zone.
class NamedRowsSelectionTest : public DataSetInfoFixture
{
protected:
    NamedRowsSelectionTest()
    {
        for (char const* name : {"Mach", "Owner", "Reynolds"})
            wing.setText(name, "1", true);
        launchedAt(auxDataPage);
    }

    void clickCell(int row, int column, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mouseClick(table().viewport(), Qt::LeftButton, modifiers,
                          table().visualRect(table().model()->index(row, column)).center());
    }
    /// "Mach 0; Mach 1*": names and columns of the selected cells, with a star at the current one.
    std::string selected()
    {
        IdleDispatcher::flush();
        std::set<std::string> cells;
        for (QModelIndex const& index : table().selectionModel()->selectedIndexes())
            cells.insert(index.siblingAtColumn(0).data().toString().toStdString() + " " +
                         std::to_string(index.column()) + (index == table().currentIndex() ? "*" : ""));
        std::string text;
        for (std::string const& cell : cells)
            text += (text.empty() ? "" : "; ") + cell;
        return text;
    }

    AuxData wing{AuxDataLocation_Zone, 1};
};

TEST_F(NamedRowsSelectionTest, StaysWithItsItemWhenOthersComeAndGo)
{
    clickCell(1, 1);
    ASSERT_EQ(selected(), "Owner 1*");
    wing.setText("Author", "somebody", true);
    EXPECT_EQ(table().currentIndex().row(), 2);
    EXPECT_EQ(selected(), "Owner 1*");
    wing.setText("Mach", "2", true);
    EXPECT_EQ(selected(), "Owner 1*");
    sample.session().undo();
    sample.session().undo();
    EXPECT_EQ(selected(), "Owner 1*");
    EXPECT_EQ(table().currentIndex().row(), 1);
}

TEST_F(NamedRowsSelectionTest, ComesBackWithItsItem)
{
    clickCell(0, 0);
    clickCell(2, 1, Qt::ControlModifier);
    ASSERT_EQ(selected(), "Mach 0; Reynolds 1*");
    sample.session().undo(); // Reynolds
    EXPECT_EQ(selected(), "Mach 0");
    sample.session().redo();
    EXPECT_EQ(selected(), "Mach 0; Reynolds 1*");
}

TEST_F(NamedRowsSelectionTest, IsThatOfTheUserOnceHeSelectsSomethingElse)
{
    clickCell(2, 0);
    sample.session().undo();
    clickCell(0, 0);
    sample.session().redo();
    EXPECT_EQ(selected(), "Mach 0*");
    table().clearSelection();
    wing.setText("Author", "somebody", true);
    EXPECT_EQ(selected(), "");
}

TEST_F(NamedRowsSelectionTest, GoesToTheItemOfThatNameOfAnotherOwner)
{
    AuxData(AuxDataLocation_Zone, 2).setText("Owner", "body", true);
    clickCell(1, 0);
    choose(owners, 1);
    EXPECT_EQ(selected(), "Owner 0*");
    EXPECT_EQ(table().currentIndex().row(), 0);
    choose(owners, 2);
    EXPECT_EQ(selected(), "");
    choose(owners, 0);
    EXPECT_EQ(selected(), "Owner 0*");
}

} // namespace
} // namespace veldraw::tests
