#include "kernel/data/BlankedZones.h"

#include "kernel/data/DataSet.h"
#include "kernel/storage/RangeOfParts.h"

namespace veldraw::kernel {

bool BlankedZones::Source::operator==(Source const& other) const
{
    return dimensions == other.dimensions && isScattered == other.isScattered && own == other.own &&
           constraints == other.constraints;
}

std::shared_ptr<Blanking const> BlankedZones::of(DataSet const& dataSet, int zone, ValueBlanking const& blanking)
{
    Zone const& found = *dataSet.zones()[static_cast<std::size_t>(zone - 1)];
    std::vector<ConstrainedValues> values;
    Source source{{found.i, found.j, found.k}, found.isScattered, found.blanking, {}};
    for (BlankingConstraint const& constraint : blanking.inForce(dataSet)) {
        Field const& field = *dataSet.field(zone, dataSet.variableNumber(constraint.variable));
        if (!field.isPassive() && field.isLoaded() && !found.isDeferred()) {
            values.push_back({constraint, nullptr, field.location()});
            source.constraints.emplace_back(constraint, field.group()->revision());
        }
    }
    if (values.empty()) {
        m_known.erase(found.id);
        return found.blanking;
    }
    auto const known = m_known.find(found.id);
    if (known != m_known.end() && known->second.source == source) {
        return known->second.hidden;
    }
    for (ConstrainedValues& constrained : values) {
        constrained.values =
            dataSet.field(zone, dataSet.variableNumber(constrained.constraint.variable))->group()->buffer();
    }
    forgetMissing(dataSet);
    auto hidden = blankedBy(values, found);
    m_known[found.id] = {std::move(source), hidden, {}};
    return hidden;
}

ValueRange BlankedZones::rangeOf(DataSet const& dataSet, int zone, int variable, ValueBlanking const& blanking)
{
    Zone const& found = *dataSet.zones()[static_cast<std::size_t>(zone - 1)];
    Field const& field = *dataSet.field(zone, variable);
    auto const hidden = of(dataSet, zone, blanking);
    if (hidden == found.blanking || field.isPassive() || !field.isLoaded() || field.group()->isMapped()) {
        return found.range(variable); // mapped values are not read for a range
    }
    constexpr std::size_t mostRanges = 8;
    auto& ranges = m_known.at(found.id).ranges;
    UniqueId const revision = field.group()->revision();
    auto const known = ranges.find(revision);
    if (known != ranges.end()) {
        return known->second;
    }
    CountedValues counted = found.countedValues(field.location());
    counted.hidden = hidden->hidden(field.location());
    ValueRange const range = RangeOfParts().range(*field.group()->buffer(), counted, nullptr);
    if (ranges.size() == mostRanges) {
        ranges.clear(); // most are of values that were edited
    }
    ranges[revision] = range;
    return range;
}

void BlankedZones::forgetMissing(DataSet const& dataSet)
{
    if (m_known.size() < static_cast<std::size_t>(dataSet.zoneCount())) {
        return;
    }
    for (auto known = m_known.begin(); known != m_known.end();) {
        known = dataSet.zoneNumber(known->first) == 0 ? m_known.erase(known) : std::next(known);
    }
}

} // namespace veldraw::kernel
