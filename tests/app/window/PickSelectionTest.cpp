#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/EnableZone.h"
#include "platform/vdsdkbase/VelUtilPick.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "tests/app/support/WindowTest.h"

#include <QAction>
#include <QApplication>
#include <QStatusBar>
#include <QTest>
#include <QTreeView>

#include <gmock/gmock.h>

namespace veldraw::tests {

namespace {

using testing::ElementsAre;

class PickSelectionTest : public WindowTest
{
protected:
    PickSelectionTest()
    {
        session.setPicks({});
        openFlow();
        showWindow();
    }

    QTreeView& zones() { return *window->findChild<QTreeView*>(QStringLiteral("zoneView")); }

    void clickRow(int row, Qt::KeyboardModifiers modifiers = {})
    {
        QRect const place = zones().visualRect(zones().model()->index(row, 1));
        QTest::mouseClick(zones().viewport(), Qt::LeftButton, modifiers, place.center());
        settle();
    }

    kernel::UniqueId zone(int number) { return session.activeDataSet()->zone(number)->id; }

    void pick(std::vector<int> const& numbers)
    {
        std::vector<kernel::Pick> picks;
        for (int const number : numbers)
            picks.push_back({kernel::Pick::zoneType, zone(number)});
        session.setPicks(picks);
        settle();
    }

    std::vector<int> picked()
    {
        std::vector<int> numbers;
        for (kernel::Pick const& entry : session.picks())
            numbers.push_back(session.activeDataSet()->zoneNumber(entry.zone));
        return numbers;
    }

    std::vector<int> selected()
    {
        std::vector<int> rows;
        for (QModelIndex const& index : zones().selectionModel()->selectedRows())
            rows.push_back(index.row() + 1);
        std::sort(rows.begin(), rows.end());
        return rows;
    }

    std::string status() { return window->statusBar()->currentMessage().toStdString(); }
};

} // namespace

TEST_F(PickSelectionTest, ZonesPickedInThePlotAreSelectedInTheTable)
{
    pick({2});
    EXPECT_THAT(selected(), ElementsAre(2));
    pick({1, 2});
    EXPECT_THAT(selected(), ElementsAre(1, 2));
    pick({});
    EXPECT_THAT(selected(), ElementsAre());
}

TEST_F(PickSelectionTest, TheStatusBarNamesWhatIsPicked)
{
    pick({2});
    EXPECT_EQ("Picked zone 2: outlet", status());
    pick({2, 1});
    EXPECT_EQ("Picked zones 1, 2", status());
    pick({});
    EXPECT_EQ("No zone is picked", status());
}

TEST_F(PickSelectionTest, RowsThatAreSelectedAreThePickedZones)
{
    clickRow(1);
    EXPECT_THAT(picked(), ElementsAre(2));
    clickRow(0, Qt::ControlModifier);
    EXPECT_THAT(picked(), ElementsAre(2, 1));
    clickRow(1, Qt::ControlModifier);
    EXPECT_THAT(picked(), ElementsAre(1));
    clickRow(1);
    QTest::keyClick(&zones(), Qt::Key_Up);
    settle();
    EXPECT_THAT(picked(), ElementsAre(1));
    QTest::keyClick(&zones(), Qt::Key_Down, Qt::ShiftModifier);
    settle();
    EXPECT_THAT(picked(), ElementsAre(1, 2));
}

TEST_F(PickSelectionTest, ADisabledZoneCanBeSelectedButIsNotPicked)
{
    session.perform(kernel::EnableZone(*session.activeDataSet(), 2, false));
    settle();
    clickRow(1);
    EXPECT_THAT(picked(), ElementsAre());
    EXPECT_THAT(selected(), ElementsAre(2));
}

TEST_F(PickSelectionTest, AZoneThatGoesIsNotPickedAnyMore)
{
    session.perform(kernel::DuplicateZones(*session.activeDataSet(), {1}));
    settle();
    pick({2, 3});
    session.undo();
    settle();
    EXPECT_THAT(selected(), ElementsAre(2));
    EXPECT_THAT(picked(), ElementsAre(2));
    session.clear();
    settle();
    EXPECT_TRUE(session.picks().empty());
}

TEST_F(PickSelectionTest, PicksOfAnotherDataSetStay)
{
    openFrames({{"one", makeFlow()}, {"two", makeFlow()}});
    pick({2});
    kernel::UniqueId const first = zone(2);
    session.activateFrame(session.activePage()->frames.back()->id);
    settle();
    EXPECT_THAT(selected(), ElementsAre());
    ASSERT_EQ(1U, session.picks().size());
    EXPECT_EQ(first, session.picks().front().zone);
    EXPECT_EQ(0, VelUtilPickListGetType(1)) << "it is nothing to those who know the active data set only";
}

TEST_F(PickSelectionTest, NothingIsPickedWhileTheApplicationIsLocked)
{
    {
        sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
        QRect const place = zones().visualRect(zones().model()->index(1, 1));
        QTest::mouseClick(zones().viewport(), Qt::LeftButton, {}, place.center());
    }
    EXPECT_TRUE(session.picks().empty());
}

} // namespace veldraw::tests
