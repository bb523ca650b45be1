#include "app/export/Exporter.h"
#include "tests/app/support/FileHelpers.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <random>
#include <sstream>
#include <vector>

namespace veldraw::tests {

namespace {

// The rows of a table with one variable, separated by blanks.
template <typename Number>
std::string tableOf(FieldDataType_e type, std::vector<Number> const& values)
{
    auto buffer = kernel::Buffer::allocate(type, static_cast<std::int64_t>(values.size()));
    for (std::size_t n = 0; n < values.size(); ++n)
        buffer->setValue(static_cast<std::int64_t>(n), static_cast<double>(values[n]));
    auto data = std::make_shared<kernel::DataSet>("table");
    data->addVariable(std::make_shared<kernel::Variable>("v"));
    auto zone = std::make_shared<kernel::Zone>("z", ZoneType_Ordered, buffer->size(), 1, 1);
    zone->fields = {kernel::Field(std::make_shared<kernel::ShareGroup>(buffer), ValueLocation_Nodal)};
    data->addZone(zone);
    TemporaryFolder const folder;
    app::exportDataSet(*data, QString::fromStdString(folder.path("table.csv")));
    std::string text = contentOf(folder.path("table.csv")).substr(2);
    text.pop_back();
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

template <typename Number, typename Bits>
Number fromBits(Bits bits)
{
    Number number;
    static_assert(sizeof number <= sizeof bits);
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

int significantDigits(std::string const& text)
{
    std::string digits;
    for (char const c : text.substr(0, text.find('e'))) {
        if (c >= '0' && c <= '9' && (c != '0' || !digits.empty()))
            digits += c;
    }
    return static_cast<int>(digits.find_last_not_of('0') + 1);
}

// The C library says with how many digits a number can be told from its neighbours.
template <typename Number, typename Read>
void expectShortest(FieldDataType_e type, std::vector<Number> const& numbers, Read const& read)
{
    std::istringstream texts(tableOf(type, numbers));
    for (Number const number : numbers) {
        std::string text;
        ASSERT_TRUE(texts >> text);
        char* end = nullptr;
        ASSERT_EQ(read(text.c_str(), &end), number) << text;
        ASSERT_EQ(*end, '\0') << text;
        int digits = 1;
        char wanted[40];
        do
            std::snprintf(wanted, sizeof wanted, "%.*e", digits - 1, static_cast<double>(number));
        while (read(wanted, &end) != number && digits++ < 17);
        bool const isPlainInteger = text.find_first_of(".e") == std::string::npos;
        if (!isPlainInteger) { // which has all its digits in front of the point
            ASSERT_EQ(significantDigits(text), significantDigits(wanted)) << text << " for " << wanted;
        }
    }
}

} // namespace

TEST(TableNumbers, AreWrittenAsPeopleWriteThem)
{
    EXPECT_EQ(tableOf<float>(FieldDataType_Float, {0.1F, 1e5F, 16777217.0F, 123456789.0F, 1e9F, 1e-4F, 1e-5F, -0.0F}),
              "0.1 100000 16777216 123456792 1e+09 0.0001 1e-05 -0");
    EXPECT_EQ(tableOf<double>(FieldDataType_Double, {0.1, 1e16, 1e17, 9007199254740993.0, 1.0 / 3.0, 1e-300}),
              "0.1 10000000000000000 1e+17 9007199254740992 0.3333333333333333 1e-300");
    EXPECT_EQ(tableOf<double>(FieldDataType_Int32, {2147483647, -2147483648.0, 100000, 0}),
              "2147483647 -2147483648 100000 0");
    EXPECT_EQ(tableOf<double>(FieldDataType_Double, {INFINITY, -INFINITY}), "inf -inf");
}

TEST(TableNumbers, AreTheShortestThatReadBackTheSame)
{
    constexpr unsigned int seed = 4711;
    std::printf("seed %u\n", seed);
    std::mt19937_64 random(seed);
    std::vector<float> floats;
    std::vector<double> doubles;
    while (floats.size() < 5000) {
        float const number = fromBits<float>(static_cast<std::uint32_t>(random()));
        if (std::isfinite(number))
            floats.push_back(number);
        floats.push_back(static_cast<float>(static_cast<int>(random() % 2000000) - 1000000) / 1000.0F);
        double const large = fromBits<double>(random());
        if (std::isfinite(large))
            doubles.push_back(large);
        doubles.push_back(static_cast<double>(random() % 2000000000) / 1000000.0);
    }
    expectShortest(FieldDataType_Float, floats, [](char const* text, char** end) { return std::strtof(text, end); });
    expectShortest(FieldDataType_Double, doubles, [](char const* text, char** end) { return std::strtod(text, end); });
}

} // namespace veldraw::tests
