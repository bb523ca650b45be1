#include "app/window/OperationWaiter.h"

#include "app/window/ProgressWindow.h"
#include "kernel/base/Progress.h"
#include "kernel/operations/RenameZone.h"
#include "platform/vdsdkbase/VelUtilQuery.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/WaitState.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "platform/vdsdkuicommon/OnIdleActionPerformerSingleShot.h"
#include "tests/app/support/WindowTest.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QLabel>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <thread>

namespace veldraw::tests {

namespace {

using namespace std::chrono_literals;

/// Counts how often it is painted and clicked.
class Witness : public QPushButton
{
public:
    using QPushButton::QPushButton;

    int paints = 0;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        ++paints;
        QPushButton::paintEvent(event);
    }
};

/// A user in front of an operation that lasts until somebody ends it.
class OperationWaiterTest : public WindowTest
{
protected:
    OperationWaiterTest()
    {
        openFlow();
        showWindow();
        session.setInterrupted(false);
        m_watchdog.start();
    }

    static QDialog* progressWindow() { return qobject_cast<QDialog*>(QApplication::activeModalWidget()); }

    static QProgressBar& bar() { return *progressWindow()->findChild<QProgressBar*>(); }
    static QPushButton& cancel() { return *progressWindow()->findChild<QPushButton*>(); }

    static void click(QWidget& widget)
    {
        QTest::mouseClick(widget.window()->windowHandle(), Qt::LeftButton, {},
                          widget.mapTo(widget.window(), widget.rect().center()));
    }

    /// Runs @p user as soon as the progress window is there, again and again until it says that it is through.
    void whileWaiting(std::function<bool()> const& user)
    {
        QTimer::singleShot(5, window.get(), [this, user] {
            if (!progressWindow() || !user())
                whileWaiting(user);
        });
    }

    /// Works on another thread until it is ended or cancelled, no longer than ten seconds.
    /// @return whether it came to its end
    bool wait(double fraction = 0.25)
    {
        app::OperationWaiter waiter(session, *window);
        m_progress.setTotal(100);
        m_progress.advance(static_cast<std::int64_t>(100 * fraction));
        std::shared_future<void> const work = std::async(std::launch::async, [this] {
            while (!m_mayEnd && m_watchdog.elapsed() < 10000) {
                m_progress.check();
                std::this_thread::sleep_for(1ms);
            }
        });
        waiter.wait("Create Mirror Zone", m_progress, work);
        EXPECT_EQ(std::future_status::ready, work.wait_for(0s));
        EXPECT_LT(m_watchdog.elapsed(), 10000);
        EXPECT_FALSE(QApplication::activeModalWidget());
        try {
            work.get();
            return true;
        } catch (kernel::Interrupted const&) {
            return false;
        }
    }

    void end() { m_mayEnd = true; }
    qint64 elapsed() const { return m_watchdog.elapsed(); }

    kernel::Progress m_progress;
    std::atomic<bool> m_mayEnd{false};
    QElapsedTimer m_watchdog;
};

} // namespace

TEST_F(OperationWaiterTest, ShowsNoWindowInTheFirstHalfSecond)
{
    bool wasSeen = false;
    QTimer look;
    look.start(1);
    QObject::connect(&look, &QTimer::timeout, window.get(), [&] { wasSeen = wasSeen || progressWindow(); });
    std::thread ending([this] {
        std::this_thread::sleep_for(100ms);
        end();
    });
    EXPECT_TRUE(wait());
    ending.join();
    settle();
    EXPECT_FALSE(wasSeen);
}

TEST_F(OperationWaiterTest, ShowsTheNameAndHowFarItIsAfterHalfASecond)
{
    qint64 appeared = 0;
    whileWaiting([&] {
        appeared = elapsed();
        EXPECT_EQ(QStringLiteral("Create Mirror Zone"), progressWindow()->windowTitle());
        EXPECT_EQ(QStringLiteral("Create Mirror Zone ..."), progressWindow()->findChild<QLabel*>()->text());
        EXPECT_EQ(250, bar().value());
        EXPECT_EQ(1000, bar().maximum());
        m_progress.advance(50);
        EXPECT_TRUE(QTest::qWaitFor([&] { return bar().value() == 750; }));
        end();
        return true;
    });
    EXPECT_TRUE(wait());
    EXPECT_GE(appeared, 500);
    EXPECT_FALSE(session.isInterrupted());
}

TEST_F(OperationWaiterTest, ShowsThatSomethingGoesOnWhenTheWorkIsNotCounted)
{
    whileWaiting([&] {
        EXPECT_EQ(0, bar().maximum());
        end();
        return true;
    });
    EXPECT_TRUE(wait(0.0));
}

TEST_F(OperationWaiterTest, CancelByTheMouseIsAnsweredAtOnceAndEndsTheOperation)
{
    qint64 asked = 0;
    whileWaiting([&] {
        asked = elapsed();
        click(cancel());
        EXPECT_FALSE(cancel().isEnabled());
        EXPECT_EQ(QStringLiteral("Cancelling ..."), cancel().text());
        EXPECT_TRUE(progressWindow()->isVisible()) << "it stays until the operation has ended";
        return true;
    });
    EXPECT_FALSE(wait());
    EXPECT_LT(elapsed() - asked, 5000) << "else the work would have gone on for ten seconds";
    EXPECT_TRUE(VelUtilInterruptIsSet());
}

TEST_F(OperationWaiterTest, EscapeCancels)
{
    whileWaiting([&] {
        QTest::keyClick(progressWindow()->windowHandle(), Qt::Key_Escape);
        EXPECT_FALSE(cancel().isEnabled());
        return true;
    });
    EXPECT_FALSE(wait());
    EXPECT_TRUE(VelUtilInterruptIsSet());
}

TEST_F(OperationWaiterTest, ClosingTheProgressWindowCancels)
{
    whileWaiting([&] {
        progressWindow()->close();
        EXPECT_TRUE(progressWindow()->isVisible());
        return true;
    });
    EXPECT_FALSE(wait());
}

TEST_F(OperationWaiterTest, ReturnDoesNotCancel)
{
    whileWaiting([&] {
        QTest::keyClick(progressWindow()->windowHandle(), Qt::Key_Return);
        EXPECT_TRUE(cancel().isEnabled());
        end();
        return true;
    });
    EXPECT_TRUE(wait());
}

TEST_F(OperationWaiterTest, ASecondCancelDoesNothing)
{
    qsizetype cancels = 0;
    whileWaiting([&] {
        app::ProgressWindow& shown = dynamic_cast<app::ProgressWindow&>(*progressWindow());
        QSignalSpy const spy(&shown, &app::ProgressWindow::cancelled);
        shown.reject();
        shown.reject();
        cancels = spy.count();
        return true;
    });
    EXPECT_FALSE(wait());
    EXPECT_EQ(1, cancels);
}

TEST_F(OperationWaiterTest, TheMainWindowGoesOnBeingPainted)
{
    auto* const witness = new Witness(QStringLiteral("witness"), middle);
    witness->show();
    settle();
    whileWaiting([&] {
        int const before = witness->paints;
        witness->update();
        EXPECT_TRUE(QTest::qWaitFor([&] { return witness->paints > before; }));
        end();
        return true;
    });
    EXPECT_TRUE(wait());
}

TEST_F(OperationWaiterTest, IdleAndCommandsAreHeldBackUntilItHasEnded)
{
    bool hasRun = false;
    sdk::ui::common::OnIdleActionPerformerSingleShot idle([&] { hasRun = true; });
    whileWaiting([&] {
        idle.enableNotification();
        QTest::qWait(20);
        EXPECT_FALSE(hasRun);
        EXPECT_EQ(1, sdk::AppLock::depth());
        end();
        return true;
    });
    EXPECT_TRUE(wait());
    EXPECT_EQ(0, sdk::AppLock::depth());
    settle();
    EXPECT_TRUE(hasRun);
}

TEST_F(OperationWaiterTest, KeysClicksAndDropsReachNoOtherWindow)
{
    session.perform(kernel::RenameZone(*session.activeDataSet(), 1, "renamed"));
    settle();
    Witness dialogButton(QStringLiteral("&Create")); // of a dialog that stands beside the main window
    int clicks = 0;
    QObject::connect(&dialogButton, &QPushButton::clicked, &dialogButton, [&] { ++clicks; });
    dialogButton.show();
    QString const path = writeFile(QStringLiteral("other.csv"), goodTable());
    whileWaiting([&] {
        QTest::mouseClick(&dialogButton, Qt::LeftButton);
        QTest::keyClick(&dialogButton, Qt::Key_Space);
        QTest::keyClick(&dialogButton, Qt::Key_C, Qt::AltModifier);
        QTest::mouseClick(dialogButton.windowHandle(), Qt::LeftButton, {}, QPoint(10, 10));
        QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
        QTest::keyClick(window->windowHandle(), Qt::Key_Z, Qt::ControlModifier);
        QMimeData files;
        files.setUrls({QUrl::fromLocalFile(path)});
        QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.get(), &enter);
        EXPECT_FALSE(enter.isAccepted());
        QDropEvent drop(QPointF(9, 9), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.get(), &drop);
        QTest::qWait(20);
        end();
        return true;
    });
    EXPECT_TRUE(wait());
    settle();
    EXPECT_EQ(0, clicks);
    EXPECT_EQ("Rename Zone", session.history().undoName()) << "nothing was undone";
    EXPECT_EQ("flow", session.activeFrame()->name) << "nothing was opened";
}

TEST_F(OperationWaiterTest, CommandsThatAreStartedAllTheSameAreRefused)
{
    session.perform(kernel::RenameZone(*session.activeDataSet(), 1, "renamed"));
    settle();
    QString const path = writeFile(QStringLiteral("other.csv"), goodTable());
    whileWaiting([&] {
        for (QAction* const command : window->findChildren<QAction*>())
            if (command->objectName() == QLatin1String("undoAction") ||
                command->objectName() == QLatin1String("openAction") ||
                command->objectName() == QLatin1String("newFrameAction") ||
                command->objectName() == QLatin1String("plotType3DAction") ||
                command->objectName() == QLatin1String("duplicateZoneAction"))
                command->trigger();
        EXPECT_FALSE(window->openFiles({path}, app::DocumentController::Place::FreshPage));
        end();
        return true;
    });
    EXPECT_TRUE(wait());
    settle();
    EXPECT_EQ("Rename Zone", session.history().undoName());
    EXPECT_EQ(1U, session.activePage()->frames.size());
    EXPECT_EQ(PlotType_Cartesian2D, session.activeFrame()->plotType);
    for (QWidget* const widget : QApplication::topLevelWidgets())
        EXPECT_FALSE(qobject_cast<QDialog*>(widget) && widget->isVisible()) << "no dialog opens";
}

TEST_F(OperationWaiterTest, TheMainWindowCannotBeClosedMeanwhile)
{
    whileWaiting([&] {
        EXPECT_FALSE(window->close());
        EXPECT_TRUE(window->isVisible());
        end();
        return true;
    });
    EXPECT_TRUE(wait());
    EXPECT_TRUE(window->close());
}

TEST_F(OperationWaiterTest, StandsThatTheWindowBelowGoesWithTheProgressWindow)
{
    auto* const below = new QDialog;
    below->show();
    QApplication::setActiveWindow(below);
    // Without a window manager no window ever gets the focus.
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == below; }));
    whileWaiting([&] {
        EXPECT_EQ(below, progressWindow()->parentWidget());
        delete below;
        EXPECT_FALSE(QApplication::activeModalWidget());
        QTimer::singleShot(50, window.get(), [this] { end(); });
        return true;
    });
    EXPECT_TRUE(wait());
}

TEST_F(OperationWaiterTest, ShowsAnArrowOverTheBusyCursor)
{
    sdk::WaitState const busy;
    whileWaiting([&] {
        EXPECT_EQ(Qt::ArrowCursor, QApplication::overrideCursor()->shape());
        end();
        return true;
    });
    EXPECT_TRUE(wait());
    EXPECT_EQ(Qt::WaitCursor, QApplication::overrideCursor()->shape());
}

TEST_F(OperationWaiterTest, TheEndOfTheProgramInterruptsIt)
{
    bool isDone = true;
    QTimer::singleShot(0, window.get(), [&] {
        whileWaiting([] {
            QCoreApplication::exit(3);
            return true;
        });
        isDone = wait();
    });
    EXPECT_EQ(3, QApplication::exec());
    EXPECT_FALSE(isDone);
}

} // namespace veldraw::tests
