// What a smoothing takes is asked for as a sum, before it is taken.
#include "tests/kernel/support/MemoryAsked.h"
#include "tests/kernel/support/MeshData.h"
#include "tests/kernel/support/SmoothingFixture.h"

namespace veldraw::tests {

using namespace kernel;
using Shape = Connectivity::Shape;

namespace {

class SmoothVariableMemoryTest : public SmoothingFixture
{
protected:
    double bytesAskedFor(int zone, int passes)
    {
        return memoryAskedFor(session, recorder, [&] { return smooth(zone, passes); });
    }
};

} // namespace

TEST_F(SmoothVariableMemoryTest, ABlockAsksForTheResultAndItsArraysTogether)
{
    constexpr std::int64_t count = 30 * 20;
    std::vector<double> values = randomValues(count, -100, 100);
    std::transform(values.begin(), values.end(), values.begin(), [](double value) { return std::max(value, 0.0); });
    struct Type
    {
        FieldDataType_e type;
        double ofResult;
        double ofArrays;     // in several rounds of passes; the result may be one of two
        double ofManyPasses; // floats are computed in double precision then
    };
    for (Type const& each : {Type{FieldDataType_Double, 8.0, 8.0, 8.0},
                             {FieldDataType_Float, 4.0, 4.0, 16.0},
                             {FieldDataType_Int16, 2.0, 16.0, 16.0},
                             {FieldDataType_Byte, 1.0, 16.0, 16.0},
                             {FieldDataType_Bit, 1.125, 16.0, 16.0}}) { // a byte first
        int const zone = addOrdered({30, 20, 1}, values, each.type);
        EXPECT_EQ(bytesAskedFor(zone, 1), each.ofResult * count) << each.type;
        EXPECT_EQ(bytesAskedFor(zone, 40), (each.ofResult + each.ofArrays) * count) << each.type;
        EXPECT_EQ(bytesAskedFor(zone, 400), (each.ofResult + each.ofManyPasses) * count) << each.type;
    }
}

// A line among many points that are of no cell, so that lists take less than arrays.
TEST_F(SmoothVariableMemoryTest, CellsAskForTheResultAndTheirArraysTogether)
{
    constexpr std::int64_t count = 2000;
    sample::CellLists lists;
    for (std::int64_t point = 0; point < 100; ++point) {
        lists.add(Shape::LineSegment, {point, point + 1});
    }
    lists.points.resize(count);
    int const zone = addCells(lists.zone(ZoneType_FELineSeg), randomValues(count));
    EXPECT_EQ(bytesAskedFor(zone, 1), (8.0 + 16.0) * count);
}

} // namespace veldraw::tests
