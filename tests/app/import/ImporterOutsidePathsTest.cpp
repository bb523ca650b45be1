// Files that name others outside of their folder.
#include "app/import/Importer.h"
#include "kernel/base/Progress.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridSamples.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using ::testing::ElementsAre;

namespace {

namespace fs = std::filesystem;

std::string blocksOf(std::vector<std::string> const& files)
{
    std::string text = "<VTKFile type=\"vtkMultiBlockDataSet\" version=\"1.0\"><vtkMultiBlockDataSet>";
    for (std::string const& file : files)
        text += "<DataSet name=\"block\" file=\"" + file + "\"/>";
    return text + "</vtkMultiBlockDataSet></VTKFile>";
}

std::string imageNaming(std::string const& values)
{
    return "ObjectType = Image\nNDims = 1\nDimSize = 3\nElementType = MET_UCHAR\nElementDataFile = " + values + "\n";
}

app::ImportResult importFollowing(std::string const& path)
{
    kernel::Progress unwatched;
    return app::importFile(QString::fromStdString(path), app::Deferral::Auto, unwatched, app::OutsidePaths::Follow);
}

std::vector<std::string> outsidePathsOf(std::string const& path)
{
    try {
        import(path);
        return {};
    } catch (app::OutsidePathsError const& error) {
        return error.paths();
    }
}

// A folder "inner" in which files name others beside it.
class OutsidePathsTest : public ::testing::Test
{
protected:
    OutsidePathsTest()
    {
        fs::create_directory(folder.path("inner"));
        writeXml(*structuredGrid(2, 3, 1), folder.path("outer.vts"));
        fs::copy_file(folder.path("outer.vts"), folder.path("inner/near.vts"));
        folder.write("outer.raw", "\1\2\3");
    }

    TemporaryFolder folder;
};

} // namespace

TEST_F(OutsidePathsTest, AreRefusedWithThePlacesThatTheyLeadTo)
{
    std::string const path = folder.write("inner/a.vtm", blocksOf({"near.vts", "../outer.vts"}));
    EXPECT_EQ(problemWith(path), "Cannot open \"" + path + "\": it names files outside of its folder: \"" +
                                     folder.path("outer.vts") + "\".");
    EXPECT_THAT(outsidePathsOf(path), ElementsAre(folder.path("outer.vts")));
    EXPECT_THAT(outsidePathsOf(folder.write("inner/b.vtm", blocksOf({folder.path("outer.vts")}))),
                ElementsAre(folder.path("outer.vts")));
    for (std::string const& values : {std::string("../outer.raw"), folder.path("outer.raw")}) {
        std::string const image = folder.write("inner/a.mhd", imageNaming(values));
        EXPECT_EQ(problemWith(image), "Cannot open \"" + image + "\": it names files outside of its folder: \"" +
                                          folder.path("outer.raw") + "\".");
    }
}

TEST_F(OutsidePathsTest, AreFollowedWhenTheUserWantsIt)
{
    auto const blocks = importFollowing(folder.write("inner/a.vtm", blocksOf({"near.vts", "../outer.vts"}))).dataSet;
    EXPECT_EQ(blocks->zoneCount(), 2);
    for (std::string const& values : {std::string("../outer.raw"), folder.path("outer.raw")}) {
        auto const image = importFollowing(folder.write("inner/a.mhd", imageNaming(values))).dataSet;
        EXPECT_EQ(valuesOf(*image, 1, "Value"), "1 2 3");
    }
}

// Otherwise the message would tell who wrote the file what else there is.
TEST_F(OutsidePathsTest, AreRefusedBeforeAnybodyLooksAtThem)
{
    EXPECT_THAT(outsidePathsOf(folder.write("inner/a.vtm", blocksOf({"missing.vts", "../none.vts"}))),
                ElementsAre(folder.path("none.vts")));
    EXPECT_THAT(outsidePathsOf(folder.write("inner/a.mhd", imageNaming("../none.raw"))),
                ElementsAre(folder.path("none.raw")));
}

TEST_F(OutsidePathsTest, AreNoneInTheFolderAndBelow)
{
    fs::create_directory(folder.path("inner/parts"));
    fs::copy_file(folder.path("outer.vts"), folder.path("inner/parts/far.vts"));
    EXPECT_EQ(problemWith(folder.write(
                  "inner/a.vtm", blocksOf({"parts/far.vts", "parts/../near.vts", folder.path("inner/near.vts")}))),
              "");
    fs::copy_file(folder.path("outer.raw"), folder.path("inner/near.raw"));
    EXPECT_EQ(problemWith(folder.write("inner/a.mhd", imageNaming("near.raw"))), "");
    EXPECT_EQ(problemWith(folder.write("inner/b.mhd", imageNaming(folder.path("inner/near.raw")))), "");
}

TEST_F(OutsidePathsTest, AreNoneBehindALinkThatTheUserMade)
{
    fs::create_symlink(folder.path("outer.vts"), folder.path("inner/link.vts"));
    fs::create_directory_symlink(folder.path("."), folder.path("inner/up"));
    EXPECT_EQ(problemWith(folder.write("inner/a.vtm", blocksOf({"link.vts", "up/outer.vts"}))), "");
}

TEST_F(OutsidePathsTest, AreNoneInWhatThisProgramSaves)
{
    auto const dataSet = import(folder.write("inner/a.vtm", blocksOf({"near.vts", "near.vts"}))).dataSet;
    fs::create_directory(folder.path("with blank ä"));
    for (char const* name :
         {"plain.vtm", "two words.vtm", "a.b.c.vtm", ".hidden.vtm", "..b.vtm", "with blank ä/c.vtm"}) {
        save(*dataSet, folder.path(name));
        EXPECT_EQ(problemWith(folder.path(name)), "") << name;
    }
    auto const before = fs::current_path();
    fs::current_path(folder.path("inner"));
    save(*dataSet, "here.vtm");
    save(*dataSet, "../there.vtm");
    EXPECT_EQ(problemWith("here.vtm"), "");
    EXPECT_EQ(problemWith("../there.vtm"), "");
    fs::current_path(before);
}

} // namespace veldraw::tests
