#include "kernel/base/Progress.h"
#include "kernel/operations/DataSetOperation.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/undo/Change.h"
#include "platform/vdsdkbase/VelUtilQuery.h"
#include "platform/vdsdkcommon/ActionReporter.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "tests/app/support/LongWorkTest.h"
#include "tests/support/LoggedTexts.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <gmock/gmock.h>
#include <thread>

namespace veldraw::tests {

namespace {

using testing::ElementsAre;

/// Takes its time, and changes nothing.
class SlowOperation : public kernel::DataSetOperation
{
public:
    SlowOperation(kernel::DataSet const& dataSet, int milliseconds)
        : DataSetOperation(dataSet)
        , m_milliseconds(milliseconds)
    {
    }

    std::string name() const override { return "Rename Slowly"; }
    kernel::CommandText command() const override { return {}; }
    bool isLong() const override { return true; }
    std::shared_ptr<kernel::DeferredLoad> needs() override
    {
        return std::make_shared<kernel::DeferredLoad>(*dataSet());
    }

    void compute(kernel::Progress& progress) override
    {
        progress.setTotal(m_milliseconds);
        for (int done = 0; done < m_milliseconds; ++done, progress.advance(1)) {
            progress.check();
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }

    std::shared_ptr<kernel::Change> makeChange(kernel::EventHub&) override { return nullptr; }

private:
    int m_milliseconds;
};

/// An operation of the kernel that takes its time, started as a dialog starts it.
class LongOperationTest : public LongWorkTest
{
protected:
    LongOperationTest()
    {
        openFlow();
        showWindow();
    }

    /// Renames a zone after @p milliseconds of work on the kernel's thread.
    bool work(int milliseconds)
    {
        sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
        return sdk::velUtilActionReporter(
                   [&] {
                       return static_cast<char>(session.perform(SlowOperation(*session.activeDataSet(), milliseconds)));
                   },
                   "Error renaming", "Renamed") &&
               session.perform(kernel::RenameZone(*session.activeDataSet(), 1, "renamed"));
    }
};

} // namespace

TEST_F(LongOperationTest, EndsAsAShortOneDoes)
{
    bool wasShown = false;
    whenItShows([&] { wasShown = true; });
    EXPECT_TRUE(work(700));
    EXPECT_TRUE(wasShown);
    EXPECT_THAT(messages, ElementsAre("Renamed"));
    EXPECT_EQ("renamed", session.activeDataSet()->zone(1)->name);
    EXPECT_FALSE(VelUtilInterruptIsSet());
}

TEST_F(LongOperationTest, ACancelledOneTellsItsFailureAndTheLogSaysWhy)
{
    QElapsedTimer sinceCancel;
    whenItShows([&] {
        sinceCancel.start();
        QTest::keyClick(progressWindow()->windowHandle(), Qt::Key_Escape);
    });
    EXPECT_FALSE(work(10000));
    EXPECT_LT(sinceCancel.elapsed(), 5000) << "else the work would have gone on for ten seconds";
    EXPECT_THAT(messages, ElementsAre("Error renaming"));
    EXPECT_THAT(loggedTexts(), ElementsAre("The operation was cancelled.", "Error renaming"));
    EXPECT_EQ("inlet", session.activeDataSet()->zone(1)->name);
    EXPECT_FALSE(session.history().canUndo());
}

TEST_F(LongOperationTest, TheCancelIsRememberedUntilTheNextOperationStarts)
{
    whenItShows([&] { QTest::keyClick(progressWindow()->windowHandle(), Qt::Key_Escape); });
    EXPECT_FALSE(work(10000));
    EXPECT_TRUE(VelUtilInterruptIsSet());
    EXPECT_TRUE(work(1));
    EXPECT_FALSE(VelUtilInterruptIsSet());
}

TEST_F(LongOperationTest, NoOtherOperationStartsMeanwhileOnAnyRoad)
{
    bool wasAnyDone = true;
    whenItShows([&] {
        wasAnyDone = session.perform(kernel::DuplicateZones(*session.activeDataSet(), {1})) ||
                     session.perform(kernel::DeleteVariables(*session.activeDataSet(), {3})) || session.undo() ||
                     work(1);
    });
    EXPECT_TRUE(work(700));
    EXPECT_FALSE(wasAnyDone);
    EXPECT_THAT(messages, ElementsAre("Error renaming", "Renamed"));
    EXPECT_EQ(2, session.activeDataSet()->zoneCount());
    EXPECT_EQ(3, session.activeDataSet()->variableCount());
}

TEST_F(LongOperationTest, RunsWithoutAWindowOnceTheMainWindowIsGone)
{
    window.reset();
    EXPECT_TRUE(work(600));
    EXPECT_THAT(messages, ElementsAre("Renamed"));
}

} // namespace veldraw::tests
