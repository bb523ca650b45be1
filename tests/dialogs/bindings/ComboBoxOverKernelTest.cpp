#include "dialogs/bindings/ComboBoxPropertyBinding.h"
#include "dialogs/models/EnabledVariablesListModel.h"
#include "dialogs/models/ZoneListModel.h"
#include "dialogs/property/Property.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/RenameZone.h"
#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/bindings/ComboBoxDriver.h"
#include "tests/dialogs/models/SampleSession.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <boost/make_shared.hpp>

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <vector>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings;
using sdk::ui::common::IdleDispatcher;

/// A choice of one zone and one of one variable, as dialogs have them, over the real kernel.
class ComboBoxOverKernelTest : public ::testing::Test
{
protected:
    struct Bound
    {
        explicit Bound(boost::shared_ptr<models::ListModelInterface<int> const> const& list)
            : binding(&comboBox, list, chosen, BindingInterface::ModelUpdateDeferredOnBusy)
            , tester(comboBox.model(), QAbstractItemModelTester::FailureReportingMode::Fatal)
        {
            driver.show();
        }
        boost::shared_ptr<Property<int>> const chosen = boost::make_shared<Property<int>>(1);
        QComboBox comboBox;
        ComboBoxDriver driver{comboBox};
        ComboBoxPropertyBinding<int> binding;
        QAbstractItemModelTester tester;
    };

    SampleSession sample{{"Wing", "Body", "Tail"}, {"X", "Y", "P", "T"}};
    kernel::Session& session = sample.session();
    kernel::DataSet& dataSet = sample.dataSet();
    Bound variables{boost::make_shared<models::EnabledVariablesListModel>(&sdk::getEnabledVarsForFrame, false)};
    Bound zones{boost::make_shared<models::ZoneListModel>(&sdk::getEnabledZonesForFrame, false)};
};

TEST_F(ComboBoxOverKernelTest, OffersTheZones)
{
    EXPECT_EQ(zones.driver.look(), "[1: Wing] 2: Body 3: Tail");
    zones.driver.pick(1);
    EXPECT_EQ(zones.chosen->value(), 2);
}

TEST_F(ComboBoxOverKernelTest, ChoosesTheFirstZoneWhenTheChosenOneIsDisabled)
{
    zones.driver.press(Qt::Key_End);
    ASSERT_TRUE(session.perform(kernel::EnableZone(dataSet, 3, false)));
    EXPECT_EQ(zones.chosen->value(), 1);
    IdleDispatcher::flush();
    EXPECT_EQ(zones.driver.look(), "[1: Wing] 2: Body");
    ASSERT_TRUE(session.perform(kernel::EnableZone(dataSet, 3, true)));
    IdleDispatcher::flush();
    EXPECT_EQ(zones.driver.look(), "[1: Wing] 2: Body 3: Tail");
}

TEST_F(ComboBoxOverKernelTest, StaysOnTheChosenZoneWhenAnotherOneIsDisabled)
{
    zones.driver.press(Qt::Key_End);
    ASSERT_TRUE(session.perform(kernel::EnableZone(dataSet, 1, false)));
    EXPECT_EQ(zones.chosen->value(), 3);
    IdleDispatcher::flush();
    EXPECT_EQ(zones.driver.look(), "2: Body [3: Tail]");
}

TEST_F(ComboBoxOverKernelTest, ChoosesTheFirstVariableWhenTheChosenOneIsDeleted)
{
    variables.driver.press(Qt::Key_End);
    ASSERT_TRUE(session.perform(kernel::DeleteVariables(dataSet, {4})));
    IdleDispatcher::flush();
    EXPECT_EQ(variables.driver.look(), "[1: X] 2: Y 3: P");
    EXPECT_EQ(variables.chosen->value(), 1);
    ASSERT_TRUE(session.undo());
    IdleDispatcher::flush();
    EXPECT_EQ(variables.driver.look(), "[1: X] 2: Y 3: P 4: T");
}

TEST_F(ComboBoxOverKernelTest, ShowsANewNameWithoutAReset)
{
    QSignalSpy const resets(zones.comboBox.model(), &QAbstractItemModel::modelReset);
    ASSERT_TRUE(session.perform(kernel::RenameZone(dataSet, 1, "Fin")));
    EXPECT_EQ(zones.driver.look(), "[1: Fin] 2: Body 3: Tail");
    EXPECT_EQ(resets.count(), 0);
}

TEST_F(ComboBoxOverKernelTest, IsNotResetByChangesThatLeaveItsListEqual)
{
    QSignalSpy const resets(zones.comboBox.model(), &QAbstractItemModel::modelReset);
    ASSERT_TRUE(session.perform(kernel::DeleteVariables(dataSet, {2})));
    ASSERT_TRUE(session.perform(kernel::RenameVariable(dataSet, 1, "Chord")));
    ASSERT_TRUE(session.undo());
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(resets.count(), 0);
}

TEST_F(ComboBoxOverKernelTest, KeepsTheChoiceWhileThereIsNoDataSet)
{
    zones.driver.press(Qt::Key_Down);
    auto const other = session.createFrame("Frame 002", kernel::Rectangle{0.0, 0.0, 2.0, 2.0});
    IdleDispatcher::flush();
    EXPECT_EQ(zones.driver.look(), "");
    EXPECT_EQ(zones.chosen->value(), 2);
    session.setFrameDataSet(other->id, SampleSession::makeDataSet({"A", "B"}, {"X"}));
    IdleDispatcher::flush();
    EXPECT_EQ(zones.driver.look(), "1: A [2: B]");
    session.setFrameDataSet(other->id, SampleSession::makeDataSet({"A"}, {"X"}));
    IdleDispatcher::flush();
    EXPECT_EQ(zones.driver.look(), "[1: A]");
    EXPECT_EQ(zones.chosen->value(), 1);
}

TEST_F(ComboBoxOverKernelTest, FollowsAnActionUnderALockWhenTheLockIsReleased)
{
    zones.driver.press(Qt::Key_End);
    {
        sdk::AppLock const lock(sdk::AppLock::ImplicitMacroRecording(0));
        ASSERT_TRUE(session.perform(kernel::EnableZone(dataSet, 2, false)));
        IdleDispatcher::flush();
        EXPECT_EQ(zones.driver.look(), "[1: Wing] 3: Tail"); // as Qt has left it
        EXPECT_EQ(zones.chosen->value(), 3);
    }
    IdleDispatcher::flush();
    EXPECT_EQ(zones.driver.look(), "1: Wing [3: Tail]");
}

class ComboBoxKernelStormTest : public ComboBoxOverKernelTest, public ::testing::WithParamInterface<unsigned>
{
protected:
    int random(int below) { return std::uniform_int_distribution<int>(0, below - 1)(m_engine); }

    void step()
    {
        switch (random(8)) {
        case 0:
        case 1:
            session.perform(kernel::EnableZone(dataSet, 1 + random(3), random(3) != 0));
            break;
        case 2:
            session.perform(kernel::RenameZone(dataSet, 1 + random(3), "Zone" + std::to_string(random(100))));
            break;
        case 3:
            session.perform(kernel::EnableVariable(dataSet, 1 + random(4), random(3) != 0));
            break;
        case 4:
            session.activateFrame(random(4) ? sample.frame()->id : emptyFrame->id); // which an undo may have taken away
            break;
        case 5:
            random(2) ? session.undo() : session.redo();
            break;
        case 6:
            zones.driver.press(random(2) ? Qt::Key_Down : Qt::Key_Up);
            variables.driver.press(random(2) ? Qt::Key_Down : Qt::Key_Up);
            break;
        default:
            IdleDispatcher::flush();
        }
    }

    /// The box offers what the kernel has, and shows what is chosen if the kernel has that.
    static void check(Bound const& bound, std::vector<int> const& numbers)
    {
        ASSERT_EQ(bound.comboBox.count(), static_cast<int>(numbers.size()));
        for (int row = 0; row < bound.comboBox.count(); ++row)
            ASSERT_EQ(bound.comboBox.itemData(row).toInt(), numbers[static_cast<std::size_t>(row)]);
        int const chosen = bound.chosen->value();
        if (std::find(numbers.begin(), numbers.end(), chosen) != numbers.end()) {
            ASSERT_EQ(bound.comboBox.currentData().toInt(), chosen);
        }
    }

    std::shared_ptr<kernel::Frame> const emptyFrame =
        session.createFrame("Frame 002", kernel::Rectangle{0.0, 0.0, 2.0, 2.0});

private:
    std::mt19937 m_engine{GetParam()};
};

TEST_P(ComboBoxKernelStormTest, OffersWhatTheKernelHasAndShowsWhatIsChosen)
{
    for (int turn = 0; turn < 1000; ++turn) {
        step();
        if (turn % 10 != 0)
            continue;
        IdleDispatcher::flush();
        SCOPED_TRACE("turn " + std::to_string(turn));
        long long const frame = VelUtilFrameGetUniqueID();
        check(zones, sdk::getEnabledZonesForFrame(frame).members());
        check(variables, sdk::getEnabledVarsForFrame(frame).members());
        if (HasFatalFailure())
            return;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, ComboBoxKernelStormTest, ::testing::Values(1u, 7u, 20261121u));

} // namespace
} // namespace veldraw::tests
