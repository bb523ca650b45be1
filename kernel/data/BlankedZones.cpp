#include "kernel/data/BlankedZones.h"

#include "kernel/data/DataSet.h"

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
    m_known[found.id] = {std::move(source), hidden};
    return hidden;
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
