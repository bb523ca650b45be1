#include "kernel/data/RangesOverZones.h"

#include "kernel/data/DataSet.h"
#include "kernel/data/ZonesAhead.h"

#include <algorithm>

namespace veldraw::kernel {

namespace {

constexpr std::size_t zonesInABlock = 256;
constexpr std::int64_t never = -1;

std::size_t blockOf(int zone)
{
    return zone < 1 ? 0 : static_cast<std::size_t>(zone - 1) / zonesInABlock;
}

/// Asks for the memory that the ranges of zones some places ahead of @p place stand on: each step of the way to it, so that those of several
/// zones are waited for at the same time.
void prepareRangesBehind(std::vector<std::shared_ptr<Zone>> const& zones, std::size_t place, std::size_t position)
{
    constexpr std::size_t step = 6;
    prepareZonesBehind(zones, place);
    auto const fieldAt = [&](std::size_t at) {
        bool const exists = at < zones.size() && position < zones[at]->fields.size();
        return exists ? &zones[at]->fields[position] : nullptr;
    };
    if (Field const* const field = fieldAt(place + step + step / 2)) {
        __builtin_prefetch(field);
    }
    Field const* const field = fieldAt(place + step / 2);
    if (field != nullptr && !field->isPassive()) {
        KnownRange const* const range = &field->group()->knownRange();
        __builtin_prefetch(range);
        __builtin_prefetch(reinterpret_cast<char const*>(range + 1) - 1);
    }
}

/// Calls @p work with each block that has one of the zones.
template <typename Work>
void forEachBlock(NumberSet const& zones, Work const& work)
{
    std::size_t next = 0;
    for (int const zone : zones) {
        if (std::size_t const block = blockOf(zone); block >= next) {
            work(block);
            next = block + 1;
        }
    }
}

} // namespace

std::size_t RangesOverZones::blockCount() const
{
    return (m_dataSet.zones().size() + zonesInABlock - 1) / zonesInABlock;
}

JoinedRange RangesOverZones::of(int variable)
{
    if (variable < 1 || variable > m_dataSet.variableCount()) {
        return {};
    }
    if (blockCount() <= 1) { // gone through faster than anything is kept of it
        return joinedOf(0, m_dataSet.zones().size(), variable);
    }
    JoinedRange joined;
    Row& row = rowOf(variable);
    for (std::size_t number = 0; number < row.size(); ++number) {
        if (!holds(row[number], number)) {
            lookAt(row[number], number, variable);
        }
        joined.add(row[number].joined);
    }
    return joined;
}

void RangesOverZones::findAll(Progress& progress)
{
    for (std::size_t number = 0; number < blockCount(); ++number) {
        for (int variable = 1; variable <= m_dataSet.variableCount(); ++variable) {
            progress.check();
            bool const areAllFound = findRanges(number, variable, progress);
            if (areAllFound && blockCount() > 1) {
                lookAt(rowOf(variable)[number], number, variable);
            }
        }
    }
}

/// @return false when some are left alone, which may be large and are asked for only by whoever wants them
bool RangesOverZones::findRanges(std::size_t block, int variable, Progress const& progress) const
{
    bool areAllFound = true;
    for (std::size_t at = block * zonesInABlock; at < endOf(block); ++at) {
        Zone const& zone = *m_dataSet.zones()[at];
        Field const& field = zone.fields[static_cast<std::size_t>(variable - 1)];
        bool const isMapped = !field.isPassive() && field.group()->isMapped();
        areAllFound = areAllFound && !isMapped;
        if (!field.isPassive() && !isMapped) {
            field.group()->range(zone.countedValues(field.location()), &progress);
        }
    }
    return areAllFound;
}

std::size_t RangesOverZones::endOf(std::size_t block) const
{
    return std::min((block + 1) * zonesInABlock, m_dataSet.zones().size());
}

RangesOverZones::Row& RangesOverZones::rowOf(int variable)
{
    m_changes.resize(std::max(m_changes.size(), blockCount()), 0);
    Row& row = m_rows[m_dataSet.variables()[static_cast<std::size_t>(variable - 1)]->id];
    row.resize(blockCount());
    return row;
}

bool RangesOverZones::holds(Block const& block, std::size_t number) const
{
    return block.change == m_changes[number] && block.end == endOf(number);
}

void RangesOverZones::lookAt(Block& block, std::size_t number, int variable) const
{
    block.joined = joinedOf(number * zonesInABlock, endOf(number), variable);
    block.end = endOf(number);
    block.change = m_changes[number];
}

JoinedRange RangesOverZones::joinedOf(std::size_t first, std::size_t last, int variable) const
{
    JoinedRange joined;
    for (std::size_t at = first; at < last; ++at) {
        prepareRangesBehind(m_dataSet.zones(), at, static_cast<std::size_t>(variable - 1));
        Zone const& zone = *m_dataSet.zones()[at];
        if (zone.enabled) {
            joined.add(zone, variable);
        }
    }
    return joined;
}

void RangesOverZones::follow(StateChangeEvent const& event) noexcept
{
    switch (event.kind) {
    case StateChange_ZonesAdded:
    case StateChange_ZonesDeleted: // those behind have other numbers now
        return forgetBlocksFrom(event.zones.empty() ? 0 : blockOf(*event.zones.begin()));
    case StateChange_ZonesEnabled:
    case StateChange_ZoneMetricsLoaded: // brings hidden points and cells along
        return forgetZones(event.zones);
    case StateChange_ValuesAltered:
    case StateChange_VariablesLoaded:
    case StateChange_SharingChanged:
        return forgetFields(event.zones, event.variables);
    case StateChange_VariablesAdded: // also one that was deleted, whose zones may be others by now
        return forgetVariables(event.variables);
    default:
        return;
    }
}

void RangesOverZones::forgetBlocksFrom(std::size_t first) noexcept
{
    for (std::size_t number = first; number < m_changes.size(); ++number) {
        ++m_changes[number];
    }
}

void RangesOverZones::forgetZones(NumberSet const& zones) noexcept
{
    if (zones.empty()) {
        return forgetBlocksFrom(0);
    }
    forEachBlock(zones, [this](std::size_t number) {
        if (number < m_changes.size()) {
            ++m_changes[number];
        }
    });
}

void RangesOverZones::forgetFields(NumberSet const& zones, NumberSet const& variables) noexcept
{
    if (zones.empty() || variables.empty()) {
        return forgetZones(zones);
    }
    forEachBlock(zones, [&](std::size_t number) {
        for (int const variable : variables) {
            Row* const row = knownRowOf(variable);
            if (row != nullptr && number < row->size()) {
                (*row)[number].change = never;
            }
        }
    });
}

void RangesOverZones::forgetVariables(NumberSet const& variables) noexcept
{
    for (int const variable : variables) {
        if (Row* const row = knownRowOf(variable)) {
            row->clear();
        }
    }
}

/// Null for a bad number, and where nothing is known.
RangesOverZones::Row* RangesOverZones::knownRowOf(int variable) noexcept
{
    if (variable < 1 || variable > m_dataSet.variableCount()) {
        return nullptr;
    }
    auto const found = m_rows.find(m_dataSet.variables()[static_cast<std::size_t>(variable - 1)]->id);
    return found == m_rows.end() ? nullptr : &found->second;
}

} // namespace veldraw::kernel
