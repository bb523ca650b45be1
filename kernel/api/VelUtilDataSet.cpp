#include "platform/vdsdkbase/VelUtilDataSet.h"

#include "kernel/api/ApiSupport.h"
#include "kernel/api/LoadFailure.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/LoadVariables.h"
#include "kernel/operations/RenameZone.h"

using namespace veldraw::kernel;
using veldraw::kernel::api::answerOr;
using veldraw::kernel::api::session;

bool VelUtilDataSetDeleteVar(Set_s* vars)
{
    return vars != nullptr && answerOr(false, [&] {
               std::shared_ptr<DataSet> const dataSet = session().activeDataSet();
               return dataSet ? session().perform(DeleteVariables(*dataSet, vars->members))
                              : session().refuse("There is no data set.");
           });
}

bool VelUtilDataSetGetInfo(char** title, int* numZones, int* numVars)
{
    api::store<char*>(title, nullptr);
    api::store(numZones, 0);
    api::store(numVars, 0);
    return answerOr(false, [&] {
        std::shared_ptr<DataSet> const dataSet = session().activeDataSet();
        if (!dataSet) {
            return false;
        }
        if (title != nullptr) {
            *title = api::copyText(dataSet->title());
        }
        api::store(numZones, dataSet->zoneCount());
        api::store(numVars, dataSet->variableCount());
        return true;
    });
}

int VelUtilDataSetGetNumVars(void)
{
    std::shared_ptr<DataSet> const dataSet = session().activeDataSet();
    return dataSet ? dataSet->variableCount() : 0;
}

int VelUtilDataSetGetNumZones(void)
{
    std::shared_ptr<DataSet> const dataSet = session().activeDataSet();
    return dataSet ? dataSet->zoneCount() : 0;
}

int VelUtilDataSetGetNumZonesByUniqueID(long long dataSetID)
{
    std::shared_ptr<DataSet> const dataSet = session().dataSet(dataSetID);
    return dataSet ? dataSet->zoneCount() : 0;
}

long long VelUtilDataSetGetUniqueID(void)
{
    std::shared_ptr<DataSet> const dataSet = session().activeDataSet();
    return dataSet ? dataSet->id() : 0;
}

bool VelUtilDataSetIsAvailable(void)
{
    return session().activeDataSet() != nullptr;
}

bool VelUtilDataSetIsLocked(char** lockerName)
{
    api::store<char*>(lockerName, nullptr);
    std::shared_ptr<DataSet> const dataSet = session().activeDataSet();
    if (!dataSet || dataSet->lockHolder().empty()) {
        return false;
    }
    // Without memory for the name the answer is still true.
    if (lockerName != nullptr) {
        *lockerName = answerOr<char*>(nullptr, [&] { return api::copyText(dataSet->lockHolder()); });
    }
    return true;
}

bool VelUtilDataSetMakeVarsAvailableByUniqueID(long long dataSetID, Set_s* zones, Set_s* vars)
{
    return answerOr(false, [&] {
        std::shared_ptr<DataSet> const dataSet = session().dataSet(dataSetID);
        if (!dataSet || zones == nullptr || vars == nullptr) {
            return session().refuse(dataSet ? "An argument is missing." : "There is no such data set.");
        }
        return session().perform(MakeVariablesAvailable(*dataSet, zones->members, vars->members)) ||
               api::tellLoadFailure();
    });
}

bool VelUtilDataSetSetTitle(char const* title)
{
    return title != nullptr && answerOr(false, [&] {
               std::shared_ptr<DataSet> const dataSet = session().activeDataSet();
               return dataSet && session().perform(SetTitle(*dataSet, title));
           });
}
