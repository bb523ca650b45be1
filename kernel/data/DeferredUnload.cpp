#include "kernel/data/DeferredUnload.h"

namespace veldraw::kernel {

DeferredUnload::DeferredUnload(DataSet const& dataSet, NumberSet const& zones, NumberSet const& kept)
{
    std::set<ShareGroup*> needed;
    for (int zone = 1; zone <= dataSet.zoneCount(); ++zone) {
        for (int variable = 1; variable <= dataSet.variableCount(); ++variable) {
            ShareGroup* const group = dataSet.field(zone, variable)->group().get();
            if (group != nullptr && group->canUnload()) {
                bool const isNeeded = zones.count(zone) == 0 || kept.count(variable) > 0;
                (isNeeded ? needed : m_groups).insert(group);
            }
        }
    }
    for (ShareGroup* const group : needed) {
        m_groups.erase(group);
    }
    auto const isLetGo = [this](ShareGroup* group) { return m_groups.count(group) > 0; };
    m_fields = fieldsWhere(dataSet, isLetGo);
}

void DeferredUnload::commit() const noexcept
{
    for (ShareGroup* const group : m_groups) {
        group->unload();
    }
}

} // namespace veldraw::kernel
