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

int zoneNumber(Pick const* found)
{
    std::shared_ptr<DataSet> const dataSet = session().activeDataSet();
    return found != nullptr && found->type == Pick::zoneType && dataSet ? dataSet->zoneNumber(found->zone) : 0;
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
    // A zone that the active data set does not have has no number, so to the caller it is no picked zone.
    bool const isForeign = found->type == Pick::zoneType && zoneNumber(found) == 0;
    return isForeign ? 0 : found->type;
}

int VelUtilPickListGetZoneNumber(int number)
{
    return zoneNumber(pick(number));
}
