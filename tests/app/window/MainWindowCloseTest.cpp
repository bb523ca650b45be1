#include "app/window/HelpViewer.h"
#include "kernel/operations/DeleteVariables.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "tests/app/support/WindowTest.h"

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QSettings>
#include <QTest>

namespace veldraw::tests {

namespace {

class CloseTest : public WindowTest
{
};

} // namespace

TEST_F(CloseTest, QuitClosesTheWindowAndTheHelp)
{
    showWindow();
    window->helpViewer().openIndex();
    QTest::keyClick(window.get(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(window->helpViewer().isVisible());
}

TEST_F(CloseTest, IsRefusedWhileTheApplicationIsLocked)
{
    showWindow();
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    action("quitAction").trigger();
    EXPECT_TRUE(window->isVisible());
}

TEST_F(CloseTest, AsksAboutUnsavedChanges)
{
    openFlow();
    showWindow();
    session.perform(kernel::DeleteVariables(*session.activeDataSet(), {3}));
    QString question;
    answerModal(Qt::Key_Escape, &question);
    action("quitAction").trigger();
    EXPECT_EQ(QStringLiteral("unsavedQuestion"), question);
    EXPECT_TRUE(window->isVisible());
}

TEST_F(CloseTest, KeepsSizeAndDocks)
{
    showWindow();
    window->resize(700, 500);
    window->findChild<QDockWidget*>(QStringLiteral("messageDock"))->hide();
    action("quitAction").trigger();
    showWindow();
    EXPECT_EQ(QSize(700, 500), window->size());
    EXPECT_FALSE(window->findChild<QDockWidget*>(QStringLiteral("messageDock"))->isVisible());
    EXPECT_TRUE(window->findChild<QDockWidget*>(QStringLiteral("dataDock"))->isVisible());
}

TEST_F(CloseTest, DamagedSettingsDoNoHarm)
{
    QSettings().setValue(QStringLiteral("window/geometry"), QByteArray("rubbish"));
    QSettings().setValue(QStringLiteral("window/state"), QByteArray("rubbish"));
    showWindow();
    EXPECT_TRUE(window->findChild<QDockWidget*>(QStringLiteral("dataDock"))->isVisible());
}

TEST_F(CloseTest, LeavesNoListenersBehind)
{
    int const before = session.events().listenerCount();
    for (int i = 0; i < 20; ++i) {
        showWindow();
        window.reset();
    }
    EXPECT_EQ(before, session.events().listenerCount());
    EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
}

} // namespace veldraw::tests
