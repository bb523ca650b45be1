#pragma once

#include "tests/kernel/support/RandomInterpolation.h"
#include "tests/kernel/support/ReferencePoints.h"

namespace veldraw::tests {

/// Interpolations from points, between zones that are made at random.
class RandomPointInterpolation : public RandomInterpolation
{
protected:
    /// What one interpolation is asked for.
    struct Round
    {
        bool inPlane = false;
        kernel::NumberSet sources;
        int destination = 0;
        kernel::NeighborChoice choice;
    };

    /// Makes one or two source zones, at the same places now and then, and a destination, which may be one of them.
    /// @param mostOfAll edge of the zones where all points are taken
    Round makeRound(RandomZones& random, int mostOfAll)
    {
        Round round;
        round.inPlane = random.happens(0.4);
        begin(round.inPlane);
        PtSelection_e const selections[] = {PtSelection_NearestN, PtSelection_Octant, PtSelection_All};
        round.choice.selection = random.oneOf(selections);
        round.choice.count = 1 + random.below(30);
        selectionsSeen.insert(round.choice.selection);
        int const most = round.choice.selection == PtSelection_All ? mostOfAll : 4;
        auto const edge = [&] { return 2 + random.below(most - 1); };
        addSource(random, round, random.make(random.zoneType(), edge()));
        if (random.happens(0.5)) {
            addSource(random, round,
                      random.happens(0.3) ? RandomZones::pointsOf(zones[0]) : random.make(random.zoneType(), edge()));
        }
        round.destination = random.happens(0.2)
                                ? *round.sources.begin()
                                : add(random, random.make(random.zoneType(), 2 + random.below(4)), false);
        return round;
    }

    std::string described(Round const& round) const
    {
        std::string text = round.inPlane ? "in the plane:" : "in space:";
        for (RandomZone const& zone : zones) {
            text += " zone of type " + std::to_string(zone.zone->type) + " with " +
                    std::to_string(zone.cells.points.size()) + " points;";
        }
        return text + " to zone " + std::to_string(round.destination) + ", selection " +
               std::to_string(round.choice.selection) + " of " + std::to_string(round.choice.count);
    }

    ReferencePoints referenceOf(Round const& round, std::size_t variable) const
    {
        ReferencePoints points(round.inPlane ? 2 : 3);
        for (int const source : round.sources) {
            points.add(zoneOf(source), variable, locationOf(zoneOf(source), variable));
        }
        return points;
    }

    std::set<PtSelection_e> selectionsSeen;

private:
    void addSource(RandomZones& random, Round& round, RandomZone zone)
    {
        if (random.happens(0.3)) {
            random.hideSome(zone);
        }
        round.sources.insert(add(random, std::move(zone), random.happens(0.3)));
    }
};

} // namespace veldraw::tests
