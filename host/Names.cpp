#include "platform/vdsdkcommon/Names.h"

#include "host/KernelAccess.h"
#include "kernel/api/ApiSupport.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/session/Session.h"

namespace veldraw::sdk {

using host::KernelAccess;

std::string zoneNameForFrame(long long frameID, int zone)
{
    auto const dataSet = KernelAccess::dataSetOf(frameID);
    auto const found = dataSet ? dataSet->zone(zone) : nullptr;
    return found ? found->name : std::string();
}

std::string variableNameForFrame(long long frameID, int var)
{
    auto const dataSet = KernelAccess::dataSetOf(frameID);
    auto const found = dataSet ? dataSet->variable(var) : nullptr;
    return found ? found->name : std::string();
}

long long zoneUniqueIDForFrame(long long frameID, int zone)
{
    auto const dataSet = KernelAccess::dataSetOf(frameID);
    auto const found = dataSet ? dataSet->zone(zone) : nullptr;
    return found ? found->id : 0;
}

int zoneNumberByUniqueID(long long zoneID)
{
    auto const dataSet = kernel::Session::instance().activeDataSet();
    return dataSet ? dataSet->zoneNumber(zoneID) : 0;
}

char renameZoneForFrame(long long frameID, int zone, char const* name)
{
    auto const dataSet = KernelAccess::dataSetOf(frameID);
    return dataSet && name && kernel::api::answerOr(false, [&] {
               return kernel::Session::instance().perform(kernel::RenameZone(*dataSet, zone, name));
           });
}

char renameVariableForFrame(long long frameID, int var, char const* name)
{
    auto const dataSet = KernelAccess::dataSetOf(frameID);
    return dataSet && name && kernel::api::answerOr(false, [&] {
               return kernel::Session::instance().perform(kernel::RenameVariable(*dataSet, var, name));
           });
}

bool dataSetExists(long long dataSetID)
{
    return kernel::Session::instance().dataSet(dataSetID) != nullptr;
}

char renameDataSet(long long dataSetID, char const* title)
{
    auto const dataSet = kernel::Session::instance().dataSet(dataSetID);
    return dataSet && title && kernel::api::answerOr(false, [&] {
               return kernel::Session::instance().perform(kernel::SetTitle(*dataSet, title));
           });
}

} // namespace veldraw::sdk
