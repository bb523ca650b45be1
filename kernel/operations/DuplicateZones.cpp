#include "kernel/operations/DuplicateZones.h"

#include "kernel/data/ZoneAddition.h"

namespace veldraw::kernel {

std::string DuplicateZones::reasonAgainst() const
{
    char const* const reason = reasonAgainstZones(*dataSet(), m_zones);
    return reason != nullptr ? reason : "";
}

std::shared_ptr<Change> DuplicateZones::makeChange(EventHub& events)
{
    std::vector<ZoneAddition::Copy> copies;
    copies.reserve(m_zones.size());
    for (int const zone : m_zones) {
        copies.emplace_back(dataSet()->zone(zone));
    }
    return std::make_shared<ZoneAddition>(events, dataSet(), std::move(copies));
}

CommandText DuplicateZones::command() const
{
    return CommandText("duplicate-zones").numbers("zones", m_zones);
}

} // namespace veldraw::kernel
