#include "tests/app/support/DamagedFiles.h"
#include "tests/app/support/FileHelpers.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using ::testing::Contains;
using ::testing::HasSubstr;

namespace {

using Size = std::array<int, 3>;

/// How a program may write a PLOT3D file.
struct Plot3dKind
{
    bool isFortran;
    bool isBigEndian;
    bool isSeveral;
    bool isPlanar;
    bool isDouble;
    bool hasMarks;
};

/// Writes one, record by record.
class Plot3dText
{
public:
    explicit Plot3dText(Plot3dKind const& kind)
        : m_kind(kind)
    {
    }

    template <typename Number>
    void add(Number number)
    {
        char bytes[sizeof number];
        std::memcpy(bytes, &number, sizeof number);
        if (m_kind.isBigEndian)
            std::reverse(bytes, bytes + sizeof bytes);
        m_record.append(bytes, sizeof bytes);
    }

    void addReal(double number)
    {
        if (m_kind.isDouble)
            add(number);
        else
            add(static_cast<float>(number));
    }

    void endRecord()
    {
        std::string const record = std::move(m_record);
        m_record.clear();
        if (!m_kind.isFortran) {
            m_content += record;
            return;
        }
        add(static_cast<std::int32_t>(record.size()));
        m_content += m_record + record + m_record;
        m_record.clear();
    }

    void addSizes(std::vector<Size> const& blocks, int variables)
    {
        if (m_kind.isSeveral) {
            add(static_cast<std::int32_t>(blocks.size()));
            endRecord();
        }
        for (Size const& size : blocks) {
            for (std::size_t axis = 0; axis < (m_kind.isPlanar ? 2 : 3); ++axis)
                add(static_cast<std::int32_t>(size[axis]));
            if (variables > 0)
                add(static_cast<std::int32_t>(variables));
        }
        endRecord();
    }

    std::string const& content() const { return m_content; }

private:
    Plot3dKind m_kind;
    std::string m_content;
    std::string m_record;
};

int pointsOf(Size const& size)
{
    return size[0] * size[1] * size[2];
}

// Any number that stands as it is in single precision.
double valueAt(int file, int block, int variable, int point)
{
    return 1000.0 * file + 100000.0 * block + 0.5 * point - 7.25 * variable;
}

std::string fileOf(Plot3dKind const& kind, std::vector<Size> const& blocks, int file, int variables)
{
    Plot3dText text(kind);
    text.addSizes(blocks, file == 3 ? variables : 0);
    for (std::size_t block = 0; block < blocks.size(); ++block) {
        for (int n = 0; file == 2 && n < 4; ++n)
            text.addReal(0.1 + n);
        if (file == 2)
            text.endRecord();
        for (int variable = 0; variable < variables; ++variable) {
            for (int point = 0; point < pointsOf(blocks[block]); ++point)
                text.addReal(valueAt(file, static_cast<int>(block), variable, point));
        }
        for (int point = 0; file == 1 && kind.hasMarks && point < pointsOf(blocks[block]); ++point)
            text.add(static_cast<std::int32_t>(point % 3 - 1));
        text.endRecord();
    }
    return text.content();
}

// @return how many values were compared
int expectValues(kernel::DataSet const& data, std::vector<std::string> const& names, int file)
{
    int count = 0;
    for (int zone = 1; zone <= data.zoneCount(); ++zone) {
        for (std::size_t variable = 0; variable < names.size(); ++variable) {
            auto const values = fieldOf(data, zone, names[variable]).group()->buffer();
            for (int point = 0; point < values->size(); ++point, ++count)
                EXPECT_EQ(values->value(point), valueAt(file, zone - 1, static_cast<int>(variable), point));
        }
    }
    return count;
}

void expectKind(Plot3dKind const& kind)
{
    int const depth = kind.isPlanar ? 1 : 4;
    std::vector<Size> blocks{{{5, 3, depth}}};
    if (kind.isSeveral)
        blocks.push_back({{2, 6, depth}});
    TemporaryFolder const folder;
    std::vector<std::string> const axes =
        kind.isPlanar ? std::vector<std::string>{"X", "Y"} : std::vector<std::string>{"X", "Y", "Z"};
    std::vector<std::string> flow{"Density", "Momentum_X", "Momentum_Y", "Momentum_Z", "Energy"};
    if (kind.isPlanar)
        flow.erase(flow.begin() + 3);
    std::string const path = folder.write("a.xyz", fileOf(kind, blocks, 1, static_cast<int>(axes.size())));
    folder.write("a.q", fileOf(kind, blocks, 2, static_cast<int>(flow.size())));
    folder.write("a.f", fileOf(kind, blocks, 3, 2));
    auto const data = import(path).dataSet;
    loadAll(*data);
    ASSERT_EQ(data->zoneCount(), static_cast<int>(blocks.size()));
    EXPECT_EQ(data->zone(1)->name, kind.isSeveral ? "a 1" : "a");
    int const compared = expectValues(*data, axes, 1) + expectValues(*data, flow, 2) +
                         expectValues(*data, {"Function_1", "Function_2"}, 3);
    EXPECT_GE(compared, 15 * 8);
    kernel::AuxiliaryData const& conditions = data->zone(1)->auxiliaryData;
    EXPECT_EQ(conditions.item(conditions.indexOf("Mach")).value, "0.1");
    EXPECT_EQ(data->zone(1)->solutionTime, kind.isDouble ? 3.1 : static_cast<double>(3.1F));
    EXPECT_EQ(variableNames(*data).find("IBlank") != std::string::npos, kind.hasMarks);
    if (!kind.hasMarks)
        return;
    EXPECT_EQ(valuesOf(*data, 1, "IBlank").substr(0, 14), "-1 0 1 -1 0 1 ");
}

constexpr Plot3dKind usual{true, false, true, false, false, true};

} // namespace

TEST(Plot3dFile, IsReadInEachFormThatProgramsWrite)
{
    for (unsigned int bits = 0; bits < 64; ++bits) {
        SCOPED_TRACE(bits);
        auto const has = [bits](unsigned int which) { return ((bits >> which) & 1U) != 0; };
        expectKind({has(0), has(1), has(2), has(3), has(4), has(5)});
    }
}

TEST(Plot3dFile, OfASolutionNeedsItsGrid)
{
    TemporaryFolder const folder;
    std::string const solution = folder.write("a.q", fileOf(usual, {{{3, 3, 3}}}, 2, 5));
    EXPECT_EQ(problemWith(solution),
              "Cannot open \"" + solution + "\": \"" + folder.path("a.xyz") + "\": there is no such file.");
    folder.write("a.xyz", fileOf(usual, {{{3, 3, 3}}}, 1, 3));
    EXPECT_EQ(variableNames(*import(solution).dataSet), "X,Y,Z,IBlank,Density,Momentum_X,Momentum_Y,Momentum_Z,Energy");
    folder.write("a.xyz", fileOf(usual, {{{3, 3, 4}}}, 1, 3));
    EXPECT_THAT(problemWith(solution), HasSubstr("no PLOT3D file that goes with the grid"));
}

TEST(Plot3dFile, OpensWithoutWhatDoesNotGoWithIt)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("a.xyz", fileOf(usual, {{{3, 3, 3}}}, 1, 3));
    folder.write("a.f", "      program main\n      end\n");
    auto const result = import(path);
    EXPECT_EQ(variableNames(*result.dataSet), "X,Y,Z,IBlank");
    EXPECT_THAT(result.remarks, Contains(HasSubstr("a.f\" was left out: it is damaged, or no PLOT3D file")));
}

TEST(Plot3dFile, OfAnotherProgramIsRefused)
{
    TemporaryFolder const folder;
    EXPECT_THAT(problemWith(folder.write("water.xyz", "3\nwater\nO 0 0 0\nH 0 0 1\nH 0 1 0\n")),
                HasSubstr("no PLOT3D grid in binary form"));
}

TEST(Plot3dFile, IsRefusedWhereARecordHasNotAsManyBytesAsItSays)
{
    TemporaryFolder const folder;
    std::string const sound = fileOf(usual, {{{3, 3, 3}}, {{2, 2, 2}}}, 1, 3);
    std::size_t const secondBlock = sound.size() - 8 * 16 - 8;
    for (std::size_t const at : {std::size_t{0}, std::size_t{12}, secondBlock, sound.size() - 4}) {
        std::string damaged = sound;
        damaged[at] = static_cast<char>(damaged[at] + 2);
        EXPECT_THAT(problemWith(folder.write("a.xyz", damaged)), HasSubstr("its size is not what the counts")) << at;
    }
}

TEST(Plot3dFile, StandsAnyDamage)
{
    expectToStandDamage({"a.xyz", fileOf(usual, {{{3, 4, 2}}, {{2, 2, 2}}}, 1, 3), {}}, 200);
    Plot3dKind plain = usual;
    plain.isFortran = false;
    expectToStandDamage({"a.xyz", fileOf(plain, {{{3, 4, 2}}, {{2, 2, 2}}}, 1, 3), {}}, 200);
}

} // namespace veldraw::tests
