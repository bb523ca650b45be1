#include "kernel/base/Progress.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridSamples.h"
#include "tests/app/support/WatchedProgress.h"

#include <vtkCellType.h>
#include <vtkNew.h>
#include <vtkPolyData.h>

#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace veldraw::tests {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

namespace {

vtkSmartPointer<vtkUnstructuredGrid> mesh()
{
    auto grid = unstructuredGrid(6, {{VTK_TETRA, {0, 1, 2, 3}}, {VTK_TETRA, {1, 2, 3, 4}}, {VTK_TETRA, {2, 3, 4, 5}}});
    addPointValues(*grid, "p", {1, 2, 3, 4, 5, 6});
    addCellValues(*grid, "q", {1, 2, 3});
    return grid;
}

std::string imageHeader(std::string const& extent)
{
    return "<?xml version=\"1.0\"?>\n<VTKFile type=\"ImageData\" version=\"1.0\" byte_order=\"LittleEndian\" "
           "header_type=\"UInt64\">\n<ImageData WholeExtent=\"" +
           extent + "\" Origin=\"0 0 0\" Spacing=\"1 1 1\">\n<Piece Extent=\"" + extent +
           "\">\n<PointData><DataArray type=\"Float32\" Name=\"p\" format=\"appended\" offset=\"0\"/></PointData>\n"
           "</Piece>\n</ImageData>\n<AppendedData encoding=\"raw\">\n_12345678\n</AppendedData>\n</VTKFile>\n";
}

} // namespace

TEST(BadFile, NamesTheFileAndSaysThatItDoesNotExist)
{
    EXPECT_EQ(problemWith("/no/such/folder/file.vts"),
              "Cannot open \"/no/such/folder/file.vts\": there is no such file.");
}

// Which would have to be in memory as a whole.
TEST(BadFile, RefusesAListOfFilesOfEnormousLength)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("a.vtm", "<VTKFile type=\"vtkMultiBlockDataSet\"><vtkMultiBlockDataSet>");
    std::filesystem::resize_file(path, std::uintmax_t{3} << 30);
    EXPECT_THAT(problemWith(path), HasSubstr("it has 3221225472 bytes, which is more than a list of files can have"));
}

TEST(BadFile, TellsWhatVtkSaysOfBytesThatAreNoUtf8)
{
    TemporaryFolder const folder;
    EXPECT_THAT(problemWith(folder.write("a.vtk", "# vtk DataFile Version 3.0\nx\nASCII\nDATASET STRUCTURED_POINTS\n"
                                                  "DIMENSIONS 2 1 1\nORIGIN 0 0 0\nSPACING 1 1 1\nPOINT_DATA 2\n"
                                                  "\xe9t\xe9 1 2\n")),
                HasSubstr("\xc3\xa9t\xc3\xa9"));
}

// VTK would add the path that it knows, which may be that of a copy in memory.
TEST(BadFile, IsNamedOnceInWhatVtkSaysOfIt)
{
    TemporaryFolder const folder;
    std::string const start = "# vtk DataFile Version 3.0\nx\nASCII\n";
    std::string const image =
        "DATASET STRUCTURED_POINTS\nDIMENSIONS 2 1 1\nORIGIN 0 0 0\nSPACING 1 1 1\nPOINT_DATA 2\n";
    for (std::string const& rest :
         {std::string("NONSENSE\n"), image + "SCALARS p float\nLOOKUP_TABLE default\nnan 1\nNONSENSE x\n"}) {
        std::string const path = folder.write("a.vtk", start + rest);
        std::string const problem = problemWith(path);
        EXPECT_THAT(problem,
                    StartsWith("Cannot open \"" + path + "\": it is damaged, incomplete or of another kind ("));
        EXPECT_EQ(problem.find(path, 20 + path.size()), std::string::npos) << problem;
        EXPECT_EQ(problem.find("/proc/"), std::string::npos) << problem;
    }
}

TEST(BadFile, RefusesCellsOfATableThatAreTooLong)
{
    TemporaryFolder const folder;
    EXPECT_THAT(problemWith(folder.write("a.csv", "x," + std::string(70000, 'y') + "\n1,2\n")),
                HasSubstr("the name of column 2 has more than 65536 bytes"));
    EXPECT_THAT(problemWith(folder.write("b.csv", "x,y\n1,1" + std::string(1 << 20, ' ') + "5\n2,3\n")),
                HasSubstr("line 2: column 2 (y) is too long for a number"));
}

TEST(BadFile, RefusesFoldersPipesAndEmptyFiles)
{
    TemporaryFolder const folder;
    std::filesystem::create_directory(folder.path("folder.vts"));
    ASSERT_EQ(::mkfifo(folder.path("pipe.vts").c_str(), 0600), 0);
    EXPECT_THAT(problemWith(folder.path("folder.vts")), HasSubstr("it is a folder"));
    EXPECT_THAT(problemWith(folder.path("pipe.vts")), HasSubstr("it is no regular file"));
    for (char const* name : {"a.vts", "a.vtm", "a.vtk", "a.csv"})
        EXPECT_THAT(problemWith(folder.write(name, "")), HasSubstr("it is empty")) << name;
}

TEST(BadFile, SaysWhenThereIsNoPermission)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("secret.csv", "a\n1\n");
    ::chmod(path.c_str(), 0);
    if (::geteuid() == 0)
        EXPECT_EQ(problemWith(path), "") << "root may read everything";
    else
        EXPECT_THAT(problemWith(path), HasSubstr("no permission"));
}

TEST(BadFile, RefusesUnknownExtensions)
{
    TemporaryFolder const folder;
    EXPECT_THAT(problemWith(folder.write("picture.png", "x")), HasSubstr("files of this kind (.png) cannot be read"));
    EXPECT_THAT(problemWith(folder.write("nothing", "x")), HasSubstr("cannot be read"));
}

TEST(BadFile, AcceptsExtensionsInCapitals)
{
    TemporaryFolder const folder;
    EXPECT_EQ(problemWith(folder.write("TABLE.CSV", "a\n1\n")), "");
}

TEST(BadFile, RefusesFilesOfAnotherKindThanTheirName)
{
    TemporaryFolder const folder;
    std::string const grid = contentOf(writeXml(*mesh(), folder.path("mesh.vtu")));
    for (char const* name : {"a.vts", "a.vti", "a.vtr", "a.vtp", "a.vtm", "a.vtk"})
        EXPECT_THAT(problemWith(folder.write(name, grid)), AllOf(StartsWith("Cannot open"), HasSubstr(name))) << name;
    for (char const* name : {"b.vts", "b.vtu", "b.vtm", "b.vtk"})
        EXPECT_NE(problemWith(folder.write(name, "just some text\nof no kind\n")), "") << name;
}

TEST(BadFile, RefusesEveryTruncationOfAnXmlFile)
{
    TemporaryFolder const folder;
    for (Mode mode : {Mode::Ascii, Mode::Base64, Mode::Raw, Mode::RawCompressed}) {
        std::string const whole = contentOf(writeXml(*mesh(), folder.path("mesh.vtu"), mode));
        std::size_t const needed =
            whole.rfind(mode == Mode::Ascii || mode == Mode::Base64 ? "</Piece>" : "</AppendedData>");
        for (std::size_t size = 1; size < needed - 2; size += 1 + size / 40) {
            std::string const path = folder.write("cut.vtu", whole.substr(0, size));
            ASSERT_THAT(problemWith(path), StartsWith("Cannot open"))
                << "mode " << static_cast<int>(mode) << " size " << size;
        }
    }
}

TEST(BadFile, RefusesTruncatedLegacyFiles)
{
    TemporaryFolder const folder;
    for (bool binary : {false, true}) {
        std::string const whole = contentOf(writeLegacy(*mesh(), folder.path("mesh.vtk"), binary));
        for (double part : {0.05, 0.2, 0.4, 0.5, 0.6, 0.75}) {
            auto const size = static_cast<std::size_t>(part * static_cast<double>(whole.size()));
            EXPECT_THAT(problemWith(folder.write("cut.vtk", whole.substr(0, size))), StartsWith("Cannot open"))
                << binary << " " << part;
        }
    }
}

TEST(BadFile, RefusesFilesWithoutPoints)
{
    TemporaryFolder const folder;
    vtkNew<vtkPolyData> nothing;
    EXPECT_THAT(problemWith(writeXml(*nothing, folder.path("nothing.vtp"))), HasSubstr("it has no points"));
    EXPECT_THAT(problemWith(writeXml(*structuredGrid(0, 0, 0), folder.path("nothing.vts"))),
                HasSubstr("it has no points"));
    EXPECT_THAT(problemWith(writeXml(*unstructuredGrid(0, {}), folder.path("nothing.vtu"))),
                HasSubstr("it has no points"));
    EXPECT_THAT(problemWith(folder.write("nothing.vtm", "<VTKFile type=\"vtkMultiBlockDataSet\" version=\"1.0\">"
                                                        "<vtkMultiBlockDataSet/></VTKFile>")),
                HasSubstr("it has no points"));
}

TEST(BadFile, SaysWhichPartOfAMultiBlockFileIsMissing)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("parts.vtm", "<VTKFile type=\"vtkMultiBlockDataSet\" version=\"1.0\">"
                                                       "<vtkMultiBlockDataSet><DataSet index=\"0\" file=\"gone.vtu\"/>"
                                                       "</vtkMultiBlockDataSet></VTKFile>");
    EXPECT_THAT(problemWith(path), HasSubstr("its part \"gone.vtu\": there is no such file"));
}

TEST(BadFile, DoesNotFollowAMultiBlockFileIntoItself)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("loop.vtm", "<VTKFile type=\"vtkMultiBlockDataSet\" version=\"1.0\">"
                                                      "<vtkMultiBlockDataSet><DataSet index=\"0\" file=\"loop.vtm\"/>"
                                                      "</vtkMultiBlockDataSet></VTKFile>");
    EXPECT_THAT(problemWith(path), HasSubstr("cannot be parts"));
}

TEST(BadFile, NoticesThatAnotherProgramIsWritingTheFile)
{
    TemporaryFolder const folder;
    for (std::string const& path : {writeXml(*mesh(), folder.path("busy.vtu")), folder.write("busy.csv", "a\n1\n"),
                                    writeLegacy(*mesh(), folder.path("busy.vtk"), false)}) {
        WatchedProgress progress([&path](double) {
            std::ofstream(path, std::ios::app) << "\n";
            return true;
        });
        try {
            app::importFile(QString::fromStdString(path), app::Deferral::Auto, progress);
            ADD_FAILURE() << path;
        } catch (app::ImportError const& error) {
            EXPECT_THAT(error.what(), AllOf(HasSubstr(path), HasSubstr("another program changed")));
        }
    }
}

TEST(BadFile, RefusesGiganticDimensionsWithoutTakingTheMemory)
{
    TemporaryFolder const folder;
    for (char const* extent :
         {"0 999999 0 999999 0 999999", "0 2000 0 2000 0 2000", "0 2147483646 0 2147483646 0 2147483646",
          "-2147483648 2147483647 0 1 0 1", "0 1e300 0 1e300 0 1e300"})
        EXPECT_NE(problemWith(folder.write("huge.vti", imageHeader(extent))), "") << extent;
}

TEST(BadFile, RefusesGiganticUniformGridsWithoutArrays)
{
    TemporaryFolder const folder;
    std::string text = imageHeader("0 9999 0 9999 0 9999");
    text.erase(text.find("<PointData>"), text.find("</Piece>") - text.find("<PointData>"));
    EXPECT_THAT(problemWith(folder.write("huge.vti", text)), HasSubstr("of memory"));
}

TEST(BadFile, RefusesGiganticCountsInOtherXmlFiles)
{
    TemporaryFolder const folder;
    std::string const whole = contentOf(writeXml(*mesh(), folder.path("mesh.vtu")));
    for (auto const& [from, to] : {std::make_pair("NumberOfPoints=\"6\"", "NumberOfPoints=\"6000000000000\""),
                                   std::make_pair("NumberOfCells=\"3\"", "NumberOfCells=\"9000000000000000000\""),
                                   std::make_pair("NumberOfComponents=\"3\"", "NumberOfComponents=\"2000000000\"")}) {
        std::string text = whole;
        std::size_t const at = text.find(from);
        ASSERT_NE(at, std::string::npos) << from;
        text.replace(at, std::string(from).size(), to);
        EXPECT_THAT(problemWith(folder.write("huge.vtu", text)), StartsWith("Cannot open")) << to;
    }
}

TEST(BadFile, RefusesGiganticCountsInLegacyFiles)
{
    TemporaryFolder const folder;
    std::string const start = "# vtk DataFile Version 3.0\ntitle\nASCII\n";
    EXPECT_THAT(problemWith(folder.write("a.vtk", start + "DATASET POLYDATA\nPOINTS 99999999999 float\n0 0 0\n")),
                HasSubstr("too small"));
    EXPECT_THAT(
        problemWith(folder.write("b.vtk", start + "DATASET STRUCTURED_POINTS\nDIMENSIONS 100000 100000 100000\n"
                                                  "ORIGIN 0 0 0\nSPACING 1 1 1\nPOINT_DATA 1000000000000000\n")),
        StartsWith("Cannot open"));
    EXPECT_THAT(problemWith(folder.write("c.vtk", start + "DATASET UNSTRUCTURED_GRID\nPOINTS 1 float\n0 0 0\n"
                                                          "CELLS 1 88888888888\n")),
                StartsWith("Cannot open"));
    EXPECT_THAT(problemWith(folder.write("d.vtk", start + "DATASET POLYDATA\nPOINTS 1 float\n0 0 0\nPOINT_DATA 1\n"
                                                          "FIELD FieldData 99999999\np 1 1 double\n5\n")),
                HasSubstr("it is too small for the number of arrays after FIELD"));
}

TEST(BadFile, RefusesLegacyFilesThatHoldNoGrid)
{
    TemporaryFolder const folder;
    std::string const table = "# vtk DataFile Version 3.0\ntitle\nASCII\nDATASET TABLE\nROW_DATA 1\nFIELD FieldData 1\n"
                              "a 1 1 double\n1\n";
    EXPECT_THAT(problemWith(folder.write("table.vtk", table)), HasSubstr("vtkTable"));
}

TEST(BadFile, LeavesNoTemporaryFilesBehind)
{
    TemporaryFolder const folder;
    std::filesystem::create_directory(folder.path("tmp"));
    std::string const whole = contentOf(writeLegacy(*mesh(), folder.path("mesh.vtk"), false));
    folder.write("cut.vtk", whole.substr(0, whole.size() / 2));
    ::setenv("TMPDIR", folder.path("tmp").c_str(), 1);
    EXPECT_EQ(problemWith(folder.path("mesh.vtk")), "");
    EXPECT_NE(problemWith(folder.path("cut.vtk")), "");
    InterruptedProgress progress;
    EXPECT_THROW(app::importFile(QString::fromStdString(folder.path("mesh.vtk")), app::Deferral::Auto, progress),
                 kernel::Interrupted);
    ::unsetenv("TMPDIR");
    EXPECT_EQ(folder.listing(), "cut.vtk mesh.vtk tmp");
}

TEST(BadFile, LeavesNothingOpen)
{
    TemporaryFolder const folder;
    std::string const whole = contentOf(writeXml(*mesh(), folder.path("mesh.vtu")));
    std::string const path = folder.write("cut.vtu", whole.substr(0, whole.size() / 2));
    auto const openFiles = [] {
        auto const files = std::filesystem::directory_iterator("/proc/self/fd");
        return std::distance(begin(files), end(files));
    };
    std::string const legacy = folder.write("text.vtk", "no grid");
    EXPECT_NE(problemWith(legacy), ""); // a reader that was kept has gone with that
    auto const before = openFiles();
    for (int n = 0; n < 5; ++n) {
        EXPECT_NE(problemWith(path), "");
        EXPECT_NE(problemWith(legacy), "");
    }
    EXPECT_EQ(openFiles(), before);
}

TEST(BadFile, HasAnExtentThatItsPiecesDoNotFitInto)
{
    TemporaryFolder const folder;
    auto const problem = [&folder](std::string const& whole, std::string const& piece) {
        return problemWith(folder.write("a.vti", "<VTKFile type=\"ImageData\" byte_order=\"LittleEndian\"><ImageData "
                                                 "WholeExtent=\"" +
                                                     whole + "\"><Piece Extent=\"" + piece +
                                                     "\"><PointData/></Piece></ImageData></VTKFile>"));
    };
    EXPECT_EQ(problem("0 1 0 1 0 0", "0 1 0 1 0 0"), "");
    EXPECT_THAT(problem("0 1 0 1 0 0", "0 2 0 1 0 0"), HasSubstr("a piece of it is outside of its extent"));
    EXPECT_THAT(problem("0 1 0 1 0 0", "0 0 0 1 0 0"), HasSubstr("its pieces do not fill its extent"));
    EXPECT_THAT(problem("0 1 5 1 0 0", "0 1 0 1 0 0"), HasSubstr("its extent \"0 1 5 1 0 0\" ends before it starts"));
    EXPECT_THAT(problem("0 1 0 1 0", "0 1 0 1 0 0"), HasSubstr("its extent \"0 1 0 1 0\" is damaged"));
    EXPECT_THAT(problem("0 1 0 1 0 99999999999", "0 1 0 1 0 0"), HasSubstr("is damaged"));
}

TEST(BadFile, ClaimsNumbersOfCellsOrPointsThatAreNone)
{
    TemporaryFolder const folder;
    for (std::string const counts :
         {"NumberOfPoints=\"3\" NumberOfCells=\"-1\"", "NumberOfPoints=\"-3\" NumberOfCells=\"1\"",
          "NumberOfPoints=\"3\" NumberOfCells=\"9999999999\"",
          "NumberOfPoints=\"99999999999e-300\" NumberOfCells=\"1\""})
        EXPECT_THAT(problemWith(folder.write("a.vtu", "<VTKFile type=\"UnstructuredGrid\"><UnstructuredGrid><Piece " +
                                                          counts + "></Piece></UnstructuredGrid></VTKFile>")),
                    HasSubstr("it is too small for the number of"))
            << counts;
}

} // namespace veldraw::tests
