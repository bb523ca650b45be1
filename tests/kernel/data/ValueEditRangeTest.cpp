// What is known of the range of values when one of them is corrected.
#include "kernel/data/Blanking.h"
#include "kernel/operations/LoadVariables.h"
#include "tests/kernel/data/EditFixture.h"
#include "tests/kernel/support/SampleLoader.h"
#include "tests/support/SpecialNumbers.h"

#include <map>
#include <random>
#include <set>

namespace veldraw::tests {

using namespace kernel;

namespace {

TEST_F(EditValue, KeepsTheRangeRightWhateverIsWritten)
{
    auto const expectTrueRange = [&](std::string const& what) {
        ShareGroup const fresh(field(1, 1).group()->buffer()->clone());
        ValueRange const known = dataSet->zone(1)->range(1);
        EXPECT_EQ(known.state, fresh.range().state) << what;
        EXPECT_EQ(known.min, fresh.range().min) << what;
        EXPECT_EQ(known.max, fresh.range().max) << what;
    };
    int steps = 0;
    for (double const value : {1.0, 5.0, 5.0, -3.0, notANumber, 0.0, infinity, 2.0, -infinity, -8.0, 9.0, 9.0, 0.5,
                               notANumber, notANumber}) {
        for (std::int64_t index : {0, 5, 3}) {
            dataSet->zone(1)->range(1);
            ASSERT_TRUE(edit(1, 1, index, value));
            ++steps;
            expectTrueRange(std::to_string(value) + " at " + std::to_string(index));
        }
    }
    while (session.undo()) {
        expectTrueRange("undo");
    }
    while (session.redo()) {
        expectTrueRange("redo");
    }
    EXPECT_EQ(steps, 45);
}

TEST_F(EditValue, TellsCellsOfOneZoneFromThoseOfAnotherOnTheSameStorage)
{
    auto const other = std::make_shared<Zone>("other", ZoneType_Ordered, 2, 3, 1);
    other->fields = dataSet->zone(1)->fields;
    dataSet->addZone(other);
    EXPECT_EQ(dataSet->zone(1)->range(5).max, 6);
    ASSERT_TRUE(edit(3, 5, 2, 500, false)) << "a cell of the other zone alone";
    EXPECT_EQ(dataSet->zone(1)->range(5).max, 6);
    EXPECT_EQ(dataSet->zone(3)->range(5).max, 500);
    EXPECT_EQ(dataSet->zone(1)->range(5).max, 6);
}

TEST_F(EditValue, KeepsTheRangeOfManyValuesRight)
{
    std::int64_t const count = (1 << 20) + 1000;
    dataSet->zone(1)->fields[0] =
        Field(std::make_shared<ShareGroup>(Buffer::allocate(FieldDataType_Int16, count)), ValueLocation_Nodal);
    ShareGroup const& group = *field(1, 1).group();
    std::multiset<double> all{0};
    std::map<std::int64_t, double> written;
    std::mt19937 random(7);
    for (int number = 0; number < 400; ++number) {
        std::int64_t const index = number % 5 == 0 ? count - 1 : static_cast<std::int64_t>(random() % count);
        double const value = number % 3 == 0 ? 0 : static_cast<double>(random() % 2000) - 1000;
        ASSERT_TRUE(edit(1, 1, index, value));
        auto const old = written.find(index);
        if (old != written.end()) {
            all.erase(all.find(old->second));
        }
        written[index] = value;
        all.insert(value);
        if (number % 4 != 0) { // at times, so that several parts are to be looked at again
            ASSERT_EQ(group.range().min, *all.begin()) << number;
            ASSERT_EQ(group.range().max, *all.rbegin()) << number;
        }
    }
    while (session.undo()) {
    }
    EXPECT_EQ(group.range().max, 0);
}

TEST_F(EditValue, ForgetsALimitThatBecomesInfinite)
{
    EXPECT_EQ(dataSet->zone(1)->range(4).max, 15);
    ASSERT_TRUE(edit(1, 4, 5, infinity));
    EXPECT_EQ(dataSet->zone(1)->range(4).max, 14);
    EXPECT_EQ(dataSet->zone(1)->range(4).min, 10);
    ASSERT_TRUE(edit(1, 4, 0, -infinity));
    EXPECT_EQ(dataSet->zone(1)->range(4).min, 11);
}

TEST_F(EditValue, KeepsTheRangeOfTheOnlyValueRight)
{
    dataSet->zone(1)->fields[0] = sample::field({5});
    EXPECT_EQ(dataSet->zone(1)->range(1).max, 5);
    ASSERT_TRUE(edit(1, 1, 0, 2));
    EXPECT_EQ(dataSet->zone(1)->range(1).max, 2);
    ASSERT_TRUE(edit(1, 1, 0, 4));
    EXPECT_EQ(dataSet->zone(1)->range(1).min, 4);
}

TEST_F(EditValue, KnowsTheRangeStillWhenAValueWasNoLimit)
{
    ShareGroup const& group = *field(1, 4).group();
    ASSERT_TRUE(edit(1, 4, 2, infinity, false));
    EXPECT_EQ(group.range().max, 15);
    ASSERT_TRUE(edit(1, 4, 2, 12, false));
    EXPECT_TRUE(group.knownRange().isKnown()) << "was infinite";
    ASSERT_TRUE(edit(1, 4, 2, 20, false));
    EXPECT_TRUE(group.knownRange().isKnown());
    ASSERT_TRUE(edit(1, 4, 2, 30, false));
    EXPECT_TRUE(group.knownRange().isKnown()) << "goes beyond the old limit";
    EXPECT_EQ(group.range().max, 30);
    ASSERT_TRUE(edit(1, 4, 2, 25, false));
    EXPECT_FALSE(group.knownRange().isKnown());
}

TEST_F(EditValue, ComputesNoRangeAgainThatWasKnownOnTheOtherWay)
{
    ShareGroup const& group = *field(1, 1).group();
    EXPECT_EQ(group.range().max, 2);
    ASSERT_TRUE(edit(1, 1, 2, 1) && edit(1, 1, 5, 1)); // both that were the largest
    EXPECT_FALSE(group.knownRange().isKnown());
    EXPECT_EQ(group.range().max, 1);
    ASSERT_TRUE(session.undo() && session.undo());
    ASSERT_TRUE(group.knownRange().isKnown());
    EXPECT_EQ(group.range().max, 2);
    ASSERT_TRUE(session.redo() && session.redo());
    ASSERT_TRUE(group.knownRange().isKnown());
    EXPECT_EQ(group.range().max, 1);
}

/// A mapped array of which an estimate is known, shared by both zones.
class EditMappedValue : public EditValue
{
protected:
    EditMappedValue()
    {
        loader->mapped = true;
        loader->knownRange = {ValueRange::State::Estimated, -9, 9};
        dataSet->zone(1)->fields[3] = dataSet->zone(2)->fields[3] = sample::Loader::field(loader);
        session.perform(LoadVariables(*dataSet, {1}, {4}));
    }

    std::shared_ptr<sample::Loader> loader = std::make_shared<sample::Loader>(std::vector<double>{1, 2, 3, 4, 5, 6});
};

TEST_F(EditMappedValue, WidensTheEstimateInPlaceAndTakesItBack)
{
    EXPECT_TRUE(edit(1, 4, 0, 20, false));
    EXPECT_EQ(dataSet->zone(2)->range(4).state, ValueRange::State::Estimated);
    EXPECT_EQ(dataSet->zone(2)->range(4).max, 20);
    EXPECT_EQ(dataSet->zone(2)->range(4).min, -9);
    EXPECT_TRUE(session.undo());
    EXPECT_EQ(dataSet->zone(2)->range(4).max, 9);
    EXPECT_TRUE(session.redo());
    EXPECT_EQ(dataSet->zone(2)->range(4).max, 20);
}

TEST_F(EditMappedValue, TakesExactLimitsForAnEstimateWhenOneOfThemGoes)
{
    loader->knownRange = {ValueRange::State::Exact, 1, 6};
    dataSet->zone(1)->fields[3] = sample::Loader::field(loader);
    ASSERT_TRUE(session.perform(LoadVariables(*dataSet, {1}, {4})));
    EXPECT_TRUE(edit(1, 4, 5, -3));
    ValueRange const range = dataSet->zone(1)->range(4);
    EXPECT_EQ(range.state, ValueRange::State::Estimated) << "not gone through";
    EXPECT_EQ(range.min, -3);
    EXPECT_EQ(range.max, 6);
    EXPECT_TRUE(session.undo());
    EXPECT_EQ(dataSet->zone(1)->range(4).state, ValueRange::State::Exact);
    EXPECT_EQ(dataSet->zone(1)->range(4).min, 1);
}

TEST_F(EditMappedValue, LeavesARangeUnknownThatIsNot)
{
    loader->knownRange = {};
    dataSet->zone(1)->fields[3] = sample::Loader::field(loader);
    ASSERT_TRUE(session.perform(LoadVariables(*dataSet, {1}, {4})));
    EXPECT_TRUE(edit(1, 4, 5, -3));
    EXPECT_FALSE(dataSet->zone(1)->range(4).isValid());
    EXPECT_TRUE(session.undo());
    EXPECT_FALSE(dataSet->zone(1)->range(4).isValid());
}

/// Exact limits of all are known, and the first zone hides the sixth value, which is the largest.
class EditMappedValueThatAZoneHides : public EditMappedValue
{
protected:
    EditMappedValueThatAZoneHides()
    {
        loader->knownRange = {ValueRange::State::Exact, 1, 6};
        dataSet->zone(1)->fields[3] = dataSet->zone(2)->fields[3] = sample::Loader::field(loader);
        session.perform(LoadVariables(*dataSet, {1}, {4}));
        auto const marks = Buffer::allocate(FieldDataType_Byte, 6);
        marks->setValue(5, Blanking::hiddenPoint);
        dataSet->zone(1)->blanking = std::make_shared<Blanking>(*dataSet->zone(1), Blanking::Marks{marks, nullptr});
    }
};

TEST_F(EditMappedValueThatAZoneHides, TakesItsLimitsForNoEstimateOfWhatAnotherZoneShows)
{
    EXPECT_EQ(dataSet->zone(1)->range(4).max, 5);
    ASSERT_TRUE(edit(2, 4, 0, 3, false));
    EXPECT_FALSE(dataSet->zone(2)->range(4).isValid()) << "6 is there, and mapped values are not gone through";
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(dataSet->zone(1)->range(4).max, 5);
    EXPECT_EQ(dataSet->zone(2)->range(4).max, 6);
}

TEST_F(EditMappedValueThatAZoneHides, TakesThemForAnEstimateOfItsOwnWhenOneOfThemGoes)
{
    EXPECT_EQ(dataSet->zone(1)->range(4).max, 5);
    ASSERT_TRUE(edit(1, 4, 4, 2, false));
    ValueRange const own = dataSet->zone(1)->range(4);
    EXPECT_EQ(own.state, ValueRange::State::Estimated) << "not gone through";
    EXPECT_EQ(own.min, 1);
    EXPECT_EQ(own.max, 5);
    EXPECT_FALSE(field(1, 4).group()->knownRange().estimate().isValid()) << "it is no estimate of all";
    EXPECT_EQ(dataSet->zone(2)->range(4).max, 6);
}

TEST_F(EditMappedValueThatAZoneHides, NeverHasLimitsThatAValueWhichCountsIsBeyond)
{
    std::mt19937 random(11);
    int known = 0;
    for (int number = 0; number < 5000; ++number) {
        while (number % 8 == 0 && session.undo()) {
        }
        dataSet->zone(1 + static_cast<int>(random() % 2))->range(4);
        int const edited = 1 + static_cast<int>(random() % 2);
        edit(edited, 4, static_cast<std::int64_t>(random() % 6), static_cast<double>(random() % 40), false);
        int const asked = 1 + static_cast<int>(random() % 2);
        ValueRange const range = dataSet->zone(asked)->range(4);
        known += range.isValid() ? 1 : 0;
        for (std::int64_t point = 0; range.isValid() && point < (asked == 1 ? 5 : 6); ++point) {
            ASSERT_LE(range.min, at(asked, 4, point)) << number;
            ASSERT_GE(range.max, at(asked, 4, point)) << number;
        }
    }
    EXPECT_GT(known, 500);
}

TEST_F(EditMappedValue, GivesTheCopyOfABranchARangeOfItsOwn)
{
    EXPECT_TRUE(edit(1, 4, 0, 20));
    EXPECT_EQ(dataSet->zone(1)->range(4).state, ValueRange::State::Exact);
    EXPECT_EQ(dataSet->zone(1)->range(4).min, 2);
    EXPECT_EQ(dataSet->zone(1)->range(4).max, 20);
    EXPECT_EQ(dataSet->zone(2)->range(4).state, ValueRange::State::Estimated);
    EXPECT_EQ(dataSet->zone(2)->range(4).max, 9);
}

TEST_F(EditMappedValue, GivesTheCopyARangeThatTakesThePlaceOfMappedValuesInUse)
{
    auto const read = field(1, 4).group()->buffer();
    EXPECT_TRUE(edit(1, 4, 0, 20, false));
    EXPECT_EQ(read->value(0), 1);
    EXPECT_EQ(dataSet->zone(2)->range(4).state, ValueRange::State::Exact);
    EXPECT_EQ(dataSet->zone(2)->range(4).min, 2);
    EXPECT_TRUE(session.undo());
    EXPECT_EQ(dataSet->zone(2)->range(4).min, 1);
    EXPECT_EQ(dataSet->zone(2)->range(4).max, 6);
    session.loadedValues().setLimit(0);
    EXPECT_TRUE(field(1, 4).isLoaded()) << "altered: the history writes there again";
}

TEST_F(EditMappedValue, BringsNoEstimateBackToValuesThatCameIntoMemoryMeanwhile)
{
    EXPECT_TRUE(edit(1, 4, 0, 3, false));
    auto const read = field(1, 4).group()->buffer();
    EXPECT_TRUE(edit(1, 4, 5, 4, false));
    ASSERT_TRUE(session.undo() && session.undo());
    EXPECT_EQ(dataSet->zone(1)->range(4).state, ValueRange::State::Exact);
    EXPECT_EQ(dataSet->zone(1)->range(4).max, 6);
}

} // namespace

} // namespace veldraw::tests
