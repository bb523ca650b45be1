#include "platform/vdsdkbase/VelUtilPick.h"

#include "kernel/api/ApiSupport.h"

using namespace veldraw::kernel;
using veldraw::kernel::api::session;

namespace {

Pick const* pick(int number)
{
    std::vector<Pick> const& picks = session().picks();
    bool const exists = number >= 1 && number <= static_cast<int>(picks.size());
    return exists ? &picks[static_cast<std::size_t>(number - 1)] : nullptr;
}

/// One-based number of the picked zone; 0 if it is disabled or not in the active data set.
int zoneNumber(Pick const* found)
{
    std::shared_ptr<DataSet> const dataSet = session().activeDataSet();
    bool const isZone = found != nullptr && found->type == Pick::zoneType && dataSet;
    int const number = isZone ? dataSet->zoneNumber(found->zone) : 0;
    return number != 0 && dataSet->zone(number)->enabled ? number : 0;
}

} // namespace

int VelUtilPickListGetCount(void)
{
    return static_cast<int>(session().picks().size());
}

int VelUtilPickListGetType(int number)
{
    Pick const* const found = pick(number);
    if (found == nullptr) {
        return 0;
    }
    // A zone without a number cannot be told to the caller, so it does not count as picked.
    bool const isHidden = found->type == Pick::zoneType && zoneNumber(found) == 0;
    return isHidden ? 0 : found->type;
}

int VelUtilPickListGetZoneNumber(int number)
{
    return zoneNumber(pick(number));
}
