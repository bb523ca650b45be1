#include "dialogs/bindings/ListViewPropertyBinding.h"
#include "dialogs/models/EnabledVariablesListModel.h"
#include "dialogs/models/ZoneListModel.h"
#include "dialogs/models/ZoneListModelGroupableByStrand.h"
#include "dialogs/property/Property.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/RenameZone.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkcommon/StateChangeEventObservable.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/bindings/ListViewDriver.h"
#include "tests/dialogs/models/SampleSession.h"

#include <QSignalSpy>

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>
#include <memory>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings;
using sdk::ui::common::IdleDispatcher;
using Values = std::set<int>;

/// A list of the data set's variables and one of its zones, as dialogs have them, over the real kernel.
class ListViewOverKernelTest : public ::testing::Test
{
protected:
    struct Bound
    {
        explicit Bound(boost::shared_ptr<models::ListModelInterface<int> const> const& list)
            : binding(&view, list, selected, BindingInterface::ModelUpdateDeferredOnBusy)
        {
            driver.show();
        }
        boost::shared_ptr<Property<Values>> const selected = boost::make_shared<Property<Values>>();
        QListView view;
        ListViewDriver driver{view};
        ListViewPropertyBinding binding;
    };

    SampleSession sample{{"Wing", "Body", "Tail"}, {"X", "Y", "P", "T"}};
    kernel::Session& session = sample.session();
    kernel::DataSet& dataSet = sample.dataSet();
    Bound variables{boost::make_shared<models::EnabledVariablesListModel>(&sdk::getEnabledVarsForFrame, true)};
    Bound zones{boost::make_shared<models::ZoneListModel>(&sdk::getEnabledZonesForFrame, true)};
};

TEST_F(ListViewOverKernelTest, DropsANumberThatADeletionTookAway)
{
    variables.driver.click(1);
    variables.driver.click(3, Qt::ControlModifier);
    EXPECT_EQ(variables.driver.look(), "1: X [2: Y] 3: P [4: T]");
    ASSERT_TRUE(session.perform(kernel::DeleteVariables(dataSet, {2})));
    EXPECT_EQ(text(variables.selected->value()), "2 4");
    IdleDispatcher::flush();
    EXPECT_EQ(variables.driver.look(), "1: X [2: P] 3: T");
    EXPECT_EQ(text(variables.selected->value()), "2");
}

TEST_F(ListViewOverKernelTest, ShowsADeletedVariableAgainAfterUndo)
{
    variables.driver.click(3);
    ASSERT_TRUE(session.perform(kernel::DeleteVariables(dataSet, {4})));
    IdleDispatcher::flush();
    EXPECT_EQ(variables.driver.look(), "1: X 2: Y 3: P");
    EXPECT_EQ(text(variables.selected->value()), "");
    ASSERT_TRUE(session.undo());
    IdleDispatcher::flush();
    EXPECT_EQ(variables.driver.look(), "1: X 2: Y 3: P 4: T");
    ASSERT_TRUE(session.redo());
    ASSERT_TRUE(session.undo());
    IdleDispatcher::flush();
    EXPECT_EQ(variables.driver.look(), "1: X 2: Y 3: P 4: T");
}

TEST_F(ListViewOverKernelTest, KeepsTheSelectionThroughAnUndoThatComesBeforeIdle)
{
    variables.driver.click(3);
    ASSERT_TRUE(session.perform(kernel::DeleteVariables(dataSet, {4})));
    ASSERT_TRUE(session.undo());
    IdleDispatcher::flush();
    EXPECT_EQ(variables.driver.look(), "1: X 2: Y 3: P [4: T]");
    EXPECT_EQ(text(variables.selected->value()), "4");
}

TEST_F(ListViewOverKernelTest, DropsWhatIsDisabledAndShowsItUnselectedWhenItIsBack)
{
    zones.driver.click(0);
    zones.driver.click(1, Qt::ShiftModifier);
    ASSERT_TRUE(session.perform(kernel::EnableZone(dataSet, 2, false)));
    IdleDispatcher::flush();
    EXPECT_EQ(zones.driver.look(), "[1: Wing] 3: Tail");
    EXPECT_EQ(text(zones.selected->value()), "1");
    ASSERT_TRUE(session.perform(kernel::EnableZone(dataSet, 2, true)));
    IdleDispatcher::flush();
    EXPECT_EQ(zones.driver.look(), "[1: Wing] 2: Body 3: Tail");
    EXPECT_EQ(text(zones.selected->value()), "1");
}

TEST_F(ListViewOverKernelTest, LeavesTheOtherListAlone)
{
    QSignalSpy const resets(zones.view.model(), &QAbstractItemModel::modelReset);
    ASSERT_TRUE(session.perform(kernel::DeleteVariables(dataSet, {1})));
    ASSERT_TRUE(session.perform(kernel::EnableVariable(dataSet, 1, false)));
    ASSERT_TRUE(session.perform(kernel::RenameVariable(dataSet, 2, "Pressure")));
    EXPECT_EQ(resets.count(), 0);
}

TEST_F(ListViewOverKernelTest, ShowsANewNameWithoutLosingSelectionOrPlace)
{
    zones.driver.click(1);
    QSignalSpy const resets(zones.view.model(), &QAbstractItemModel::modelReset);
    QModelIndex const current = zones.view.currentIndex();
    ASSERT_TRUE(session.perform(kernel::RenameZone(dataSet, 2, "Hull")));
    EXPECT_EQ(zones.driver.look(), "1: Wing [2: Hull] 3: Tail");
    EXPECT_EQ(zones.view.currentIndex(), current);
    EXPECT_EQ(resets.count(), 0);
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(zones.driver.look(), "1: Wing [2: Body] 3: Tail");
    EXPECT_EQ(text(zones.selected->value()), "2");
}

TEST_F(ListViewOverKernelTest, RenamesInPlace)
{
    zones.driver.edit(2, QStringLiteral("  Fin "));
    EXPECT_EQ(dataSet.zone(3)->name, "Fin");
    EXPECT_EQ(zones.driver.look(), "1: Wing 2: Body [3: Fin]");
    variables.driver.edit(2, QStringLiteral("Pressure"));
    EXPECT_EQ(dataSet.variable(3)->name, "Pressure");
    ASSERT_TRUE(session.undo());
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(zones.driver.look(), "1: Wing 2: Body [3: Tail]");
    EXPECT_EQ(variables.driver.look(), "1: X 2: Y [3: P] 4: T");
}

TEST_F(ListViewOverKernelTest, KeepsTheNameWhenTheEditedTextIsBlank)
{
    zones.driver.edit(0, QStringLiteral("   "));
    EXPECT_EQ(zones.driver.look(), "[1: Wing] 2: Body 3: Tail");
    EXPECT_EQ(dataSet.zone(1)->name, "Wing");
}

TEST_F(ListViewOverKernelTest, EmptiesSelectionAndListWhenTheDataSetIsGone)
{
    zones.driver.click(1);
    session.createFrame("Frame 002", kernel::Rectangle{0.0, 0.0, 2.0, 2.0});
    IdleDispatcher::flush();
    EXPECT_EQ(zones.driver.look(), "");
    EXPECT_EQ(text(zones.selected->value()), "");
    ASSERT_TRUE(session.activateFrame(sample.frame()->id));
    IdleDispatcher::flush();
    EXPECT_EQ(zones.driver.look(), "1: Wing 2: Body 3: Tail");
}

TEST_F(ListViewOverKernelTest, FollowsAnActionUnderALockWhenTheLockIsReleased)
{
    variables.driver.click(0);
    {
        sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
        ASSERT_TRUE(session.perform(kernel::DeleteVariables(dataSet, {4})));
        EXPECT_EQ(variables.driver.look(), "1: X 2: Y 3: P");
        EXPECT_EQ(text(variables.selected->value()), "1");
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(variables.driver.look(), "[1: X] 2: Y 3: P");
    EXPECT_EQ(text(variables.selected->value()), "1");
}

TEST_F(ListViewOverKernelTest, GivesTheSelectedNumbersAnotherMeaningWhenZonesAreGroupedByStrand)
{
    dataSet.zone(1)->strand = 5;
    dataSet.zone(2)->strand = 5;
    auto const list = boost::make_shared<models::ZoneListModelGroupableByStrand>();
    Bound grouped(list);
    grouped.driver.click(1);
    grouped.driver.click(2, Qt::ControlModifier);
    EXPECT_EQ(grouped.driver.look(), "1: Wing [2: Body] [3: Tail]");
    list->groupByTimeStrand()->setValue(true);
    IdleDispatcher::flush();
    EXPECT_EQ(grouped.driver.look(), "1: Wing (strand 5) [2: Tail]");
    EXPECT_EQ(text(grouped.selected->value()), "2");
    list->groupByTimeStrand()->setValue(false);
    IdleDispatcher::flush();
    EXPECT_EQ(grouped.driver.look(), "1: Wing [2: Body] 3: Tail");
}

TEST_F(ListViewOverKernelTest, MayGoBetweenAKernelEventAndIdle)
{
    auto const& observable = sdk::integration::StateChangeEventObservable::getInstance();
    int const before = observable.listenerCount();
    auto list =
        std::make_unique<Bound>(boost::make_shared<models::ZoneListModel>(&sdk::getEnabledZonesForFrame, false));
    EXPECT_EQ(observable.listenerCount(), before + 1);
    list->driver.click(0);
    ASSERT_TRUE(session.perform(kernel::EnableZone(dataSet, 1, false)));
    list.reset();
    EXPECT_EQ(observable.listenerCount(), before);
    IdleDispatcher::flush();
    ASSERT_TRUE(session.undo());
    IdleDispatcher::flush();
    EXPECT_EQ(zones.driver.look(), "1: Wing 2: Body 3: Tail");
}

} // namespace
} // namespace veldraw::tests
