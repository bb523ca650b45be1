// What a smoothing does not change keeps its bits, in every kind of zone and of storage.
#include "tests/kernel/support/MeshData.h"
#include "tests/kernel/support/SmoothingFixture.h"

#include <cstring>

namespace veldraw::tests {

using namespace kernel;
using Shape = Connectivity::Shape;

namespace {

constexpr std::uint64_t silentNaN = 0x7ff8000000001234;
constexpr std::uint64_t signallingNaN = 0xfff0000000005678;
constexpr std::uint32_t silentFloat = 0x7fc01234;
constexpr std::uint32_t signallingFloat = 0xff805678;

double doubleOf(std::uint64_t bits)
{
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

/// Numbers whose bits are easily lost, among plain ones.
std::vector<double> delicateNumbers(std::size_t count)
{
    double const delicate[] = {-0.0,
                               4.9e-324,
                               -1.2345678901234e-310,
                               2.2250738585072014e-308,
                               1e308,
                               -1.7e308,
                               doubleOf(silentNaN),
                               infinity,
                               -0.0,
                               3.1e-316,
                               1.0 / 3.0,
                               -infinity,
                               1e-300,
                               -7.0123456789e-309};
    std::vector<double> values;
    for (std::size_t at = 0; at < count; ++at) {
        values.push_back(delicate[at * at / 3 % std::size(delicate)]);
    }
    return values;
}

class SmoothVariableBitsTest : public SmoothingFixture
{
protected:
    std::vector<std::uint64_t> bitsOf(int zone) const
    {
        Buffer const& buffer = bufferOf(zone);
        std::vector<std::uint64_t> bits;
        for (std::int64_t slot = 0; slot < buffer.size(); ++slot) {
            bits.push_back(buffer.bits(slot));
        }
        return bits;
    }

    /// Smooths; then the values that plain loops leave alone have the bits that they had.
    void expectKept(int zone, std::vector<bool> const& areHeld)
    {
        std::vector<std::uint64_t> const before = bitsOf(zone);
        std::vector<double> const old = valuesOf(zone);
        ASSERT_TRUE(smooth(zone, 3)) << session.lastError();
        std::vector<std::uint64_t> const after = bitsOf(zone);
        std::size_t changed = 0;
        for (std::size_t at = 0; at < before.size(); ++at) {
            changed += after[at] != before[at] ? 1 : 0;
            if (areHeld[at] || !std::isfinite(old[at])) {
                ASSERT_EQ(after[at], before[at]) << "value " << at;
            }
        }
        EXPECT_GT(changed, before.size() / 20);
    }
};

} // namespace

TEST_F(SmoothVariableBitsTest, TheBorderAndTheHolesOfABlockKeepTheirs)
{
    for (Size const& size : {Size{4001, 1, 1}, {71, 67, 1}, {17, 19, 13}}) {
        std::vector<bool> areHeld;
        for (std::int64_t at = 0; at < size[0] * size[1] * size[2]; ++at) {
            Size const place{at % size[0], at / size[0] % size[1], at / size[0] / size[1]};
            bool isHeld = false;
            for (std::size_t axis = 0; axis < 3; ++axis) {
                isHeld = isHeld || (size[axis] > 1 && (place[axis] == 0 || place[axis] == size[axis] - 1));
            }
            areHeld.push_back(isHeld);
        }
        SCOPED_TRACE(testing::PrintToString(size));
        expectKept(addOrdered(size, delicateNumbers(areHeld.size())), areHeld);
    }
}

TEST_F(SmoothVariableBitsTest, TheBorderAndTheHolesOfCellsKeepTheirs)
{
    for (Shape const shape : {Shape::Tetrahedron, Shape::Quad}) {
        auto const zone = sample::fillOf(shape, shape == Shape::Quad ? 60 : 14, 0.2, 4).zone(sample::zoneTypeOf(shape));
        auto const copy = std::make_shared<Zone>(*zone);
        expectKept(addCells(zone, delicateNumbers(static_cast<std::size_t>(zone->pointCount()))),
                   reference::meshOfPoints(*zone).border);
        expectKept(
            addCells(copy, delicateNumbers(static_cast<std::size_t>(copy->cellCount())), ValueLocation_CellCentered),
            reference::meshOfCells(*copy).border);
    }
}

TEST_F(SmoothVariableBitsTest, EqualNumbersKeepTheirSignOfZeroBesideOthersThatChange)
{
    std::vector<double> values(4000, -0.0);
    std::fill_n(values.begin() + 3000, 1000, 1.0);
    for (FieldDataType_e const type : {FieldDataType_Double, FieldDataType_Float}) {
        int const zone = addOrdered({4000, 1, 1}, values, type);
        std::vector<std::uint64_t> const before = bitsOf(zone);
        ASSERT_TRUE(smooth(zone, 5));
        std::vector<std::uint64_t> const after = bitsOf(zone);
        EXPECT_NE(after[2999], before[2999]);
        for (std::size_t at = 0; at < 2990; ++at) {
            ASSERT_EQ(after[at], before[at]) << "type " << type << " value " << at;
        }
    }
}

TEST_F(SmoothVariableBitsTest, NumbersOfAnInterleavedArrayAreSmoothedAsTheirOwn)
{
    constexpr std::int64_t count = 5000;
    std::vector<double> const values = randomValues(count);
    for (std::int64_t component = 0; component < 3; ++component) {
        auto const array = std::make_shared<std::vector<float>>(3 * count, -77.0F);
        for (std::int64_t at = 0; at < count; ++at) {
            (*array)[static_cast<std::size_t>(3 * at + component)] =
                static_cast<float>(values[static_cast<std::size_t>(at)]);
        }
        auto const payload = [&](std::int64_t at, std::uint32_t bits) {
            std::memcpy(array->data() + 3 * at + component, &bits, sizeof bits);
        };
        payload(0, silentFloat); // at the border, within, and next to each other
        payload(1700, signallingFloat);
        payload(1701, silentFloat);
        auto const buffer = Buffer::adopt(FieldDataType_Float, count, array->data() + component, 3, array);
        int const zone = addOrdered({100, 50, 1}, Field(std::make_shared<ShareGroup>(buffer), ValueLocation_Nodal));
        std::vector<double> const old = valuesOf(zone);
        std::vector<float> const whole = *array;
        ASSERT_TRUE(smooth(zone, 4));
        expectNear(valuesOf(zone), reference::smoothGrid(asReference(old), {100, 50, 1}, 4, 0.5L, fixedBorder), 1e-7);
        EXPECT_EQ(bufferOf(zone).bits(0), silentFloat);
        EXPECT_EQ(bufferOf(zone).bits(1700), signallingFloat);
        EXPECT_EQ(bufferOf(zone).bits(1701), silentFloat);
        EXPECT_EQ(std::memcmp(whole.data(), array->data(), whole.size() * sizeof(float)), 0) << "the array is old data";
        EXPECT_TRUE(bufferOf(zone).isContiguous());
    }
}

TEST_F(SmoothVariableBitsTest, CellsReadInterleavedArraysToo)
{
    auto const cells = sample::fillOf(Shape::Tetrahedron, 14, 0.2, 1).zone(ZoneType_FETetra);
    std::int64_t const count = cells->pointCount();
    std::vector<double> const values = randomValues(count);
    auto const array = std::make_shared<std::vector<double>>(static_cast<std::size_t>(2 * count), -77.0);
    for (std::size_t at = 0; at < values.size(); ++at) {
        (*array)[2 * at + 1] = values[at];
    }
    std::int64_t const inside = 7 * 15 * 15 + 7 * 15 + 7;
    std::uint64_t const bits = signallingNaN;
    std::memcpy(array->data() + 2 * inside + 1, &bits, sizeof bits);
    auto const buffer = Buffer::adopt(FieldDataType_Double, count, array->data() + 1, 2, array);
    cells->fields.emplace_back(std::make_shared<ShareGroup>(buffer), ValueLocation_Nodal);
    int const zone = dataSet->addZone(cells);
    std::vector<double> const old = valuesOf(zone);
    ASSERT_TRUE(smooth(zone, 6, 0.8));
    expectNear(valuesOf(zone), reference::smoothMesh(asReference(old), reference::meshOfPoints(*cells), 6, 0.8L),
               1e-14);
    EXPECT_EQ(bufferOf(zone).bits(inside), signallingNaN);
}

} // namespace veldraw::tests
