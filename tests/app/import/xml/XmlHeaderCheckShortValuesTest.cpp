// Arrays that have fewer values than their grid.
#include "app/import/xml/XmlHeaderCheck.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridSamples.h"

#include <QByteArray>
#include <vtkCellType.h>
#include <vtkDoubleArray.h>
#include <vtkRectilinearGrid.h>

#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace veldraw::tests {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

namespace {

std::string corpusFile(char const* name)
{
    return std::string(VELDRAW_CORPUS) + name;
}

template <typename Number>
std::string rawBytesOf(Number number)
{
    std::string bytes(sizeof number, '\0');
    std::memcpy(&bytes[0], &number, sizeof number);
    return bytes;
}

std::string encoded(std::string const& bytes)
{
    return QByteArray::fromStdString(bytes).toBase64().toStdString();
}

// The values 0, 1, 2 and so on, with their size in front.
template <typename Size>
std::string sizedValues(int count)
{
    std::string bytes = rawBytesOf(static_cast<Size>(8 * count));
    for (int n = 0; n < count; ++n)
        bytes += rawBytesOf(static_cast<double>(n));
    return bytes;
}

std::string rowWith(int points, std::string const& array, std::string const& rest = {},
                    std::string const& sizeType = "UInt32")
{
    std::string const extent = "0 " + std::to_string(points - 1) + " 0 0 0 0";
    return "<VTKFile type=\"ImageData\" version=\"1.0\" byte_order=\"LittleEndian\" header_type=\"" + sizeType +
           "\">\n<ImageData WholeExtent=\"" + extent + "\" Origin=\"0 0 0\" Spacing=\"1 1 1\">\n<Piece Extent=\"" +
           extent + "\">\n<PointData><DataArray type=\"Float64\" Name=\"v\" " + array +
           "</PointData>\n</Piece>\n</ImageData>\n" + rest + "</VTKFile>\n";
}

std::string inlineRowWith(int points, std::string const& text, std::string const& sizeType = "UInt32")
{
    return rowWith(points, "format=\"binary\">\n" + text + "\n</DataArray>", {}, sizeType);
}

// Whatever is loaded at once: a value that is not in the file must not be shown in either case.
std::string problemAtAnyTime(std::string const& path)
{
    std::string const problem = problemWith(path);
    try {
        import(path, app::Deferral::Always);
        EXPECT_EQ(problem, "") << "refused only when all is loaded";
    } catch (app::ImportError const& error) {
        EXPECT_EQ(problem, error.what());
    }
    return problem;
}

} // namespace

TEST(ShortValues, OfFilesThatOnceShowedWhatStoodInMemoryAreRefused)
{
    for (char const* name : {"P1.vti", "P2.vti"})
        EXPECT_THAT(problemAtAnyTime(corpusFile(name)),
                    AllOf(HasSubstr(name), HasSubstr("of the values of \"vel\" no more than"),
                          HasSubstr("of 576 bytes can be read")));
}

TEST(ShortValues, OfCellsThatAskForGigabytesAreRefusedWithoutTakingThem)
{
    auto const peak = [] {
        rusage usage{};
        ::getrusage(RUSAGE_SELF, &usage);
        return 1024.0 * static_cast<double>(usage.ru_maxrss);
    };
    double const before = peak();
    EXPECT_THAT(problemAtAnyTime(corpusFile("memory-771.vtp")),
                AllOf(StartsWith("Cannot open \"" + corpusFile("memory-771.vtp")), Not(HasSubstr("0x"))));
    EXPECT_LT(peak() - before, 100e6);
}

TEST(ShortValues, InBase64AreRefusedWhereverTheTextIsDamaged)
{
    TemporaryFolder const folder;
    constexpr int points = 60;
    std::string const text = encoded(sizedValues<std::uint32_t>(points));
    EXPECT_EQ(problemAtAnyTime(folder.write("a.vti", inlineRowWith(points, text))), "");
    std::size_t const needed = text.find_last_not_of('=') + 1;
    for (std::size_t size = 8; size < needed; size += 3)
        EXPECT_THAT(problemAtAnyTime(folder.write("a.vti", inlineRowWith(points, text.substr(0, size)))),
                    HasSubstr("of the values of \"v\" no more than"))
            << size;
    for (std::size_t at = 8; at < needed; at += 3)
        EXPECT_THAT(
            problemAtAnyTime(folder.write("a.vti", inlineRowWith(points, std::string(text).replace(at, 1, "?")))),
            HasSubstr("of the values of \"v\" no more than"))
            << at;
}

TEST(ShortValues, InBase64ThatIsBrokenIntoLinesAreRefusedSinceTheyCannotBeRead)
{
    TemporaryFolder const folder;
    constexpr int points = 24;
    std::string const text = encoded(sizedValues<std::uint32_t>(points));
    EXPECT_THAT(
        problemAtAnyTime(folder.write("a.vti", inlineRowWith(points, text.substr(0, 76) + "\n" + text.substr(76)))),
        HasSubstr("of the values of \"v\" no more than 53 of 192 bytes"));
}

TEST(ShortValues, AreNoneWhereTheirSizeIsPaddedByItself)
{
    TemporaryFolder const folder;
    constexpr int points = 4000;
    auto const check = [&](std::string const& bytes, std::size_t bytesOfSize, char const* sizeType) {
        std::string const text = encoded(bytes.substr(0, bytesOfSize)) + encoded(bytes.substr(bytesOfSize));
        std::string const path = folder.write("a.vti", inlineRowWith(points, text, sizeType));
        EXPECT_EQ(problemAtAnyTime(path), "");
        auto const values = fieldOf(*import(path).dataSet, 1, "v").group()->buffer();
        for (int n = 0; n < points; ++n)
            ASSERT_EQ(values->value(n), n);
    };
    check(sizedValues<std::uint32_t>(points), 4, "UInt32");
    check(sizedValues<std::uint64_t>(points), 8, "UInt64");
}

TEST(ShortValues, AppendedInBase64AreRefused)
{
    TemporaryFolder const folder;
    constexpr int points = 60;
    std::string const text = encoded(sizedValues<std::uint64_t>(points));
    auto const write = [&](std::string const& values) {
        return folder.write("a.vti", rowWith(points, "format=\"appended\" offset=\"0\"/>",
                                             "<AppendedData encoding=\"base64\">_" + values + "</AppendedData>\n" +
                                                 std::string(1000, ' '),
                                             "UInt64"));
    };
    EXPECT_EQ(problemAtAnyTime(write(text)), "");
    for (std::size_t size = 12; size < text.size() - 4; size += 20)
        EXPECT_THAT(problemAtAnyTime(write(text.substr(0, size))), HasSubstr("of the values of \"v\" no more than"));
}

TEST(ShortValues, OfCellsAreRefusedWhereTheFileEndsBeforeThem)
{
    TemporaryFolder const folder;
    auto const grid = unstructuredGrid(4, {{VTK_TETRA, {0, 1, 2, 3}}});
    std::string file = contentOf(writeXml(*grid, folder.path("a.vtu"), Mode::Raw));
    std::size_t const list = file.find("Name=\"connectivity\"");
    std::size_t const offset = file.find("offset=\"", list) + 8;
    std::size_t const start = file.find('_', file.find("<AppendedData")) + 1;
    std::size_t const place = start + std::strtoul(file.c_str() + offset, nullptr, 10);
    ASSERT_EQ(file[place], 4 * 8) << "the size of four numbers";
    EXPECT_EQ(problemAtAnyTime(folder.path("a.vtu")), "");
    file[place + 1] = '\x10'; // 4096 bytes more
    EXPECT_THAT(problemAtAnyTime(folder.write("a.vtu", file)), HasSubstr("of the values of \"connectivity\" no more"));
}

// The tag that closes them would be read as values.
TEST(ShortValues, AppendedAsTheyAreEndBeforeTheirTagDoes)
{
    TemporaryFolder const folder;
    std::string const values = sizedValues<std::uint32_t>(3);
    for (std::size_t missing = 0; missing < values.size() - 4; ++missing) {
        std::string const file = rowWith(3, "format=\"appended\" offset=\"0\"/>",
                                         "<AppendedData encoding=\"raw\">_" +
                                             values.substr(0, values.size() - missing) + "</AppendedData>\n");
        EXPECT_THAT(problemAtAnyTime(folder.write("a.vti", file)),
                    HasSubstr(missing == 0 ? "" : "it ends before the values of \"v\" do"))
            << missing;
    }
}

// VTK's reader divides by the size of a block, which ended the program.
TEST(ShortValues, InBlocksOfNoBytesAreRefused)
{
    TemporaryFolder const folder;
    std::string const blocks = encoded(rawBytesOf(1U) + rawBytesOf(0U) + rawBytesOf(0U) + rawBytesOf(8U));
    std::string file = inlineRowWith(3, blocks + encoded("12345678"));
    file.insert(file.find(" header_type"), " compressor=\"vtkZLibDataCompressor\"");
    EXPECT_THAT(problemAtAnyTime(folder.write("a.vti", file)), HasSubstr("\"v\" are in blocks of no bytes"));
}

// VTK's reader does not look whether it has got all of them.
TEST(ShortValues, AreRefusedAlsoAsCoordinatesOfARectilinearGrid)
{
    TemporaryFolder const folder;
    auto const grid = vtkSmartPointer<vtkRectilinearGrid>::New();
    grid->SetDimensions(4, 3, 1);
    auto const axis = [](char const* name, std::vector<double> const& positions) {
        auto array = vtkSmartPointer<vtkDoubleArray>::New();
        array->SetName(name);
        for (double const position : positions)
            array->InsertNextValue(position);
        return array;
    };
    grid->SetXCoordinates(axis("x", {0, 1, 2, 3}));
    grid->SetYCoordinates(axis("y", {0, 5, 10}));
    grid->SetZCoordinates(axis("z", {0}));
    for (Mode const mode : allModes) {
        std::string const file = contentOf(writeXml(*grid, folder.path("a.vtr"), mode));
        EXPECT_EQ(problemAtAnyTime(folder.path("a.vtr")), "");
        std::size_t const at = file.find("Name=\"y\"");
        ASSERT_NE(at, std::string::npos);
        std::string wrongFormat = file;
        wrongFormat.replace(wrongFormat.find("format=", at), 7, "shape =");
        std::size_t const offset = wrongFormat.find("offset=", at);
        if (mode == Mode::Raw || mode == Mode::RawCompressed)
            wrongFormat.replace(offset, 7, "place =");
        std::string const problem = mode == Mode::Ascii ? "" : "there are fewer coordinates \"y\" than points";
        EXPECT_THAT(problemAtAnyTime(folder.write("b.vtr", wrongFormat)), HasSubstr(problem)) << static_cast<int>(mode);
        std::string larger = file; // 5 points along Y, so that the others are too few
        for (std::size_t extent = larger.find("0 3 0 2 0 0"); extent != std::string::npos;
             extent = larger.find("0 3 0 2 0 0"))
            larger.replace(extent, 11, "0 3 0 4 0 0");
        EXPECT_THAT(problemAtAnyTime(folder.write("c.vtr", larger)), HasSubstr("\"y\"")) << static_cast<int>(mode);
    }
    std::string const text = contentOf(writeXml(*grid, folder.path("a.vtr"), Mode::Ascii));
    std::size_t const five = text.find("0 5 10");
    ASSERT_NE(five, std::string::npos);
    for (char const* wrong : {"0 5   ", "0 x 10", "0 0x10", "0,5 10"})
        EXPECT_THAT(problemAtAnyTime(folder.write("d.vtr", std::string(text).replace(five, 6, wrong))),
                    HasSubstr("there are fewer coordinates \"y\" than points"))
            << wrong;
    EXPECT_EQ(problemAtAnyTime(folder.write("d.vtr", std::string(text).replace(five, 6, "-1\n5 9"))), "");
}

TEST(ShortValues, AreMissingWhereNothingIsAppended)
{
    TemporaryFolder const folder;
    EXPECT_THAT(problemAtAnyTime(folder.write("a.vti", rowWith(3, "format=\"appended\" offset=\"0\"/>"))),
                HasSubstr("it is incomplete: the values at its end are missing"));
}

TEST(ShortValues, AreLookedForAtTheirOffsetWhateverTheirFormatIsSaidToBe)
{
    TemporaryFolder const folder;
    std::string const appended = "<AppendedData encoding=\"raw\">_";
    EXPECT_THAT(
        problemAtAnyTime(folder.write("a.vti", rowWith(3, "format=\"ascii\" offset=\"0\">1 2 3</DataArray>",
                                                       appended + rawBytesOf(24U) + "1234567 </AppendedData>"))),
        HasSubstr("it ends before the values of \"v\" do"));
    EXPECT_EQ(problemAtAnyTime(
                  folder.write("a.vti", rowWith(3, "format=\"ascii\" offset=\"0\">1 2 3</DataArray>",
                                                appended + sizedValues<std::uint32_t>(3) + "\n</AppendedData>"))),
              "");
}

} // namespace veldraw::tests
