#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridSamples.h"

#include <vtkCellType.h>

#include <chrono>
#include <cstdio>
#include <gtest/gtest.h>
#include <random>

namespace veldraw::tests {

namespace {

constexpr unsigned int mutationSeed = 20240614;
constexpr int mutationsOfAFile = 60;
constexpr std::chrono::seconds timeLimit(60);

vtkSmartPointer<vtkUnstructuredGrid> mixedMesh()
{
    auto grid = unstructuredGrid(
        12, {{VTK_TETRA, {0, 1, 2, 3}}, {VTK_HEXAHEDRON, {1, 2, 3, 4, 5, 6, 7, 8}}, {VTK_POLYGON, {8, 9, 10, 11, 7}}});
    addPointValues(*grid, "p", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
    addCellValues(*grid, "q", {1, 2, 3, 4, 5, 6}, 2);
    return grid;
}

std::string mutated(std::string text, std::mt19937& random)
{
    auto const position = [&] { return random() % text.size(); };
    for (unsigned int n = 1 + random() % 4; n > 0 && text.size() > 1; --n) {
        std::size_t const at = position();
        switch (random() % 6) {
        case 0:
            text[at] = static_cast<char>(random() % 256);
            break;
        case 1:
            text[at] = static_cast<char>(text[at] ^ (1 << (random() % 8)));
            break;
        case 2:
            text.erase(at, 1 + random() % 20);
            break;
        case 3:
            text.insert(at, text.substr(position(), 1 + random() % 40));
            break;
        case 4:
            text.resize(1 + at);
            break;
        default: { // a digit becomes another: counts, extents, offsets
            std::size_t const digit = text.find_first_of("0123456789", at);
            if (digit != std::string::npos)
                text[digit] = static_cast<char>('0' + random() % 10);
        }
        }
    }
    return text;
}

// Whatever comes in is either refused or is a data set that agrees with itself.
void expectSound(kernel::DataSet const& data)
{
    for (auto const& zone : data.zones()) {
        ASSERT_GT(zone->pointCount(), 0);
        ASSERT_EQ(zone->fields.size(), static_cast<std::size_t>(data.variableCount()));
        for (kernel::Field const& field : zone->fields) {
            ASSERT_TRUE(field.isPassive() || field.group()->size() == zone->valueCount(field.location()));
        }
        for (std::int64_t n = 0; zone->connectivity && n < zone->connectivity->indexCount; ++n) {
            ASSERT_GE(zone->connectivity->indices[n], 0);
            ASSERT_LT(zone->connectivity->indices[n], zone->pointCount());
        }
    }
}

void storm(std::string const& whole, std::string const& name)
{
    TemporaryFolder const folder;
    std::mt19937 random(mutationSeed);
    std::printf("seed %u, %s\n", mutationSeed, name.c_str());
    auto const start = std::chrono::steady_clock::now();
    int refused = 0;
    for (int n = 0; n < mutationsOfAFile; ++n) {
        SCOPED_TRACE(name + ", mutation " + std::to_string(n));
        std::string const path = folder.write(name, mutated(whole, random));
        try {
            expectSound(*import(path).dataSet);
        } catch (app::ImportError const& error) {
            ++refused;
            EXPECT_NE(std::string(error.what()).find(path), std::string::npos);
        }
        ASSERT_LT(std::chrono::steady_clock::now() - start, timeLimit);
    }
    EXPECT_GT(refused, 0) << "the damage is real";
}

} // namespace

TEST(DamagedFile, XmlFilesNeverCrashTheImport)
{
    TemporaryFolder const folder;
    for (Mode mode : {Mode::Ascii, Mode::Base64, Mode::Raw, Mode::RawCompressed}) {
        storm(contentOf(writeXml(*mixedMesh(), folder.path("m.vtu"), mode)), "mesh.vtu");
        storm(contentOf(writeXml(*polyhedra(), folder.path("p.vtu"), mode)), "polyhedra.vtu");
        auto const grid = structuredGrid(3, 4, 2);
        addCellValues(*grid, "c", {1, 2, 3, 4, 5, 6});
        storm(contentOf(writeXml(*grid, folder.path("g.vts"), mode)), "grid.vts");
    }
}

TEST(DamagedFile, LegacyFilesNeverCrashTheImport)
{
    TemporaryFolder const folder;
    for (bool binary : {false, true}) {
        storm(contentOf(writeLegacy(*mixedMesh(), folder.path("m.vtk"), binary)), "mesh.vtk");
        storm(contentOf(writeLegacy(*structuredGrid(3, 4, 2), folder.path("g.vtk"), binary)), "grid.vtk");
    }
}

TEST(DamagedFile, TablesNeverCrashTheImport)
{
    storm("time,\"p, q\",T\r\n0,1.5,2\r\n1,-3e4,nan\r\n2,5,6\r\n", "table.csv");
}

TEST(DamagedFile, ImagesNeverCrashTheImport)
{
    storm("ObjectType = Image\nNDims = 2\nDimSize = 3 2\nElementSpacing = 1 0.5\nElementByteOrderMSB = False\n"
          "HeaderSize = -1\nElementType = MET_SHORT\nElementDataFile = LOCAL\n0123456789ab",
          "image.mha");
}

} // namespace veldraw::tests
