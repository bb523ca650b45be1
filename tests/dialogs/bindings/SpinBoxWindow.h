#pragma once

#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/support/RecordedMessages.h"
#include "tests/dialogs/support/SpinBoxDriver.h"

#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <QWidget>

#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace veldraw::tests {

/// A window with a spin box and another field, as a dialog has them.
template <typename Box>
class SpinBoxWindow : public ::testing::Test
{
protected:
    SpinBoxWindow()
    {
        auto* const layout = new QVBoxLayout(&window);
        box = new Box(&window);
        elsewhere = new QLineEdit(&window);
        layout->addWidget(box);
        layout->addWidget(elsewhere);
        driver = std::make_unique<SpinBoxDriver>(*box);
    }

    /// Shows the window; the focus is elsewhere.
    void show()
    {
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        elsewhere->setFocus();
    }

    void clickElsewhere() { QTest::mouseClick(elsewhere, Qt::LeftButton); }

    static void idle() { sdk::ui::common::IdleDispatcher::flush(); }

    /// What the box shows once all writes are made.
    std::string settled()
    {
        idle();
        return driver->text();
    }

    QWidget window;
    Box* box = nullptr; // the window's
    QLineEdit* elsewhere = nullptr;
    std::unique_ptr<SpinBoxDriver> driver;
    RecordedMessages messages;
};

} // namespace veldraw::tests
