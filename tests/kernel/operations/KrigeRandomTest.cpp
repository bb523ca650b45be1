#include "kernel/operations/Krige.h"
#include "tests/kernel/support/RandomPointInterpolation.h"
#include "tests/kernel/support/ReferenceKriging.h"

#include <numeric>
#include <optional>

namespace veldraw::tests {

using namespace kernel;

namespace {

class KrigeRandomTest : public RandomPointInterpolation
{
protected:
    using Sources = std::vector<ReferencePoints::Source>;

    /// How much the points tell of each term of a linear or quadratic drift beyond the terms before it, at the least: 0 where one term follows from others.
    static long double evidenceOf(Drift_e drift, Sources const& neighbors, std::size_t axes)
    {
        std::size_t const terms = 1 + axes + (drift == Drift_Quadratic ? axes * (axes + 1) / 2 : 0);
        if (neighbors.size() < terms) {
            return 0.0L;
        }
        long double extent = 0.0L;
        for (auto const& source : neighbors) {
            for (std::size_t axis = 0; axis < axes; ++axis) {
                extent = std::max<long double>(extent, std::abs(source.place[axis] - neighbors[0].place[axis]));
            }
        }
        std::vector<std::vector<long double>> columns(terms);
        for (auto const& source : neighbors) {
            std::vector<long double> place;
            for (std::size_t axis = 0; axis < axes; ++axis) {
                place.push_back((static_cast<long double>(source.place[axis]) - neighbors[0].place[axis]) / extent);
            }
            std::size_t term = 0;
            columns[term++].push_back(1.0L);
            for (long double const coordinate : place) {
                columns[term++].push_back(coordinate);
            }
            for (std::size_t a = 0; a < axes && drift == Drift_Quadratic; ++a) {
                for (std::size_t b = a; b < axes; ++b) {
                    columns[term++].push_back(place[a] * place[b]);
                }
            }
        }
        return leastRest(std::move(columns));
    }

    /// What is left of each column, at the least, when what follows from those before has been taken off it.
    static long double leastRest(std::vector<std::vector<long double>> columns)
    {
        long double const ofConstant = std::sqrt(product(columns[0], columns[0]));
        long double least = 1.0L;
        for (std::size_t column = 0; column < columns.size(); ++column) {
            for (std::size_t round = 0; round < 2; ++round) { // once more, against rounding errors
                for (std::size_t before = 0; before < column; ++before) {
                    long double const share =
                        product(columns[column], columns[before]) / product(columns[before], columns[before]);
                    for (std::size_t at = 0; at < columns[column].size(); ++at) {
                        columns[column][at] -= share * columns[before][at];
                    }
                }
            }
            long double const rest = std::sqrt(product(columns[column], columns[column])) / ofConstant;
            least = std::min(least, rest);
            if (rest < 1e-12L) {
                return 0.0L;
            }
        }
        return least;
    }

    static long double product(std::vector<long double> const& a, std::vector<long double> const& b)
    {
        return std::inner_product(a.begin(), a.end(), b.begin(), 0.0L);
    }

    /// The drift that the neighbours tell of; none of these where they hardly do, so that rounding errors decide.
    static std::optional<Drift_e> driftOf(Drift_e wanted, Sources const& neighbors, std::size_t axes)
    {
        long double const evidence = wanted == Drift_None ? 1.0L : evidenceOf(wanted, neighbors, axes);
        if (evidence > 2e-3L) {
            return wanted;
        }
        return evidence > 1e-9L ? std::nullopt
                                : driftOf(wanted == Drift_Quadratic ? Drift_Linear : Drift_None, neighbors, axes);
    }

    void expectResults(Round const& round, Krige::Model const& model, Results const& results)
    {
        RandomZone const& zone = zoneOf(round.destination);
        std::size_t const axes = round.inPlane ? 2 : 3;
        for (std::size_t variable = 0; variable < variableCount; ++variable) {
            ReferencePoints points = referenceOf(round, variable);
            points.mergePoints();
            double const range = static_cast<double>(model.range * points.diagonal());
            ValueLocation_e const location = locationOf(zone, variable);
            std::vector<std::size_t> const slots = zone.slots(location);
            std::size_t const step = round.choice.selection == PtSelection_All ? 13 : 1 + slots.size() / 15;
            for (std::size_t number = 0; number < slots.size(); number += step) {
                ReferencePoints::Place const target = zone.place(location, number);
                Sources const neighbors = points.neighbors(target, round.choice);
                if (neighbors.empty()) { // all octants get none of few
                    continue;
                }
                std::optional<Drift_e> const drift = driftOf(model.drift, neighbors, axes);
                if (!drift) {
                    ++undecided;
                    continue;
                }
                std::vector<ReferenceKriging::Place> places;
                for (auto const& source : neighbors) {
                    places.push_back(source.place);
                }
                ReferenceKriging const reference(places, axes, *drift, range, model.zeroValue);
                std::vector<double> const weights = reference.weights(target);
                long double wanted = 0.0L;
                long double size = 1.0L;
                for (std::size_t at = 0; at < weights.size(); ++at) {
                    wanted += weights[at] * neighbors[at].value;
                    size += std::abs(weights[at] * neighbors[at].value);
                }
                double const found = results[variable][slots[number]];
                EXPECT_TRUE(holds(found, static_cast<double>(wanted), typeOf(zone, variable),
                                  1e-10 * static_cast<double>(size)))
                    << "variable " << variable << " number " << number << ": " << found << " and not " << wanted
                    << ", drift " << *drift << ", " << neighbors.size() << " neighbors";
                ++checked;
            }
            expectOtherSlotsUntouched(zone, variable, results[variable]);
        }
    }

    int undecided = 0;
};

} // namespace

TEST_F(KrigeRandomTest, AgreesWithDenseSolutionsInExtendedPrecisionBetweenZonesOfAllTypes)
{
    RandomZones random(21);
    std::set<Drift_e> driftsSeen;
    for (int number = 0; number < 50; ++number) {
        Round const round = makeRound(random, 2);
        Drift_e const drifts[] = {Drift_None, Drift_Linear, Drift_Quadratic};
        Krige::Model const model{random.between(0.1, 1.0), random.happens(0.5) ? 0.0 : random.between(0.0, 0.9),
                                 random.oneOf(drifts)};
        driftsSeen.insert(model.drift);
        SCOPED_TRACE("round " + std::to_string(number) + " " + described(round) + ", drift " +
                     std::to_string(model.drift));
        auto const make = [&] {
            return std::make_shared<Krige>(frame->id, round.sources, round.destination, NumberSet{4, 5}, round.choice,
                                           model);
        };
        expectResults(round, model, resultsOf(make, round.destination));
        if (HasFailure()) {
            break;
        }
    }
    EXPECT_EQ(zoneTypesSeen.size(), std::size(RandomZones::zoneTypes));
    EXPECT_EQ(typesSeen.size(), std::size(RandomZones::valueTypes));
    EXPECT_EQ(locationsSeen.size(), 2U);
    EXPECT_EQ(selectionsSeen.size(), 3U);
    EXPECT_EQ(driftsSeen.size(), 3U);
    EXPECT_GE(checked, 900);
    EXPECT_LT(undecided, checked / 20);
}

} // namespace veldraw::tests
