#include "tests/app/support/DamagedFiles.h"
#include "tests/app/support/ExodusSamples.h"
#include "tests/app/support/FileHelpers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>

namespace veldraw::tests {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

std::string writtenExodus(TemporaryFolder const& folder, int moments, int points)
{
    std::string const path = folder.path("row.e");
    writeExodus(path, moments, points);
    return path;
}

// @return how many values were compared
int expectBlockAt(kernel::DataSet const& data, int zone, int block, int moment)
{
    auto const at = [&](char const* variable, std::int64_t n) {
        return fieldOf(data, zone, variable).group()->buffer()->value(n);
    };
    auto const points = static_cast<int>(data.zone(zone)->pointCount());
    for (int n = 0; n < points; ++n) {
        double const x = at("X", n);
        double const y = at("Y", n);
        double const z = at("Z", n);
        EXPECT_EQ(at("temp", n), 100 * block + (x - 10 * block) + 10 * y + 20 * z + moment) << n;
        EXPECT_EQ(at("vel_X", n), x);
        EXPECT_EQ(at("vel_Y", n), 2 * y);
        EXPECT_EQ(at("vel_Z", n), 3 * z + moment);
    }
    auto const cells = static_cast<int>(data.zone(zone)->cellCount());
    for (int c = 0; c < cells; ++c)
        EXPECT_EQ(at("quality", c), c - moment);
    return 4 * points + cells;
}

// Each corner of a cell where the closed form has it: nodes may have any order.
void expectCells(kernel::DataSet const& data, int zone, int corners, double start)
{
    constexpr int shifts[8][3] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0},
                                  {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}};
    constexpr int ofTetrahedron[4] = {0, 1, 3, 4};
    kernel::Connectivity const& cells = *data.zone(zone)->connectivity;
    for (std::int64_t c = 0; c < cells.cellCount; ++c) {
        for (int n = 0; n < corners; ++n) {
            int const* const shift = shifts[corners == 4 ? ofTetrahedron[n] : n];
            std::int64_t const point = cells.indices[corners * c + n];
            int axis = 0;
            for (char const* const name : {"X", "Y", "Z"}) {
                double const place = fieldOf(data, zone, name).group()->buffer()->value(point);
                EXPECT_EQ(place, (axis == 0 ? start + static_cast<double>(c) : 0.0) + shift[axis]) << c << " " << n;
                ++axis;
            }
        }
    }
}

} // namespace

TEST(ExodusFile, HasEachBlockAtEachMomentWithAllValues)
{
    TemporaryFolder const folder;
    auto const result = import(writtenExodus(folder, 3, 30));
    auto const& data = *result.dataSet;
    ASSERT_EQ(data.zoneCount(), 6);
    EXPECT_EQ(variableNames(data), "X,Y,Z,temp,vel_X,vel_Y,vel_Z,quality");
    int compared = 0;
    for (int moment = 0; moment < 3; ++moment) {
        for (int block : {0, 1}) {
            int const zone = 2 * moment + block + 1;
            EXPECT_EQ(data.zone(zone)->name, block == 0 ? "bricks" : "tets");
            EXPECT_EQ(data.zone(zone)->type, block == 0 ? ZoneType_FEBrick : ZoneType_FETetra);
            EXPECT_EQ(data.zone(zone)->strand, block + 1);
            EXPECT_EQ(data.zone(zone)->solutionTime, 0.5 * moment);
            EXPECT_EQ(data.zone(zone)->cellCount(), 29);
            expectCells(data, zone, block == 0 ? 8 : 4, 10 * block);
            compared += expectBlockAt(data, zone, block, moment);
        }
    }
    EXPECT_GT(compared, 2000);
    EXPECT_EQ(fieldOf(data, 1, "quality").location(), ValueLocation_CellCentered);
    EXPECT_EQ(fieldOf(data, 1, "temp").location(), ValueLocation_Nodal);
    EXPECT_EQ(data.zone(1)->connectivity, data.zone(3)->connectivity) << "the same cells at each moment";
}

TEST(ExodusFile, OfOneMomentHasNoStrand)
{
    TemporaryFolder const folder;
    auto const data = import(writtenExodus(folder, 1, 3)).dataSet;
    ASSERT_EQ(data->zoneCount(), 2);
    EXPECT_EQ(data->zone(1)->strand, kernel::staticStrand);
    EXPECT_EQ(valuesOf(*data, 1, "quality"), "0 1");
}

TEST(ExodusFile, HasItsTitleOnceAndItsBlocksTheirNumbers)
{
    TemporaryFolder const folder;
    auto const data = import(writtenExodus(folder, 2, 3)).dataSet;
    int const title = data->auxiliaryData().indexOf("Title");
    ASSERT_GT(title, 0);
    EXPECT_THAT(data->auxiliaryData().item(title).value, HasSubstr("Created by vtkExodusIIWriter"));
    EXPECT_EQ(data->zone(1)->auxiliaryData.indexOf("Title"), 0);
    EXPECT_GT(data->zone(2)->auxiliaryData.indexOf("ElementBlockIds"), 0);
}

// VTK writes no such file; so the number behind the name of the dimension is changed.
TEST(ExodusFile, OfOneDimensionIsOnTheFirstAxis)
{
    TemporaryFolder const folder;
    std::string content = contentOf(writtenExodus(folder, 2, 900));
    std::size_t const length = content.find("num_dim") + 8 + 3;
    ASSERT_EQ(content[length], 3);
    content[length] = 1;
    auto const data = import(folder.write("a.e", content)).dataSet;
    ASSERT_EQ(data->zoneCount(), 4);
    auto const at = [&](char const* variable, std::int64_t n) {
        return fieldOf(*data, 3, variable).group()->buffer()->value(n);
    };
    ASSERT_EQ(data->zone(3)->pointCount(), 3600);
    for (std::int64_t n = 0; n < 3600; ++n) {
        EXPECT_EQ(at("X", n), at("vel_X", n)) << n;
        EXPECT_EQ(at("Y", n), 0.0);
        EXPECT_EQ(at("Z", n), 0.0);
    }
}

TEST(ExodusFile, SaysWhatIsNotRead)
{
    TemporaryFolder const folder;
    std::string const path = writtenExodus(folder, 2, 3);
    addNodeSetAndGlobal(path);
    auto const result = import(path);
    EXPECT_EQ(variableNames(*result.dataSet), "X,Y,Z,temp,vel_X,vel_Y,vel_Z,quality");
    EXPECT_THAT(result.remarks,
                ElementsAre("left out: node set \"Unnamed set ID: 7\"", "left out: global variable energy"));
}

TEST(ExodusFile, OfAnotherKindIsRefused)
{
    TemporaryFolder const folder;
    for (char const* const content : {"x", "c program for tests\nend\n", "\x89HDF\r\n\x1a\n"}) {
        std::string const problem = problemWith(folder.write("a.exo", content));
        EXPECT_THAT(problem, HasSubstr("a.exo\": it is damaged, incomplete or of another kind")) << content;
    }
}

TEST(ExodusFile, IsRefusedWhereItEndsTooEarly)
{
    TemporaryFolder const folder;
    std::string const content = contentOf(writtenExodus(folder, 2, 4));
    for (std::size_t size = 8; size < content.size(); size += size + 50 < content.size() ? 50 : 1) {
        std::string const problem = problemWith(folder.write("a.e", content.substr(0, size)));
        EXPECT_THAT(problem, HasSubstr("it is incomplete")) << size;
    }
    std::string const more = content + std::string(100, 'x');
    EXPECT_EQ(problemWith(folder.write("a.e", more)), "") << "nobody asks what stands behind the values";
}

TEST(ExodusFile, IsRefusedWhereItLacksWhatItSpeaksOf)
{
    TemporaryFolder const folder;
    std::string const content = contentOf(writtenExodus(folder, 2, 4));
    for (auto const& [name, fault] :
         std::map<std::string, std::string>{{"vals_nod_var1", "a variable has no values"},
                                            {"vals_nod_var3", "a variable has no values"},
                                            {"vals_elem_var1eb2", "a variable has no values"},
                                            {"name_nod_var", "a variable has no name"},
                                            {"name_elem_var", "a variable has no name"},
                                            {"num_dim", "a size is missing"}}) {
        std::string damaged = content;
        damaged.replace(damaged.find(name), 4, "walk");
        EXPECT_THAT(problemWith(folder.write("a.e", damaged)), HasSubstr(fault)) << name;
    }
}

TEST(ExodusFile, IsRefusedWhereACellHasANodeThatIsNotThere)
{
    TemporaryFolder const folder;
    for (int const node : {0, -1, 33, 1 << 20}) {
        std::string const path = writtenExodus(folder, 2, 4);
        setNodeOfCell(path, node);
        EXPECT_THAT(problemWith(path), HasSubstr("a cell has a node that is not there")) << node;
    }
    std::string const path = writtenExodus(folder, 2, 4);
    setNodeOfCell(path, 32);
    EXPECT_EQ(problemWith(path), "") << "the last node of all";
}

TEST(ExodusFile, StandsAnyDamage)
{
    TemporaryFolder const folder;
    expectToStandDamage({"row.e", contentOf(writtenExodus(folder, 2, 4)), {}}, 200);
}

} // namespace veldraw::tests
