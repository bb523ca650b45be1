#include "kernel/data/ValuePlaces.h"

#include "kernel/data/Zone.h"
#include "tests/kernel/support/MeshData.h"
#include "tests/kernel/support/SampleData.h"

#include <gmock/gmock.h>

namespace veldraw::tests {

using namespace kernel;
using testing::ElementsAre;

namespace {

std::vector<double> middle(Zone const& zone, std::int64_t cell)
{
    ValuePlaces::Coordinates coordinates;
    for (std::size_t axis = 0; axis < 2; ++axis) {
        coordinates[axis] = zone.fields[axis].group()->buffer();
    }
    ValuePlaces const places(zone.type, {zone.i, zone.j, zone.k, zone.connectivity, nullptr}, coordinates, 2,
                             ValueLocation_CellCentered);
    std::vector<double> place(2);
    places.read(cell, place.data());
    return place;
}

} // namespace

TEST(ValuePlacesTest, AreTheMeansOfCornersOfAnySize)
{
    for (double const size : {1.0, 1e-300, 1.6e308}) {
        Zone zone("Z", ZoneType_Ordered, 2, 2, 1);
        zone.fields = {sample::field({size, -size, size, size}, FieldDataType_Double),
                       sample::field({size, size, size, size}, FieldDataType_Double)};
        EXPECT_THAT(middle(zone, 0), ElementsAre(testing::DoubleEq(size / 2), testing::DoubleEq(size)));
    }
}

} // namespace veldraw::tests
