#include "kernel/base/Progress.h"
#include "tests/app/support/FileHelpers.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace veldraw::tests {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

template <typename Number>
std::string bytesOf(std::vector<Number> const& values, bool reversed = false)
{
    std::string bytes;
    for (Number const& value : values) {
        char raw[sizeof(Number)];
        std::memcpy(raw, &value, sizeof raw);
        if (reversed)
            std::reverse(raw, raw + sizeof raw);
        bytes.append(raw, sizeof raw);
    }
    return bytes;
}

std::string header(std::string const& dims, std::string const& type, std::string const& more = {})
{
    return "ObjectType = Image\nNDims = " + std::to_string(1 + std::count(dims.begin(), dims.end(), ' ')) +
           "\nDimSize = " + dims + "\n" + more + "ElementType = " + type + "\nElementDataFile = a.raw\n";
}

// An image of one row with these values.
template <typename Number>
std::shared_ptr<kernel::DataSet> rowOf(TemporaryFolder const& folder, std::string const& type,
                                       std::vector<Number> const& values, bool bigEndian = false)
{
    folder.write("a.raw", bytesOf(values, bigEndian));
    return import(folder.write("a.mhd", header(std::to_string(values.size()), type,
                                               bigEndian ? "ElementByteOrderMSB = True\n" : "")))
        .dataSet;
}

template <typename Number>
void expectEachValueExact(std::string const& type, FieldDataType_e kept, std::vector<Number> const& values)
{
    TemporaryFolder const folder;
    for (bool const bigEndian : {false, true}) {
        auto const dataSet = rowOf(folder, type, values, bigEndian);
        kernel::Field const& field = fieldOf(*dataSet, 1, "Value");
        EXPECT_EQ(field.type(), kept) << type;
        ASSERT_EQ(field.group()->size(), static_cast<std::int64_t>(values.size())) << type;
        for (std::size_t n = 0; n < values.size(); ++n)
            EXPECT_EQ(field.group()->buffer()->value(static_cast<std::int64_t>(n)), static_cast<double>(values[n]))
                << type << (bigEndian ? " big" : " little");
    }
}

template <typename Number>
std::vector<Number> extremes()
{
    return {std::numeric_limits<Number>::lowest(), Number(0), Number(1), Number(77),
            std::numeric_limits<Number>::max()};
}

template <typename Bits, typename Number>
void expectEachBitKept(std::string const& type)
{
    std::mt19937_64 random(4711);
    std::vector<Bits> bits{0, Bits(1), static_cast<Bits>(~Bits(0))};
    for (int n = 0; n < 1000; ++n)
        bits.push_back(static_cast<Bits>(random()));
    TemporaryFolder const folder;
    for (bool const bigEndian : {false, true}) {
        auto const dataSet = rowOf(folder, type, bits, bigEndian);
        auto const buffer = fieldOf(*dataSet, 1, "Value").group()->buffer();
        ASSERT_EQ(buffer->bytes(), static_cast<std::int64_t>(bits.size() * sizeof(Bits)));
        EXPECT_EQ(std::memcmp(buffer->data(), bits.data(), bits.size() * sizeof(Bits)), 0) << type;
    }
}

std::string problemWithHeader(std::string const& text)
{
    TemporaryFolder const folder;
    folder.write("a.raw", "12345678");
    return problemWith(folder.write("a.mhd", text));
}

} // namespace

TEST(MetaImage, GivesEveryPointItsPlaceAndItsValue)
{
    TemporaryFolder const folder;
    folder.write("a.raw", bytesOf<float>({1, 2, 3, 4, 5, 6}));
    auto const result = import(folder.write(
        "a.mhd", header("3 2", "MET_FLOAT", "ElementSpacing = 0.5 10\nOffset = 1 -20\nElementSize = 9 9\n")));
    auto const& zone = *result.dataSet->zone(1);
    EXPECT_EQ(zone.name, "a");
    EXPECT_EQ(zone.i, 3);
    EXPECT_EQ(zone.j, 2);
    EXPECT_EQ(zone.k, 1);
    EXPECT_EQ(variableNames(*result.dataSet), "X,Y,Value");
    EXPECT_EQ(valuesOf(*result.dataSet, 1, "Value"), "1 2 3 4 5 6");
    EXPECT_THAT(result.remarks, IsEmpty());
}

TEST(MetaImage, TakesTheSpacingBeforeTheSizeOfAnElementInAnyOrder)
{
    for (std::string const lines :
         {"ElementSpacing = 0.5 10\nElementSize = 9 9\n", "ElementSize = 9 9\nElementSpacing = 0.5 10\n"}) {
        TemporaryFolder const folder;
        folder.write("a.raw", std::string(6, '\1'));
        auto const dataSet =
            import(folder.write("a.mhd", header("3 2", "MET_UCHAR", lines + "Offset = 1 -20\n"))).dataSet;
        EXPECT_EQ(valuesOf(*dataSet, 1, "X"), "1 1.5 2 1 1.5 2");
        EXPECT_EQ(valuesOf(*dataSet, 1, "Y"), "-20 -20 -20 -10 -10 -10");
    }
}

TEST(MetaImage, TakesTheSizeOfAnElementWhereThereIsNoSpacing)
{
    TemporaryFolder const folder;
    folder.write("a.raw", std::string(3, '\1'));
    auto const dataSet = import(folder.write("a.mhd", header("3", "MET_UCHAR", "ElementSize = 4\n"))).dataSet;
    EXPECT_EQ(valuesOf(*dataSet, 1, "X"), "0 4 8");
}

TEST(MetaImage, TurnsTheAxesAsTheHeaderSays)
{
    TemporaryFolder const folder;
    folder.write("a.raw", std::string(4, '\1'));
    auto const dataSet =
        import(folder.write("a.mhd", header("2 2", "MET_UCHAR", "TransformMatrix = 0 1 -1 0\nElementSpacing = 2 3\n")))
            .dataSet;
    EXPECT_EQ(valuesOf(*dataSet, 1, "X"), "0 0 -3 -3");
    EXPECT_EQ(valuesOf(*dataSet, 1, "Y"), "0 2 0 2");
}

TEST(MetaImage, HasOneToThreeDimensions)
{
    TemporaryFolder const folder;
    folder.write("a.raw", std::string(24, '\5'));
    EXPECT_EQ(variableNames(*import(folder.write("a.mhd", header("24", "MET_UCHAR"))).dataSet), "X,Value");
    auto const dataSet = import(folder.write("a.mhd", header("2 3 4", "MET_UCHAR"))).dataSet;
    EXPECT_EQ(variableNames(*dataSet), "X,Y,Z,Value");
    EXPECT_EQ(dataSet->zone(1)->k, 4);
    EXPECT_EQ(valuesOf(*dataSet, 1, "Z"), "0 0 0 0 0 0 1 1 1 1 1 1 2 2 2 2 2 2 3 3 3 3 3 3");
}

TEST(MetaImage, KeepsEveryValueOfEveryTypeExactInBothByteOrders)
{
    expectEachValueExact<std::int8_t>("MET_CHAR", FieldDataType_Int16, extremes<std::int8_t>());
    expectEachValueExact<std::uint8_t>("MET_UCHAR", FieldDataType_Byte, extremes<std::uint8_t>());
    expectEachValueExact<std::int16_t>("MET_SHORT", FieldDataType_Int16, extremes<std::int16_t>());
    expectEachValueExact<std::uint16_t>("MET_USHORT", FieldDataType_Int32, extremes<std::uint16_t>());
    expectEachValueExact<std::int32_t>("MET_INT", FieldDataType_Int32, extremes<std::int32_t>());
    expectEachValueExact<std::uint32_t>("MET_UINT", FieldDataType_Double, extremes<std::uint32_t>());
    expectEachValueExact<std::int32_t>("MET_LONG", FieldDataType_Int32, extremes<std::int32_t>());
    expectEachValueExact<std::uint32_t>("MET_ULONG", FieldDataType_Double, extremes<std::uint32_t>());
    expectEachValueExact<std::int64_t>("MET_LONG_LONG", FieldDataType_Double, {-9007199254740992, 0, 9007199254740992});
    expectEachValueExact<std::uint64_t>("MET_ULONG_LONG", FieldDataType_Double, {0, 5, 9007199254740992U});
    expectEachValueExact<float>("MET_FLOAT", FieldDataType_Float, extremes<float>());
    expectEachValueExact<double>("MET_DOUBLE", FieldDataType_Double, extremes<double>());
}

TEST(MetaImage, KeepsEveryBitOfTheTypesThatTheKernelHas)
{
    expectEachBitKept<std::uint8_t, std::uint8_t>("MET_UCHAR");
    expectEachBitKept<std::uint16_t, std::int16_t>("MET_SHORT");
    expectEachBitKept<std::uint32_t, std::int32_t>("MET_INT");
    expectEachBitKept<std::uint32_t, float>("MET_FLOAT");
    expectEachBitKept<std::uint64_t, double>("MET_DOUBLE");
}

TEST(MetaImage, TellsWhatItConverts)
{
    TemporaryFolder const folder;
    folder.write("a.raw", std::string(16, '\1'));
    EXPECT_THAT(
        import(folder.write("a.mhd", header("2", "MET_LONG_LONG"))).remarks,
        ::testing::ElementsAre(HasSubstr("64-bit integers are converted to double, which is exact up to 2^53")));
}

TEST(MetaImage, MakesAVariableOfEachChannel)
{
    TemporaryFolder const folder;
    folder.write("a.raw", bytesOf<std::int16_t>({1, 10, 100, 2, 20, 200}));
    auto const dataSet =
        import(folder.write("a.mhd", header("2", "MET_SHORT", "ElementNumberOfChannels = 3\n"))).dataSet;
    EXPECT_EQ(variableNames(*dataSet), "X,Value_X,Value_Y,Value_Z");
    EXPECT_EQ(valuesOf(*dataSet, 1, "Value_Y"), "10 20");
    EXPECT_EQ(valuesOf(*dataSet, 1, "Value_Z"), "100 200");
}

TEST(MetaImage, SkipsTheHeaderOfTheFileWithTheValues)
{
    TemporaryFolder const folder;
    folder.write("a.raw", "abc" + std::string("\1\2\3\4"));
    EXPECT_EQ(
        valuesOf(*import(folder.write("a.mhd", header("4", "MET_UCHAR", "HeaderSize = 3\n"))).dataSet, 1, "Value"),
        "1 2 3 4");
    EXPECT_EQ(
        valuesOf(*import(folder.write("a.mhd", header("4", "MET_UCHAR", "HeaderSize = -1\n"))).dataSet, 1, "Value"),
        "1 2 3 4");
}

TEST(MetaImage, FindsTheValuesBehindTheHeader)
{
    TemporaryFolder const folder;
    std::string const text = "NDims = 1\r\nDimSize = 2\r\nElementType = MET_FLOAT\r\nElementDataFile = LOCAL\r\n";
    EXPECT_EQ(valuesOf(*import(folder.write("a.mha", text + bytesOf<float>({2.5F, -1.0F}))).dataSet, 1, "Value"),
              "2.5 -1");
}

TEST(MetaImage, FindsFilesWithBlanksQuotesAndLettersOfAnyScriptInTheirNames)
{
    TemporaryFolder const folder;
    std::string const name = "größe \"1\" – データ";
    folder.write(name + ".raw", "\1\2\3");
    std::string const text = "DimSize = 3\nElementType = MET_UCHAR\nElementDataFile = " + name + ".raw\n";
    auto const dataSet = import(folder.write(name + ".mhd", text)).dataSet;
    EXPECT_EQ(dataSet->zone(1)->name, name);
    EXPECT_EQ(valuesOf(*dataSet, 1, "Value"), "1 2 3");
}

TEST(MetaImage, TakesLimitsOfTheHeaderAsAnEstimate)
{
    TemporaryFolder const folder;
    folder.write("a.raw", "\1\2\3");
    auto const dataSet = import(folder.write("a.mhd", header("3", "MET_UCHAR", "ElementMin = 0\nElementMax = 4\n")),
                                app::Deferral::Always)
                             .dataSet;
    auto const range = dataSet->zone(1)->range(dataSet->findVariable("Value"));
    EXPECT_EQ(range.state, kernel::ValueRange::State::Estimated);
    EXPECT_EQ(range.max, 4.0);
    auto const x = dataSet->zone(1)->range(dataSet->findVariable("X"));
    EXPECT_EQ(x.state, kernel::ValueRange::State::Exact);
    EXPECT_EQ(x.max, 2.0);
}

TEST(MetaImage, LeavesValuesAndCoordinatesToBeLoadedWhenAsked)
{
    TemporaryFolder const folder;
    folder.write("a.raw", "\1\2\3");
    auto const dataSet = import(folder.write("a.mhd", header("3", "MET_UCHAR")), app::Deferral::Always).dataSet;
    EXPECT_EQ(valuesOf(*dataSet, 1, "Value"), "not loaded");
    EXPECT_EQ(valuesOf(*dataSet, 1, "X"), "not loaded");
    EXPECT_EQ(loadingProblem(*dataSet, 1, "Value"), "");
    EXPECT_EQ(loadingProblem(*dataSet, 1, "X"), "");
    EXPECT_EQ(valuesOf(*dataSet, 1, "Value"), "1 2 3");
    EXPECT_EQ(valuesOf(*dataSet, 1, "X"), "0 1 2");
}

TEST(MetaImage, TellsThatAFileHasVanishedOrChangedBeforeItsValuesWereLoaded)
{
    TemporaryFolder const folder;
    folder.write("a.raw", "\1\2\3");
    auto const dataSet = import(folder.write("a.mhd", header("3", "MET_UCHAR")), app::Deferral::Always).dataSet;
    std::filesystem::rename(folder.path("a.raw"), folder.path("b.raw"));
    EXPECT_EQ(loadingProblem(*dataSet, 1, "Value"),
              "\"" + folder.path("a.raw") + "\" cannot be read any more: there is no such file");
    folder.write("a.raw", "\1\2\3\4");
    EXPECT_EQ(loadingProblem(*dataSet, 1, "Value"),
              "\"" + folder.path("a.raw") + "\" has been changed since it was opened; open it again");
    EXPECT_EQ(valuesOf(*dataSet, 1, "Value"), "not loaded");
    std::filesystem::rename(folder.path("b.raw"), folder.path("a.raw"));
    EXPECT_EQ(loadingProblem(*dataSet, 1, "Value"), "");
}

TEST(MetaImage, EndsALoadThatIsInterrupted)
{
    TemporaryFolder const folder;
    folder.write("a.raw", "\1\2\3");
    auto const dataSet = import(folder.write("a.mhd", header("3", "MET_UCHAR")), app::Deferral::Always).dataSet;
    kernel::Progress progress;
    progress.interrupt();
    EXPECT_THROW(fieldOf(*dataSet, 1, "Value").group()->loader()->load(progress), kernel::Interrupted);
}

TEST(MetaImage, TellsBothSizesOfAShortFile)
{
    TemporaryFolder const folder;
    folder.write("a.raw", "12345678");
    EXPECT_EQ(problemWith(folder.write("a.mhd", header("3", "MET_FLOAT"))),
              "Cannot open \"" + folder.path("a.mhd") + "\": \"" + folder.path("a.raw") +
                  "\" has 8 bytes, and the header asks for 12; it is incomplete.");
    EXPECT_THAT(problemWith(folder.write("a.mhd", header("2", "MET_FLOAT", "HeaderSize = 2\n"))),
                HasSubstr("has 8 bytes, and the header asks for 8 from byte 2 on; it is incomplete"));
    EXPECT_THAT(problemWith(folder.write("a.mhd", header("3", "MET_FLOAT", "HeaderSize = -1\n"))),
                HasSubstr("has 8 bytes, and the header asks for 12; it is incomplete"));
}

TEST(MetaImage, SaysWhichFileWithValuesIsMissing)
{
    TemporaryFolder const folder;
    EXPECT_THAT(problemWith(folder.write("a.mhd", header("3", "MET_FLOAT"))),
                HasSubstr("its values are to be in \"" + folder.path("a.raw") + "\": there is no such file"));
}

TEST(MetaImage, NamesTheLineOfTheHeaderThatIsWrong)
{
    EXPECT_THAT(problemWithHeader("NDims = 3\nDimSize = 2 x 4\n"),
                HasSubstr("line 2 (DimSize): \"x\" is no whole number from 1"));
    EXPECT_THAT(problemWithHeader("NDims = 4\n"), HasSubstr("line 1 (NDims): 4 is out of range"));
    EXPECT_THAT(problemWithHeader("DimSize = 0\n"), HasSubstr("line 1 (DimSize): \"0\" is no whole number from 1"));
    EXPECT_THAT(problemWithHeader("DimSize = 1 1 1 1\n"), HasSubstr("one to three dimensions"));
    EXPECT_THAT(problemWithHeader("\nElementType = MET_STRING\n"),
                HasSubstr("line 2 (ElementType): values of the type \"MET_STRING\" cannot be read"));
    EXPECT_THAT(problemWithHeader("ElementSpacing = 1 nan\n"), HasSubstr("\"nan\" is no number"));
    EXPECT_THAT(problemWithHeader("CompressedData = True\n"), HasSubstr("compressed values cannot be read"));
    EXPECT_THAT(problemWithHeader("BinaryData = False\n"), HasSubstr("written as text cannot be read"));
    EXPECT_THAT(problemWithHeader("ObjectType = Tube\n"), HasSubstr("\"Tube\" are no images"));
    EXPECT_THAT(problemWithHeader("ElementByteOrderMSB = maybe\n"), HasSubstr("True or False is needed"));
    EXPECT_THAT(problemWithHeader("ElementDataFile = LIST\n"), HasSubstr("several files cannot be read"));
    EXPECT_THAT(problemWithHeader("HeaderSize = 99999999999999999999\n"), HasSubstr("is no whole number"));
    EXPECT_THAT(problemWithHeader("hello\n"), HasSubstr("line 1: there is no \"=\" in it"));
    EXPECT_THAT(problemWithHeader(std::string("abc\0def", 7)), HasSubstr("line 1: this is no line of text"));
}

TEST(MetaImage, SaysWhatTheHeaderLacks)
{
    EXPECT_THAT(problemWithHeader("NDims = 1\n"), HasSubstr("its header ends after line 1 without ElementDataFile"));
    EXPECT_THAT(problemWithHeader("ElementType = MET_CHAR\nElementDataFile = a.raw\n"), HasSubstr("DimSize"));
    EXPECT_THAT(problemWithHeader("DimSize = 1\nElementDataFile = a.raw\n"), HasSubstr("ElementType"));
    EXPECT_THAT(problemWithHeader("NDims = 2\nDimSize = 1\nElementType = MET_CHAR\nElementDataFile = a.raw\n"),
                HasSubstr("its header says NDims = 2, and DimSize has 1 numbers"));
}

TEST(MetaImage, RefusesMoreValuesThanThereCanBe)
{
    EXPECT_THAT(problemWithHeader(header("3000000000 3000000000 3000000000", "MET_CHAR")),
                HasSubstr("claims more values than there can be"));
}

TEST(MetaImage, OpensThreeThousandMillionPointsWithoutReadingThem)
{
    TemporaryFolder const folder;
    std::int64_t const points = 3000000000;
    folder.write("a.raw", "");
    std::filesystem::resize_file(folder.path("a.raw"), static_cast<std::uintmax_t>(points) * 4);
    auto const dataSet = import(folder.write("a.mhd", header("3000000000", "MET_FLOAT"))).dataSet;
    EXPECT_EQ(dataSet->zone(1)->pointCount(), points);
    kernel::Field const& field = fieldOf(*dataSet, 1, "Value");
    ASSERT_TRUE(field.isLoaded());
    EXPECT_EQ(field.group()->buffer()->value(points - 1), 0.0);
    EXPECT_EQ(valuesOf(*dataSet, 1, "X"), "not loaded");
    EXPECT_EQ(dataSet->zone(1)->range(1).max, 2999999999.0);
}

} // namespace veldraw::tests
