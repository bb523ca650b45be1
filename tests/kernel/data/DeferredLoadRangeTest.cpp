#include "kernel/data/DeferredLoad.h"
#include "kernel/operations/LoadVariables.h"
#include "tests/kernel/support/SampleLoader.h"
#include "tests/kernel/support/SessionFixture.h"

namespace veldraw::tests {

using namespace kernel;

namespace {

constexpr int P = 4;
constexpr int T = 5;

class DeferredLoadRange : public SessionFixture
{
protected:
    /// Has the loader bring a variable of the first zone. @return its storage
    ShareGroup const& defer(int variable, ValueLocation_e location = ValueLocation_Nodal)
    {
        Field& field = dataSet->zone(1)->fields[static_cast<std::size_t>(variable - 1)];
        field = sample::Loader::field(loader, location);
        return *field.group();
    }

    bool load(int variable) { return session.perform(LoadVariables(*dataSet, {1}, {variable})); }

    std::shared_ptr<sample::Loader> const loader =
        std::make_shared<sample::Loader>(std::vector<double>{3, -7, 5, 40, 50, 60});
};

} // namespace

TEST_F(DeferredLoadRange, IsKnownBeforeAnybodyAsks)
{
    ShareGroup const& group = defer(P);
    ASSERT_TRUE(load(P));
    EXPECT_EQ(group.knownRange().range().state, ValueRange::State::Exact);
    EXPECT_EQ(group.knownRange().range().min, -7.0);
    EXPECT_EQ(group.knownRange().range().max, 60.0);
}

TEST_F(DeferredLoadRange, TakesThePlaceOfAnEstimate)
{
    loader->knownRange = {ValueRange::State::Estimated, -100, 100};
    ShareGroup const& group = defer(P);
    ASSERT_TRUE(load(P));
    EXPECT_EQ(group.knownRange().range().min, -7.0);
}

TEST_F(DeferredLoadRange, IsThatOfCellsAndOfWhatIsNotHidden)
{
    // Of three by two points, two slots have a cell.
    ShareGroup const& ofCells = defer(T, ValueLocation_CellCentered);
    ASSERT_TRUE(load(T));
    CountedValues const cells = dataSet->zone(1)->countedValues(ValueLocation_CellCentered);
    EXPECT_TRUE(ofCells.knownRange().isKnownFor(cells));
    EXPECT_EQ(ofCells.knownRange().range().max, 3.0);
    auto const marks = Buffer::allocate(FieldDataType_Byte, 6);
    marks->setValue(1, Blanking::hiddenPoint);
    dataSet->zone(1)->blanking = std::make_shared<Blanking>(*dataSet->zone(1), Blanking::Marks{marks, nullptr});
    ShareGroup const& ofPoints = defer(P);
    ASSERT_TRUE(load(P));
    EXPECT_TRUE(ofPoints.knownRange().isKnownFor(dataSet->zone(1)->countedValues(ValueLocation_Nodal)));
    EXPECT_EQ(ofPoints.knownRange().range().min, 3.0);
}

TEST_F(DeferredLoadRange, IsThatOfTheDimensionsThatAreLoadedWithTheValues)
{
    Zone& zone = *dataSet->zone(1);
    zone.dimensionsLoader = std::make_shared<sample::SizeLoader>(ZoneDimensions{3, 2, 1, nullptr});
    zone.i = zone.j = zone.k = -1;
    ShareGroup const& group = defer(T, ValueLocation_CellCentered);
    ASSERT_TRUE(load(T));
    ASSERT_EQ(zone.i, 3);
    EXPECT_TRUE(group.knownRange().isKnownFor(zone.countedValues(ValueLocation_CellCentered)));
    EXPECT_EQ(group.knownRange().range().max, 3.0);
}

TEST_F(DeferredLoadRange, OfMappedValuesStaysUnknown)
{
    loader->mapped = true;
    ShareGroup const& group = defer(P);
    ASSERT_TRUE(load(P));
    EXPECT_FALSE(group.range().isValid());
}

TEST_F(DeferredLoadRange, IsNotLookedForWhenTheLoaderKnowsIt)
{
    loader->knownRange = {ValueRange::State::Exact, -70, 600}; // which is not so
    ShareGroup const& group = defer(P);
    ASSERT_TRUE(load(P));
    EXPECT_EQ(group.range().max, 600.0);
}

} // namespace veldraw::tests
