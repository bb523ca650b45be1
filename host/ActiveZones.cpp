#include "host/ActiveZones.h"

#include "host/KernelAccess.h"
#include "kernel/base/NumberSet.h"
#include "kernel/data/TimeStrands.h"
#include "kernel/session/Session.h"
#include "platform/vdsdkcommon/DataSetQueries.h"

#include <algorithm>

namespace veldraw::host {

using kernel::NumberSet;
using kernel::Session;
using toolbox::Set;

namespace {

std::shared_ptr<kernel::Frame> frameWithData()
{
    auto frame = Session::instance().activeFrame();
    return frame && frame->dataSet ? frame : nullptr;
}

Set setOf(NumberSet numbers)
{
    return Set::Take(new Set_s{std::move(numbers)}); // not a copy: there may be very many
}

/// What the range of a variable stands on in many zones, which lie scattered in memory: each step of the way to it is asked for ahead, so that
/// the steps of several zones wait for memory at the same time.
class RangesAhead
{
public:
    RangesAhead(kernel::DataSet const& dataSet, toolbox::Set::Members const& zones, int variable)
        : m_dataSet(dataSet)
        , m_zones(zones)
        , m_field(static_cast<std::size_t>(variable - 1))
    {
    }

    void prepareFor(std::size_t place) const
    {
        constexpr std::size_t step = 8;
        if (kernel::Zone const* const zone = zoneAt(place + 3 * step)) {
            __builtin_prefetch(&zone->type);
            __builtin_prefetch(&zone->blanking);
            __builtin_prefetch(&zone->fields);
        }
        kernel::Field const* field = fieldAt(place + 2 * step);
        if (field)
            __builtin_prefetch(field);
        field = fieldAt(place + step);
        if (field && !field->isPassive()) {
            kernel::KnownRange const* const range = &field->group()->knownRange();
            __builtin_prefetch(range);
            __builtin_prefetch(reinterpret_cast<char const*>(range + 1) - 1);
        }
    }

private:
    kernel::Zone const* zoneAt(std::size_t place) const
    {
        return place < m_zones.size() ? m_dataSet.zones()[static_cast<std::size_t>(m_zones[place] - 1)].get() : nullptr;
    }
    kernel::Field const* fieldAt(std::size_t place) const
    {
        kernel::Zone const* const zone = zoneAt(place);
        return zone && m_field < zone->fields.size() ? &zone->fields[m_field] : nullptr;
    }

    kernel::DataSet const& m_dataSet;
    toolbox::Set::Members const& m_zones;
    std::size_t const m_field;
};

} // namespace

void JoinedRange::add(kernel::ValueRange const& ofZone)
{
    if (!ofZone.isValid())
        return;
    isEstimated = isEstimated || ofZone.state == kernel::ValueRange::State::Estimated;
    range.min = range.isValid() ? std::min(range.min, ofZone.min) : ofZone.min;
    range.max = range.isValid() ? std::max(range.max, ofZone.max) : ofZone.max;
    range.state = ofZone.state;
}

ActiveZones& ActiveZones::now()
{
    static ActiveZones kept;
    auto const frame = Session::instance().activeFrame();
    Moment const moment{Session::instance().events().eventCount(), frame ? frame->id : 0,
                        frame && frame->dataSet ? frame->dataSet->id() : 0};
    bool const isSame = moment.events == kept.m_moment.events && moment.frame == kept.m_moment.frame &&
                        moment.dataSet == kept.m_moment.dataSet;
    if (!isSame) {
        kept = {};
        kept.m_moment = moment;
    }
    return kept;
}

Set const& ActiveZones::lineMaps()
{
    if (!m_lineMaps)
        findLineMaps();
    return *m_lineMaps;
}

Set const& ActiveZones::lineMapZones()
{
    if (!m_lineMapZones)
        findLineMaps();
    return *m_lineMapZones;
}

void ActiveZones::findLineMaps()
{
    NumberSet maps;
    NumberSet zones;
    if (auto const frame = frameWithData()) {
        ZoneNumbers const numbers(*frame->dataSet, frame->lineMaps.size());
        for (std::size_t n = 0; n < frame->lineMaps.size(); ++n) {
            kernel::LineMap const& lineMap = frame->lineMaps[n];
            int const zone = lineMap.active ? numbers.enabledZoneOf(lineMap) : 0;
            if (zone == 0)
                continue;
            maps.insert(maps.end(), static_cast<int>(n) + 1);
            zones.insert(zone);
        }
    }
    m_lineMaps = setOf(std::move(maps));
    m_lineMapZones = setOf(std::move(zones));
}

Set const& ActiveZones::fieldMaps()
{
    if (!m_fieldMaps) {
        auto const frame = frameWithData();
        m_fieldMaps = frame ? setOf(kernel::enabledFieldMaps(*frame->dataSet)) : Set();
    }
    return *m_fieldMaps;
}

Set const& ActiveZones::zones()
{
    if (!m_zones) {
        auto const frame = frameWithData();
        if (!frame)
            m_zones = Set();
        else if (sdk::isValidLinePlotType(frame->plotType))
            m_zones = lineMapZones();
        else
            m_zones = KernelAccess::isFieldPlotType(frame->plotType) ? setOf(frame->dataSet->enabledZones()) : Set();
    }
    return *m_zones;
}

JoinedRange const& ActiveZones::range(int variable)
{
    auto const known = m_ranges.find(variable);
    if (known != m_ranges.end())
        return known->second;
    JoinedRange joined;
    if (auto const frame = frameWithData()) {
        if (!m_zoneNumbers)
            m_zoneNumbers = zones().members();
        Set::Members const& active = *m_zoneNumbers;
        RangesAhead const ahead(*frame->dataSet, active, variable);
        for (std::size_t place = 0; place < active.size(); ++place) {
            ahead.prepareFor(place);
            joined.add(frame->dataSet->zones()[static_cast<std::size_t>(active[place] - 1)]->range(variable));
        }
    }
    return m_ranges.emplace(variable, joined).first->second;
}

} // namespace veldraw::host
