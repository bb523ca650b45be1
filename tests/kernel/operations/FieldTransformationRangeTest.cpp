// The ranges of what rotations and mirrors make are found with them where there is much to go through, and by whoever asks where not.
#include "kernel/operations/MirrorZones.h"
#include "tests/kernel/support/SpatialFixture.h"

namespace veldraw::tests {

using namespace kernel;

namespace {

constexpr std::int64_t many = std::int64_t{1} << 25;

class FieldTransformationRangeTest : public SpatialFixture
{
protected:
    /// What is known of the first coordinate of a mirrored line of so many points, of which one is at 3 and one at -5.
    KnownRange rangeOfMirrored(std::int64_t points)
    {
        auto const line = sample::emptySpace();
        auto zone = std::make_shared<Zone>("line", ZoneType_Ordered, points, 1, 1);
        auto const values = Buffer::allocate(FieldDataType_Float, points);
        values->setValue(7, 3);
        values->setValue(points - 1, -5);
        zone->fields.emplace_back(std::make_shared<ShareGroup>(values), ValueLocation_Nodal);
        line->addZone(zone);
        frame = sample::show(session, line);
        EXPECT_TRUE(session.perform(MirrorZones(frame->id, {1}, 'X')));
        return line->field(2, 1)->group()->knownRange();
    }
};

} // namespace

TEST_F(FieldTransformationRangeTest, IsKnownOfVeryManyValuesBeforeAnybodyAsks)
{
    KnownRange const known = rangeOfMirrored(many);
    EXPECT_EQ(known.range().state, ValueRange::State::Exact);
    EXPECT_EQ(known.range().min, -3.0);
    EXPECT_EQ(known.range().max, 5.0);
}

TEST_F(FieldTransformationRangeTest, IsLeftToWhoeverAsksWhereNobodyWouldNotice)
{
    EXPECT_FALSE(rangeOfMirrored(1000).isKnown());
}

} // namespace veldraw::tests
