#include "app/export/writing/WriteReason.h"

#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/FullDisk.h"

#include <cerrno>
#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace veldraw::tests {

TEST(WriteReason, IsInWordsForWhatHappensToSaves)
{
    EXPECT_EQ(app::reasonOf(ENOSPC), "the disk is full");
    EXPECT_EQ(app::reasonOf(ENOENT), "there is no such folder");
    EXPECT_EQ(app::reasonOf(EACCES), "you have no permission to write there");
    for (int const error : {EDQUOT, EFBIG, EPERM, EIO, ENOTDIR, ENAMETOOLONG, EINVAL, ELOOP, EBUSY, ETXTBSY, EMFILE,
                            ENFILE, ENOMEM, ESTALE, EHOSTDOWN, ETIMEDOUT, EROFS})
        EXPECT_NE(app::reasonOf(error), std::strerror(error)) << "a text for programmers";
}

TEST(WriteReason, IsFoundOutWhereNobodyToldIt)
{
    TemporaryFolder const folder;
    EXPECT_EQ(app::whyNotWritten(folder.path("no/a.vts"), 10), "there is no such folder");
    EXPECT_EQ(app::whyNotWritten(folder.path("a.vts"), 10),
              "the file could not be written; the disk may be full or failing");
    FullDisk const full;
    EXPECT_EQ(app::whyNotWritten(folder.path("b.vts"), 10), "it would be larger than a file may be");
}

} // namespace veldraw::tests
