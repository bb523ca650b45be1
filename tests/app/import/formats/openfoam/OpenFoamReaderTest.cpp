#include "tests/app/support/DamagedFiles.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/OpenFoamSamples.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zlib.h>

namespace veldraw::tests {

using ::testing::HasSubstr;

namespace {

std::string writeFoam(TemporaryFolder const& folder, SoundFile const& file)
{
    for (auto const& [name, content] : file.others)
        folder.write(name, content);
    return folder.write(file.name, file.content);
}

double valueIn(kernel::DataSet const& data, int zone, std::string const& variable, std::int64_t at)
{
    return fieldOf(data, zone, variable).group()->buffer()->value(at);
}

// The order in which VTK gives the components XX, XY, XZ, YY, YZ, ZZ of a symmetric tensor.
constexpr int stressOrder[6] = {1, 4, 6, 2, 5, 3};

// @return how many values were compared
int expectInside(kernel::DataSet const& data, int zone, int cells, int moment)
{
    for (int c = 0; c < cells; ++c) {
        EXPECT_EQ(valueIn(data, zone, "p", c), 10 * c + moment);
        EXPECT_EQ(valueIn(data, zone, "T", c), 300 + moment);
        EXPECT_EQ(valueIn(data, zone, "U_X", c), c);
        EXPECT_EQ(valueIn(data, zone, "U_Y", c), 2 * c);
        EXPECT_EQ(valueIn(data, zone, "U_Z", c), 3 * c + moment);
        for (int n = 0; n < 6; ++n)
            EXPECT_EQ(valueIn(data, zone, "R_" + std::to_string(n + 1), c), 10 * c + stressOrder[n]) << n;
    }
    int const points = 4 * (cells + 1);
    for (int n = 0; n < points; ++n) {
        EXPECT_EQ(valueIn(data, zone, "pointValue", n), 0.5 * n + moment);
        EXPECT_EQ(valueIn(data, zone, "X", n), n % (cells + 1));
        EXPECT_EQ(valueIn(data, zone, "Y", n), n / (cells + 1) % 2);
        EXPECT_EQ(valueIn(data, zone, "Z", n), n / (cells + 1) / 2);
    }
    return 11 * cells + 4 * points;
}

// The zones of a moment: the mesh inside, then its patches.
int expectMoment(kernel::DataSet const& data, int first, int cells, int moment)
{
    char const* const names[4] = {"internalMesh", "inlet", "outlet", "walls"};
    for (int n = 0; n < 4; ++n) {
        EXPECT_EQ(data.zone(first + n)->name, names[n]);
        EXPECT_EQ(data.zone(first + n)->strand, n + 1);
        EXPECT_EQ(data.zone(first + n)->solutionTime, 0.5 * moment);
    }
    EXPECT_EQ(data.zone(first)->cellCount(), cells);
    EXPECT_EQ(valueIn(data, first + 1, "p", 0), 7 + moment);
    EXPECT_EQ(valueIn(data, first + 1, "U_Z", 0), moment) << "that of the cell beside it";
    EXPECT_EQ(data.zone(first + 2)->cellCount(), 2);
    for (int face : {0, 1})
        EXPECT_EQ(valueIn(data, first + 2, "p", face), 10 * (cells - 1) + moment) << "that of the last cell";
    EXPECT_EQ(data.zone(first + 3)->cellCount(), 4 * cells);
    for (int face = 0; face < 4 * cells; ++face) {
        EXPECT_EQ(valueIn(data, first + 3, "p", face), 100 + face);
        EXPECT_EQ(valueIn(data, first + 3, "U_Y", face), 2 * (face / 4));
    }
    return 4 + 8 * cells + expectInside(data, first, cells, moment);
}

void pack(std::string const& path)
{
    std::string const content = contentOf(path);
    gzFile const file = ::gzopen((path + ".gz").c_str(), "wb");
    EXPECT_EQ(::gzwrite(file, content.data(), static_cast<unsigned int>(content.size())),
              static_cast<int>(content.size()));
    ::gzclose(file);
    std::filesystem::remove(path);
}

std::string replaced(std::string text, std::string const& part, std::string const& by)
{
    return text.replace(text.find(part), part.size(), by);
}

std::string contentIn(SoundFile const& file, std::string const& name)
{
    for (auto const& [other, content] : file.others) {
        if (other == name)
            return content;
    }
    return {};
}

} // namespace

TEST(OpenFoamFolder, HasItsMeshAndPatchesAtEachMomentWithAllValues)
{
    constexpr int cells = 20;
    for (OpenFoamForm const form : {OpenFoamForm::Text, OpenFoamForm::Binary}) {
        SCOPED_TRACE(static_cast<int>(form));
        TemporaryFolder const folder;
        auto const result = import(writeFoam(folder, openFoamCase(3, cells, form)));
        auto const& data = *result.dataSet;
        ASSERT_EQ(data.zoneCount(), 12);
        EXPECT_EQ(result.remarks, std::vector<std::string>());
        EXPECT_EQ(variableNames(data), "X,Y,Z,pointValue,R_1,R_2,R_3,R_4,R_5,R_6,T,U_X,U_Y,U_Z,p");
        int compared = 0;
        for (int moment = 0; moment < 3; ++moment)
            compared += expectMoment(data, 4 * moment + 1, cells, moment);
        EXPECT_GT(compared, 2000);
        EXPECT_EQ(data.zone(1)->type, ZoneType_FEMixed);
        auto const* const shapes = data.zone(1)->connectivity->shapes;
        EXPECT_EQ(shapes[0], kernel::Connectivity::Shape::Brick);
        EXPECT_EQ(shapes[cells - 1], kernel::Connectivity::Shape::Polyhedron) << "two triangles end it";
        EXPECT_EQ(fieldOf(data, 1, "p").location(), ValueLocation_CellCentered);
        EXPECT_EQ(fieldOf(data, 4, "p").location(), ValueLocation_CellCentered);
        EXPECT_EQ(fieldOf(data, 1, "pointValue").location(), ValueLocation_Nodal);
        EXPECT_EQ(data.zone(1)->connectivity, data.zone(5)->connectivity) << "the same mesh at each moment";
    }
}

TEST(OpenFoamFolder, KeepsCellsOfAnyNumberOfFaces)
{
    TemporaryFolder const folder;
    auto const data = import(writeFoam(folder, openFoamCase(1, 1, OpenFoamForm::Text))).dataSet;
    EXPECT_EQ(data->zone(1)->type, ZoneType_FEPolyhedron);
    EXPECT_EQ(data->zone(1)->k, 7) << "a cube with one face in two triangles";
    EXPECT_EQ(data->zone(1)->strand, kernel::staticStrand) << "of one moment";
}

TEST(OpenFoamFolder, IsOpenedByItsControlDictToo)
{
    TemporaryFolder const folder;
    std::filesystem::create_directory(folder.path("a \"b\" \u00fc'$(x) *"));
    SoundFile file = openFoamCase(2, 2, OpenFoamForm::Binary);
    for (auto& [name, content] : file.others)
        name = "a \"b\" \u00fc'$(x) */" + name;
    writeFoam(folder, file);
    auto const result = import(folder.path("a \"b\" \u00fc'$(x) */system/controlDict"));
    EXPECT_EQ(result.dataSet->zoneCount(), 8);
    EXPECT_EQ(valuesOf(*result.dataSet, 5, "p"), "1 11");
}

TEST(OpenFoamFolder, MayHavePackedFiles)
{
    TemporaryFolder const folder;
    std::string const path = writeFoam(folder, openFoamCase(1, 2, OpenFoamForm::Binary));
    for (char const* const name : {"constant/polyMesh/points", "constant/polyMesh/owner", "0/p"})
        pack(folder.path(name));
    EXPECT_EQ(valuesOf(*import(path).dataSet, 1, "p"), "0 10");
    folder.write("0/T", "#include \"/etc/passwd\"\n");
    pack(folder.path("0/T"));
    EXPECT_THAT(problemWith(path), HasSubstr("it names files outside of its folder: \"/etc/passwd\""));
}

TEST(OpenFoamFolder, HasZonesOfEachOfItsRegions)
{
    TemporaryFolder const folder;
    SoundFile file = openFoamCase(1, 2, OpenFoamForm::Text);
    for (auto& [name, content] : file.others) {
        for (char const* const start : {"constant/", "0/"}) {
            if (name.rfind(start, 0) == 0)
                name.insert(std::string(start).size(), "solid/");
        }
    }
    auto const data = import(writeFoam(folder, file)).dataSet;
    ASSERT_EQ(data->zoneCount(), 4);
    EXPECT_EQ(data->zone(1)->name, "solid/internalMesh");
    EXPECT_EQ(data->zone(4)->name, "solid/walls");
    EXPECT_EQ(valuesOf(*data, 1, "p"), "0 10");
}

TEST(OpenFoamFolder, NeedsNoMoments)
{
    TemporaryFolder const folder;
    auto const data = import(writeFoam(folder, openFoamCase(0, 2, OpenFoamForm::Text))).dataSet;
    EXPECT_EQ(data->zoneCount(), 4);
    EXPECT_EQ(variableNames(*data), "X,Y,Z");
}

TEST(OpenFoamFolder, NamesEachFileOfItsMeshThatIsMissing)
{
    TemporaryFolder const folder;
    std::string const path = writeFoam(folder, openFoamCase(1, 2, OpenFoamForm::Text));
    for (char const* const name : {"owner", "boundary"})
        std::filesystem::remove(folder.path("constant/polyMesh/" + std::string(name)));
    EXPECT_EQ(problemWith(path), "Cannot open \"" + path +
                                     "\": its part \"constant/polyMesh/owner\": there is no such file; its part "
                                     "\"constant/polyMesh/boundary\": there is no such file.");
    std::filesystem::remove_all(folder.path("constant"));
    EXPECT_THAT(problemWith(path), HasSubstr("its part \"constant/polyMesh/points\": there is no such file"));
    std::filesystem::create_directory(folder.path("processor0"));
    EXPECT_THAT(problemWith(path), HasSubstr("its mesh stands in pieces in the folders of processors"));
}

TEST(OpenFoamFolder, AsksBeforeItFollowsNamesOutOfItsFolder)
{
    TemporaryFolder const folder;
    SoundFile const file = openFoamCase(1, 2, OpenFoamForm::Text);
    std::string const path = writeFoam(folder, file);
    std::string const field = contentIn(file, "0/T");
    folder.write("0/include/warm", "warm 300;\n");
    folder.write("0/T", replaced(field, "dimensions", "#include \"include/warm\"\ndimensions"));
    EXPECT_EQ(problemWith(path), "");
    for (char const* const name : {"../../../secret", "/etc/passwd", "$FOAM_CASE/../secret"}) {
        folder.write("0/include/warm", "#includeIfPresent \"" + std::string(name) + "\"\n");
        EXPECT_THAT(problemWith(path), HasSubstr("it names files outside of its folder")) << name;
    }
    folder.write("0/include/warm", std::string((1 << 20) - 12, ' ') + "#include \"$HOME/x\"\n");
    EXPECT_THAT(problemWith(path), HasSubstr("it includes \"$HOME/x\", which is another file in each environment"));
}

TEST(OpenFoamFolder, IsRefusedWhereOneOfItsFilesEndsTooEarly)
{
    for (OpenFoamForm const form : {OpenFoamForm::Text, OpenFoamForm::Binary}) {
        SoundFile const file = openFoamCase(1, 5, form);
        for (auto const& [name, content] : file.others) {
            if (name == "system/controlDict")
                continue; // whose times nobody asks for
            TemporaryFolder const folder;
            std::string const path = writeFoam(folder, file);
            folder.write(name, content.substr(0, content.size() * 3 / 4));
            EXPECT_THAT(problemWith(path), HasSubstr("it is damaged")) << name;
        }
    }
}

TEST(OpenFoamFolder, StandsAnyDamageOfEachOfItsFiles)
{
    for (OpenFoamForm const form : {OpenFoamForm::Text, OpenFoamForm::Binary}) {
        SoundFile const file = openFoamCase(1, 3, form);
        for (auto const& [name, content] : file.others) {
            if (name != "system/controlDict")
                expectToStandDamage(file, 20, name);
        }
    }
}

} // namespace veldraw::tests
