// Values and dimensions that are loaded on demand.
#include "kernel/data/DeferredLoad.h"
#include "kernel/frames/RefusalReasons.h"
#include "kernel/frames/RoomForValues.h"
#include "kernel/frames/SessionGuard.h"
#include "kernel/style/StyleTree.h"

namespace veldraw::kernel {

namespace {

/// Why these cannot be loaded, null when they can.
char const* reasonAgainstNumbers(DataSet const& dataSet, NumberSet const& zones, NumberSet const& variables)
{
    if (!zones.empty() && (*zones.begin() < 1 || *zones.rbegin() > dataSet.zoneCount())) {
        return noZone;
    }
    bool const allExist =
        variables.empty() || (*variables.begin() >= 1 && *variables.rbegin() <= dataSet.variableCount());
    return allExist ? nullptr : noVariable;
}

DeferredLoad loadOf(DataSet const& dataSet, NumberSet const& zones, NumberSet const& variables)
{
    DeferredLoad load(dataSet);
    for (int const zone : zones) {
        for (int const variable : variables) {
            load.addField(zone, variable);
        }
    }
    return load;
}

/// Identifiers of variables by their numbers.
std::shared_ptr<std::set<UniqueId> const> identifiersOf(DataSet const& dataSet, NumberSet const& variables)
{
    auto identifiers = std::make_shared<std::set<UniqueId>>();
    for (int const variable : variables) {
        identifiers->insert(dataSet.variable(variable)->id);
    }
    return identifiers;
}

constexpr char loadName[] = "Load Variable";

} // namespace

void Session::bring(std::string const& name, DeferredLoad& load)
{
    StyleTree::Operation const unchanged(*m_style);
    RoomForValues room(*this, load);
    if (!load.isEmpty()) {
        room.run(name, [&](Progress& progress) { load.load(progress); });
    }
    std::vector<StateChangeEvent> const events = load.events();
    load.commit();
    room.keepWithinLimit();
    for (StateChangeEvent const& event : events) {
        m_events.emitEvent(event);
    }
}

void Session::setLoadedValuesLimit(std::int64_t bytes)
{
    m_loadedValuesLimit = bytes;
    guarded(*this, [&] {
        if (std::shared_ptr<DataSet> const any = activeDataSet()) {
            DeferredLoad const nothing(*any);
            RoomForValues(*this, nothing).keepWithinLimit();
        }
        return true;
    });
}

bool Session::makeVariablesAvailable(DataSet& dataSet, NumberSet const& zones, NumberSet const& variables)
{
    return guarded(*this, [&] {
        std::shared_ptr<DataSet> const shown = owned(dataSet);
        char const* const reason = shown ? reasonAgainstNumbers(dataSet, zones, variables) : notShown;
        if (reason != nullptr) {
            return refuse(reason);
        }
        DeferredLoad load = loadOf(dataSet, zones, variables);
        auto const wanted = identifiersOf(dataSet, variables);
        for (int const zone : zones) {
            load.addWanted(zone, wanted);
        }
        bring(loadName, load);
        return true;
    });
}

bool Session::loadVariables(DataSet& dataSet, NumberSet const& zones, NumberSet const& variables)
{
    return guarded(*this, [&] {
        std::shared_ptr<DataSet> const shown = owned(dataSet);
        char const* const reason = shown ? reasonAgainstNumbers(dataSet, zones, variables) : notShown;
        if (reason != nullptr) {
            return refuse(reason);
        }
        DeferredLoad load = loadOf(dataSet, zones, variables);
        bring(loadName, load);
        return true;
    });
}

bool Session::loadDimensions(DataSet& dataSet, int zone)
{
    return guarded(*this, [&] {
        std::shared_ptr<DataSet> const shown = owned(dataSet);
        if (!shown || !dataSet.zone(zone)) {
            return refuse(shown ? noZone : notShown);
        }
        DeferredLoad load(dataSet);
        load.addDimensions(zone);
        bring("Load Zone", load);
        return true;
    });
}

} // namespace veldraw::kernel
