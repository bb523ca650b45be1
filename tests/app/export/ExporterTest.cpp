#include "app/export/Exporter.h"

#include "kernel/base/Progress.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/FullDisk.h"
#include "tests/app/support/GridSamples.h"
#include "tests/app/support/WatchedProgress.h"
#include "tests/support/WriteValue.h"

#include <vtkCellType.h>
#include <vtkMultiBlockDataSet.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkXMLMultiBlockDataReader.h>

#include <algorithm>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace veldraw::tests {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

namespace {

std::shared_ptr<kernel::DataSet> gridData(int zones = 1)
{
    auto dataSet = std::make_shared<kernel::DataSet>();
    dataSet->addVariable(std::make_shared<kernel::Variable>("X"));
    dataSet->addVariable(std::make_shared<kernel::Variable>("p"));
    for (int n = 0; n < zones; ++n) {
        auto zone = std::make_shared<kernel::Zone>("zone " + std::to_string(n + 1), ZoneType_Ordered, 3, 1, 1);
        auto x = kernel::Buffer::allocate(FieldDataType_Double, 3);
        for (int i = 0; i < 3; ++i)
            x->setValue(i, i + 10.0 * n);
        auto p = kernel::Buffer::allocate(FieldDataType_Float, 3);
        zone->fields = {kernel::Field(std::make_shared<kernel::ShareGroup>(x), ValueLocation_Nodal),
                        kernel::Field(std::make_shared<kernel::ShareGroup>(p), ValueLocation_CellCentered)};
        dataSet->addZone(zone);
    }
    return dataSet;
}

std::string problemSaving(kernel::DataSet const& data, std::string const& path)
{
    try {
        save(data, path);
        return {};
    } catch (app::ExportError const& error) {
        return error.what();
    }
}

} // namespace

TEST(Export, WritesTablesAsTheyAreUsuallyWritten)
{
    TemporaryFolder const folder;
    auto const remarks = save(*gridData(), folder.path("table.csv"));
    EXPECT_EQ(contentOf(folder.path("table.csv")), "X\n0\n1\n2\n");
    EXPECT_THAT(remarks, ElementsAre("Zone \"zone 1\": \"p\" is cell-centred and was left out"));
    EXPECT_EQ(folder.listing(), "table.csv") << "no temporary file is left";
}

TEST(Export, LeavesADeviceAlone)
{
    TemporaryFolder const folder;
    std::filesystem::create_symlink("/dev/full", folder.path("a.csv"));
    EXPECT_THAT(problemSaving(*gridData(), folder.path("a.csv")), HasSubstr("no file but a device"));
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

TEST(Export, WritesAZoneATableAndSaysSo)
{
    TemporaryFolder const folder;
    auto const remarks = save(*gridData(2), folder.path("table.csv"));
    EXPECT_EQ(folder.listing(), "table_tables table_tables/table_1.csv table_tables/table_2.csv");
    EXPECT_EQ(contentOf(folder.path("table_tables/table_2.csv")), "X\n10\n11\n12\n");
    EXPECT_THAT(remarks, ::testing::Contains(HasSubstr("2 files were written into the folder \"table_tables\"")));
}

TEST(Export, TellsHowFarItIs)
{
    TemporaryFolder const folder;
    for (char const* name : {"a.csv", "a.vtm"}) {
        std::vector<double> fractions;
        WatchedProgress progress([&](double fraction) {
            fractions.push_back(fraction);
            return true;
        });
        app::exportDataSet(*gridData(3), QString::fromStdString(folder.path(name)), progress);
        EXPECT_TRUE(std::is_sorted(fractions.begin(), fractions.end())) << name;
        ASSERT_GT(fractions.size(), 6U) << name;
        EXPECT_EQ(fractions.front(), 0.0) << name;
        EXPECT_GT(fractions[fractions.size() / 2], 0.0) << name;
        EXPECT_LE(fractions.back(), 1.0) << name;
    }
}

TEST(Export, ThatIsCancelledAtAnyMomentLeavesEverythingAsItWas)
{
    TemporaryFolder const folder;
    for (char const* name : {"a.csv", "c.vtm", "b.vts"})
        folder.write(name, "old");
    std::string const before = folder.listing();
    for (char const* name : {"a.csv", "c.vtm", "b.vts"}) {
        auto const data = gridData(std::string(name) == "b.vts" ? 1 : 3);
        int calls = 0;
        bool isDone = false;
        for (int last = 0; !isDone; ++last) {
            calls = 0;
            try {
                WatchedProgress progress([&](double) { return calls++ < last; });
                app::exportDataSet(*data, QString::fromStdString(folder.path(name)), progress);
                isDone = true;
            } catch (kernel::Interrupted const&) {
                ASSERT_EQ(calls, last + 1) << name << ": it is not asked again";
                ASSERT_EQ(folder.listing(), before) << name;
                ASSERT_EQ(contentOf(folder.path(name)), "old") << name;
            }
        }
        EXPECT_GT(calls, 2) << name;
        for (char const* added : {"a_tables", "c"})
            std::filesystem::remove_all(folder.path(added));
        folder.write(name, "old");
    }
}

TEST(Export, PutsThePiecesOfAMultiBlockFileIntoAFolderBesideIt)
{
    TemporaryFolder const folder;
    save(*gridData(2), folder.path("my data.vtm"));
    EXPECT_EQ(folder.listing(), "my data my data.vtm my data/my data_1.vts my data/my data_2.vts");
}

TEST(Export, WritesMultiBlockFilesThatVtkReads)
{
    TemporaryFolder const folder;
    save(*gridData(2), folder.path("data.vtm"));
    vtkNew<vtkXMLMultiBlockDataReader> reader;
    std::string const path = folder.path("data.vtm");
    reader->SetFileName(path.c_str());
    reader->Update();
    auto* const blocks = vtkMultiBlockDataSet::SafeDownCast(reader->GetOutputDataObject(0));
    ASSERT_NE(blocks, nullptr);
    ASSERT_EQ(blocks->GetNumberOfBlocks(), 2U);
    auto* const second = vtkDataSet::SafeDownCast(blocks->GetBlock(1));
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->GetPoint(2)[0], 12.0);
}

TEST(Export, RefusesFormatsThatDoNotFit)
{
    TemporaryFolder const folder;
    auto const mesh = import(writeXml(*unstructuredGrid(4, {{VTK_TETRA, {0, 1, 2, 3}}}), folder.path("m.vtu"))).dataSet;
    EXPECT_THAT(problemSaving(*gridData(2), folder.path("a.vts")), HasSubstr("there are 2; .vtm takes them all"));
    EXPECT_THAT(problemSaving(*gridData(), folder.path("a.vtu")), HasSubstr(".vts takes it"));
    EXPECT_THAT(problemSaving(*gridData(), folder.path("a.vtp")), HasSubstr(".vts takes it"));
    EXPECT_THAT(problemSaving(*mesh, folder.path("a.vts")), HasSubstr(".vtu takes it"));
    EXPECT_THAT(problemSaving(*mesh, folder.path("a.vti")), HasSubstr(".vtu takes it"));
    EXPECT_THAT(problemSaving(*mesh, folder.path("a.vtp")), HasSubstr(".vtu takes it"));
    EXPECT_THAT(problemSaving(*gridData(), folder.path("a.png")), HasSubstr("(.png) cannot be written"));
    EXPECT_THAT(problemSaving(kernel::DataSet(), folder.path("a.vtm")), HasSubstr("no zones"));
    EXPECT_EQ(folder.listing(), "m.vtu");
}

TEST(Export, RefusesImageFilesForPointsThatAreNotUniform)
{
    TemporaryFolder const folder;
    auto const data = gridData();
    writeValue(*data->zone(1)->fields[0].group(), 2, 2.001);
    EXPECT_THAT(problemSaving(*data, folder.path("a.vti")), HasSubstr("no uniform grid"));
}

TEST(Export, LeavesTheOldFilesAloneWhenTheDiskIsFull)
{
    TemporaryFolder const folder;
    for (char const* name : {"a.vts", "a.vtm", "a.csv"}) {
        SCOPED_TRACE(name);
        folder.write(name, "old");
        std::string problem;
        {
            FullDisk const fullDisk;
            problem = problemSaving(*gridData(), folder.path(name));
        }
        EXPECT_THAT(problem, AllOf(StartsWith("Cannot save \""), HasSubstr(name),
                                   EndsWith(": it would be larger than a file may be.")));
        EXPECT_EQ(contentOf(folder.path(name)), "old");
    }
    EXPECT_EQ(folder.listing(), "a.csv a.vtm a.vts");
}

TEST(Export, SaysWhenItCannotWriteThere)
{
    TemporaryFolder const folder;
    EXPECT_THAT(problemSaving(*gridData(), folder.path("no/such/folder.vts")), HasSubstr("there is no such folder"));
    std::filesystem::create_directory(folder.path("taken.vts"));
    EXPECT_THAT(problemSaving(*gridData(), folder.path("taken.vts")), HasSubstr("there is a folder of this name"));
    folder.write("blocked", "a file where the folder should be");
    EXPECT_THAT(problemSaving(*gridData(), folder.path("blocked.vtm")), HasSubstr("cannot be made"));
    std::filesystem::create_directory(folder.path("locked"));
    ::chmod(folder.path("locked").c_str(), 0500);
    std::string const problem = problemSaving(*gridData(), folder.path("locked/a.vts"));
    if (::geteuid() != 0)
        EXPECT_THAT(problem, HasSubstr("no permission to write into its folder"));
    else
        EXPECT_EQ(problem, "") << "root may write everywhere";
}

TEST(Export, KeepsPermissionsAndWritesThroughLinks)
{
    TemporaryFolder const folder;
    std::string const target = folder.write("target.csv", "old");
    ::chmod(target.c_str(), 0640);
    std::filesystem::create_symlink(target, folder.path("link.csv"));
    save(*gridData(), folder.path("link.csv"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path("link.csv")));
    EXPECT_EQ(contentOf(target), "X\n0\n1\n2\n");
    EXPECT_EQ(static_cast<unsigned>(std::filesystem::status(target).permissions()), 0640U);
}

TEST(Export, DoesNotChangeTheData)
{
    TemporaryFolder const folder;
    auto const data = gridData();
    auto const buffer = data->field(1, 1)->group()->buffer();
    auto const holders = buffer.use_count();
    save(*data, folder.path("a.vtm"));
    EXPECT_EQ(data->field(1, 1)->group()->buffer(), buffer);
    EXPECT_EQ(buffer.use_count(), holders) << "nothing holds on to the values";
    EXPECT_EQ(data->field(1, 1)->shareCount(), 1);
}

TEST(Export, AsksBeforeItReplacesTheTablesOfAnEarlierSave)
{
    TemporaryFolder const folder;
    save(*gridData(3), folder.path("a.csv"));
    QString const path = QString::fromStdString(folder.path("a.csv"));
    QString const others = app::alsoReplaced(*gridData(2), path);
    EXPECT_EQ(others.toStdString(), "the folder \"" + folder.path("a_tables") + "\" with 3 tables");
    EXPECT_THROW(save(*gridData(2), folder.path("a.csv")), app::WouldReplaceMore);
    EXPECT_EQ(problemSaving(*gridData(2), folder.path("a.csv")),
              "Cannot save \"" + folder.path("a.csv") + "\": it would also replace " + others.toStdString() + ".");
    EXPECT_EQ(folder.listing(), "a_tables a_tables/a_1.csv a_tables/a_2.csv a_tables/a_3.csv");
    app::exportDataSet(*gridData(2), path, app::Replacing::AllNeeded);
    EXPECT_EQ(folder.listing(), "a_tables a_tables/a_1.csv a_tables/a_2.csv")
        << "the third table was of the earlier save";
    EXPECT_TRUE(app::alsoReplaced(*gridData(1), path).isEmpty()) << "one zone takes the chosen file alone";
    EXPECT_EQ(app::savedPath(*gridData(2), path).toStdString(), folder.path("a_tables"));
    EXPECT_EQ(app::savedPath(*gridData(1), path), path);
}

TEST(Export, RefusesANameThatTheFileCouldNotGiveItsPieces)
{
    TemporaryFolder const folder;
    for (char const* name : {"\x01", "a\nb", "\x7F\xEF\xBF\xBE"})
        EXPECT_THAT(problemSaving(*gridData(), folder.path(std::string(name) + ".vtm")), HasSubstr("odd characters"));
    std::filesystem::create_symlink("\xFF.vtm", folder.path("a.vtm"));
    EXPECT_THAT(problemSaving(*gridData(), folder.path("a.vtm")), HasSubstr("odd characters"));
    EXPECT_EQ(folder.listing(), "a.vtm");
}

TEST(Export, ReadsBackZonesOfAnyName)
{
    TemporaryFolder const folder;
    auto const data = gridData(2);
    data->zone(1)->name = "\x01 <&\"\x7F\n";
    save(*data, folder.path("a.vtm"));
    EXPECT_EQ(import(folder.path("a.vtm")).dataSet->zoneCount(), 2);
}

TEST(Export, NeverReplacesAFolderWithOtherFiles)
{
    TemporaryFolder const folder;
    save(*gridData(2), folder.path("a.csv"));
    folder.write("a_tables/notes.txt", "mine");
    EXPECT_THAT(problemSaving(*gridData(2), folder.path("a.csv")), HasSubstr("something else in it (\"notes.txt\")"));
    EXPECT_EQ(contentOf(folder.path("a_tables/notes.txt")), "mine");
}

TEST(Export, OfFewerZonesLeavesNoPiecesOfTheEarlierOne)
{
    TemporaryFolder const folder;
    save(*gridData(3), folder.path("a.vtm"));
    folder.write("a/a_9.vts", "mine");
    folder.write("a/notes.txt", "mine");
    save(*gridData(2), folder.path("a.vtm"));
    EXPECT_EQ(folder.listing(), "a a.vtm a/a_1-2.vts a/a_2-2.vts a/a_9.vts a/notes.txt");
    save(*gridData(1), folder.path("a.vtm"));
    EXPECT_EQ(folder.listing(), "a a.vtm a/a_1.vts a/a_9.vts a/notes.txt");
    EXPECT_EQ(valuesOf(*import(folder.path("a.vtm")).dataSet, 1, "X"), "0 1 2");
}

TEST(Export, LeavesThePiecesOfAFileThatAnotherProgramMade)
{
    TemporaryFolder const folder;
    std::filesystem::create_directory(folder.path("a"));
    folder.write("a/a_1.vts", "from elsewhere");
    folder.write("a.vtm", "<VTKFile type=\"vtkMultiBlockDataSet\"><vtkMultiBlockDataSet>"
                          "<DataSet index=\"0\" file=\"a/a_1.vts\"/></vtkMultiBlockDataSet></VTKFile>");
    auto const remarks = save(*gridData(1), folder.path("a.vtm"));
    EXPECT_EQ(contentOf(folder.path("a/a_1.vts")), "from elsewhere");
    EXPECT_THAT(remarks, ElementsAre(HasSubstr("may have come from elsewhere")));
    EXPECT_EQ(valuesOf(*import(folder.path("a.vtm")).dataSet, 1, "X"), "0 1 2");
}

TEST(Export, OverItsOwnMappedPiecesKeepsTheValues)
{
    TemporaryFolder const folder;
    save(*gridData(2), folder.path("a.vtm"));
    auto const data = import(folder.path("a.vtm"), app::Deferral::Always).dataSet;
    loadAll(*data);
    save(*data, folder.path("a.vtm"));
    EXPECT_EQ(valuesOf(*data, 2, "X"), "10 11 12");
    EXPECT_EQ(valuesOf(*import(folder.path("a.vtm")).dataSet, 2, "X"), "10 11 12");
}

TEST(Export, RefusesTablesWithoutNodalValues)
{
    TemporaryFolder const folder;
    auto const data = gridData();
    data->zone(1)->fields[0] = kernel::Field();
    EXPECT_THAT(problemSaving(*data, folder.path("a.csv")), HasSubstr("no nodal values"));
}

} // namespace veldraw::tests
