#pragma once

#include "kernel/operations/SetPlotType.h"
#include "tests/kernel/support/RandomZones.h"
#include "tests/kernel/support/SessionFixture.h"
#include "tests/kernel/support/SpatialData.h"
#include "tests/support/Threads.h"

#include <functional>
#include <memory>
#include <set>

namespace veldraw::tests {

/// Interpolations between zones that are made at random, of the variables P and Q behind X, Y and Z.
class RandomInterpolation : public SessionFixture
{
protected:
    static constexpr std::size_t axisCount = 3;
    static constexpr std::size_t variableCount = 2;

    using MakeOperation = std::function<std::shared_ptr<kernel::Operation>()>;
    using Results = std::vector<std::vector<double>>; ///< by variable and slot

    /// Shows a data set without zones.
    void begin(bool isFlat)
    {
        dataSet = std::make_shared<kernel::DataSet>("Random");
        for (char const* const name : {"X", "Y", "Z", "P", "Q"}) {
            dataSet->addVariable(std::make_shared<kernel::Variable>(name));
        }
        frame = sample::show(session, dataSet);
        if (isFlat) {
            session.perform(kernel::SetPlotType(frame->id, PlotType_Cartesian2D));
        }
        zones.clear();
        recorder.take();
    }

    /// Adds values of both variables, and the zone. @return its number
    int add(RandomZones& random, RandomZone zone, bool withGaps)
    {
        for (std::size_t variable = 0; variable < variableCount; ++variable) {
            random.addValues(zone, random.valueType(), random.location(), withGaps);
        }
        for (std::size_t variable = 0; variable < variableCount; ++variable) {
            typesSeen.insert(typeOf(zone, variable));
            locationsSeen.insert(locationOf(zone, variable));
        }
        zoneTypesSeen.insert(zone.zone->type);
        zones.push_back(zone);
        return dataSet->addZone(zone.zone);
    }

    static FieldDataType_e typeOf(RandomZone const& zone, std::size_t variable)
    {
        return zone.zone->fields[axisCount + variable].type();
    }

    static ValueLocation_e locationOf(RandomZone const& zone, std::size_t variable)
    {
        return zone.zone->fields[axisCount + variable].location();
    }

    RandomZone const& zoneOf(int number) const { return zones[static_cast<std::size_t>(number - 1)]; }

    /// What an operation makes of both variables in a zone; the same to the last bit with 1, 2 and 16 threads. It is undone again.
    Results resultsOf(MakeOperation const& make, int destination)
    {
        std::vector<Results> found;
        for (int const threads : {1, 2, 16}) {
            Threads const some(threads);
            EXPECT_TRUE(session.perform(*make())) << session.lastError();
            found.push_back({sample::values(*dataSet, destination, 4), sample::values(*dataSet, destination, 5)});
            session.undo();
        }
        EXPECT_EQ(found[1], found[0]) << "with 2 threads";
        EXPECT_EQ(found[2], found[0]) << "with 16 threads";
        return found[0];
    }

    /// What does not belong to a cell is as before. @param found by slot
    void expectOtherSlotsUntouched(RandomZone const& zone, std::size_t variable, std::vector<double> const& found) const
    {
        std::vector<std::size_t> const slots = zone.slots(locationOf(zone, variable));
        std::set<std::size_t> const used(slots.begin(), slots.end());
        for (std::size_t slot = 0; slot < found.size(); ++slot) {
            if (used.count(slot) == 0) {
                EXPECT_EQ(found[slot], zone.numbers[variable][slot]) << "slot " << slot;
            }
        }
    }

    std::vector<RandomZone> zones;
    std::set<ZoneType_e> zoneTypesSeen;
    std::set<FieldDataType_e> typesSeen;
    std::set<ValueLocation_e> locationsSeen;
    int checked = 0; ///< values that were compared
};

} // namespace veldraw::tests
