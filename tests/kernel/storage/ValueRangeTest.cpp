#include "kernel/base/Parallel.h"
#include "kernel/storage/RangeOfParts.h"
#include "tests/kernel/support/SampleData.h"
#include "tests/support/SpecialNumbers.h"

#include <atomic>
#include <gtest/gtest.h>
#include <limits>
#include <numeric>
#include <stdexcept>

namespace veldraw::tests {

using namespace kernel;

namespace {

ValueRange rangeOf(std::vector<double> const& values, FieldDataType_e type = FieldDataType_Double)
{
    return sample::field(values, type).group()->range();
}

void expectRange(ValueRange const& range, double min, double max)
{
    EXPECT_EQ(range.state, ValueRange::State::Exact);
    EXPECT_EQ(range.min, min);
    EXPECT_EQ(range.max, max);
}

} // namespace

TEST(Range, SpansTheValuesOfEveryType)
{
    for (FieldDataType_e const type :
         {FieldDataType_Float, FieldDataType_Double, FieldDataType_Int32, FieldDataType_Int16, FieldDataType_Byte}) {
        expectRange(rangeOf({3, 1, 7, 2}, type), 1, 7);
    }
    expectRange(rangeOf({-3, -1}, FieldDataType_Int16), -3, -1);
}

TEST(KnownRange, OfAllValuesIsAnEstimateForAPartOfThemAndNeverTheOtherWayRound)
{
    CountedValues part;
    part.cellsOf = {2, 2, 2};
    ValueRange const range{ValueRange::State::Exact, -1, 4};
    KnownRange known;
    EXPECT_FALSE(known.estimate().isValid());
    known.setComputed(range, {});
    EXPECT_EQ(known.estimate().state, ValueRange::State::Estimated);
    EXPECT_EQ(known.estimate().min, -1);
    EXPECT_EQ(known.estimate().max, 4);
    known.setComputed(range, part);
    EXPECT_FALSE(known.estimate().isValid());
    known.give(range);
    EXPECT_EQ(known.estimate().max, 4);
    known.leaveUnknown();
    EXPECT_FALSE(known.estimate().isValid());
}

TEST(Range, OfBitsIsWhatBitsThereAre)
{
    expectRange(rangeOf({0, 1, 0}, FieldDataType_Bit), 0, 1);
    expectRange(rangeOf({1, 1, 1}, FieldDataType_Bit), 1, 1);
}

TEST(Range, LeavesOutWhatIsNotFinite)
{
    expectRange(rangeOf({notANumber, 4, infinity, -2, -infinity}), -2, 4);
    expectRange(rangeOf({notANumber, 4, infinity, -2, -infinity}, FieldDataType_Float), -2, 4);
}

TEST(Range, ReachesTheLargestFiniteValues)
{
    double const largest = std::numeric_limits<double>::max();
    expectRange(rangeOf({largest, -largest}), -largest, largest);
    double const largestFloat = static_cast<double>(std::numeric_limits<float>::max());
    expectRange(rangeOf({largestFloat, -largestFloat}, FieldDataType_Float), -largestFloat, largestFloat);
}

TEST(Range, WithoutAFiniteValueIsUnknown)
{
    EXPECT_FALSE(rangeOf({}).isValid());
    EXPECT_FALSE(rangeOf({notANumber, infinity, -infinity}).isValid());
    EXPECT_FALSE(rangeOf({notANumber}, FieldDataType_Float).isValid());
}

TEST(Range, OfManyValuesFindsTheExtremesWhereverTheyStand)
{
    std::int64_t const count = 1000003;
    for (std::int64_t const place : {std::int64_t{0}, count / 2, count - 1}) {
        auto const buffer = Buffer::allocate(FieldDataType_Float, count);
        buffer->setValue(place, -5.0);
        buffer->setValue((place + 77) % count, 9.0);
        expectRange(ShareGroup(buffer).range(), -5, 9);
    }
}

namespace {

/// Two million zeros with their range.
struct ManyZeros
{
    static constexpr std::int64_t count = std::int64_t{1} << 21;

    ManyZeros() { expectRange(parts.range(*buffer, {}), 0, 0); }

    void set(std::int64_t index, double value, CountedValues const& counted = {})
    {
        double const before = buffer->value(index);
        buffer->setValue(index, value);
        parts.follow(index, before, buffer->value(index), counted);
    }

    std::shared_ptr<Buffer> buffer = Buffer::allocate(FieldDataType_Float, count);
    RangeOfParts parts;
};

} // namespace

TEST(RangeOfParts, FollowsValuesAndLooksAgainAtPartsThatHaveLostALimitAlone)
{
    ManyZeros many;
    many.set(0, 5);
    many.set(ManyZeros::count - 1, -7);
    many.buffer->setValue(ManyZeros::count / 2, 9); // behind its back
    expectRange(many.parts.range(*many.buffer, {}), -7, 5);
    many.set(0, notANumber);
    many.set(1, 2);
    expectRange(many.parts.range(*many.buffer, {}), -7, 2);
    many.set(ManyZeros::count - 1, -infinity);
    expectRange(many.parts.range(*many.buffer, {}), 0, 2);
    many.set(ManyZeros::count / 2 + 1, 1);
    many.set(ManyZeros::count / 2 + 1, 0);
    expectRange(many.parts.range(*many.buffer, {}), 0, 9);
    many.buffer->setValue(ManyZeros::count / 2, 3);
    many.parts.forget();
    expectRange(many.parts.range(*many.buffer, {}), 0, 3);
}

TEST(RangeOfParts, WidensTheLimitsOfAPartThatLosesNone)
{
    ManyZeros many;
    many.set(0, -1);
    many.set(1, 1);
    expectRange(many.parts.range(*many.buffer, {}), -1, 1);
    many.buffer->setValue(1, 2); // behind its back
    many.set(2, -3);
    expectRange(many.parts.range(*many.buffer, {}), -3, 1);
    many.set(3, infinity);
    many.set(3, 4);
    expectRange(many.parts.range(*many.buffer, {}), -3, 4);
}

TEST(RangeOfParts, KnowsNothingOfCellsFromTheValuesOfAllSlots)
{
    ManyZeros many;
    std::int64_t const endOfRow = ManyZeros::count / 2 - 1;
    many.set(endOfRow - 2, -1);
    many.set(endOfRow - 1, 1);
    many.set(endOfRow, 0.5);
    CountedValues const inTwoRows{{ManyZeros::count / 2, 2, 1}, nullptr};
    expectRange(many.parts.range(*many.buffer, inTwoRows), -1, 1);
    many.set(endOfRow, 8, {{2, 3, 4}, nullptr});
    expectRange(many.parts.range(*many.buffer, inTwoRows), -1, 1);
    many.set(17, 4, inTwoRows);
    expectRange(many.parts.range(*many.buffer, inTwoRows), -1, 4);
    expectRange(many.parts.range(*many.buffer, {}), -1, 8);
}

TEST(RangeOfParts, OfFewValuesIsComputedAnew)
{
    auto const buffer = Buffer::allocate(FieldDataType_Bit, 1000);
    RangeOfParts parts;
    expectRange(parts.range(*buffer, {}), 0, 0);
    buffer->setValue(500, 1);
    expectRange(parts.range(*buffer, {}), 0, 1);
}

TEST(Range, StepsOverTheOtherComponents)
{
    auto const memory = Buffer::allocate(FieldDataType_Double, 9);
    for (std::int64_t index = 0; index < 9; ++index) {
        memory->setValue(index, static_cast<double>(index));
    }
    auto const first = Buffer::adopt(FieldDataType_Double, 3, memory->mutableData(), 3, memory->owner());
    expectRange(ShareGroup(first).range(), 0, 6);
}

TEST(Range, OfCellsOfAnOrderedZoneNeverReadsTheUnusedSlots)
{
    double const bad = 1000;
    Zone zone("volume", ZoneType_Ordered, 3, 3, 2); // one layer of 2 x 2 cells
    zone.fields.push_back(
        sample::field({1, 2, bad, 3, 4, bad, bad, bad, bad, bad, bad, bad, bad, bad, bad, bad, bad, bad},
                      FieldDataType_Float, ValueLocation_CellCentered));
    expectRange(zone.range(1), 1, 4);
    expectRange(zone.fields[0].group()->range(), 1, bad);
    expectRange(zone.range(1), 1, 4);
}

TEST(Range, OfCellsInOnePlaneUsesTheWholeLayer)
{
    double const bad = 1000;
    Zone plane("plane", ZoneType_Ordered, 1, 3, 2);
    plane.fields.push_back(sample::field({5, 6, bad, bad, bad, bad}, FieldDataType_Double, ValueLocation_CellCentered));
    expectRange(plane.range(1), 5, 6);
    Zone line("line", ZoneType_Ordered, 4, 1, 1);
    line.fields.push_back(sample::field({1, 2, 3, bad}, FieldDataType_Double, ValueLocation_CellCentered));
    expectRange(line.range(1), 1, 3);
}

TEST(Range, OfCellsAgreesWithALookAtEachCellOfALargeZone)
{
    std::int64_t const i = 61;
    std::int64_t const j = 53;
    std::int64_t const k = 47;
    Zone zone("volume", ZoneType_Ordered, i, j, k);
    auto const buffer = Buffer::allocate(FieldDataType_Int32, i * j * k);
    for (std::int64_t slot = 0; slot < buffer->size(); ++slot) {
        bool const unused = slot % i == i - 1 || slot / i % j == j - 1 || slot / (i * j) == k - 1;
        buffer->setValue(slot, unused ? -1e9 : static_cast<double>((slot * 7919) % 100003));
    }
    double low = 1e9;
    double high = -1e9;
    for (std::int64_t slot = 0; slot < buffer->size(); ++slot) {
        low = buffer->value(slot) > -1e9 ? std::min(low, buffer->value(slot)) : low;
        high = std::max(high, buffer->value(slot));
    }
    zone.fields.emplace_back(std::make_shared<ShareGroup>(buffer), ValueLocation_CellCentered);
    expectRange(zone.range(1), low, high);
}

TEST(Range, OfCellsOfFiniteElementsIsOfAllValues)
{
    Zone zone("triangles", ZoneType_FETriangle, 4, 2, 0);
    zone.fields.push_back(sample::field({7, 9}, FieldDataType_Double, ValueLocation_CellCentered));
    expectRange(zone.range(1), 7, 9);
}

TEST(Range, OfAPassiveFieldOrABadNumberIsUnknown)
{
    Zone zone("zone", ZoneType_Ordered, 2, 1, 1);
    zone.fields.emplace_back();
    for (int const variable : {-1, 0, 1, 2}) {
        EXPECT_FALSE(zone.range(variable).isValid());
    }
}

TEST(ParallelFor, VisitsEachIndexOnceInChunksThatTheCountAloneDecides)
{
    for (std::int64_t const count : {0, 1, 63, 64, 65, 1000, 100001}) {
        std::vector<int> visits(static_cast<std::size_t>(count));
        std::vector<int> chunks(static_cast<std::size_t>(parallelChunkCount(count)));
        parallelFor(count, [&](std::int64_t first, std::int64_t last, std::int64_t chunk) {
            EXPECT_EQ(first % 64, 0);
            ++chunks[static_cast<std::size_t>(chunk)];
            for (std::int64_t index = first; index < last; ++index) {
                ++visits[static_cast<std::size_t>(index)];
            }
        });
        EXPECT_EQ(std::accumulate(visits.begin(), visits.end(), std::int64_t{0}), count);
        EXPECT_EQ(std::count(visits.begin(), visits.end(), 1), count);
        EXPECT_EQ(std::count(chunks.begin(), chunks.end(), 1), parallelChunkCount(count));
    }
}

TEST(ParallelFor, KeepsChunksToTheGrain)
{
    constexpr std::int64_t grain = 192;
    for (std::int64_t const count : {1, 192, 193, 100001}) {
        std::atomic<std::int64_t> visited{0};
        auto const body = [&](std::int64_t first, std::int64_t last, std::int64_t) {
            EXPECT_EQ(first % grain, 0);
            EXPECT_TRUE(last % grain == 0 || last == count);
            visited += last - first;
        };
        parallelFor(count, body, grain);
        EXPECT_EQ(visited, count);
    }
}

TEST(ParallelFor, TakesFreshMemoryByHugePagesWhereThereAreMany)
{
    constexpr std::int64_t hugePage = std::int64_t{2} << 20;
    EXPECT_EQ(grainOfFreshMemory(10000000) * static_cast<std::int64_t>(sizeof(float)) % hugePage, 0);
    EXPECT_LE(grainOfFreshMemory(1000000), 10000) << "better all cores at work";
}

TEST(ParallelFor, RethrowsTheFailureOfTheFirstChunkThatFailed)
{
    auto const body = [](std::int64_t, std::int64_t, std::int64_t chunk) {
        if (chunk >= 3) {
            throw std::runtime_error(std::to_string(chunk));
        }
    };
    for (int run = 0; run < 20; ++run) {
        try {
            parallelFor(10000, body);
            FAIL() << "nothing was thrown";
        } catch (std::runtime_error const& error) {
            EXPECT_STREQ(error.what(), "3");
        }
    }
}

} // namespace veldraw::tests
