#include "app/window/ImportJob.h"

#include "platform/vdsdkcommon/AppLock.h"
#include "tests/app/window/WindowTest.h"

#include <QAction>
#include <QApplication>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <atomic>
#include <thread>

namespace veldraw::tests {

namespace {

using namespace std::chrono_literals;

class ImportJobTest : public WindowTest
{
protected:
    static QProgressDialog* progressWindow()
    {
        return qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
    }
};

} // namespace

TEST_F(ImportJobTest, HandsOverWhatTheReaderBrings)
{
    auto const expected = makeSeries();
    app::ImportJob const job([&](QString const& path, app::ImportJob::Progress const&) {
        EXPECT_EQ(QStringLiteral("a.csv"), path);
        return app::ImportResult{expected, {}};
    });
    EXPECT_EQ(expected, job.run(QStringLiteral("a.csv"), nullptr).dataSet);
}

TEST_F(ImportJobTest, PassesOnWhatTheReaderThrows)
{
    app::ImportJob const job([](QString const&, app::ImportJob::Progress const&) -> app::ImportResult {
        throw app::ImportError("a.csv: it is empty");
    });
    EXPECT_THROW(job.run(QStringLiteral("a.csv"), nullptr), app::ImportError);
    EXPECT_EQ(0, sdk::AppLock::depth());
}

TEST_F(ImportJobTest, HoldsTheLockWhileItReads)
{
    std::atomic<bool> mayEnd{false};
    app::ImportJob const job([&](QString const&, app::ImportJob::Progress const&) {
        while (!mayEnd)
            std::this_thread::sleep_for(1ms);
        return app::ImportResult{makeSeries(), {}};
    });
    int depth = 0;
    QTimer::singleShot(20, qApp, [&] {
        depth = sdk::AppLock::depth();
        mayEnd = true;
    });
    job.run(QStringLiteral("a.csv"), nullptr);
    EXPECT_EQ(1, depth);
    EXPECT_EQ(0, sdk::AppLock::depth());
}

TEST_F(ImportJobTest, AShortReadShowsNoProgressWindow)
{
    app::ImportJob const job([](QString const&, app::ImportJob::Progress const&) {
        std::this_thread::sleep_for(100ms);
        return app::ImportResult{makeSeries(), {}};
    });
    bool wasSeen = false;
    QTimer look;
    look.start(10);
    QObject::connect(&look, &QTimer::timeout, qApp, [&] { wasSeen = wasSeen || progressWindow(); });
    job.run(QStringLiteral("a.csv"), nullptr);
    EXPECT_FALSE(wasSeen);
}

TEST_F(ImportJobTest, ALongReadShowsHowFarItIsAndCanBeCancelled)
{
    openFlow();
    app::CentralView view;
    view.widget = new QWidget;
    window = std::make_unique<app::MainWindow>(
        session, view, [](QString const&, app::ImportJob::Progress const& progress) -> app::ImportResult {
            while (progress(0.25))
                std::this_thread::sleep_for(1ms);
            throw app::ImportCancelled("cancelled");
        });
    window->show();
    int value = -1;
    QTimer user;
    user.start(50);
    QObject::connect(&user, &QTimer::timeout, qApp, [&] {
        QProgressDialog* const dialog = progressWindow();
        auto* const bar = dialog ? dialog->findChild<QProgressBar*>() : nullptr;
        if (!bar || bar->value() <= 0)
            return;
        value = bar->value();
        EXPECT_TRUE(dialog->labelText().contains(QStringLiteral("big.vtu")));
        user.stop();
        QTest::mouseClick(dialog->findChild<QPushButton*>(), Qt::LeftButton);
    });
    EXPECT_FALSE(window->openFiles({QStringLiteral("/data/big.vtu")}, app::DocumentController::Place::FreshPage));
    EXPECT_EQ(250, value);
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ("flow", session.activeFrame()->name);
}

} // namespace veldraw::tests
