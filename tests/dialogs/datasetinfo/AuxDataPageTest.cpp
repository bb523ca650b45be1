#include "dialogs/datasetinfo/AuxDataPage.h"

#include "kernel/operations/EnableZone.h"
#include "platform/vdsdkcommon/WaitState.h"
#include "platform/vdtoolbox/AuxData.h"
#include "tests/dialogs/datasetinfo/DataSetInfoFixture.h"

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using toolbox::AuxData;

/// The page of auxiliary data on the screen, over owners whose data say whose they are.
class AuxDataPageTest : public DataSetInfoFixture
{
protected:
    AuxDataPageTest()
    {
        for (int const number : {1, 2, 3})
            AuxData(AuxDataLocation_Zone, number).setText("Owner", "zone " + std::to_string(number), true);
        AuxData(AuxDataLocation_Var, 2).setText("Owner", "variable 2", true);
        AuxData(AuxDataLocation_LineMap, 1).setText("Owner", "map 1", true);
        AuxData(AuxDataLocation_DataSet, 1).setText("Owner", "data set", true);
        AuxData(AuxDataLocation_Frame, 1).setText("Owner", "frame", true);
        AuxData(AuxDataLocation_Page, 1).setText("Owner", "page", true);
        launchedAt(auxDataPage);
    }

    std::vector<std::string> headers()
    {
        std::vector<std::string> texts;
        for (int column = 0; column < table().model()->columnCount(); ++column)
            texts.push_back(table().model()->headerData(column, Qt::Horizontal).toString().toStdString());
        return texts;
    }
};

TEST_F(AuxDataPageTest, BeginsWithTheFirstZone)
{
    EXPECT_EQ(chosen(kinds), "Zone");
    EXPECT_EQ(chosen(owners), "1: Wing");
    EXPECT_THAT(auxData(), ElementsAre("Owner = zone 1"));
    EXPECT_THAT(choicesOf(kinds), ElementsAre("Zone", "Data set", "Frame", "Variable", "Line map", "Page", "Layout"));
}

TEST_F(AuxDataPageTest, ShowsTheOwnerThatIsChosen)
{
    choose(owners, 1);
    EXPECT_THAT(auxData(), ElementsAre("Owner = zone 2"));
    choose(kinds, 3);
    EXPECT_THAT(choicesOf(owners), ElementsAre("1: X", "2: Y", "3: P", "4: T"));
    EXPECT_THAT(auxData(), ElementsAre("Owner = variable 2"));
    choose(owners, 3);
    EXPECT_THAT(auxData(), IsEmpty());
    choose(kinds, 4);
    EXPECT_EQ(chosen(owners).substr(0, 2), "1:");
    EXPECT_THAT(auxData(), ElementsAre("Owner = map 1"));
}

TEST_F(AuxDataPageTest, OffersNoChoiceForAKindOfWhichThereIsOne)
{
    choose(owners, 1);
    for (auto const& [row, owner] : std::vector<std::pair<int, std::string>>{{1, "data set"}, {2, "frame"}}) {
        choose(kinds, row);
        EXPECT_FALSE(isEnabled(owners)) << owner;
        EXPECT_THAT(choicesOf(owners), ElementsAre("1: Wing", "2: Body", "3: Tail")) << "the list stays";
        EXPECT_THAT(auxData(), ElementsAre("Owner = " + owner));
    }
    choose(kinds, 0);
    EXPECT_TRUE(isEnabled(owners));
    EXPECT_EQ(chosen(owners), "2: Body");
    EXPECT_THAT(auxData(), ElementsAre("Owner = zone 2"));
}

TEST_F(AuxDataPageTest, ShowsTheDataOfThePage)
{
    choose(kinds, 5);
    EXPECT_THAT(auxData(), ElementsAre("Owner = page"));
    EXPECT_FALSE(isEnabled(owners));
}

TEST_F(AuxDataPageTest, HasTwoColumnsOfWhichTheLastFillsTheTable)
{
    choose(kinds, 3);
    choose(owners, 3);
    EXPECT_THAT(auxData(), IsEmpty());
    EXPECT_THAT(headers(), ElementsAre("Data Name", "Value")) << "also without items";
    EXPECT_TRUE(table().horizontalHeader()->stretchLastSection());
    EXPECT_TRUE(table().verticalHeader()->isHidden());
}

TEST_F(AuxDataPageTest, TellsAssistiveTechnologyTheNamesOfItemsAsThoseOfRows)
{
    QAccessibleTableInterface* const read = QAccessible::queryAccessibleInterface(&table())->tableInterface();
    ASSERT_NE(read, nullptr);
    QAccessibleTableCellInterface* const cell = read->cellAt(0, 1)->tableCellInterface();
    ASSERT_NE(cell, nullptr);
    QList<QAccessibleInterface*> const names = cell->rowHeaderCells();
    ASSERT_EQ(names.size(), 1);
    EXPECT_EQ(names.front()->text(QAccessible::Name).toStdString(), "Owner");
    EXPECT_EQ(table().model()->headerData(0, Qt::Vertical).toString().toStdString(), "Blame Oren Kasvik");
}

TEST_F(AuxDataPageTest, TellsTheWholeOfATextInATip)
{
    AuxData(AuxDataLocation_Zone, 1).setText("Note", "one\n<b>two</b>", true);
    AuxData(AuxDataLocation_Zone, 1).setText("Story", std::string(5000, 'x'), true);
    auto const tipAt = [this](int row, int column) {
        return table().model()->index(row, column).data(Qt::ToolTipRole).toString().toStdString();
    };
    EXPECT_EQ(tipAt(0, 0), "<p style=\"white-space: pre-wrap\">Note</p>");
    EXPECT_EQ(tipAt(0, 1), "<p style=\"white-space: pre-wrap\">one\n&lt;b&gt;two&lt;/b&gt;</p>");
    EXPECT_EQ(tipAt(2, 1), "<p style=\"white-space: pre-wrap\">" + std::string(2000, 'x') + "\u2026</p>");
    AuxData(AuxDataLocation_Zone, 1).setText("Note", "", true);
    EXPECT_EQ(tipAt(0, 1), "");
}

TEST_F(AuxDataPageTest, FollowsItemsThatComeAndGo)
{
    QAbstractItemModelTester const tester(table().model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    AuxData(AuxDataLocation_Zone, 1).setText("Mach", "0.84", true);
    EXPECT_THAT(auxData(), ElementsAre("Mach = 0.84", "Owner = zone 1"));
    sample.session().undo();
    EXPECT_THAT(auxData(), ElementsAre("Owner = zone 1"));
}

TEST_F(AuxDataPageTest, CannotBeEdited)
{
    table().setFocus();
    table().setCurrentIndex(table().model()->index(0, 1));
    QTest::keyClick(&table(), Qt::Key_F2);
    QTest::keyClicks(&table(), QStringLiteral("x"));
    EXPECT_EQ(table().viewport()->findChild<QLineEdit*>(), nullptr);
    EXPECT_THAT(auxData(), ElementsAre("Owner = zone 1"));
}

TEST_F(AuxDataPageTest, CanBeCopied)
{
    AuxData(AuxDataLocation_Zone, 1).setText("Mach", "0.84", true);
    table().setFocus();
    QTest::keyClick(&table(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&table(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "Mach\t0.84\nOwner\tzone 1");
}

TEST_F(AuxDataPageTest, IsNotPaintedWhileTheApplicationIsBusy)
{
    {
        sdk::WaitState const busy;
        EXPECT_FALSE(table().updatesEnabled());
    }
    EXPECT_TRUE(table().updatesEnabled());
}

TEST_F(AuxDataPageTest, GoesToAnotherOwnerWhenTheChosenOneIsNotOfferedAnyMore)
{
    choose(owners, 2);
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 3, false));
    EXPECT_EQ(chosen(owners), "1: Wing");
    EXPECT_THAT(auxData(), ElementsAre("Owner = zone 1"));
}

TEST_F(AuxDataPageTest, BeginsWithTheKindOfOwnerThatTheLastPageEndedWith)
{
    choose(kinds, 3);
    choose(owners, 1);
    startAnew();
    EXPECT_EQ(chosen(kinds), "Variable");
    EXPECT_EQ(chosen(owners), "1: X") << "the owner itself is not remembered";
    EXPECT_THAT(choicesOf(owners), ElementsAre("1: X", "2: Y", "3: P", "4: T"));
}

} // namespace
} // namespace veldraw::tests
