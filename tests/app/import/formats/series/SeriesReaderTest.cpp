// Lists of files, and files numbered by their names, as transient data sets.
#include "app/import/formats/series/SeriesReader.h"

#include "kernel/data/TimeStrands.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridSamples.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

namespace fs = std::filesystem;

class SeriesTest : public ::testing::Test
{
protected:
    /// A grid whose P is @p value at each point.
    void writeStep(std::string const& name, double value)
    {
        auto const grid = structuredGrid(2, 2, 1);
        addPointValues(*grid, "P", std::vector<double>(4, value));
        writeXml(*grid, folder.path(name));
    }

    std::string collection(std::string const& entries, std::string const& name = "all.pvd")
    {
        return folder.write(name, R"(<VTKFile type="Collection" version="0.1"><Collection>)" + entries +
                                      "</Collection></VTKFile>");
    }

    static std::string entry(std::string const& time, std::string const& file, std::string const& more = {})
    {
        return "<DataSet timestep=\"" + time + "\" file=\"" + file + "\" " + more + "/>";
    }

    std::string problem(std::string const& path)
    {
        std::string const text = problemWith(path);
        std::string const start = "Cannot open \"" + path + "\": ";
        EXPECT_EQ(text.substr(0, start.size()), start);
        return text.substr(std::min(start.size(), text.size()));
    }

    /// Strand, time and P of each zone.
    static std::string strandsOf(kernel::DataSet const& dataSet)
    {
        std::string text;
        for (int zone = 1; zone <= dataSet.zoneCount(); ++zone) {
            kernel::Zone const& found = *dataSet.zone(zone);
            std::string const strand = found.strand == kernel::staticStrand ? "-" : std::to_string(found.strand);
            std::string const values = valuesOf(dataSet, zone, "P");
            text += strand + " " + std::to_string(found.solutionTime).substr(0, 4) + " " +
                    values.substr(0, values.find(' ')) + "; ";
        }
        return text;
    }

    TemporaryFolder folder;
};

} // namespace

TEST_F(SeriesTest, ACollectionHasAStrandForEachPart)
{
    for (int step = 0; step < 2; ++step)
        for (std::string const part : {"a", "b"})
            writeStep(part + std::to_string(step) + ".vts", 10 * step + (part == "b" ? 1 : 0));
    auto const data = import(collection(entry("0.25", "a0.vts", "part=\"0\"") + entry("0.25", "b0.vts", "part=\"1\"") +
                                        entry("1.5", "a1.vts", "part=\"0\"") + entry("1.5", "b1.vts", "part=\"1\"")))
                          .dataSet;
    EXPECT_EQ(strandsOf(*data), "1 0.25 0; 2 0.25 1; 1 1.50 10; 2 1.50 11; ");
    EXPECT_EQ(data->title(), "all.pvd");
    EXPECT_EQ(data->zone(3)->name, "a1");
    EXPECT_EQ(data->variableCount(), 4) << "X, Y, Z and P of all";
    EXPECT_THAT(data->loaderInstructions()[0].words,
                ElementsAre("FILENAME_", folder.path("all.pvd"), "FILELIST_", "4", folder.path("a0.vts"),
                            folder.path("b0.vts"), folder.path("a1.vts"), folder.path("b1.vts")));
}

TEST_F(SeriesTest, GroupsOfACollectionAreParts)
{
    writeStep("a.vts", 1);
    writeStep("b.vts", 2);
    auto const data =
        import(collection(entry("0", "a.vts", "group=\"g\"") + entry("1", "b.vts", "group=\"h\""))).dataSet;
    EXPECT_EQ(strandsOf(*data), "1 0.00 1; 2 1.00 2; ");
}

TEST_F(SeriesTest, FilesOfOneMomentAreStaticParts)
{
    writeStep("a.vts", 1);
    writeStep("b.vts", 2);
    auto const data = import(collection(entry("3", "a.vts") + entry("3", "b.vts", "part=\"1\" name=\"Wall\""))).dataSet;
    EXPECT_EQ(strandsOf(*data), "- 0.00 1; - 0.00 2; ");
    EXPECT_EQ(data->zone(1)->name, "a");
    EXPECT_EQ(data->zone(2)->name, "Wall");
}

TEST_F(SeriesTest, AListInJsonHasItsTimes)
{
    writeStep("a.vts", 1);
    writeStep("b.vts", 2);
    writeStep("c.vts", 3);
    auto const data = import(folder.write("wake.vts.series", R"({"file-series-version": "1.0", "files": [
        {"name": "c.vts", "time": 0.5}, {"name": "b.vts", "time": -1}, {"name": "a.vts"}]})"))
                          .dataSet;
    EXPECT_EQ(strandsOf(*data), "1 0.50 3; 1 -1.0 2; 1 2.00 1; ");
    EXPECT_EQ(kernel::zonesAt(*data, 1.0), (kernel::NumberSet{1}));
}

TEST_F(SeriesTest, FilesNamedAlikeHaveTheirNumbersAsTimes)
{
    QStringList paths;
    for (int const number : {3, 10, 2}) {
        writeStep("wake_" + std::to_string(number) + ".vts", number);
        paths << QString::fromStdString(folder.path("wake_" + std::to_string(number) + ".vts"));
    }
    std::vector<app::FileGroup> const groups = app::groupsOf(paths);
    ASSERT_EQ(groups.size(), 1U);
    kernel::Progress unwatched;
    auto const data = app::importGroup(groups[0], app::Deferral::Auto, unwatched).dataSet;
    EXPECT_EQ(strandsOf(*data), "1 2.00 2; 1 3.00 3; 1 10.0 10; ");
    EXPECT_EQ(data->title(), "wake");
}

TEST_F(SeriesTest, BlocksOfOneNameAreAStrand)
{
    for (int step = 0; step < 2; ++step) {
        std::string const number = std::to_string(step);
        writeStep("w" + number + ".vts", 10 * step);
        writeStep("i" + number + ".vts", 10 * step + 1);
        std::string const wall = "<DataSet name=\"wall\" file=\"w" + number + ".vts\"/>";
        std::string const inlet = "<DataSet name=\"inlet\" file=\"i" + number + ".vts\"/>";
        folder.write("m" + number + ".vtm",
                     "<VTKFile type=\"vtkMultiBlockDataSet\" version=\"1.0\"><vtkMultiBlockDataSet>" +
                         (step == 0 ? wall + inlet : inlet + wall) + "</vtkMultiBlockDataSet></VTKFile>");
    }
    auto const data = import(collection(entry("0", "m0.vtm") + entry("1", "m1.vtm"))).dataSet;
    EXPECT_EQ(strandsOf(*data), "1 0.00 0; 2 0.00 1; 2 1.00 11; 1 1.00 10; ");
}

TEST_F(SeriesTest, TimesOfTheListCountWhateverTheFilesSay)
{
    auto const grid = structuredGrid(2, 2, 1);
    addFact(*grid, "TimeValue", 77.0);
    addFact(*grid, "StrandId", 9.0);
    writeXml(*grid, folder.path("a.vts"));
    writeXml(*grid, folder.path("b.vts"));
    auto const data = import(collection(entry("1", "a.vts") + entry("2", "b.vts"))).dataSet;
    EXPECT_EQ(data->zone(1)->solutionTime, 1.0);
    EXPECT_EQ(data->zone(2)->solutionTime, 2.0);
    EXPECT_EQ(data->zone(1)->strand, data->zone(2)->strand);
}

TEST_F(SeriesTest, WhatIsLeftInTheFilesCanBeLoaded)
{
    writeStep("a.vts", 1);
    writeStep("b.vts", 2);
    auto const data = import(collection(entry("1", "a.vts") + entry("2", "b.vts")), app::Deferral::Always).dataSet;
    EXPECT_EQ(valuesOf(*data, 2, "P"), "not loaded");
    loadAll(*data);
    EXPECT_EQ(valuesOf(*data, 2, "P"), "2 2 2 2");
}

TEST_F(SeriesTest, DamagedListsAreRefusedInWords)
{
    writeStep("a.vts", 1);
    EXPECT_EQ(problem(collection("")), "it names no files.");
    EXPECT_EQ(problem(collection(entry("soon", "a.vts"))), "its time step \"soon\" is no number (line 1).");
    EXPECT_EQ(problem(collection(entry("nan", "a.vts"))), "its time step \"nan\" is no number (line 1).");
    EXPECT_EQ(problem(collection(entry("1", ""))), "a part of it names no file (line 1).");
    EXPECT_THAT(problem(collection(entry("1", "a.vts") + "<")), HasSubstr("it is damaged or incomplete ("));
    EXPECT_EQ(problem(folder.write("b.pvd", "<VTKFile type=\"ImageData\"/>")), "it is no collection of VTK XML files.");
    EXPECT_EQ(problem(folder.write("c.pvd", "no XML")), "it is no collection of VTK XML files.");
    EXPECT_THAT(problem(collection(entry("1", "gone.vts"))), HasSubstr("its part \"gone.vts\": "));
    EXPECT_EQ(problem(collection(entry("1", "a.pvd"), "all2.pvd")),
              "its part \"a.pvd\": a list of files cannot be a part of another one.");
    folder.write("a.png", "1");
    EXPECT_THAT(problem(collection(entry("1", "a.png"))), HasSubstr("its part \"a.png\": files of this kind (.png)"));
    auto const json = [&](std::string const& text) { return problem(folder.write("a.series", text)); };
    EXPECT_THAT(json("{"), HasSubstr("it is damaged or incomplete ("));
    EXPECT_EQ(json("[]"), "it has no list of \"files\".");
    EXPECT_EQ(json(R"({"files": 3})"), "it has no list of \"files\".");
    EXPECT_EQ(json(R"({"files": []})"), "it names no files.");
    EXPECT_EQ(json(R"({"files": [{"name": "a.vts"}, {"time": 1}]})"), "entry 2 of its \"files\" names no file.");
    EXPECT_EQ(json(R"({"files": [{"name": "a.vts", "time": "1"}]})"),
              "entry 1 of its \"files\" has a time that is no number.");
}

TEST_F(SeriesTest, FilesOutsideOfTheFolderAreAskedAbout)
{
    fs::create_directory(folder.path("inner"));
    writeStep("a.vts", 1);
    for (std::string const& path :
         {collection(entry("0", "../a.vts"), "inner/all.pvd"),
          folder.write("inner/a.series", R"({"files": [{"name": "../a.vts", "time": 1}]})")}) {
        try {
            import(path);
            ADD_FAILURE() << path << " was opened";
        } catch (app::OutsidePathsError const& error) {
            EXPECT_THAT(error.paths(), ElementsAre(folder.path("a.vts")));
        }
        kernel::Progress unwatched;
        EXPECT_EQ(
            app::importFile(QString::fromStdString(path), app::Deferral::Auto, unwatched, app::OutsidePaths::Follow)
                .dataSet->zoneCount(),
            1);
    }
}

TEST_F(SeriesTest, ARemarkOnAllFilesIsMadeOnce)
{
    auto const empty = structuredGrid(0, 0, 0);
    writeXml(*empty, folder.path("e.vts"));
    writeStep("a.vts", 1);
    auto const result = import(collection(entry("0", "e.vts") + entry("1", "a.vts") + entry("2", "e.vts")));
    EXPECT_THAT(result.remarks, ElementsAre("\"e.vts\": Block \"e\" has no points and was left out"));
    EXPECT_EQ(result.dataSet->zoneCount(), 1);
}

} // namespace veldraw::tests
