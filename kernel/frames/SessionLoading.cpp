// Values and dimensions that are loaded on demand.
#include "kernel/data/DeferredLoad.h"
#include "kernel/data/DeferredUnload.h"
#include "kernel/frames/RefusalReasons.h"
#include "kernel/frames/SessionGuard.h"
#include "kernel/style/StyleTree.h"

#include <algorithm>

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

/// Numbers of the variables that @p frame shows, or would show in another type of plot.
void addShown(Frame const& frame, NumberSet& variables)
{
    DataSet const& dataSet = *frame.dataSet;
    auto const add = [&](UniqueId id) { variables.insert(dataSet.variableNumber(id)); };
    std::for_each(frame.axes2D.begin(), frame.axes2D.end(), add);
    std::for_each(frame.axes3D.begin(), frame.axes3D.end(), add);
    std::for_each(frame.vector.begin(), frame.vector.end(), add);
    add(frame.contourVariable);
    for (LineMap const& map : frame.lineMaps) {
        add(map.xVariable);
        add(map.yVariable);
    }
}

constexpr char loadName[] = "Load Variable";

} // namespace

void Session::bring(std::string const& name, DeferredLoad& load, DeferredUnload const& unload)
{
    StyleTree::Operation const unchanged(*m_style);
    if (!load.isEmpty()) {
        runOperation(name, [&](Progress& progress) { load.load(progress); });
    }
    std::vector<StateChangeEvent> const events = load.events(unload.fields());
    load.commit();
    unload.commit();
    for (StateChangeEvent const& event : events) {
        m_events.emitEvent(event);
    }
}

bool Session::makeVariablesAvailable(DataSet& dataSet, NumberSet const& zones, NumberSet const& variables)
{
    return guarded(*this, [&] {
        std::shared_ptr<DataSet> const shown = owned(dataSet);
        char const* const reason = shown ? reasonAgainstNumbers(dataSet, zones, variables) : notShown;
        if (reason != nullptr) {
            return refuse(reason);
        }
        NumberSet kept = variables;
        for (auto const& frame : framesOf(dataSet)) {
            addShown(*frame, kept);
        }
        DeferredLoad load = loadOf(dataSet, zones, variables);
        bring(loadName, load, DeferredUnload(dataSet, zones, kept));
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
        bring(loadName, load, DeferredUnload());
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
        bring("Load Zone", load, DeferredUnload());
        return true;
    });
}

} // namespace veldraw::kernel
