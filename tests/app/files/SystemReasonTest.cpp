#include "app/files/SystemReason.h"

#include <cerrno>
#include <gtest/gtest.h>

namespace veldraw::tests {

TEST(SystemReason, SaysInPlainWordsWhatUsersMeet)
{
    EXPECT_EQ(app::systemReason(ENOENT), "there is no such file");
    EXPECT_EQ(app::systemReason(EACCES), "you have no permission");
    EXPECT_EQ(app::systemReason(ENOSPC), "the disk is full");
    EXPECT_EQ(app::systemReason(EIO), "the disk has failed");
}

TEST(SystemReason, LeavesTheRestToTheSystem)
{
    EXPECT_EQ(app::systemReason(ECHILD), "No child processes");
}

} // namespace veldraw::tests
