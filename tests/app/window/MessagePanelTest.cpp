#include "app/window/MessagePanel.h"

#include "host/MessageLog.h"
#include "platform/vdsdkbase/VelUtilDialog.h"
#include "tests/app/support/WindowTest.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QListWidget>
#include <QTest>

namespace veldraw::tests {

namespace {

class MessagePanelTest : public WindowTest
{
};

} // namespace

TEST_F(MessagePanelTest, ShowsWhatWasLoggedBeforeAndAfter)
{
    host::MessageLog::instance().add(MessageBoxType_Information, "before");
    app::MessagePanel panel;
    host::MessageLog::instance().add(MessageBoxType_Warning, "after");
    ASSERT_EQ(2, panel.list().count());
    EXPECT_TRUE(panel.list().item(0)->text().endsWith(QStringLiteral("  before")));
    EXPECT_TRUE(panel.list().item(1)->text().endsWith(QStringLiteral("  after")));
}

TEST_F(MessagePanelTest, WhatTheUserIsToldStandsThereToo)
{
    showWindow();
    VelUtilDialogErrMsg("something is wrong");
    auto* const list = window->findChild<QListWidget*>(QStringLiteral("messageView"));
    ASSERT_EQ(1, list->count());
    EXPECT_TRUE(list->item(0)->text().endsWith(QStringLiteral("something is wrong")));
    EXPECT_EQ(1u, messages.size());
}

TEST_F(MessagePanelTest, CtrlCCopiesTheSelectedLines)
{
    showWindow();
    host::MessageLog::instance().add(MessageBoxType_Information, "first");
    host::MessageLog::instance().add(MessageBoxType_Information, "second");
    auto* const list = window->findChild<QListWidget*>(QStringLiteral("messageView"));
    list->setFocus();
    list->selectAll();
    QTest::keyClick(list, Qt::Key_C, Qt::ControlModifier);
    QStringList const lines = QGuiApplication::clipboard()->text().split(QLatin1Char('\n'));
    ASSERT_EQ(2, lines.size());
    EXPECT_TRUE(lines[1].endsWith(QStringLiteral("second")));
}

} // namespace veldraw::tests
