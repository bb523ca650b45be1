#include "kernel/data/DeferredLoad.h"

#include "kernel/base/SystemMemory.h"

#include <algorithm>
#include <set>
#include <stdexcept>

namespace veldraw::kernel {

namespace {

/// Loads something. What the loader complains about becomes a sentence on the thing, which @p name finds the name of.
template <typename Name, typename Load>
auto loadNamed(Name const& name, Load const& load)
{
    try {
        return load();
    } catch (std::runtime_error const& error) {
        std::string const reason = error.what();
        bool const isSentence = !reason.empty() && reason.back() == '.';
        throw std::runtime_error(name() + " cannot be loaded: " + reason + (isSentence ? "" : "."));
    }
}

} // namespace

void DeferredLoad::addDimensions(int zone)
{
    std::shared_ptr<Zone> const found = m_dataSet.zone(zone);
    if (found->isDeferred()) {
        if (m_placesOfSizes.try_emplace(found->dimensionsLoader.get(), m_sizes.size()).second) {
            m_sizes.push_back({found, found->dimensionsLoader, {}, false});
        }
    }
}

void DeferredLoad::addField(int zone, int variable)
{
    addDimensions(zone);
    Field const& field = *m_dataSet.field(zone, variable);
    if (field.isPassive()) {
        return;
    }
    field.group()->noteUse();
    m_needed.insert(field.group().get());
    if (!field.isLoaded() && m_placesOfValues.try_emplace(field.group().get(), m_values.size()).second) {
        m_values.push_back({field.group().get(), m_dataSet.zone(zone), field.location(), {}, {}});
    }
}

void DeferredLoad::addWanted(int zone, std::shared_ptr<std::set<UniqueId> const> variables)
{
    m_wanted.push_back({m_dataSet.zone(zone), std::move(variables)});
}

void DeferredLoad::load(Progress& progress)
{
    loadDimensions(progress);
    std::int64_t total = progress.done();
    for (Values const& values : m_values) {
        total += values.buffer ? 0 : sizeOf(values);
    }
    requireMemoryForValues();
    progress.setTotal(total);
    for (Values& values : m_values) {
        if (!values.buffer) {
            std::shared_ptr<Buffer> loaded = loadValues(values, progress);
            if (!m_leavesRanges) {
                values.range = rangeOf(values, *loaded, progress);
            }
            values.buffer = std::move(loaded);
        }
    }
}

MissingValues DeferredLoad::missing() const
{
    MissingValues missing;
    for (Values const& values : m_values) {
        ShareGroup const& group = *values.group;
        if (!values.buffer && group.loader() && !group.isMapped()) {
            missing.values.push_back(
                {group.loader(), group.size() < 0 ? 0 : Buffer::bytesOf(group.type(), group.size())});
        }
    }
    for (Size const& size : m_sizes) {
        if (!size.isLoaded) {
            missing.dimensions.push_back(size.loader);
        }
    }
    return missing;
}

std::shared_ptr<Buffer> DeferredLoad::announcedValues(ShareGroup const& group, std::int64_t size,
                                                      Progress& progress) const
{
    std::shared_ptr<ValueLoader> const& loader = group.loader();
    if (!loader) {
        throw std::runtime_error("there is nothing to load it from");
    }
    bool const isFetched = m_fetched != nullptr && m_fetched->values.count(loader) > 0;
    std::shared_ptr<Buffer> buffer = isFetched ? m_fetched->values.at(loader) : loader->load(progress);
    if (!buffer || buffer->type() != group.type() || buffer->size() != size) {
        throw std::runtime_error("the values are not those that were announced: the file may have been replaced");
    }
    return buffer;
}

ZoneDimensions DeferredLoad::broughtDimensions(std::shared_ptr<DimensionsLoader> const& loader,
                                               Progress& progress) const
{
    bool const isFetched = m_fetched != nullptr && m_fetched->dimensions.count(loader) > 0;
    return isFetched ? m_fetched->dimensions.at(loader) : loader->load(progress);
}

std::shared_ptr<Buffer> DeferredLoad::loadValues(Values const& values, Progress& progress) const
{
    std::int64_t const before = progress.done();
    std::int64_t const size = sizeOf(values);
    std::shared_ptr<Buffer> buffer =
        loadNamed([&] { return nameOf(values); }, [&] { return announcedValues(*values.group, size, progress); });
    progress.check();
    progress.advance(size - std::min(size, progress.done() - before));
    return buffer;
}

/// The range of loaded values, so that nobody who asks for it on another thread has to wait. Mapped values are not gone through.
KnownRange DeferredLoad::rangeOf(Values const& values, Buffer const& loaded, Progress const& progress) const
{
    CountedValues const counted = countedValues(*values.zone, values.location);
    bool const isKnown = values.group->knownRange().isKnownFor(counted) &&
                         values.group->knownRange().range().state == ValueRange::State::Exact;
    KnownRange range;
    if (!isKnown && !values.group->isMapped()) {
        range.setComputed(RangeOfParts().range(loaded, counted, &progress), counted);
    }
    return range;
}

/// The variable and the zone, as users know them.
std::string DeferredLoad::nameOf(Values const& values) const
{
    std::vector<Field> const& fields = values.zone->fields;
    auto const found = std::find_if(fields.begin(), fields.end(),
                                    [&](Field const& field) { return field.group().get() == values.group; });
    auto const position = static_cast<std::size_t>(found - fields.begin());
    std::string const variable = found == fields.end() ? std::string() : m_dataSet.variables()[position]->name;
    return "\"" + variable + "\" of zone \"" + values.zone->name + "\"";
}

void DeferredLoad::requireWhole() const
{
    for (ShareGroup const* const group : m_needed) {
        auto const loaded = m_placesOfValues.find(group);
        bool const isLoadedHere = loaded != m_placesOfValues.end() && m_values[loaded->second].buffer;
        std::string const loss = isLoadedHere && group->loader() ? group->loader()->whatIsLost() : group->whatIsLost();
        if (!loss.empty()) {
            throw std::runtime_error("The result would be wrong: " + loss + ".");
        }
    }
}

void DeferredLoad::loadDimensions(Progress& progress)
{
    for (auto& [zone, loader, dimensions, isLoaded] : m_sizes) {
        if (isLoaded) {
            continue;
        }
        auto const name = [&named = *zone] { return "The size of zone \"" + named.name + "\""; };
        dimensions = loadNamed(name, [this, &loader = loader, &progress] {
            ZoneDimensions size = broughtDimensions(loader, progress);
            if (size.i < 0 || size.j < 0 || size.k < 0) {
                throw std::runtime_error("it is not known");
            }
            return size;
        });
        progress.check();
        isLoaded = true;
    }
}

void DeferredLoad::requireMemoryForValues() const
{
    double needed = 0;
    std::set<void const*> arrays;
    for (Values const& values : m_values) {
        ShareGroup const& group = *values.group;
        if (values.buffer || !group.loader() || group.isMapped()) {
            continue;
        }
        ValueLoader::Array const array = group.loader()->array();
        if (array.identity == nullptr) {
            needed += static_cast<double>(Buffer::bytesOf(group.type(), sizeOf(values)));
        } else if (arrays.insert(array.identity).second) {
            needed += static_cast<double>(array.bytes);
        }
    }
    if (needed > 0) {
        requireMemory(needed);
    }
}

std::int64_t DeferredLoad::sizeOf(Values const& values) const
{
    std::int64_t const known = values.group->size();
    return known >= 0 ? known : valueCount(*values.zone, values.location);
}

void DeferredLoad::commit() noexcept
{
    for (auto const& zone : m_dataSet.zones()) {
        if (ZoneDimensions const* const size = sizeHere(*zone)) {
            zone->setDimensions(*size);
        }
    }
    for (Values& values : m_values) {
        values.group->setLoaded(std::move(values.buffer));
        if (values.range.isKnown()) {
            values.group->restoreRange(values.range);
        }
    }
    for (Wanted& wanted : m_wanted) {
        wanted.zone->wantedVariables = std::move(wanted.variables);
    }
}

std::vector<StateChangeEvent> DeferredLoad::events() const
{
    std::vector<StateChangeEvent> events;
    NumberSet zones;
    for (int number = 1; number <= m_dataSet.zoneCount(); ++number) {
        if (sizeHere(*m_dataSet.zone(number)) != nullptr) {
            zones.insert(number);
        }
    }
    if (!zones.empty()) {
        events.push_back({StateChange_ZoneMetricsLoaded, std::move(zones), {}, {}, 0});
    }
    auto const isLoadedHere = [this](ShareGroup* group) { return m_placesOfValues.count(group) > 0; };
    ZonesAndVariables fields = m_values.empty() ? ZonesAndVariables() : fieldsWhere(m_dataSet, isLoadedHere);
    if (!fields.zones.empty()) {
        events.push_back({StateChange_VariablesLoaded, std::move(fields.zones), std::move(fields.variables), {}, 0});
    }
    return events;
}

std::shared_ptr<Buffer const> DeferredLoad::valuesOf(ShareGroup const& group) const
{
    auto const found = m_placesOfValues.find(&group);
    return found == m_placesOfValues.end() ? group.buffer() : m_values[found->second].buffer;
}

ZoneDimensions DeferredLoad::dimensionsOf(Zone const& zone) const
{
    ZoneDimensions const* const size = sizeHere(zone);
    return size != nullptr ? *size : ZoneDimensions{zone.i, zone.j, zone.k, zone.connectivity, zone.blanking};
}

void DeferredLoad::obey(ValueBlanking const& blanking, int zone)
{
    Obeyed obeyed{blanking.inForce(m_dataSet), nullptr, false};
    for (BlankingConstraint const& constraint : obeyed.constraints) {
        addField(zone, m_dataSet.variableNumber(constraint.variable));
    }
    if (!obeyed.constraints.empty()) {
        m_obeyed[m_dataSet.zone(zone)->id] = std::move(obeyed);
    }
}

std::vector<ConstrainedValues> DeferredLoad::constrainedValues(Zone const& zone, Obeyed const& obeyed) const
{
    std::vector<ConstrainedValues> values;
    for (BlankingConstraint const& constraint : obeyed.constraints) {
        Field const& field = zone.fields[static_cast<std::size_t>(m_dataSet.variableNumber(constraint.variable) - 1)];
        values.push_back({constraint, valuesOf(field), field.location()});
    }
    return values;
}

ZoneDimensions DeferredLoad::blankedDimensionsOf(Zone const& zone) const
{
    ZoneDimensions dimensions = dimensionsOf(zone);
    std::lock_guard const alone(m_obeyedAccess);
    auto const found = m_obeyed.find(zone.id);
    if (found == m_obeyed.end()) {
        return dimensions;
    }
    Obeyed& obeyed = found->second;
    if (!obeyed.isKnown) {
        Zone shape({}, zone.type, 0, 0, 0);
        shape.isScattered = zone.isScattered;
        shape.setDimensions(dimensions);
        obeyed.hidden = blankedBy(constrainedValues(zone, obeyed), shape);
        obeyed.isKnown = true;
    }
    dimensions.blanking = obeyed.hidden;
    return dimensions;
}

std::int64_t DeferredLoad::valueCount(Zone const& zone, ValueLocation_e location) const
{
    ZoneDimensions const size = dimensionsOf(zone);
    return Zone({}, zone.type, size.i, size.j, size.k).valueCount(location);
}

CountedValues DeferredLoad::countedValues(Zone const& zone, ValueLocation_e location) const
{
    Zone shape({}, zone.type, 0, 0, 0);
    shape.setDimensions(dimensionsOf(zone));
    return shape.countedValues(location);
}

ZoneDimensions const* DeferredLoad::sizeHere(Zone const& zone) const
{
    auto const found = zone.isDeferred() ? m_placesOfSizes.find(zone.dimensionsLoader.get()) : m_placesOfSizes.end();
    return found == m_placesOfSizes.end() ? nullptr : &m_sizes[found->second].dimensions;
}

} // namespace veldraw::kernel
