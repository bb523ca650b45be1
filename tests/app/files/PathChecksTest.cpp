#include "app/files/PathChecks.h"

#include "app/files/ImportError.h"
#include "tests/app/support/FileHelpers.h"

#include <gtest/gtest.h>
#include <iterator>
#include <sys/stat.h>

namespace veldraw::tests {

namespace {

std::string problemWithOpening(std::string const& path)
{
    try {
        app::openToRead(path);
        return {};
    } catch (app::ImportError const& error) {
        return error.what();
    }
}

} // namespace

TEST(PathChecks, OpenRegularFilesFromTheirStart)
{
    TemporaryFolder const folder;
    std::ifstream file = app::openToRead(folder.write("a", std::string("ab\0c", 4)));
    EXPECT_EQ((std::string{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()}),
              std::string("ab\0c", 4));
}

TEST(PathChecks, WaitForNoPipeThatHasTakenThePlaceOfAFile)
{
    TemporaryFolder const folder;
    ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(problemWithOpening(folder.path("pipe")), "it is no regular file");
    EXPECT_EQ(problemWithOpening("/dev/zero"), "it is no regular file");
    EXPECT_EQ(problemWithOpening(folder.path("")), "it is no regular file");
    EXPECT_EQ(problemWithOpening(folder.path("nothing")), "there is no such file");
}

} // namespace veldraw::tests
