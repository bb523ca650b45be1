#include "host/ActiveZones.h"

#include "host/KernelAccess.h"
#include "kernel/base/NumberSet.h"
#include "kernel/data/TimeStrands.h"
#include "kernel/session/Session.h"
#include "platform/vdsdkcommon/DataSetQueries.h"

#include <vector>

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

} // namespace

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
    std::vector<int> zones; // in no order
    if (auto const frame = frameWithData()) {
        ZoneNumbers const numbers(*frame->dataSet, frame->lineMaps.size());
        for (std::size_t n = 0; n < frame->lineMaps.size(); ++n) {
            kernel::LineMap const& lineMap = frame->lineMaps[n];
            int const zone = lineMap.active ? numbers.enabledZoneOf(lineMap) : 0;
            if (zone == 0)
                continue;
            maps.insert(static_cast<int>(n) + 1);
            zones.push_back(zone);
        }
    }
    m_lineMaps = setOf(std::move(maps));
    m_lineMapZones = setOf(NumberSet(zones.begin(), zones.end()));
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
            m_zones = KernelAccess::isFieldPlotType(frame->plotType) ? enabledZones() : Set();
    }
    return *m_zones;
}

Set const& ActiveZones::enabledZones()
{
    if (!m_enabledZones) {
        auto const frame = frameWithData();
        m_enabledZones = frame ? setOf(frame->dataSet->enabledZones()) : Set();
    }
    return *m_enabledZones;
}

kernel::JoinedRange ActiveZones::range(int variable)
{
    auto const frame = frameWithData();
    if (!frame)
        return {};
    return zones() == enabledZones() ? frame->dataSet->ranges().of(variable) : rangeOfSome(variable);
}

kernel::JoinedRange const& ActiveZones::rangeOfSome(int variable)
{
    auto const known = m_ranges.find(variable);
    if (known != m_ranges.end())
        return known->second;
    kernel::JoinedRange joined;
    if (auto const frame = frameWithData()) {
        for (int const zone : zones().members())
            joined.add(*frame->dataSet->zones()[static_cast<std::size_t>(zone - 1)], variable);
    }
    return m_ranges.emplace(variable, joined).first->second;
}

} // namespace veldraw::host
