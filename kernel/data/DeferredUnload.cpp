#include "kernel/data/DeferredUnload.h"

#include "kernel/data/ZonesAndVariables.h"

namespace veldraw::kernel {

DeferredUnload::DeferredUnload(std::set<ShareGroup*> groups, std::vector<std::shared_ptr<DataSet>> const& dataSets)
    : m_groups(std::move(groups))
{
    auto const goes = [this](ShareGroup* group) { return m_groups.count(group) > 0; };
    for (auto const& dataSet : dataSets) {
        ZonesAndVariables fields = fieldsWhere(*dataSet, goes);
        if (!fields.zones.empty()) {
            m_events.push_back(
                {StateChange_VariablesLoaded, std::move(fields.zones), std::move(fields.variables), {}, 0});
        }
    }
}

void DeferredUnload::commit() const noexcept
{
    for (ShareGroup* const group : m_groups) {
        group->unload();
    }
}

} // namespace veldraw::kernel
