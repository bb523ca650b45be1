#include "kernel/operations/DuplicateZonesAxially.h"

#include "kernel/operations/AxialDuplication.h"

#include <cmath>
#include <limits>

namespace veldraw::kernel {

std::string DuplicateZonesAxially::reasonAgainst() const
{
    std::string reason = AxialOperation::reasonAgainst();
    if (!reason.empty()) {
        return reason;
    }
    if (!std::isfinite(m_spread.angle) || !std::isfinite(m_spread.offset)) {
        return "The angle must be a finite number.";
    }
    if (m_spread.count < 1) {
        return "At least one copy must be made.";
    }
    std::int64_t const zoneCount = dataSet()->zoneCount() + static_cast<std::int64_t>(zones().size()) * m_spread.count;
    return zoneCount > std::numeric_limits<int>::max() ? "There would be too many zones." : "";
}

std::shared_ptr<DeferredLoad> DuplicateZonesAxially::needs()
{
    constexpr long double anyAngle = 1; // the copies may turn by different ones
    return prepare(Rotation(axis(), anyAngle));
}

void DuplicateZonesAxially::compute(Progress& progress)
{
    m_copies.clear();
    AxialDuplication duplication(*dataSet(), zones(), variables(), axis(), m_spread);
    duplication.setDeferred(load());
    duplication.run(progress);
    m_copies = duplication.takeCopies();
}

std::shared_ptr<Change> DuplicateZonesAxially::makeChange(EventHub& events)
{
    return std::make_shared<ZoneAddition>(events, dataSet(), std::move(m_copies));
}

} // namespace veldraw::kernel
