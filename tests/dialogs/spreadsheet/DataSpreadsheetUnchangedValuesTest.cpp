#include "dialogs/spreadsheet/IJKLineZoneVarTableModel.h"
#include "tests/dialogs/spreadsheet/SpreadsheetDriver.h"

#include <QClipboard>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <gmock/gmock.h>
#include <limits>
#include <random>
#include <tuple>

namespace veldraw::tests {
namespace {

using sdk::ui::dialogs::propertybindings::models::IJKLineZoneVarTableModel;
using sdk::ui::dialogs::propertybindings::models::ModelIndex;

constexpr std::int64_t valueCount = 256;

std::size_t bytesOf(FieldDataType_e type)
{
    switch (type) {
    case FieldDataType_Double:
        return valueCount * 8;
    case FieldDataType_Float:
    case FieldDataType_Int32:
        return valueCount * 4;
    case FieldDataType_Int16:
        return valueCount * 2;
    case FieldDataType_Byte:
        return valueCount;
    default:
        return valueCount / 8;
    }
}

template <typename T>
void putFirst(kernel::Buffer& buffer, std::initializer_list<T> values)
{
    std::memcpy(buffer.mutableData(), std::data(values), values.size() * sizeof(T));
}

template <typename T>
std::initializer_list<T> edgesOf()
{
    using Limits = std::numeric_limits<T>;
    static std::initializer_list<T> const edges{T(0),
                                                -T(0),
                                                Limits::denorm_min(),
                                                -Limits::denorm_min(),
                                                Limits::min(),
                                                Limits::max(),
                                                Limits::lowest(),
                                                Limits::infinity(),
                                                -Limits::infinity(),
                                                Limits::quiet_NaN(),
                                                -Limits::quiet_NaN(),
                                                Limits::signaling_NaN(),
                                                T(0.1),
                                                T(1) / T(3)};
    return edges;
}

/// The spreadsheet over values of one type with random bits: every pattern that a file may bring, subnormal numbers,
/// infinities and payloads of what is no number included. The first ones of the floating types are the edges of their range.
class DataSpreadsheetUnchangedValuesTest : public SpreadsheetDriver,
                                           public testing::WithParamInterface<std::tuple<FieldDataType_e, unsigned>>
{
protected:
    DataSpreadsheetUnchangedValuesTest()
    {
        auto const [type, seed] = GetParam();
        std::shared_ptr<kernel::Buffer> buffer = kernel::Buffer::allocate(type, valueCount);
        std::mt19937 random(seed);
        auto* const bytes = static_cast<unsigned char*>(buffer->mutableData());
        for (std::size_t byte = 0; byte < bytesOf(type); ++byte)
            bytes[byte] = static_cast<unsigned char>(random());
        if (type == FieldDataType_Float)
            putFirst(*buffer, edgesOf<float>());
        if (type == FieldDataType_Double)
            putFirst(*buffer, edgesOf<double>());
        zone = stage.addZone("line", ZoneType_Ordered, valueCount, 1, 1);
        stage.fillFrom(zone, 1, std::exchange(buffer, nullptr));
        stage.show();
        stage.session().history().clear();
        before = bits();
    }

    std::string bits() const
    {
        auto const shown = stage.dataSet().field(zone, 1)->group()->buffer();
        return std::string(static_cast<char const*>(shown->data()), bytesOf(std::get<0>(GetParam())));
    }
    void expectUntouched()
    {
        EXPECT_EQ(bits(), before);
        EXPECT_FALSE(stage.session().history().canUndo());
        EXPECT_THAT(messages.take(), testing::IsEmpty());
    }
    void choose(NumberFormat_e format, long long precision)
    {
        Choices::spreadsheetFormat()->setValue(format);
        Choices::spreadsheetPrecision()->setValue(precision);
    }

    int zone = 0;
    std::string before;
};

TEST_P(DataSpreadsheetUnchangedValuesTest, AreWhatWasStoredBitForBitAfterTheyWereShownInEveryFormat)
{
    SCOPED_TRACE("seed " + std::to_string(std::get<1>(GetParam())));
    launched();
    for (int format = NumberFormat_Integer; format <= NumberFormat_BestFloat; ++format) {
        for (long long const precision : {0, 3, 16}) {
            choose(static_cast<NumberFormat_e>(format), precision);
            settle();
            for (int row = 0; row < valueCount; ++row)
                ASSERT_NE(shown(row, 0), "") << "row " << row;
        }
    }
    expectUntouched();
}

TEST_P(DataSpreadsheetUnchangedValuesTest, AreCopiedWithAllThatTellsOneFromAnother)
{
    SCOPED_TRACE("seed " + std::to_string(std::get<1>(GetParam())));
    launched();
    choose(NumberFormat_Integer, 0);
    settle();
    table().setFocus();
    table().selectColumn(0);
    QTest::keyClick(&table(), Qt::Key_C, Qt::ControlModifier);
    QStringList const lines = QApplication::clipboard()->text().split(QLatin1Char('\n'));
    ASSERT_EQ(lines.size(), valueCount);
    for (int row = 0; row < valueCount; ++row) {
        double const stored = stage.stored(zone, 1, row);
        double const copied = std::strtod(qPrintable(lines[row]), nullptr);
        ASSERT_EQ(std::signbit(copied), std::signbit(stored)) << qPrintable(lines[row]);
        ASSERT_EQ(std::isnan(copied), std::isnan(stored)) << qPrintable(lines[row]);
        if (!std::isnan(stored)) {
            ASSERT_EQ(kernel::Buffer::bitsOf(std::get<0>(GetParam()), copied),
                      stage.dataSet().field(zone, 1)->group()->buffer()->bits(row))
                << "row " << row << ": " << qPrintable(lines[row]);
        }
    }
    expectUntouched();
}

TEST_P(DataSpreadsheetUnchangedValuesTest, AreWhatWasStoredBitForBitAfterTheirEditorsWereClosedByReturn)
{
    SCOPED_TRACE("seed " + std::to_string(std::get<1>(GetParam())));
    launched();
    table().setFocus();
    for (int row = 0; row < valueCount; ++row) {
        // Whatever digits the cell shows: few, many, none behind the point.
        if (row % 32 == 0)
            choose(static_cast<NumberFormat_e>(row / 32 % 4), row / 32 < 4 ? 0 : 16);
        goTo(row, 0);
        QTest::keyClick(&table(), Qt::Key_F2);
        pressInEditor(Qt::Key_Return);
        ASSERT_EQ(bits(), before) << "row " << row << ": " << shown(row, 0);
    }
    expectUntouched();
}

TEST_P(DataSpreadsheetUnchangedValuesTest, AreWhatWasStoredBitForBitAfterTheirOwnTextWasWritten)
{
    SCOPED_TRACE("seed " + std::to_string(std::get<1>(GetParam())));
    IJKLineZoneVarTableModel table(zone, toolbox::Set(1), false, ValueLocation_Nodal);
    for (int row = 0; row < valueCount; ++row) {
        ModelIndex const cell(static_cast<unsigned long long>(row), 0);
        if (!std::isfinite(stage.stored(zone, 1, row)))
            continue; // an editor refuses such a text, so that it is never written
        ASSERT_TRUE(table.setStr(cell, table.getStr(cell))) << table.getStr(cell);
        ASSERT_EQ(bits(), before) << "row " << row << ": " << table.getStr(cell);
    }
    expectUntouched();
}

INSTANTIATE_TEST_SUITE_P(AllTypes, DataSpreadsheetUnchangedValuesTest,
                         testing::Combine(testing::Values(FieldDataType_Float, FieldDataType_Double,
                                                          FieldDataType_Int32, FieldDataType_Int16, FieldDataType_Byte,
                                                          FieldDataType_Bit),
                                          testing::Range(1u, 6u)));

} // namespace
} // namespace veldraw::tests
