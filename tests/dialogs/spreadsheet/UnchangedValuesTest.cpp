#include "dialogs/models/QTableModelAdapter.h"
#include "dialogs/spreadsheet/IJKLineZoneVarTableModel.h"
#include "tests/dialogs/spreadsheet/SheetStage.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <random>
#include <tuple>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings::models;

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

/// Values of one type with random bits: every pattern that a file may bring, subnormal numbers, infinities and payloads of
/// what is no number included. The first ones of the floating types are the edges of their range.
class UnchangedValuesTest : public testing::TestWithParam<std::tuple<FieldDataType_e, unsigned>>
{
protected:
    UnchangedValuesTest()
    {
        auto const [type, seed] = GetParam();
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
    }

    std::string bits() const
    {
        auto const shown = stage.dataSet().field(zone, 1)->group()->buffer();
        return std::string(static_cast<char const*>(shown->data()), bytesOf(std::get<0>(GetParam())));
    }

    std::shared_ptr<kernel::Buffer> buffer = kernel::Buffer::allocate(std::get<0>(GetParam()), valueCount);
    SheetStage stage{{"V"}};
    int zone = 0;
};

TEST_P(UnchangedValuesTest, AreWhatWasStoredBitForBitAfterTheyWereShownAndCopied)
{
    SCOPED_TRACE("seed " + std::to_string(std::get<1>(GetParam())));
    std::string const before = bits();
    IJKLineZoneVarTableModel table(zone, toolbox::Set(1), false, ValueLocation_Nodal);
    QTableModelAdapter const model(table);
    for (int row = 0; row < valueCount; ++row) {
        ASSERT_FALSE(model.index(row, 0).data(Qt::DisplayRole).toString().isEmpty());
        ASSERT_EQ(model.index(row, 0).data(Qt::EditRole), model.index(row, 0).data(Qt::DisplayRole));
    }
    EXPECT_EQ(bits(), before);
}

TEST_P(UnchangedValuesTest, AreWhatWasStoredBitForBitAfterTheirOwnTextWasCommitted)
{
    SCOPED_TRACE("seed " + std::to_string(std::get<1>(GetParam())));
    std::string const before = bits();
    IJKLineZoneVarTableModel table(zone, toolbox::Set(1), false, ValueLocation_Nodal);
    for (int row = 0; row < valueCount; ++row) {
        ModelIndex const cell(static_cast<unsigned long long>(row), 0);
        if (!std::isfinite(stage.stored(zone, 1, row)))
            continue; // an editor refuses such a text, so it is never committed
        ASSERT_TRUE(table.setStr(cell, table.getStr(cell))) << table.getStr(cell);
        ASSERT_EQ(bits(), before) << "row " << row << ": " << table.getStr(cell);
    }
}

INSTANTIATE_TEST_SUITE_P(AllTypes, UnchangedValuesTest,
                         testing::Combine(testing::Values(FieldDataType_Float, FieldDataType_Double,
                                                          FieldDataType_Int32, FieldDataType_Int16, FieldDataType_Byte,
                                                          FieldDataType_Bit),
                                          testing::Range(1u, 6u)));

} // namespace
} // namespace veldraw::tests
