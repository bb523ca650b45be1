#include "kernel/operations/InterpolateLinearly.h"
#include "tests/kernel/support/ExactCell.h"
#include "tests/kernel/support/RandomInterpolation.h"

#include <optional>

namespace veldraw::tests {

using namespace kernel;

namespace {

/// One source zone by the cells that count, each ready to be asked.
class ExactZone
{
public:
    /// What a place gets of a zone.
    struct Answer
    {
        bool isCertain = true; ///< whether no border is so near that rounding errors decide
        bool isInside = false;
        double value = 0.0; ///< not finite where the cell has no such value
    };

    /// @param inPlane whether cells are in the plane of X and Y
    ExactZone(RandomZone const& zone, std::size_t variable, ValueLocation_e location, bool inPlane)
        : m_inPlane(inPlane)
    {
        std::vector<double> values(zone.cells.points.size(), 0.0);
        if (location == ValueLocation_Nodal) {
            values = zone.numbers[variable];
        }
        sample::CellLists cells = zone.cells;
        for (std::size_t cell = 0; cell < zone.cellSlots.size(); ++cell) {
            if (zone.isHiddenCell[cell]) {
                continue;
            }
            m_cells.push_back({ExactCell(cells, cell, values), {}});
            if (location == ValueLocation_CellCentered) {
                m_cells.back().value = zone.numbers[variable][zone.cellSlots[cell]];
            } else if (!areFinite(cells, cell, values)) {
                m_cells.back().value = std::numeric_limits<double>::quiet_NaN();
            }
        }
    }

    /// Asks the cells in their order; the first one that contains the place has it.
    Answer at(RandomZone::Place place) const
    {
        constexpr long double doubtful = 1e-7L;
        if (m_inPlane) {
            place[2] = 0.5; // in the middle of what ExactCell makes of a cell in the plane
        }
        Answer answer;
        for (Cell const& cell : m_cells) {
            ExactCell::Inside const here = cell.exact.at(place);
            answer.isCertain = answer.isCertain && std::abs(here.margin) > doubtful;
            if (here.margin > 0) {
                answer.isInside = true;
                answer.value = cell.value.value_or(static_cast<double>(here.value));
                return answer;
            }
        }
        return answer;
    }

private:
    struct Cell
    {
        ExactCell exact;
        std::optional<double> value; ///< none: what the corners mix to
    };

    static bool areFinite(sample::CellLists const& cells, std::size_t cell, std::vector<double> const& values)
    {
        return std::all_of(
            cells.indices.begin() + cells.offsets[cell], cells.indices.begin() + cells.offsets[cell + 1],
            [&](std::int64_t corner) { return std::isfinite(values[static_cast<std::size_t>(corner)]); });
    }

    bool m_inPlane;
    std::vector<Cell> m_cells;
};

class InterpolateLinearlyRandomTest : public RandomInterpolation
{
protected:
    struct Round
    {
        bool inPlane = false;
        NumberSet sources;
        int destination = 0;
        std::optional<double> constant;
    };

    /// One or two zones of cells with an area, or with a volume, over each other, and any zone as the destination.
    Round makeRound(RandomZones& random)
    {
        Round round;
        round.inPlane = random.happens(0.4);
        begin(round.inPlane);
        for (int sources = 1 + random.below(2); sources > 0; --sources) {
            RandomZone zone = makeSource(random, round.inPlane);
            if (random.happens(0.3)) {
                random.hideSome(zone);
            }
            sourceTypesSeen.insert(zone.zone->type);
            round.sources.insert(add(random, std::move(zone), random.happens(0.3)));
        }
        round.destination = round.sources.size() > 1 && random.happens(0.2)
                                ? *round.sources.rbegin()
                                : add(random, random.make(random.zoneType(), 2 + random.below(4)), false);
        if (random.happens(0.5)) {
            round.constant = random.below(200);
        }
        return round;
    }

    void expectResults(Round const& round, Results const& results)
    {
        RandomZone const& zone = zoneOf(round.destination);
        for (std::size_t variable = 0; variable < variableCount; ++variable) {
            std::vector<ExactZone> exact;
            for (int const source : round.sources) {
                exact.emplace_back(zoneOf(source), variable, locationOf(zoneOf(source), variable), round.inPlane);
            }
            ValueLocation_e const location = locationOf(zone, variable);
            expectOtherSlotsUntouched(zone, variable, results[variable]);
            if (location == ValueLocation_Nodal && round.sources.count(round.destination) > 0) {
                continue; // corners of cells, of which ExactCell cannot tell
            }
            std::vector<std::size_t> const slots = zone.slots(location);
            for (std::size_t number = 0; number < slots.size(); number += 1 + slots.size() / 25) {
                std::size_t const slot = slots[number];
                ExactZone::Answer const answer = firstAnswer(exact, zone.place(location, number));
                if (!answer.isCertain) {
                    ++undecided;
                    continue;
                }
                double const outside = round.constant.value_or(zone.numbers[variable][slot]);
                bool const hasValue = answer.isInside && std::isfinite(answer.value);
                insideCount += hasValue ? 1 : 0;
                double const wanted = hasValue ? answer.value : outside;
                double const found = results[variable][slot];
                bool const isKept = !hasValue && !round.constant && std::isnan(wanted);
                EXPECT_TRUE(isKept ? std::isnan(found)
                                   : found == wanted || holds(found, wanted, typeOf(zone, variable),
                                                              1e-10 * std::max(1.0, std::abs(wanted))))
                    << "variable " << variable << " number " << number << ": " << found << " and not " << wanted;
                ++checked;
            }
        }
    }

    std::set<ZoneType_e> sourceTypesSeen;
    int undecided = 0;
    int insideCount = 0;

private:
    static RandomZone makeSource(RandomZones& random, bool inPlane)
    {
        for (;;) {
            RandomZone zone = random.make(random.zoneType(), 2 + random.below(2));
            if (zone.zone->dimensionality() == (inPlane ? 2 : 3)) {
                return zone;
            }
        }
    }

    static ExactZone::Answer firstAnswer(std::vector<ExactZone> const& zones, RandomZone::Place const& place)
    {
        ExactZone::Answer answer;
        bool isCertain = true;
        for (std::size_t zone = 0; zone < zones.size() && !answer.isInside; ++zone) {
            answer = zones[zone].at(place);
            isCertain = isCertain && answer.isCertain;
        }
        answer.isCertain = isCertain;
        return answer;
    }
};

} // namespace

TEST_F(InterpolateLinearlyRandomTest, AgreesWithExactCellsBetweenZonesOfAllTypes)
{
    RandomZones random(22);
    for (int number = 0; number < 60; ++number) {
        Round const round = makeRound(random);
        SCOPED_TRACE("round " + std::to_string(number) + ", source of type " + std::to_string(zones[0].zone->type) +
                     ", destination " + std::to_string(zoneOf(round.destination).zone->type));
        LinearInterpMode_e const mode = round.constant ? LinearInterpMode_SetToConstant : LinearInterpMode_DontChange;
        auto const make = [&] {
            return std::make_shared<InterpolateLinearly>(frame->id, round.sources, round.destination, NumberSet{4, 5},
                                                         round.constant.value_or(0.0), mode);
        };
        expectResults(round, resultsOf(make, round.destination));
        if (HasFailure()) {
            break;
        }
    }
    EXPECT_EQ(sourceTypesSeen.size(), std::size(RandomZones::zoneTypes) - 1) << "all but lines";
    EXPECT_EQ(zoneTypesSeen.size(), std::size(RandomZones::zoneTypes));
    EXPECT_EQ(typesSeen.size(), std::size(RandomZones::valueTypes));
    EXPECT_EQ(locationsSeen.size(), 2U);
    EXPECT_GE(checked, 1500);
    EXPECT_GE(insideCount, 500);
    EXPECT_LT(undecided, checked / 20);
}

} // namespace veldraw::tests
