#include "kernel/operations/InterpolateByInverseDistance.h"
#include "tests/kernel/support/RandomPointInterpolation.h"

namespace veldraw::tests {

using namespace kernel;

namespace {

class InterpolateByInverseDistanceRandomTest : public RandomPointInterpolation
{
protected:
    /// The formula as it stands; the mean of the values at the place itself where there are such.
    static double estimate(ReferencePoints const& points, std::vector<ReferencePoints::Source> const& neighbors,
                           ReferencePoints::Place const& target, InterpolateByInverseDistance::Formula const& formula)
    {
        long double weights = 0.0L;
        long double sum = 0.0L;
        long double const nearest = std::max<long double>(
            std::sqrt(points.squaredDistance(neighbors.front().place, target)), formula.minimumDistance);
        for (ReferencePoints::Source const& source : neighbors) {
            long double const distance =
                std::max<long double>(std::sqrt(points.squaredDistance(source.place, target)), formula.minimumDistance);
            long double const ofNearest =
                distance > nearest ? nearest / distance : 1.0L; // 0 beside a point at the place
            long double const weight = std::pow(ofNearest, static_cast<long double>(formula.exponent));
            weights += weight;
            sum += weight * source.value;
        }
        return static_cast<double>(sum / weights);
    }

    void expectResults(Round const& round, InterpolateByInverseDistance::Formula const& formula, Results const& results)
    {
        RandomZone const& zone = zoneOf(round.destination);
        for (std::size_t variable = 0; variable < variableCount; ++variable) {
            ReferencePoints const points = referenceOf(round, variable);
            ValueLocation_e const location = locationOf(zone, variable);
            std::vector<std::size_t> const slots = zone.slots(location);
            for (std::size_t number = 0; number < slots.size(); number += 1 + slots.size() / 60) {
                ReferencePoints::Place const target = zone.place(location, number);
                double const wanted = estimate(points, points.neighbors(target, round.choice), target, formula);
                double const found = results[variable][slots[number]];
                EXPECT_TRUE(holds(found, wanted, typeOf(zone, variable), 1e-10 * std::max(1.0, std::abs(wanted))))
                    << "variable " << variable << " number " << number << ": " << found << " and not " << wanted;
                ++checked;
            }
            expectOtherSlotsUntouched(zone, variable, results[variable]);
        }
    }
};

} // namespace

TEST_F(InterpolateByInverseDistanceRandomTest, AgreesWithSumsInExtendedPrecisionBetweenZonesOfAllTypes)
{
    RandomZones random(20);
    for (int number = 0; number < 70; ++number) {
        Round const round = makeRound(random, 4);
        InterpolateByInverseDistance::Formula const formula{random.happens(0.5) ? 0.25 * (1 + random.below(20))
                                                                                : random.between(0.5, 6.0),
                                                            random.happens(0.7) ? 0.0 : random.between(0.01, 2.0)};
        SCOPED_TRACE("round " + std::to_string(number) + " " + described(round));
        auto const make = [&] {
            return std::make_shared<InterpolateByInverseDistance>(frame->id, round.sources, round.destination,
                                                                  NumberSet{4, 5}, round.choice, formula);
        };
        expectResults(round, formula, resultsOf(make, round.destination));
        if (HasFailure()) {
            break;
        }
    }
    EXPECT_EQ(zoneTypesSeen.size(), std::size(RandomZones::zoneTypes));
    EXPECT_EQ(typesSeen.size(), std::size(RandomZones::valueTypes));
    EXPECT_EQ(locationsSeen.size(), 2U);
    EXPECT_EQ(selectionsSeen.size(), 3U);
    EXPECT_GE(checked, 3000);
}

} // namespace veldraw::tests
