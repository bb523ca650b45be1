#include "dialogs/widgets/OverrideCursor.h"

#include <QApplication>
#include <QCursor>

#include <gtest/gtest.h>
#include <stdexcept>

namespace veldraw::tests {
namespace {

using veldraw::ui::OverrideCursor;

TEST(OverrideCursor, ShowsItsCursorForItsScopeAndNests)
{
    ASSERT_EQ(QApplication::overrideCursor(), nullptr);
    {
        OverrideCursor const waiting(Qt::WaitCursor);
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
        {
            OverrideCursor const crossing(Qt::CrossCursor);
            EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::CrossCursor);
        }
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST(OverrideCursor, GoesWhenAnExceptionLeavesItsScope)
{
    EXPECT_THROW(
        {
            OverrideCursor const waiting(Qt::WaitCursor);
            throw std::runtime_error("");
        },
        std::runtime_error);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

} // namespace
} // namespace veldraw::tests
