#include "app/files/NamedFiles.h"

#include "tests/app/support/FileHelpers.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

namespace fs = std::filesystem;

std::vector<std::string> outsideOf(std::string const& path, std::vector<std::string> const& names)
{
    try {
        app::requireInside(path, names, app::OutsidePaths::Refuse);
        return {};
    } catch (app::OutsidePathsError const& error) {
        return error.paths();
    }
}

std::string problemWithNames(std::vector<std::string> const& names)
{
    try {
        app::requireInside("/data/run/a.vtm", names, app::OutsidePaths::Refuse);
        return {};
    } catch (app::OutsidePathsError const& error) {
        return error.what();
    }
}

} // namespace

TEST(NamedFiles, StayInTheFolderAndInThoseBelow)
{
    EXPECT_THAT(outsideOf("/data/run/a.vtm", {"a.vtu", "a/b.vtu", "./a/../b.vtu", "a/b/../../c.vtu", "..vtu",
                                              "a..b/..c", "/data/run/b.vtu", "/data/run/x/../b.vtu"}),
                IsEmpty());
    EXPECT_THAT(outsideOf("/a.vtm", {"b.vtu", "/b/c.vtu"}), IsEmpty());
}

TEST(NamedFiles, AreOutsideWhereTheyLeadThere)
{
    EXPECT_THAT(outsideOf("/data/run/a.vtm", {"../b.vtu", "b/../../c.vtu", "../run2/d.vtu", "../../etc/passwd"}),
                ElementsAre("/data/b.vtu", "/data/c.vtu", "/data/run2/d.vtu", "/etc/passwd"));
    EXPECT_THAT(outsideOf("/data/run/a.vtm", {"/etc/passwd", "/data/run2/b.vtu", "/data/run/../b.vtu", "/"}),
                ElementsAre("/etc/passwd", "/data/run2/b.vtu", "/data/b.vtu", "/"));
    EXPECT_THAT(outsideOf("/data/run/a.vtm", {"a.vtu", "../b.vtu", "/data/b.vtu", "../b.vtu"}),
                ElementsAre("/data/b.vtu"));
}

TEST(NamedFiles, AreHeldAgainstTheFolderOfAFileThatIsNamedFromHere)
{
    fs::path const here = fs::current_path();
    EXPECT_THAT(outsideOf("a.vtm", {"b.vtu", (here / "b.vtu").string()}), IsEmpty());
    EXPECT_THAT(outsideOf("sub/a.vtm", {"../b.vtu"}), ElementsAre((here / "b.vtu").string()));
    EXPECT_THAT(outsideOf("sub/../a.vtm", {"b.vtu", (here / "b.vtu").string()}), IsEmpty());
}

// The user made it, and knows where it leads.
TEST(NamedFiles, MayBeBehindALinkInTheFolder)
{
    TemporaryFolder const folder;
    TemporaryFolder const other;
    fs::create_directory_symlink(other.path(""), folder.path("link"));
    EXPECT_THAT(outsideOf(folder.path("a.vtm"), {"link/b.vtu"}), IsEmpty());
}

TEST(NamedFiles, AreInsideAlsoWhereTheFolderWasReachedByALink)
{
    TemporaryFolder const folder;
    fs::create_directory(folder.path("real"));
    fs::create_directory_symlink(folder.path("real"), folder.path("link"));
    EXPECT_THAT(outsideOf(folder.path("link/a.mhd"), {folder.path("real/a.raw"), folder.path("link/a.raw")}),
                IsEmpty());
    EXPECT_THAT(outsideOf(folder.path("link/a.mhd"), {folder.path("a.raw")}), ElementsAre(folder.path("a.raw")));
}

// The system would take ".." behind a link for the folder above where the link leads.
TEST(NamedFiles, AreNotLedAstrayByALinkInTheMiddle)
{
    EXPECT_EQ(app::namedFile("/data/run/a.vtm", "link/../b.vtu"), "/data/run/b.vtu");
    EXPECT_EQ(app::namedFile("/data/run/a.vtm", "/data/run/link/../b.vtu"), "/data/run/b.vtu");
}

TEST(NamedFiles, KeepTheirFolder)
{
    EXPECT_EQ(app::namedFile("a.vtm", "a/b.vtu"), "a/b.vtu");
    EXPECT_EQ(app::namedFile("x/a.vtm", "b.vtu"), "x/b.vtu");
    EXPECT_EQ(app::namedFile("/data/run/a.vtm", "../b.vtu"), "/data/run/../b.vtu");
    EXPECT_EQ(app::namedFile("/data/run/a.vtm", "/etc/passwd"), "/etc/passwd");
}

TEST(NamedFiles, AreToldWithWhereTheyLead)
{
    EXPECT_EQ(problemWithNames({"../b.vtu"}), "it names files outside of its folder: \"/data/b.vtu\"");
    EXPECT_EQ(problemWithNames({"../1", "../2", "../3", "../4", "../5"}),
              "it names files outside of its folder: \"/data/1\", \"/data/2\", \"/data/3\" and 2 more");
}

TEST(NamedFiles, AreFollowedWhereThatIsAllowed)
{
    EXPECT_NO_THROW(app::requireInside("/data/run/a.vtm", {"../b.vtu", "/etc/passwd"}, app::OutsidePaths::Follow));
}

} // namespace veldraw::tests
