#include "platform/vdsdkcommon/Names.h"

#include "host/KernelAccess.h"
#include "kernel/api/ApiSupport.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/session/Session.h"

namespace veldraw::sdk {

using host::KernelAccess;

namespace {

/// What a unique identifier stands for: a number in the data set that has it.
struct Place
{
    std::shared_ptr<kernel::DataSet> dataSet; // null: there is none
    int number = 0;
};

Place placeOf(long long id, int (kernel::DataSet::*numberOf)(kernel::UniqueId) const)
{
    for (auto const& dataSet : kernel::Session::instance().pages().dataSets()) {
        int const number = ((*dataSet).*numberOf)(id);
        if (number > 0)
            return {dataSet, number};
    }
    return {};
}

template <typename Renaming>
char rename(Place const& place, char const* name)
{
    return place.dataSet && name && kernel::api::answerOr(false, [&] {
               return kernel::Session::instance().perform(Renaming(*place.dataSet, place.number, name));
           });
}

} // namespace

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
    return rename<kernel::RenameZone>({KernelAccess::dataSetOf(frameID), zone}, name);
}

char renameVariableForFrame(long long frameID, int var, char const* name)
{
    return rename<kernel::RenameVariable>({KernelAccess::dataSetOf(frameID), var}, name);
}

bool zoneExists(long long zoneID)
{
    return placeOf(zoneID, &kernel::DataSet::zoneNumber).dataSet != nullptr;
}

bool variableExists(long long variableID)
{
    return placeOf(variableID, &kernel::DataSet::variableNumber).dataSet != nullptr;
}

char renameZone(long long zoneID, char const* name)
{
    return rename<kernel::RenameZone>(placeOf(zoneID, &kernel::DataSet::zoneNumber), name);
}

char renameVariable(long long variableID, char const* name)
{
    return rename<kernel::RenameVariable>(placeOf(variableID, &kernel::DataSet::variableNumber), name);
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
