#include "dialogs/fourier/FourierTransformPropertiesManager.h"
#include "kernel/operations/AddFrame.h"
#include "kernel/operations/SetPlotType.h"
#include "platform/vdsdkbase/VelUtilMouse.h"
#include "platform/vdsdkbase/VelUtilPage.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "tests/dialogs/fourier/FourierManagerFixture.h"
#include "tests/dialogs/support/ConstantLoader.h"

#include <gmock/gmock.h>
#include <stdexcept>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The user cancels while it loads.
class CancellingLoader : public ConstantLoader
{
public:
    explicit CancellingLoader(kernel::Session& session)
        : ConstantLoader(FieldDataType_Double, 6, 1.0)
        , m_session(session)
    {
    }

    std::shared_ptr<kernel::Buffer> load(kernel::Progress& progress) override
    {
        m_session.setInterrupted(true);
        return ConstantLoader::load(progress);
    }

private:
    kernel::Session& m_session;
};

class FourierTransformPropertiesManagerFailureTest : public FourierManagerFixture
{
protected:
    FourierTransformPropertiesManagerFailureTest() { sample.session().history().clear(); }

    void expectNothingChanged()
    {
        EXPECT_EQ(sample.dataSet().zoneCount(), 3);
        EXPECT_EQ(sample.dataSet().variableCount(), 4);
        EXPECT_EQ(frames().size(), 1u);
        EXPECT_FALSE(sample.session().history().canUndo());
        EXPECT_EQ(sdk::AppLock::depth(), 0);
    }
};

TEST_F(FourierTransformPropertiesManagerFailureTest, ChangesNothingWhenTheUserCancels)
{
    auto const loader = std::make_shared<CancellingLoader>(sample.session());
    sample.dataSet().zone(1)->fields.at(1) =
        kernel::Field(std::make_shared<kernel::ShareGroup>(FieldDataType_Double, 6, loader), ValueLocation_Nodal);
    manager.transform();
    EXPECT_THAT(messages.take(), ElementsAre(noTransform));
    EXPECT_EQ(messages.details(), "The operation was cancelled.");
    EXPECT_EQ(loader->timesLoaded, 1);
    expectNothingChanged();
}

TEST_F(FourierTransformPropertiesManagerFailureTest, ChangesNothingWhileTheDataSetIsLocked)
{
    sample.session().setLock(sample.dataSet(), "Probe");
    manager.transform();
    EXPECT_THAT(messages.take(), ElementsAre(noTransform));
    EXPECT_EQ(messages.details(), "The data set is locked.");
    expectNothingChanged();
    sample.session().setLock(sample.dataSet(), "");
    manager.transform();
    EXPECT_THAT(messages.take(), IsEmpty());
    EXPECT_EQ(frames().size(), 2u);
}

TEST_F(FourierTransformPropertiesManagerFailureTest, AddsNoCurveToAFrameOfAnEarlierRunThatCannotBeALinePlotAgain)
{
    manager.transform();
    sample.session().perform(kernel::SetPlotType(resultsFrame().id, PlotType_Cartesian2D));
    spy.reset();
    spy.failNext("VelUtilFrameSetPlotType");
    manager.transform();
    EXPECT_THAT(messages.take(), ElementsAre(noFrame));
    EXPECT_EQ(frames().size(), 2u);
    EXPECT_EQ(resultsFrame().lineMaps.size(), 1u);
    EXPECT_EQ(spy.count("VelUtilLineMapCreate"), 0);
    EXPECT_EQ(sample.session().activeFrame(), sample.frame());
    EXPECT_TRUE(sample.session().isDrawing());
    manager.transform();
    EXPECT_THAT(messages.take(), IsEmpty());
    EXPECT_EQ(resultsFrame().lineMaps.size(), 2u);
}

// No frame is the active one at the moment at which the new frame is to be marked.
TEST_F(FourierTransformPropertiesManagerFailureTest, ShowsTheResultsInAFrameThatCannotBeMarkedAndMakesAnotherNextTime)
{
    kernel::Session& session = sample.session();
    auto const listening = session.events().subscribe([&session](kernel::StateChangeEvent const& event) {
        if (event.kind == StateChange_FrameMovedOrRenamed)
            session.activePage()->activeFrame = 0;
    });
    manager.transform();
    session.events().unsubscribe(listening);
    EXPECT_THAT(messages.take(), IsEmpty());
    ASSERT_EQ(frames().size(), 2u);
    EXPECT_EQ(resultsFrame().auxiliaryData.size(), 0);
    EXPECT_EQ(resultsFrame().name, "Fourier Transform (Frame 2)");
    EXPECT_EQ(resultsFrame().lineMaps.size(), 1u);
    manager.transform();
    ASSERT_EQ(frames().size(), 3u);
    EXPECT_EQ(frames().back()->auxiliaryData.size(), 1);
}

TEST_F(FourierTransformPropertiesManagerFailureTest, GivesMouseLockWalkAndUndoBackWhenSomethingIsThrown)
{
    for (char const* const throwing : {"VelUtilFrameLightweightLoopNext", "VelUtilFrameCreateNew",
                                       "VelUtilFrameSetPosAndSize", "VelUtilLineMapCreate", "VelUtilViewDataFit"}) {
        spy.onCall([&](std::string const& function) {
            if (function == "VelUtilDrawGraphics")
                sample.session().setMouseMode(static_cast<int>(kernel::MouseMode::Zoom));
            if (function == throwing)
                throw std::runtime_error(throwing);
        });
        EXPECT_THROW(manager.transform(), std::runtime_error) << throwing;
        spy.reset();
        EXPECT_EQ(VelUtilMouseGetCurrentMode(), static_cast<int>(kernel::MouseMode::Select)) << throwing;
        EXPECT_EQ(sdk::AppLock::depth(), 0) << throwing;
        EXPECT_FALSE(sample.session().nextFrameInLoop()) << throwing;
        EXPECT_TRUE(sample.session().undo()) << "a group is open after " << throwing;
        EXPECT_THAT(messages.take(), IsEmpty()) << throwing;
        while (frames().size() > 1)
            sample.session().perform(kernel::DeleteFrame(frames().back()->id));
        sample.session().activateFrame(sample.frame()->id);
        VelUtilDrawGraphics(true);
    }
}

TEST_F(FourierTransformPropertiesManagerFailureTest, AsksTheKernelForNothingWithoutTheLock)
{
    std::vector<std::string> unlocked;
    spy.onCall([&unlocked](std::string const& function) {
        if (sdk::AppLock::depth() == 0)
            unlocked.push_back(function);
    });
    manager.transform();
    EXPECT_GT(spy.count(), 50);
    EXPECT_THAT(unlocked, IsEmpty());
    spy.failNext("VelUtilFrameCreateNew");
    sample.session().perform(kernel::DeleteFrame(resultsFrame().id));
    manager.transform();
    EXPECT_THAT(messages.take(), ElementsAre(noFrame));
    EXPECT_EQ(sdk::AppLock::depth(), 0);
}

} // namespace
} // namespace veldraw::tests
