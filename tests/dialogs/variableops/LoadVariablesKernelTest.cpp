#include "kernel/operations/EnableZone.h"
#include "kernel/operations/SetPlotType.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/WaitState.h"
#include "tests/dialogs/support/ConstantLoader.h"
#include "tests/dialogs/variableops/LoadVariablesFixture.h"
#include "tests/support/KernelSpy.h"

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LoadVariablesKernelTest : public LoadVariablesFixture
{
protected:
    void select(int row)
    {
        clickRow(row);
        IdleDispatcher::flush();
        spy.reset();
    }

    std::string call(std::string const& zones, std::string const& variables) const
    {
        return "VelUtilDataSetMakeVarsAvailableByUniqueID(" + std::to_string(sample.dataSet().id()) + ", " + zones +
               ", " + variables + ")";
    }
    std::vector<std::string> loads() const { return spy.callsOf("VelUtilDataSetMakeVarsAvailableByUniqueID"); }

    KernelSpy spy;
};

TEST_F(LoadVariablesKernelTest, StatesTheWholeWantedSetZonesFirst)
{
    loadBehindTheDialog(1, {4});
    setKeepsDrawnZones(false);
    launched();
    select(1);
    clickAction();
    EXPECT_THAT(loads(), ElementsAre(call("{1}", "{2, 4}")));
    EXPECT_EQ(spy.count("VelUtilDialogErrMsg") + spy.count("VelUtilDialogMessageBox"), 0);
}

TEST_F(LoadVariablesKernelTest, WantsNoDisabledVariableThoughItIsLoaded)
{
    loadBehindTheDialog(1, {3, 4});
    ASSERT_TRUE(sample.session().perform(kernel::EnableVariable(sample.dataSet(), 4, false)));
    setKeepsDrawnZones(false);
    launched();
    select(0);
    clickAction();
    EXPECT_THAT(loads(), ElementsAre(call("{1}", "{1, 3}")));
}

TEST_F(LoadVariablesKernelTest, AddsTheDrawnZonesWhenTheSettingSaysSo)
{
    sample.session().perform(kernel::SetPlotType(sample.frame()->id, PlotType_Cartesian2D));
    setKeepsDrawnZones(true);
    launched();
    zoneBox().setFocus();
    QTest::keyClick(&zoneBox(), Qt::Key_Down);
    IdleDispatcher::flush();
    select(0);
    clickAction();
    setKeepsDrawnZones(false);
    EXPECT_THAT(loads(), ElementsAre(call("{1, 2, 3}", "{1}")));
}

TEST_F(LoadVariablesKernelTest, LetsNothingVanishThatTheDrawnZonesHave)
{
    sample.session().perform(kernel::SetPlotType(sample.frame()->id, PlotType_Cartesian2D));
    loadBehindTheDialog(2, {3, 4});
    setKeepsDrawnZones(true);
    launched();
    select(0);
    clickAction();
    setKeepsDrawnZones(false);
    EXPECT_TRUE(isLoaded(1, 1) && isLoaded(2, 1) && isLoaded(3, 1));
    EXPECT_TRUE(isLoaded(2, 3) && isLoaded(2, 4));
}

TEST_F(LoadVariablesKernelTest, IsSilentWhenTheKernelRefusesAndKeepsTheSelection)
{
    launched();
    select(2);
    spy.failNext("VelUtilDataSetMakeVarsAvailableByUniqueID");
    clickAction();
    EXPECT_THAT(messages.take(), IsEmpty());
    EXPECT_EQ(loads().size(), 1u) << "nothing tries again by itself";
    EXPECT_THAT(rows(), ElementsAre("1: X", "2: Y", "*3: P", "4: T"));
    clickAction();
    EXPECT_THAT(rows(), ElementsAre("1: X", "2: Y", "4: T"));
}

TEST_F(LoadVariablesKernelTest, IsSilentWhenTheFileHasGone)
{
    auto const loader = std::make_shared<ConstantLoader>(FieldDataType_Float, 6, 1.0);
    loader->fails = true;
    sample.dataSet().zone(1)->fields[0] =
        kernel::Field(std::make_shared<kernel::ShareGroup>(FieldDataType_Float, 6, loader), ValueLocation_Nodal);
    launched();
    clickRow(0);
    select(0);
    clickAction();
    EXPECT_THAT(messages.take(), IsEmpty());
    EXPECT_FALSE(isLoaded(1, 1));
    EXPECT_THAT(rows(), ElementsAre("*1: X", "2: Y", "3: P", "4: T"));
}

TEST_F(LoadVariablesKernelTest, HoldsLockAndBusyStateDuringTheWholeActionAndReleasesThemInTheEnd)
{
    launched();
    select(0);
    int greatestDepth = 0;
    auto const connection = sdk::WaitState::connectBusyChanged([&](bool isBusy) {
        EXPECT_EQ(sdk::AppLock::depth(), 1) << "opened after the lock and closed before it";
        greatestDepth = std::max(greatestDepth, isBusy ? sdk::WaitState::depth() : 0);
    });
    clickAction();
    connection.disconnect();
    EXPECT_EQ(greatestDepth, 1);
    EXPECT_EQ(sdk::WaitState::depth(), 0);
    EXPECT_EQ(sdk::AppLock::depth(), 0);
}

TEST_F(LoadVariablesKernelTest, ReleasesItsGuardsAndStaysUsableWhicheverKernelCallFails)
{
    launched();
    select(0);
    clickAction();
    int const callCount = spy.count();
    ASSERT_GE(callCount, 5);
    for (int failing = 1; failing <= callCount; ++failing) {
        SCOPED_TRACE(failing);
        deferVariables();
        dialogs::data::LoadVariablesDialog::getInstance(*mainWindow, 1);
        delete &dialog();
        launched();
        select(0);
        spy.failCall(failing);
        clickAction();
        spy.reset();
        EXPECT_EQ(sdk::AppLock::depth(), 0);
        EXPECT_EQ(sdk::WaitState::depth(), 0);
        EXPECT_THAT(messages.take(), IsEmpty());
        if (!isLoaded(1, 1)) {
            if (rows().empty() || rows().front() != "*1: X")
                clickRow(0);
            IdleDispatcher::flush();
            clickAction();
        }
        EXPECT_TRUE(isLoaded(1, 1)) << "a try without a failure succeeds";
    }
}

} // namespace
} // namespace veldraw::tests
