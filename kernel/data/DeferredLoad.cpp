#include "kernel/data/DeferredLoad.h"

#include "kernel/data/MemoryDemand.h"

#include <algorithm>
#include <stdexcept>

namespace veldraw::kernel {

namespace {

std::shared_ptr<Buffer> loadValues(ShareGroup const& group, std::int64_t size, Progress& progress)
{
    if (!group.loader()) {
        throw std::runtime_error("There is nothing to load the values from.");
    }
    std::int64_t const before = progress.done();
    std::shared_ptr<Buffer> buffer = group.loader()->load(progress);
    if (!buffer || buffer->type() != group.type() || buffer->size() != size) {
        throw std::runtime_error("The values are not those that were announced: the file may have been replaced.");
    }
    progress.check();
    progress.advance(size - std::min(size, progress.done() - before));
    return buffer;
}

} // namespace

void DeferredLoad::addDimensions(int zone)
{
    std::shared_ptr<Zone> const found = m_dataSet.zone(zone);
    if (found->isDeferred()) {
        m_dimensions.try_emplace(found->dimensionsLoader);
    }
}

void DeferredLoad::addField(int zone, int variable)
{
    addDimensions(zone);
    Field const& field = *m_dataSet.field(zone, variable);
    if (!field.isLoaded()) {
        m_values.try_emplace(field.group().get(), Values{m_dataSet.zone(zone), field.location(), {}});
    }
}

void DeferredLoad::load(Progress& progress)
{
    loadDimensions(progress);
    std::int64_t total = progress.done();
    for (auto const& [group, values] : m_values) {
        total += sizeOf(*group, values);
    }
    requireMemoryForValues();
    progress.setTotal(total);
    for (auto& [group, values] : m_values) {
        values.buffer = loadValues(*group, sizeOf(*group, values), progress);
    }
}

void DeferredLoad::loadDimensions(Progress& progress)
{
    for (auto& [loader, dimensions] : m_dimensions) {
        dimensions = loader->load(progress);
        progress.check();
        if (dimensions.i < 0 || dimensions.j < 0 || dimensions.k < 0) {
            throw std::runtime_error("The dimensions of a zone are not known.");
        }
    }
}

void DeferredLoad::requireMemoryForValues() const
{
    double needed = 0;
    for (auto const& [group, values] : m_values) {
        if (group->loader() && !group->loader()->isMapped()) {
            needed += static_cast<double>(Buffer::bytesOf(group->type(), sizeOf(*group, values)));
        }
    }
    if (needed > 0) {
        requireMemory(needed);
    }
}

std::int64_t DeferredLoad::sizeOf(ShareGroup const& group, Values const& values) const
{
    std::int64_t const known = group.size();
    return known >= 0 ? known : valueCount(*values.zone, values.location);
}

void DeferredLoad::commit() noexcept
{
    for (auto const& zone : m_dataSet.zones()) {
        auto const found = zone->isDeferred() ? m_dimensions.find(zone->dimensionsLoader) : m_dimensions.end();
        if (found != m_dimensions.end()) {
            zone->setDimensions(found->second);
        }
    }
    for (auto& [group, values] : m_values) {
        group->setLoaded(std::move(values.buffer));
    }
}

std::vector<StateChangeEvent> DeferredLoad::events(ZonesAndVariables const& unloaded) const
{
    std::vector<StateChangeEvent> events;
    NumberSet zones;
    for (int number = 1; number <= m_dataSet.zoneCount(); ++number) {
        std::shared_ptr<Zone> const zone = m_dataSet.zone(number);
        if (zone->isDeferred() && m_dimensions.count(zone->dimensionsLoader) > 0) {
            zones.insert(number);
        }
    }
    if (!zones.empty()) {
        events.push_back({StateChange_ZoneMetricsLoaded, std::move(zones), {}, {}, 0});
    }
    auto const isLoadedHere = [this](ShareGroup* group) { return m_values.count(group) > 0; };
    ZonesAndVariables fields = m_values.empty() ? ZonesAndVariables() : fieldsWhere(m_dataSet, isLoadedHere);
    fields.zones.insert(unloaded.zones.begin(), unloaded.zones.end());
    fields.variables.insert(unloaded.variables.begin(), unloaded.variables.end());
    if (!fields.zones.empty()) {
        events.push_back({StateChange_VariablesLoaded, std::move(fields.zones), std::move(fields.variables), {}, 0});
    }
    return events;
}

std::shared_ptr<Buffer const> DeferredLoad::valuesOf(ShareGroup const& group) const
{
    auto const found = m_values.find(const_cast<ShareGroup*>(&group)); // to compare only
    return found == m_values.end() ? group.buffer() : found->second.buffer;
}

std::int64_t DeferredLoad::valueCount(Zone const& zone, ValueLocation_e location) const
{
    auto const found = zone.isDeferred() ? m_dimensions.find(zone.dimensionsLoader) : m_dimensions.end();
    if (found == m_dimensions.end()) {
        return zone.valueCount(location);
    }
    ZoneDimensions const& dimensions = found->second;
    return Zone({}, zone.type, dimensions.i, dimensions.j, dimensions.k).valueCount(location);
}

} // namespace veldraw::kernel
