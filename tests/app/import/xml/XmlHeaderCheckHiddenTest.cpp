// Files that let arrays get by the check: VTK's reader would find them, and leave memory as it was where values are missing.
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridSamples.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using ::testing::HasSubstr;

namespace {

constexpr char const* head =
    "<VTKFile type=\"ImageData\" version=\"1.0\" byte_order=\"LittleEndian\" header_type=\"UInt32\">\n";

// A row of 60 points; its values take 480 bytes, of which four are there. There are bytes enough behind them.
std::string rowWithout(std::string const& values, std::string const& array)
{
    return std::string(head) + "<ImageData WholeExtent=\"0 59 0 0 0 0\" Origin=\"0 0 0\" Spacing=\"1 1 1\">\n" +
           "<Piece Extent=\"0 59 0 0 0 0\">\n<PointData>\n" + array + values +
           "</PointData>\n</Piece>\n</ImageData>\n" + std::string(1000, ' ');
}

std::string const shortValues = "\n4AEAAAAAAAA=\n"; // the size of 480 bytes, and four of them

std::string const inlineTag = " type=\"Float64\" Name=\"v\" format=\"binary\">";

class HiddenArrays : public ::testing::Test
{
protected:
    std::string problemWithFile(std::string const& text) const { return problemWith(folder.write("a.vti", text)); }

    std::string problemWithPieces(std::vector<std::string> const& extents, std::string const& arrays = {}) const
    {
        std::string text =
            std::string(head) + "<ImageData WholeExtent=\"0 3 0 2 0 0\" Origin=\"0 0 0\" Spacing=\"1 1 1\">\n";
        for (std::string const& extent : extents)
            text += "<Piece Extent=\"" + extent + "\">" + arrays + "</Piece>\n";
        return problemWith(folder.write("a.vti", text + "</ImageData></VTKFile>\n"));
    }

    TemporaryFolder const folder;
};

} // namespace

TEST_F(HiddenArrays, AreFoundWhereTheyStandAsTheyShould)
{
    EXPECT_THAT(problemWithFile(rowWithout(shortValues + "</DataArray>\n", "<DataArray" + inlineTag) + "</VTKFile>"),
                HasSubstr("of the values of \"v\" no more than 4 of 480 bytes"));
}

TEST_F(HiddenArrays, UnderAnotherNameThanArraysHaveAreRefused)
{
    for (std::string const name : {"Values", "VTKFile", "Piece", "PointData", "InformationKey", "ImageData"})
        EXPECT_THAT(
            problemWithFile(rowWithout(shortValues + "</" + name + ">\n", "<" + name + inlineTag) + "</VTKFile>"),
            HasSubstr("a tag \"" + name + "\" stands among its arrays"));
}

TEST_F(HiddenArrays, BehindALongTagAreFoundAndBehindOneOfEnormousLengthRefused)
{
    auto const problemBehind = [this](std::size_t bytes) {
        std::string const note = "<DataArray type=\"Float64\" Name=\"w\" note=\"" + std::string(bytes, 'x') +
                                 "\" format=\"ascii\"></DataArray>\n";
        return problemWithFile(rowWithout(shortValues + "</DataArray>\n", note + "<DataArray" + inlineTag) +
                               "</VTKFile>");
    };
    EXPECT_THAT(problemBehind(100000), HasSubstr("of the values of \"v\" no more than 4 of 480 bytes"));
    EXPECT_THAT(problemBehind(17000000), HasSubstr("a tag of it is longer than 16777216 bytes"));
}

TEST_F(HiddenArrays, BehindATagThatOnlySeemsToEndTheirSectionAreFound)
{
    std::string const other =
        "<DataArray type=\"Float64\" Name=\"w\" format=\"ascii\"><PointData></PointData></DataArray>\n";
    EXPECT_THAT(
        problemWithFile(rowWithout(shortValues + "</DataArray>\n", other + "<DataArray" + inlineTag) + "</VTKFile>"),
        HasSubstr("of the values of \"v\" no more than 4 of 480 bytes"));
}

TEST_F(HiddenArrays, WhoseFormatIsWrittenByNumbersOfLettersAreFound)
{
    std::string const tag = "<DataArray type=\"Float64\" Name=\"v\" format=\"&#x0000000000000062;inary\">";
    EXPECT_THAT(problemWithFile(rowWithout(shortValues + "</DataArray>\n", tag) + "</VTKFile>"),
                HasSubstr("of the values of \"v\" no more than 4 of 480 bytes"));
}

TEST_F(HiddenArrays, InAppendedDataWhereOnlyVtkSeesThemAreRefused)
{
    std::string const false1 = "<!-- <AppendedData encoding=\"base64\">_" + shortValues.substr(1, 12) + " -->\n";
    std::string const false2 = "<Note text='<AppendedData encoding=\"base64\">_' />\n";
    for (std::string const& start : {false1, false2}) {
        std::string const row =
            rowWithout("", "<DataArray type=\"Float64\" Name=\"v\" format=\"appended\" offset=\"0\"/>");
        std::string const end = "<AppendedData encoding=\"raw\">_" + std::string("\xe0\1\0\0", 4) +
                                std::string(480, '\0') + "</AppendedData></VTKFile>\n";
        EXPECT_THAT(problemWithFile(row + end), "");
        EXPECT_THAT(problemWithFile(row + start + end), HasSubstr("stands in quotes or in a comment"));
    }
}

// 2000 points of 60,000 arrays within each other would have to be decoded for minutes.
TEST_F(HiddenArrays, InBase64WithinEachOtherAreRefused)
{
    std::string arrays;
    for (int n = 0; n < 200; ++n)
        arrays += "<DataArray type=\"Float64\" Name=\"v" + std::to_string(n) + "\" format=\"appended\" offset=\"" +
                  std::to_string(4 * n) + "\"/>\n";
    std::string values; // "4AEA", so that a size of 480 bytes and zeros stands everywhere
    for (int n = 0; n < 2000; ++n)
        values += "4AEA";
    EXPECT_THAT(problemWithFile(rowWithout("", arrays) + "<AppendedData encoding=\"base64\">_" + values +
                                "</AppendedData></VTKFile>\n"),
                HasSubstr("the values of its arrays stand within each other"));
}

TEST_F(HiddenArrays, BeyondNumberAreRefused)
{
    std::string arrays;
    for (int n = 0; n < 20001; ++n)
        arrays += "<DataArray type=\"Int8\" Name=\"" + std::to_string(n) + "\" format=\"ascii\"/>";
    EXPECT_THAT(problemWithFile(rowWithout("", arrays) + "</VTKFile>"), HasSubstr("it has more than 20000 arrays"));
}

TEST_F(HiddenArrays, OfPiecesThatFillTheGridAreFine)
{
    std::string const values =
        "<CellData><DataArray type=\"Int8\" Name=\"c\" format=\"ascii\">1 2 3 4</DataArray></CellData>";
    EXPECT_EQ(problemWithPieces({"0 3 0 2 0 0"}), "");
    EXPECT_EQ(problemWithPieces({"0 1 0 2 0 0", "2 3 0 2 0 0"}), "") << "of points";
    EXPECT_EQ(problemWithPieces({"0 2 0 2 0 0", "1 3 0 2 0 0"}, values), "");
    EXPECT_EQ(problemWithPieces({"0 3 0 2 0 0", "0 0 0 0 0 0", "1 0 0 2 0 0"}), "");
}

TEST_F(HiddenArrays, OfPointsThatNoPieceHasAreRefused)
{
    for (std::vector<std::string> const& extents :
         std::vector<std::vector<std::string>>{{"0 1 0 2 0 0", "0 1 0 2 0 0"},
                                               {"0 3 0 1 0 0", "0 2 1 2 0 0"},
                                               {"0 3 0 0 0 0", "0 3 0 0 0 0", "0 3 2 2 0 0"},
                                               {"0 3 0 1 0 0", "0 3 0 1 0 0"}})
        EXPECT_THAT(problemWithPieces(extents), HasSubstr("its pieces do not fill its extent")) << extents.front();
}

TEST_F(HiddenArrays, OfCellsThatNoPieceHasAreRefused)
{
    std::string const cells =
        "<CellData><DataArray type=\"Int8\" Name=\"c\" format=\"ascii\">1 2</DataArray></CellData>";
    EXPECT_THAT(problemWithPieces({"0 1 0 2 0 0", "2 3 0 2 0 0"}, cells),
                HasSubstr("its pieces do not fill its extent"));
}

TEST_F(HiddenArrays, InPiecesThatVtkDoesNotSeeDoNotCount)
{
    std::string const start =
        std::string(head) + "<ImageData WholeExtent=\"0 9 0 0 0 0\" Origin=\"0 0 0\" Spacing=\"1 1 1\">\n";
    EXPECT_THAT(problemWithFile(start + "<Piece Extent=\"0 4 0 0 0 0\"><Piece Extent=\"5 9 0 0 0 0\"></Piece></Piece>"
                                        "</ImageData></VTKFile>"),
                HasSubstr("its pieces do not fill its extent"));
    EXPECT_THAT(problemWithFile(start + "<Piece Extent=\"0 4 0 0 0 0\"/></ImageData>"
                                        "<StructuredGrid WholeExtent=\"0 4 0 0 0 0\"></StructuredGrid></VTKFile>"),
                HasSubstr("it has more than one grid"));
}

} // namespace veldraw::tests
