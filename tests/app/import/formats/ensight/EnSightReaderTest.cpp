#include "tests/app/support/DamagedFiles.h"
#include "tests/app/support/EnSightSamples.h"
#include "tests/app/support/FileHelpers.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using ::testing::Contains;
using ::testing::HasSubstr;

namespace {

std::string writeCase(TemporaryFolder const& folder, SoundFile const& file)
{
    for (auto const& [name, content] : file.others)
        folder.write(name, content);
    return folder.write(file.name, file.content);
}

double value(kernel::DataSet const& data, int zone, char const* variable, std::int64_t at)
{
    return fieldOf(data, zone, variable).group()->buffer()->value(at);
}

// @return how many values were compared
int expectPoints(kernel::DataSet const& data, int zone, int part, int moment)
{
    auto const count = static_cast<int>(data.zone(zone)->pointCount());
    for (int n = 0; n < count; ++n) {
        EXPECT_EQ(value(data, zone, "pressure", n), 1000.0 * part + n + 0.25 * moment) << zone;
        EXPECT_EQ(value(data, zone, "velocity_X", n), n) << zone;
        EXPECT_EQ(value(data, zone, "velocity_Y", n), 2 * n) << zone;
        EXPECT_EQ(value(data, zone, "velocity_Z", n), 3 * n + moment) << zone;
    }
    return 4 * count;
}

int expectPlaces(kernel::DataSet const& data, int zone, int size)
{
    for (int n = 0; n < size * size * size; ++n) {
        EXPECT_EQ(value(data, zone, "X", n), n % size);
        EXPECT_EQ(value(data, zone, "Y", n), n / size % size);
        EXPECT_EQ(value(data, zone, "Z", n), n / size / size);
    }
    return 3 * size * size * size;
}

std::string without(std::string text, std::string const& part)
{
    text.erase(text.find(part), part.size());
    return text;
}

} // namespace

TEST(EnSightCase, HasEachPartAtEachMomentWithAllValues)
{
    constexpr int size = 7;
    constexpr int moments = 3;
    for (EnSightForm const form : {EnSightForm::Text, EnSightForm::CBinary, EnSightForm::FortranBinary}) {
        SCOPED_TRACE(static_cast<int>(form));
        TemporaryFolder const folder;
        auto const data = import(writeCase(folder, enSightCase(moments, size, form))).dataSet;
        ASSERT_EQ(data->zoneCount(), 2 * moments);
        EXPECT_EQ(variableNames(*data), "X,Y,Z,pressure,velocity_X,velocity_Y,velocity_Z,quality");
        int compared = 0;
        for (int moment = 0; moment < moments; ++moment) {
            int const wing = 2 * moment + 1;
            EXPECT_EQ(data->zone(wing)->name, "Wing \u00fc (1)");
            EXPECT_EQ(data->zone(wing + 1)->name, "box");
            for (int part : {1, 2}) {
                EXPECT_EQ(data->zone(wing + part - 1)->strand, part);
                EXPECT_EQ(data->zone(wing + part - 1)->solutionTime, moment + 0.5);
                compared += expectPoints(*data, wing + part - 1, part, moment);
            }
            EXPECT_EQ(cellsOf(*data->zone(wing)), "0 1 2 | 1 4 2 | 0 1 2 3");
            for (int cell = 0; cell < 3; ++cell)
                EXPECT_EQ(value(*data, wing, "quality", cell), cell - moment);
            compared += expectPlaces(*data, wing + 1, size);
        }
        EXPECT_EQ(fieldOf(*data, 1, "quality").location(), ValueLocation_CellCentered);
        EXPECT_EQ(valuesOf(*data, 2, "quality"), "-") << "the other part has none";
        EXPECT_GT(compared, 7000);
    }
}

TEST(EnSightCase, OfOneMomentHasItsTimeAndNoStrand)
{
    TemporaryFolder const folder;
    auto const data = import(writeCase(folder, enSightCase(1, 2, EnSightForm::Text))).dataSet;
    ASSERT_EQ(data->zoneCount(), 2);
    EXPECT_EQ(data->zone(1)->solutionTime, 0.5);
    EXPECT_EQ(data->zone(1)->strand, kernel::staticStrand);
    ASSERT_EQ(data->auxiliaryData().indexOf("Mach"), 1);
    EXPECT_EQ(data->auxiliaryData().item(1).value, "0.8");
}

TEST(EnSightCase, NeedsNoTimes)
{
    TemporaryFolder const folder;
    SoundFile file = enSightCase(1, 2, EnSightForm::CBinary);
    file.content = "FORMAT\ntype: ensight gold\nGEOMETRY\nmodel: flow.geo\nVARIABLE\nscalar per node: p flow.p08\n";
    auto const data = import(writeCase(folder, file)).dataSet;
    EXPECT_EQ(variableNames(*data), "X,Y,Z,p");
    EXPECT_EQ(valuesOf(*data, 1, "p"), "1000 1001 1002 1003 1004");
}

TEST(EnSightCase, MayStandInAFolderOfAnyName)
{
    TemporaryFolder const folder;
    std::filesystem::create_directory(folder.path("a \"b\" \u00fc'$(x) *"));
    SoundFile file = enSightCase(1, 2, EnSightForm::Text);
    std::string path;
    for (auto const& [name, content] : file.others)
        folder.write("a \"b\" \u00fc'$(x) */" + name, content);
    path = folder.write("a \"b\" \u00fc'$(x) */my case.case", file.content);
    EXPECT_EQ(import(path).dataSet->zone(2)->name, "box");
}

TEST(EnSightCase, SaysWhatIsNotRead)
{
    TemporaryFolder const folder;
    SoundFile file = enSightCase(1, 2, EnSightForm::Text);
    file.content.insert(file.content.find("constant"), "tensor asym per node: 1 stress flow.t**\n");
    EXPECT_THAT(import(writeCase(folder, file)).remarks, Contains("left out: tensor asym per node stress"));
    file.content.insert(file.content.find("flow.geo"), "1 1 ");
    EXPECT_THAT(problemWith(writeCase(folder, file)),
                HasSubstr("it has files with several moments each, which are not read"));
}

TEST(EnSightCase, NamesEachFileThatIsMissing)
{
    TemporaryFolder const folder;
    std::string const path = writeCase(folder, enSightCase(3, 2, EnSightForm::Text));
    for (char const* const name : {"flow.geo", "flow.v10", "flow.q12"})
        std::filesystem::remove(folder.path(name));
    EXPECT_EQ(problemWith(path),
              "Cannot open \"" + path +
                  "\": its part \"flow.geo\": there is no such file; its part \"flow.v10\": there is "
                  "no such file; its part \"flow.q12\": there is no such file.");
}

TEST(EnSightCase, AsksBeforeItFollowsNamesOutOfItsFolder)
{
    TemporaryFolder const folder;
    for (char const* const model : {"../flow.geo", "1 /etc/passwd", "/etc/passwd change_coords_only"}) {
        std::string const path =
            folder.write("a.case", "FORMAT\ntype: ensight gold\nGEOMETRY\nmodel: " + std::string(model) + "\n");
        EXPECT_THAT(problemWith(path), HasSubstr("it names files outside of its folder")) << model;
    }
}

TEST(EnSightCase, ThatContradictsItselfIsRefused)
{
    TemporaryFolder const folder;
    SoundFile const sound = enSightCase(2, 2, EnSightForm::Text);
    writeCase(folder, sound);
    std::string const start = "FORMAT\ntype: ensight gold\n";
    EXPECT_THAT(problemWith(folder.write("a.case", "The case against it\n")), HasSubstr("it is no EnSight Gold case"));
    EXPECT_THAT(problemWith(folder.write("b.case", "FORMAT\ntype: ensight\nGEOMETRY\nmodel: flow.geo\n")),
                HasSubstr("its FORMAT is not \"type: ensight gold\""));
    EXPECT_THAT(problemWith(folder.write("c.case", start)), HasSubstr("it names no geometry"));
    EXPECT_THAT(problemWith(folder.write("d.case", without(sound.content, "1.5\n"))),
                HasSubstr("its time set 1 has 1 times for 2 steps"));
    EXPECT_THAT(
        problemWith(folder.write("e.case", start + "GEOMETRY\nmodel: flow.geo\nVARIABLE\nscalar per node: p f*\n")),
        HasSubstr("no time set gives numbers to its files \"f*\""));
    EXPECT_THAT(problemWith(folder.write(
                    "f.case", start + "GEOMETRY\nmodel: flow.geo\nTIME\ntime set: 1\nnumber of steps: 9x\n")),
                HasSubstr("\"9x\" stands where a number should be"));
}

TEST(EnSightCase, IsRefusedWhereOneOfItsFilesEndsTooEarly)
{
    for (EnSightForm const form : {EnSightForm::Text, EnSightForm::CBinary, EnSightForm::FortranBinary}) {
        SoundFile const file = enSightCase(1, 3, form);
        for (auto const& [name, content] : file.others) {
            TemporaryFolder const folder;
            std::string const path = writeCase(folder, file);
            for (std::size_t const missing : {std::size_t{5}, std::size_t{30}}) {
                folder.write(name, content.substr(0, content.size() - missing));
                EXPECT_THAT(problemWith(path), HasSubstr("its part \"" + name + "\": it is incomplete")) << missing;
            }
        }
    }
}

TEST(EnSightCase, StandsAnyDamageOfEachOfItsFiles)
{
    for (EnSightForm const form : {EnSightForm::Text, EnSightForm::CBinary, EnSightForm::FortranBinary}) {
        SoundFile const file = enSightCase(2, 3, form);
        for (char const* const victim : {"", "flow.geo", "flow.v10", "flow.q08"})
            expectToStandDamage(file, 100, victim);
    }
}

} // namespace veldraw::tests
