#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridSamples.h"

#include <vtkCellType.h>
#include <vtkDoubleArray.h>
#include <vtkImageData.h>
#include <vtkRectilinearGrid.h>

#include <chrono>
#include <fstream>
#include <gtest/gtest.h>
#include <new>
#include <random>
#include <sys/resource.h>

namespace veldraw::tests {

namespace {

constexpr unsigned int headerSeed = 911;
constexpr int mutationsOfAHeader = 40;
constexpr std::chrono::seconds headerTimeLimit(60);
constexpr std::int64_t mostValuesToLoad = 1 << 20;
constexpr double mostMemory = 200e6; // the files have some kilobytes

char const* const wickedWords[] = {"",
                                   "-1",
                                   "0",
                                   "2",
                                   "1.5",
                                   "65536",
                                   "2147483647",
                                   "4294967296",
                                   "9223372036854775807",
                                   "-9223372036854775808",
                                   "99999999999999999999999",
                                   "1e308",
                                   "-inf",
                                   "nan",
                                   "x",
                                   "UInt64",
                                   "Int8",
                                   "BigEndian",
                                   "appended",
                                   "ascii",
                                   "vtkZLibDataCompressor",
                                   "MET_DOUBLE",
                                   "LOCAL",
                                   "True"};

bool isWordLetter(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '.' || c == '-' ||
           c == '_';
}

// Replaces some words of the text part of a file by numbers at limits, words of the formats or words of its own.
std::string mutated(std::string text, std::size_t textSize, std::mt19937& random)
{
    auto const wordAt = [&text](std::size_t at) {
        std::size_t first = at;
        while (first > 0 && isWordLetter(text[first - 1]))
            --first;
        std::size_t last = at;
        while (last < text.size() && isWordLetter(text[last]))
            ++last;
        return std::pair<std::size_t, std::size_t>(first, last - first);
    };
    for (auto n = 1 + random() % 3; n > 0; --n) {
        std::size_t const limit = std::min(textSize, text.size());
        auto const [first, length] = wordAt(random() % limit);
        std::size_t const wicked = random() % (std::size(wickedWords) + 4);
        if (wicked < std::size(wickedWords)) {
            text.replace(first, length, wickedWords[wicked]);
        } else {
            auto const [other, otherLength] = wordAt(random() % limit);
            text.replace(first, length, text.substr(other, otherLength));
        }
    }
    return text;
}

double peakMemory()
{
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return 1024.0 * static_cast<double>(usage.ru_maxrss);
}

// Everything that is not loaded comes, or there is a reason why not; then there are as many values as the zone says.
void loadAndCheck(kernel::DataSet const& dataSet)
{
    kernel::Zone const& zone = *dataSet.zone(1);
    ASSERT_GT(zone.pointCount(), 0);
    for (int variable = 1; variable <= dataSet.variableCount(); ++variable) {
        kernel::Field const& field = *dataSet.field(1, variable);
        if (field.isPassive())
            continue;
        ASSERT_EQ(field.group()->size(), zone.valueCount(field.location()));
        std::string const& name = dataSet.variable(variable)->name;
        bool const isRight = field.isLoaded() || field.group()->size() > mostValuesToLoad ||
                             !loadingProblem(dataSet, 1, name).empty() ||
                             field.group()->buffer()->size() == field.group()->size();
        EXPECT_TRUE(isRight) << name;
    }
}

void storm(std::string const& whole, std::size_t textSize, std::string const& name)
{
    TemporaryFolder const folder;
    folder.write("a.raw", std::string(48, '\7'));
    std::mt19937 random(headerSeed);
    std::printf("seed %u, %s\n", headerSeed, name.c_str());
    auto const start = std::chrono::steady_clock::now();
    double const memory = peakMemory();
    int opened = 0;
    int refused = 0;
    for (int n = 0; n < mutationsOfAHeader; ++n) {
        SCOPED_TRACE(name + ", mutation " + std::to_string(n));
        std::string const text = mutated(whole, textSize, random);
        SCOPED_TRACE(text.substr(0, textSize));
        std::string const path = folder.write(name, text);
        for (app::Deferral const deferral : {app::Deferral::Always, app::Deferral::Auto, app::Deferral::Never}) {
            try {
                loadAndCheck(*import(path, deferral).dataSet);
                ++opened;
            } catch (app::ImportError const& error) {
                ++refused;
                EXPECT_NE(std::string(error.what()).find(path), std::string::npos);
            }
        }
        ASSERT_LT(peakMemory() - memory, mostMemory);
        ASSERT_LT(std::chrono::steady_clock::now() - start, headerTimeLimit);
    }
    EXPECT_GT(refused, 0) << "the damage is real";
    EXPECT_GT(opened, 0) << "the damage leaves something to look at";
}

void stormOfXml(vtkDataSet& grid, std::string const& name)
{
    TemporaryFolder const folder;
    for (Mode const mode : {Mode::Ascii, Mode::Base64, Mode::Base64Compressed, Mode::Raw, Mode::RawCompressed}) {
        std::string const text = contentOf(writeXml(grid, folder.path(name), mode));
        std::size_t const appended = text.find("<AppendedData");
        storm(text, appended == std::string::npos ? text.size() : appended + 30, name);
    }
}

} // namespace

TEST(DamagedHeader, OfAnImageNeverCrashesTheImportNorFillsTheMemory)
{
    std::string const header =
        "ObjectType = Image\nNDims = 2\nBinaryData = True\nDimSize = 3 2\nElementSpacing = 1 0.5\n"
        "Offset = 0 1\nTransformMatrix = 1 0 0 1\nElementByteOrderMSB = False\nHeaderSize = 0\n"
        "ElementMin = -1\nElementMax = 4\nElementNumberOfChannels = 2\n"
        "ElementType = MET_FLOAT\nElementDataFile = a.raw\n";
    storm(header, header.size(), "image.mhd");
}

TEST(DamagedHeader, OfAStructuredGridNeverCrashesTheImportNorFillsTheMemory)
{
    auto const grid = structuredGrid(3, 2, 2);
    addPointValues(*grid, "p", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 0.1});
    addPointValues(*grid, "v", std::vector<double>(36, 2.5), 3);
    addCellValues(*grid, "c", {7, 8});
    stormOfXml(*grid, "grid.vts");
}

TEST(DamagedHeader, OfAMeshNeverCrashesTheImportNorFillsTheMemory)
{
    auto const grid = unstructuredGrid(5, {{VTK_TRIANGLE, {0, 1, 2}}, {VTK_VERTEX, {4}}, {VTK_TRIANGLE, {1, 2, 3}}});
    addPointValues(*grid, "p", {1, 2, 3, 4, 5});
    addCellValues(*grid, "c", {10, 20, 30});
    stormOfXml(*grid, "mesh.vtu");
}

TEST(DamagedHeader, OfASurfaceNeverCrashesTheImportNorFillsTheMemory)
{
    auto const mesh = unstructuredGrid(5, {{VTK_TRIANGLE, {0, 1, 2}}, {VTK_TRIANGLE, {1, 2, 3}}});
    auto const surface = vtkSmartPointer<vtkPolyData>::New();
    surface->SetPoints(mesh->GetPoints());
    surface->SetPolys(mesh->GetCells());
    addPointValues(*surface, "p", {1, 2, 3, 4, 5});
    addCellValues(*surface, "c", {10, 20});
    stormOfXml(*surface, "surface.vtp");
}

TEST(DamagedHeader, OfARectilinearGridNeverCrashesTheImportNorFillsTheMemory)
{
    auto const grid = vtkSmartPointer<vtkRectilinearGrid>::New();
    grid->SetDimensions(3, 1, 1);
    auto const positions = vtkSmartPointer<vtkDoubleArray>::New();
    for (double const position : {0.0, 2.0, 7.0})
        positions->InsertNextValue(position);
    grid->SetXCoordinates(positions);
    addPointValues(*grid, "p", {1, 2, 3});
    stormOfXml(*grid, "grid.vtr");
}

TEST(DamagedHeader, OfAUniformGridNeverCrashesTheImportNorFillsTheMemory)
{
    auto const grid = vtkSmartPointer<vtkImageData>::New();
    grid->SetExtent(2, 4, -1, 1, 0, 0);
    addPointValues(*grid, "p", {1, 2, 3, 4, 5, 6, 7, 8, 9});
    addCellValues(*grid, "c", {1, 2, 3, 4});
    stormOfXml(*grid, "image.vti");
}

} // namespace veldraw::tests
