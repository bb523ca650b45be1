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

} // namespace

int VelUtilPickListGetCount(void)
{
    return static_cast<int>(session().picks().size());
}

int VelUtilPickListGetType(int number)
{
    Pick const* const found = pick(number);
    return found == nullptr ? 0 : found->type;
}

int VelUtilPickListGetZoneNumber(int number)
{
    Pick const* const found = pick(number);
    std::shared_ptr<DataSet> const dataSet = session().activeDataSet();
    return found != nullptr && found->type == Pick::zoneType && dataSet ? dataSet->zoneNumber(found->zone) : 0;
}
