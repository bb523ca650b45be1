#include "platform/vdsdkcommon/StringFormatter.h"

#include <gtest/gtest.h>
#include <limits>
#include <locale>
#include <ostream>

namespace veldraw::tests {

using sdk::StringFormatter;

namespace {

struct Sample
{
    NumberFormat_e format;
    std::size_t precision;
    double value;
    char const* text;
};

void PrintTo(Sample const& sample, std::ostream* out)
{
    *out << sample.text;
}

class DecimalComma : public std::numpunct<char>
{
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

class StringFormatterTable : public ::testing::TestWithParam<Sample>
{
};

TEST_P(StringFormatterTable, GivesTheText)
{
    Sample const& sample = GetParam();
    EXPECT_EQ(StringFormatter().formatting(sample.format).precision(sample.precision).format(sample.value),
              sample.text);
}

INSTANTIATE_TEST_SUITE_P(
    Formats, StringFormatterTable,
    ::testing::Values(
        Sample{NumberFormat_Integer, 3, 1234.5678, "1235"}, Sample{NumberFormat_Integer, 3, -0.4, "-0"},
        Sample{NumberFormat_Integer, 0, 1e15, "1000000000000000"}, Sample{NumberFormat_Float, 3, 1234.5678, "1234.568"},
        Sample{NumberFormat_Float, 0, 2.5, "2"}, Sample{NumberFormat_Float, 16, 0.1, "0.1000000000000000"},
        Sample{NumberFormat_Float, 2, 1e-9, "0.00"}, Sample{NumberFormat_Exponent, 3, 1234.5678, "1.235E+03"},
        Sample{NumberFormat_Exponent, 0, 1e-12, "1E-12"}, Sample{NumberFormat_Exponent, 2, -1e200, "-1.00E+200"},
        Sample{NumberFormat_BestFloat, 3, 1234.5678, "1234.568"}, Sample{NumberFormat_BestFloat, 0, 0.1, "0.1"},
        Sample{NumberFormat_BestFloat, 9, 1e10, "1e+10"}, Sample{NumberFormat_BestFloat, 9, 12345678, "1.234568e+07"},
        Sample{NumberFormat_BestFloat, 9, 1.0 / 3.0, "0.3333333"}));

TEST(StringFormatter, TellsWhatIsNotANumberInAllFormats)
{
    for (NumberFormat_e format :
         {NumberFormat_Integer, NumberFormat_Float, NumberFormat_Exponent, NumberFormat_BestFloat}) {
        StringFormatter formatter;
        formatter.formatting(format);
        EXPECT_EQ(formatter.format(notANumber), "nan");
        EXPECT_EQ(formatter.format(-notANumber), "nan");
        EXPECT_EQ(formatter.format(infinity), "inf");
        EXPECT_EQ(formatter.format(-infinity), "-inf");
    }
}

TEST(StringFormatter, StartsAsBestFloatWithAPrecisionOfThree)
{
    EXPECT_EQ(StringFormatter().format(1234.56789), "1234.568");
    EXPECT_EQ(StringFormatter().formatting(NumberFormat_Float).format(1.0), "1.000");
}

TEST(StringFormatter, WritesADecimalPointInEveryLocale)
{
    std::locale const before = std::locale::global(std::locale(std::locale(), new DecimalComma));
    std::string const text = StringFormatter().formatting(NumberFormat_Float).format(1234.5);
    std::locale::global(before);
    EXPECT_EQ(text, "1234.500");
}

} // namespace veldraw::tests
