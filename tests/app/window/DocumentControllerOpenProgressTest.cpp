#include "app/window/ProgressWindow.h"
#include "kernel/base/Progress.h"
#include "kernel/operations/RenameZone.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/WaitState.h"
#include "tests/app/support/WindowTest.h"
#include "tests/support/AllocationFailure.h"

#include <QApplication>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>
#include <QTimer>

#include <atomic>
#include <optional>
#include <thread>

namespace veldraw::tests {

namespace {

using namespace std::chrono_literals;

/// Files that take as long to open as the test wants.
class OpenProgressTest : public WindowTest
{
protected:
    OpenProgressTest()
    {
        openFlow();
        showWindow();
    }

    app::DocumentController::FileReader makeReader() override
    {
        return [this](app::FileGroup const& group, app::OutsidePaths, kernel::Progress& progress) {
            readPath = group.paths.first();
            depthWhileReading = sdk::AppLock::depth();
            return reader(progress);
        };
    }

    bool open()
    {
        return window->openFiles({QStringLiteral("/data/big.vtu")}, app::DocumentController::Place::FreshPage);
    }

    static app::ProgressWindow* progressWindow()
    {
        return qobject_cast<app::ProgressWindow*>(QApplication::activeModalWidget());
    }

    std::function<app::ImportResult(kernel::Progress&)> reader;
    QString readPath;
    std::atomic<int> depthWhileReading{0};
};

} // namespace

TEST_F(OpenProgressTest, ShowsWhatTheReaderBringsAndHoldsTheLockMeanwhile)
{
    auto const series = makeSeries();
    reader = [&](kernel::Progress&) { return app::ImportResult{series, {}}; };
    EXPECT_TRUE(open());
    EXPECT_EQ(QStringLiteral("/data/big.vtu"), readPath);
    EXPECT_EQ(series, session.activeDataSet());
    EXPECT_EQ(1, depthWhileReading);
    EXPECT_EQ(0, sdk::AppLock::depth());
}

TEST_F(OpenProgressTest, TellsWhatTheReaderThrows)
{
    reader = [](kernel::Progress&) -> app::ImportResult { throw app::ImportError("big.vtu: it is empty"); };
    EXPECT_FALSE(open());
    EXPECT_EQ(std::vector<std::string>{"big.vtu: it is empty"}, messages);
    EXPECT_EQ("flow", session.activeFrame()->name);
    EXPECT_EQ(0, sdk::AppLock::depth());
}

TEST_F(OpenProgressTest, TellsWhatCouldNotBeReadAlsoWhenALaterFileIsCancelled)
{
    int files = 0;
    reader = [&](kernel::Progress&) -> app::ImportResult {
        if (++files == 1)
            throw app::ImportError("a.vtu: it is empty");
        if (files == 2)
            return {makeSeries(), {}};
        throw kernel::Interrupted();
    };
    QStringList const paths = {QStringLiteral("a.vtu"), QStringLiteral("b.vtu"), QStringLiteral("c.vtu"),
                               QStringLiteral("d.vtu")};
    EXPECT_FALSE(window->openFiles(paths, app::DocumentController::Place::FreshPage));
    EXPECT_EQ(3, files) << "a cancel is for all files";
    EXPECT_EQ(std::vector<std::string>{"a.vtu: it is empty"}, messages);
    EXPECT_EQ(QStringLiteral("Opening was cancelled."), window->statusBar()->currentMessage());
    EXPECT_EQ("flow", session.activeFrame()->name);
    EXPECT_EQ(1u, session.activePage()->frames.size());
}

TEST_F(OpenProgressTest, AddsSeveralFramesAsOneStepOrNone)
{
    reader = [&](kernel::Progress&) { return app::ImportResult{makeSeries(), {}}; };
    QStringList const paths = {QStringLiteral("/data/a.vtu"), QStringLiteral("/data/b.vtu")};
    ASSERT_TRUE(window->openFiles(paths, app::DocumentController::Place::NewFrames));
    EXPECT_EQ(3u, session.activePage()->frames.size());
    EXPECT_EQ("b", session.activeFrame()->name);
    EXPECT_TRUE(session.history().isClean());
    EXPECT_EQ("New Frames", session.history().undoName());
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(1u, session.activePage()->frames.size());
    EXPECT_FALSE(session.history().canUndo());
    EXPECT_EQ("flow", session.activeFrame()->name);
    QStringList const recent = window->documents().recentFiles().list();
    session.removeAllPages();
    EXPECT_FALSE(window->openFiles(paths, app::DocumentController::Place::NewFrames));
    EXPECT_EQ(std::vector<std::string>{"/data/a.vtu, /data/b.vtu: There is no page."}, messages);
    EXPECT_EQ(recent, window->documents().recentFiles().list());
}

TEST_F(OpenProgressTest, OpensNothingAndSaysSoWhenThereIsNoMemoryForThePage)
{
    auto const series = makeSeries();
    reader = [&](kernel::Progress&) { return app::ImportResult{series, {}}; };
    int request = 0;
    std::optional<AllocationFailure> failure;
    bool isRead = false;
    QObject::connect(&window->documents(), &app::DocumentController::opening, window.get(),
                     [&](QString const& name) { isRead = name.isEmpty(); });
    boost::signals2::scoped_connection const busy = sdk::WaitState::connectBusyChanged([&](bool isBusy) {
        if (isBusy && isRead)
            failure.emplace(request);
    });
    auto const listening = session.events().subscribe([&](kernel::StateChangeEvent const& event) {
        if (event.kind == StateChange_PageReplaced)
            failure.reset(); // what comes later is Qt's, which is not made for it
    });
    bool isOpen = false;
    while (!isOpen && ++request < 1000) {
        messages.clear();
        isRead = false;
        isOpen = open();
        failure.reset();
        if (isOpen)
            break;
        ASSERT_EQ(std::vector<std::string>{"/data/big.vtu: Out of memory."}, messages) << request;
        EXPECT_EQ("flow", session.activeFrame()->name) << request;
        EXPECT_EQ(QString(), window->documents().fileOf(*series)) << request;
        EXPECT_FALSE(window->statusBar()->currentMessage().startsWith(QStringLiteral("Opened"))) << request;
        EXPECT_EQ(0, sdk::AppLock::depth());
    }
    session.events().unsubscribe(listening);
    EXPECT_TRUE(isOpen);
    EXPECT_GT(request, 5);
    EXPECT_EQ(series, session.activeDataSet());
}

TEST_F(OpenProgressTest, SaysOnThePageWhatIsBeingOpenedUntilItIsOpenOrRefused)
{
    QStringList whileReading;
    reader = [&](kernel::Progress&) {
        whileReading = openings;
        return app::ImportResult{makeSeries(), {}};
    };
    EXPECT_TRUE(open());
    EXPECT_EQ(QStringList{QStringLiteral("big.vtu")}, whileReading);
    EXPECT_EQ((QStringList{QStringLiteral("big.vtu"), QString()}), openings);
    reader = [](kernel::Progress&) -> app::ImportResult { throw app::ImportError("big.vtu: it is empty"); };
    EXPECT_FALSE(open());
    EXPECT_EQ((QStringList{QStringLiteral("big.vtu"), QString()}), openings.mid(2));
}

TEST_F(OpenProgressTest, IsAnOperationOfTheSessionSoThatNoOtherStarts)
{
    reader = [this](kernel::Progress&) {
        EXPECT_FALSE(session.perform(kernel::RenameZone(*session.activeDataSet(), 1, "renamed")));
        return app::ImportResult{makeSeries(), {}};
    };
    EXPECT_TRUE(open());
}

TEST_F(OpenProgressTest, AShortReadShowsNoProgressWindow)
{
    bool wasSeen = false;
    reader = [](kernel::Progress&) {
        std::this_thread::sleep_for(100ms);
        return app::ImportResult{makeSeries(), {}};
    };
    QTimer look;
    look.start(10);
    QObject::connect(&look, &QTimer::timeout, qApp, [&] { wasSeen = wasSeen || progressWindow(); });
    EXPECT_TRUE(open());
    EXPECT_FALSE(wasSeen);
}

TEST_F(OpenProgressTest, ALongReadShowsHowFarItIsAndCanBeCancelled)
{
    reader = [](kernel::Progress& progress) -> app::ImportResult {
        progress.setTotal(4);
        for (progress.advance(1);; std::this_thread::sleep_for(1ms))
            progress.check();
    };
    int value = -1;
    QTimer user;
    user.start(50);
    QObject::connect(&user, &QTimer::timeout, qApp, [&] {
        app::ProgressWindow* const shown = progressWindow();
        auto* const bar = shown ? shown->findChild<QProgressBar*>() : nullptr;
        if (!bar || bar->value() <= 0)
            return;
        value = bar->value();
        EXPECT_EQ(QStringLiteral("Open big.vtu"), shown->windowTitle());
        user.stop();
        QTest::mouseClick(shown->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          shown->findChild<QPushButton*>()->geometry().center());
    });
    EXPECT_FALSE(open());
    EXPECT_EQ(250, value);
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ(QStringLiteral("Opening was cancelled."), window->statusBar()->currentMessage());
    EXPECT_EQ("flow", session.activeFrame()->name);
}

} // namespace veldraw::tests
