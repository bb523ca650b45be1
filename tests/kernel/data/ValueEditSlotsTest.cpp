// Which slots of an array can be edited.
#include "kernel/operations/SetValue.h"
#include "tests/kernel/support/SessionFixture.h"

namespace veldraw::tests {

using namespace kernel;

namespace {

struct Size
{
    std::int64_t i;
    std::int64_t j;
    std::int64_t k;
};

/// One slot for each point of a zone of this shape.
class EditableSlots : public testing::TestWithParam<Size>
{
protected:
    static constexpr std::int64_t spare = 7; // more slots than the zone has

    EditableSlots()
    {
        auto const [i, j, k] = GetParam();
        auto const zone = std::make_shared<Zone>("zone", ZoneType_Ordered, i, j, k);
        for (ValueLocation_e const location : {ValueLocation_Nodal, ValueLocation_CellCentered}) {
            auto const buffer = Buffer::allocate(FieldDataType_Byte, i * j * k + spare);
            zone->fields.emplace_back(std::make_shared<ShareGroup>(buffer), location);
            dataSet->addVariable(std::make_shared<Variable>("v"));
        }
        dataSet->addZone(zone);
        frame->dataSet = dataSet;
        session.openPage({frame});
    }

    std::shared_ptr<DataSet> dataSet = std::make_shared<DataSet>("slots");
    std::shared_ptr<Frame> frame = std::make_shared<Frame>("frame", Rectangle{});
    Session session;
};

TEST_P(EditableSlots, AtCellsAreThoseOfTheirLowestCorners)
{
    auto const [i, j, k] = GetParam();
    NumberSet expected;
    auto const cells = [](std::int64_t points) { return points > 1 ? points - 1 : 1; };
    for (std::int64_t layer = 0; layer < cells(k); ++layer) {
        for (std::int64_t row = 0; row < cells(j); ++row) {
            for (std::int64_t cell = 0; cell < cells(i); ++cell) {
                expected.insert(static_cast<int>((row + layer * j) * i + cell));
            }
        }
    }
    NumberSet editable;
    for (int slot = -2; slot < i * j * k + spare + 2; ++slot) {
        if (session.perform(SetValue(*dataSet, 1, 2, slot, 1, true))) {
            editable.insert(slot);
        }
    }
    EXPECT_EQ(editable, expected);
}

TEST_P(EditableSlots, AtPointsAreAll)
{
    auto const [i, j, k] = GetParam();
    for (int slot = 0; slot < i * j * k; ++slot) {
        EXPECT_TRUE(session.perform(SetValue(*dataSet, 1, 1, slot, 1, true))) << slot;
    }
}

INSTANTIATE_TEST_SUITE_P(Shapes, EditableSlots,
                         testing::Values(Size{1, 1, 1}, Size{4, 1, 1}, Size{1, 4, 1}, Size{1, 1, 4}, Size{3, 2, 1},
                                         Size{3, 1, 2}, Size{1, 3, 2}, Size{2, 2, 2}, Size{4, 3, 3}));

TEST(EditableSlotsOfElements, AreAllOfThem)
{
    auto const dataSet = std::make_shared<DataSet>("triangles");
    auto const zone = std::make_shared<Zone>("triangles", ZoneType_FETriangle, 4, 5, 1);
    zone->fields = {sample::field({7, 7, 7, 7, 9}, FieldDataType_Double, ValueLocation_CellCentered)};
    dataSet->addVariable(std::make_shared<Variable>("v"));
    dataSet->addZone(zone);
    auto const frame = std::make_shared<Frame>("frame", Rectangle{});
    frame->dataSet = dataSet;
    Session session;
    session.openPage({frame});
    EXPECT_EQ(zone->range(1).max, 9);
    for (int element = 0; element < 5; ++element) { // more than there are points
        EXPECT_TRUE(session.perform(SetValue(*dataSet, 1, 1, element, 4 + element, true))) << element;
    }
    EXPECT_FALSE(session.perform(SetValue(*dataSet, 1, 1, 5, 8, true)));
    EXPECT_EQ(zone->range(1).min, 4);
    EXPECT_EQ(zone->range(1).max, 8);
}

} // namespace

} // namespace veldraw::tests
