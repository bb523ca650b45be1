#include "kernel/operations/LineMapOperation.h"

#include "kernel/frames/FrameDefaults.h"
#include "kernel/undo/SwapChange.h"

namespace veldraw::kernel {

namespace {

constexpr char noData[] = "The frame has no data set.";
constexpr char noLineMap[] = "There is no such line map.";

bool allExist(NumberSet const& numbers, std::size_t count)
{
    return numbers.empty() || (*numbers.begin() >= 1 && *numbers.rbegin() <= static_cast<int>(count));
}

} // namespace

std::shared_ptr<Change> LineMapOperation::makeChange(EventHub& events)
{
    std::vector<StateChangeEvent> told{eventOf(StateChange_LineMaps), styleEvent(alteredStyle())};
    return std::make_shared<SwapChange<std::vector<LineMap>>>(events, frame(), frame()->lineMaps, alteredMaps(),
                                                              std::move(told));
}

std::string LineMapOperation::reasonAgainstMaps(NumberSet const& maps) const
{
    return !maps.empty() && allExist(maps, frame()->lineMaps.size()) ? "" : noLineMap;
}

std::string CreateLineMap::reasonAgainst() const
{
    return frame()->dataSet ? "" : noData;
}

std::vector<LineMap> CreateLineMap::alteredMaps() const
{
    std::vector<LineMap> maps = frame()->lineMaps;
    maps.push_back(defaultLineMap(*frame()->dataSet, maps.size() + 1));
    return maps;
}

std::string DeleteLineMaps::reasonAgainst() const
{
    return allExist(m_maps, frame()->lineMaps.size()) ? "" : noLineMap;
}

std::shared_ptr<Change> DeleteLineMaps::makeChange(EventHub& events)
{
    return m_maps.empty() ? nullptr : LineMapOperation::makeChange(events);
}

std::vector<LineMap> DeleteLineMaps::alteredMaps() const
{
    std::vector<LineMap> kept;
    for (std::size_t at = 0; at < frame()->lineMaps.size(); ++at) {
        if (m_maps.count(static_cast<int>(at) + 1) == 0) {
            kept.push_back(frame()->lineMaps[at]);
        }
    }
    return kept;
}

std::string DuplicateLineMaps::reasonAgainst() const
{
    return reasonAgainstMaps(m_maps);
}

std::vector<LineMap> DuplicateLineMaps::alteredMaps() const
{
    std::vector<LineMap> maps;
    for (std::size_t at = 0; at < frame()->lineMaps.size(); ++at) {
        maps.push_back(frame()->lineMaps[at]);
        if (m_maps.count(static_cast<int>(at) + 1) > 0) {
            maps.push_back(frame()->lineMaps[at]);
            maps.back().id = nextUniqueId();
        }
    }
    return maps;
}

CommandText DuplicateLineMaps::command() const
{
    return CommandText("duplicate-line-maps").numbers("maps", m_maps);
}

std::string ChangeLineMaps::reasonAgainst() const
{
    return reasonAgainstMaps(m_maps);
}

std::vector<LineMap> ChangeLineMaps::alteredMaps() const
{
    std::vector<LineMap> maps = frame()->lineMaps;
    for (int const number : m_maps) {
        m_alter(maps[static_cast<std::size_t>(number - 1)]);
    }
    return maps;
}

std::string SetLinePlot::reasonAgainst() const
{
    if (!frame()->dataSet) {
        return noData;
    }
    DataSet const& dataSet = *frame()->dataSet;
    bool const exist = dataSet.field(m_zone, m_x) != nullptr && dataSet.field(m_zone, m_y) != nullptr;
    return exist ? "" : "There is no such zone or variable.";
}

std::vector<LineMap> SetLinePlot::alteredMaps() const
{
    DataSet const& dataSet = *frame()->dataSet;
    std::vector<LineMap> maps = frame()->lineMaps;
    if (maps.empty()) {
        maps.push_back(defaultLineMap(dataSet, 1));
    }
    LineMap map = defaultLineMap(dataSet, 1);
    map.zone = dataSet.zone(m_zone)->id;
    map.xVariable = dataSet.variable(m_x)->id;
    map.yVariable = dataSet.variable(m_y)->id;
    LineMap& first = maps.front();
    bool const isOther = first.zone != map.zone || first.xVariable != map.xVariable || first.yVariable != map.yVariable;
    if (isOther) { // what it was called, and which points it had, was for another curve
        first = std::move(map);
    }
    return maps;
}

CommandText SetLinePlot::command() const
{
    return CommandText("set-line-plot").number("zone", m_zone).number("x", m_x).number("y", m_y);
}

CommandText CreateLineMap::command() const
{
    return CommandText("new-line-map");
}

CommandText DeleteLineMaps::command() const
{
    return CommandText("delete-line-maps").numbers("maps", m_maps);
}

} // namespace veldraw::kernel
