#include "app/recovery/StampedFile.h"

#include "tests/app/support/FileHelpers.h"

#include <fcntl.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace veldraw::tests {

using app::StampedFile;
using ::testing::HasSubstr;

TEST(StampedFile, KnowsWhetherItHasChanged)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("a.csv", "1234");
    StampedFile const file = StampedFile::of(path);
    EXPECT_EQ(4, file.size);
    EXPECT_EQ("", file.difference());
    timespec const times[2] = {{1700000000, 5}, {1700000000, 5}};
    ASSERT_EQ(0, ::utimensat(AT_FDCWD, path.c_str(), times, 0));
    EXPECT_THAT(file.difference(), HasSubstr("a.csv\" has been changed since."));
    EXPECT_EQ(1700000000000000005, StampedFile::of(path).modified);
    StampedFile const later = StampedFile::of(path);
    folder.write("a.csv", "12345");
    ASSERT_EQ(0, ::utimensat(AT_FDCWD, path.c_str(), times, 0));
    EXPECT_THAT(later.difference(), HasSubstr("has been changed since."));
}

TEST(StampedFile, KnowsThatItIsGone)
{
    TemporaryFolder const folder;
    StampedFile const other = StampedFile::of(folder.write("b.csv", "1"));
    StampedFile const file = StampedFile::of(folder.write("a.csv", "1"));
    std::filesystem::remove(file.path);
    EXPECT_THAT(file.difference(), HasSubstr("a.csv\" is no longer there."));
    EXPECT_EQ(file.difference(), app::differenceOf({other, file}));
    EXPECT_EQ("", app::differenceOf({other}));
    EXPECT_NE("", StampedFile::of(file.path).difference()) << "what was never there is no file to repeat work on";
}

} // namespace veldraw::tests
