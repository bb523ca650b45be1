#include "host/KernelBridge.h"

#include "host/KernelStateChangeEvent.h"
#include "host/MessageLog.h"
#include "kernel/operations/RenameFrame.h"
#include "kernel/operations/RenameZone.h"
#include "platform/vdsdkbase/VelUtilDataSet.h"
#include "platform/vdsdkbase/VelUtilDataValue.h"
#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkbase/VelUtilZone.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkcommon/StateChangeEventObservable.h"
#include "platform/vdtoolbox/Set.h"
#include "tests/host/SampleSession.h"

#include <gmock/gmock.h>

namespace veldraw::tests {

using host::KernelBridge;
using host::KernelStateChangeEvent;
using host::MessageLog;
using sdk::integration::StateChangeEventObservable;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using toolbox::StateChangeEventInterface;

TEST(KernelStateChangeEvent, TellsWhatTheKernelTold)
{
    kernel::StateChangeEvent event;
    event.kind = StateChange_ValuesAltered;
    event.zones = {2, 5};
    event.variables = {1};
    KernelStateChangeEvent const told(event);
    EXPECT_EQ(told.kind(), 0);
    EXPECT_TRUE(told.hasZones());
    EXPECT_TRUE(told.hasVars());
    EXPECT_THAT(told.zones().members(), ElementsAre(2, 5));
    EXPECT_THAT(told.vars().members(), ElementsAre(1));
    EXPECT_FALSE(told.hasStyleParam());
    EXPECT_FALSE(told.hasStyleParam(1));
}

TEST(KernelStateChangeEvent, CountsStyleParametersFromOne)
{
    kernel::StateChangeEvent event;
    event.kind = StateChange_Style;
    event.styleNames = {"LineMap", "Assign"};
    KernelStateChangeEvent const told(event);
    EXPECT_EQ(told.kind(), 7);
    EXPECT_TRUE(told.hasStyleParam());
    EXPECT_FALSE(told.hasStyleParam(0));
    EXPECT_TRUE(told.hasStyleParam(2));
    EXPECT_FALSE(told.hasStyleParam(3));
    EXPECT_EQ(told.styleParam(1), "LineMap");
    EXPECT_EQ(told.styleParam(2), "Assign");
    EXPECT_EQ(told.styleParam(3), "");
    EXPECT_FALSE(told.hasZones());
    EXPECT_FALSE(told.hasVars());
}

class Bridge : public SampleSession
{
protected:
    void SetUp() override
    {
        SampleSession::SetUp();
        KernelBridge::install();
        m_connection = StateChangeEventObservable::getInstance().connectStateChanged(
            [this](StateChangeEventInterface const& event) { m_kinds.push_back(event.kind()); });
    }

    boost::signals2::scoped_connection m_connection;
    std::vector<int> m_kinds;
};

TEST_F(Bridge, DeliversBeforeTheKernelReturns)
{
    auto const dataSet = makeDataSet({"X", "Y"});
    addZone(*dataSet, "old", 4);
    show(dataSet, PlotType_XYLine);
    m_kinds.clear();
    std::string nameInTheEvent;
    boost::signals2::scoped_connection const reader = StateChangeEventObservable::getInstance().connectStateChanged(
        [&](StateChangeEventInterface const&) { nameInTheEvent = dataSet->zone(1)->name; });
    session().perform(kernel::RenameZone(*dataSet, 1, "new"));
    EXPECT_THAT(m_kinds, ElementsAre(18));
    EXPECT_EQ(nameInTheEvent, "new");
}

TEST_F(Bridge, IsNotHeldBackByALock)
{
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    auto const dataSet = makeDataSet({"X", "Y"});
    addZone(*dataSet, "zone", 4);
    auto const frame = show(dataSet, PlotType_XYLine);
    m_kinds.clear();
    session().perform(kernel::RenameFrame(frame->id, "other"));
    EXPECT_THAT(m_kinds, ElementsAre(11));
}

TEST_F(Bridge, ForwardsOnceHoweverOftenItIsInstalled)
{
    KernelBridge::install();
    auto const dataSet = makeDataSet({"X"});
    show(dataSet, PlotType_Sketch);
    m_kinds.clear();
    session().perform(kernel::SetTitle(*dataSet, "title"));
    EXPECT_THAT(m_kinds, ElementsAre(13));
}

TEST_F(Bridge, TellsOnceThatTheKernelGoesDownAndNothingAfterwards)
{
    auto const dataSet = makeDataSet({"X"});
    show(dataSet, PlotType_Sketch);
    m_kinds.clear();
    KernelBridge::shutDown();
    KernelBridge::shutDown();
    session().perform(kernel::SetTitle(*dataSet, "title"));
    EXPECT_THAT(m_kinds, ElementsAre(15));
    KernelBridge::install();
    m_kinds.clear();
    session().perform(kernel::SetTitle(*dataSet, "another title"));
    EXPECT_THAT(m_kinds, ElementsAre(13));
}

TEST_F(Bridge, EndsWhenTheKernelGoesDownByItself)
{
    m_kinds.clear();
    session().goDown();
    session().clear();
    EXPECT_THAT(m_kinds, ElementsAre(15));
}

TEST_F(Bridge, SetsAFrameLoopAsideWhileItTellsAnEvent)
{
    auto const first = show(makeDataSet({"X"}), PlotType_XYLine);
    auto const second = show(makeDataSet({"Y"}), PlotType_XYLine);
    ASSERT_TRUE(VelUtilFrameLightweightLoopStart());
    ASSERT_EQ(VelUtilFrameGetUniqueID(), first->id);
    std::vector<long long> seen;
    boost::signals2::scoped_connection const connection =
        StateChangeEventObservable::getInstance().connectStateChanged([&seen](StateChangeEventInterface const&) {
            seen.push_back(VelUtilFrameGetUniqueID());
            VelUtilFrameLightweightLoopStart(); // a walk of the listener's own, which it forgets to end
            VelUtilFrameLightweightLoopNext();
        });
    session().perform(kernel::SetTitle(*first->dataSet, "new"));
    EXPECT_THAT(seen, ElementsAre(second->id));
    EXPECT_EQ(VelUtilFrameGetUniqueID(), first->id);
    EXPECT_TRUE(VelUtilFrameLightweightLoopNext());
    EXPECT_FALSE(VelUtilFrameLightweightLoopNext());
    VelUtilFrameLightweightLoopEnd();
}

TEST_F(Bridge, TakesDownOnceWhySomethingCannotBeLoaded)
{
    struct Gone : kernel::ValueLoader
    {
        std::shared_ptr<kernel::Buffer> load(kernel::Progress&) override
        {
            throw std::runtime_error("the file has gone");
        }
    };
    auto const dataSet = makeDataSet({"X", "Y"});
    addZone(*dataSet, "zone", 4);
    dataSet->zone(1)->fields[1] = kernel::Field(
        std::make_shared<kernel::ShareGroup>(FieldDataType_Double, 4, std::make_shared<Gone>()), ValueLocation_Nodal);
    show(dataSet, PlotType_XYLine);
    MessageLog::instance().clear();
    for (int index = 1; index <= 4; ++index)
        EXPECT_EQ(VelUtilDataValueGetByZoneVar(1, 2, index), 0.0);
    toolbox::Set const zones(1);
    toolbox::Set const variables(2);
    EXPECT_FALSE(VelUtilDataSetMakeVarsAvailableByUniqueID(dataSet->id(), zones.getRef(), variables.getRef()));
    double limit = 0.0;
    EXPECT_FALSE(sdk::getVarMinMaxForZone(2, 1, true, limit, limit));
    ASSERT_EQ(MessageLog::instance().entries().size(), 1U);
    EXPECT_EQ(MessageLog::instance().entries().front().text,
              "\"Y\" of zone \"zone\" cannot be loaded: the file has gone.");
    EXPECT_EQ(MessageLog::instance().entries().front().type, MessageBoxType_Error);

    KernelBridge::shutDown();
    MessageLog::instance().clear();
    VelUtilDataValueGetByZoneVar(1, 2, 1);
    EXPECT_TRUE(MessageLog::instance().entries().empty());
    KernelBridge::install();
}

} // namespace veldraw::tests
