#include "kernel/operations/SetLineMaps.h"

#include "kernel/undo/Change.h"

#include <algorithm>

namespace veldraw::kernel {

namespace {

constexpr char const* symbolWords[] = {"no", "yes"};

bool hasSameSettings(LineMap const& a, LineMap const& b)
{
    bool const isOfSame = a.zone == b.zone && a.xVariable == b.xVariable && a.yVariable == b.yVariable &&
                          a.isOnSecondAxis == b.isOnSecondAxis;
    return isOfSame && a.active == b.active && a.name == b.name && a.look == b.look;
}

template <typename Value>
void put(std::optional<Value> const& setting, Value& place)
{
    if (setting) {
        place = *setting;
    }
}

} // namespace

std::string SetLineMaps::reasonAgainst() const
{
    std::string reason = reasonAgainstMaps(m_maps);
    if (!reason.empty()) {
        return reason;
    }
    if (assigns()) {
        DataSet const* const dataSet = frame()->dataSet.get();
        bool const exist = dataSet != nullptr && (!m_settings.zone || dataSet->zone(*m_settings.zone)) &&
                           (!m_settings.x || dataSet->variable(*m_settings.x)) &&
                           (!m_settings.y || dataSet->variable(*m_settings.y));
        if (!exist) {
            return "There is no such zone or variable.";
        }
    }
    LineMap altered;
    alter(altered);
    return altered.look.refusal();
}

void SetLineMaps::alter(LineMap& map) const
{
    put(m_settings.active, map.active);
    put(m_settings.name, map.name);
    put(m_settings.colour, map.look.colour);
    put(m_settings.style, map.look.style);
    put(m_settings.width, map.look.width);
    put(m_settings.symbols, map.look.symbols);
    put(m_settings.isOnSecondAxis, map.isOnSecondAxis);
    if (m_settings.zone) {
        map.zone = frame()->dataSet->zone(*m_settings.zone)->id;
    }
    if (m_settings.x) {
        map.xVariable = frame()->dataSet->variable(*m_settings.x)->id;
    }
    if (m_settings.y) {
        map.yVariable = frame()->dataSet->variable(*m_settings.y)->id;
    }
}

std::vector<LineMap> SetLineMaps::alteredMaps() const
{
    std::vector<LineMap> maps = frame()->lineMaps;
    for (int const number : m_maps) {
        alter(maps[static_cast<std::size_t>(number - 1)]);
    }
    return maps;
}

std::shared_ptr<Change> SetLineMaps::makeChange(EventHub& events)
{
    std::vector<LineMap> const maps = alteredMaps();
    bool const isSame = std::equal(maps.begin(), maps.end(), frame()->lineMaps.begin(), &hasSameSettings);
    return isSame ? nullptr : LineMapOperation::makeChange(events);
}

std::vector<std::string> SetLineMaps::alteredStyle() const
{
    std::vector<std::string> path{"LineMap"};
    if (assigns()) {
        path.emplace_back("Assign");
    }
    return path;
}

CommandText SetLineMaps::command() const
{
    CommandText text = CommandText("set-line-maps").numbers("maps", m_maps);
    auto const number = [&text](char const* parameter, std::optional<int> const& value) {
        if (value) {
            text.number(parameter, *value);
        }
    };
    if (m_settings.active) {
        text.flag("show", *m_settings.active);
    }
    if (m_settings.name) {
        text.quoted("name", *m_settings.name);
    }
    number("zone", m_settings.zone);
    number("x", m_settings.x);
    number("y", m_settings.y);
    if (m_settings.colour) {
        text.word("colour", CurveLook::colourText(*m_settings.colour));
    }
    if (m_settings.style) {
        text.word("line", CurveLook::styleWords()[static_cast<std::size_t>(*m_settings.style)]);
    }
    if (m_settings.width) {
        text.real("width", *m_settings.width);
    }
    if (m_settings.symbols) {
        std::optional<bool> const& has = *m_settings.symbols;
        text.word("symbols", has ? symbolWords[*has ? 1 : 0] : "plot");
    }
    if (m_settings.isOnSecondAxis) {
        text.word("axis", *m_settings.isOnSecondAxis ? "y2" : "y");
    }
    return text;
}

} // namespace veldraw::kernel
