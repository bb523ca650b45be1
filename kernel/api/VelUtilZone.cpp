#include "platform/vdsdkbase/VelUtilZone.h"

#include "kernel/api/ApiSupport.h"
#include "kernel/api/ArgumentList.h"
#include "kernel/api/LoadFailure.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/LoadVariables.h"

using namespace veldraw::kernel;
using veldraw::kernel::api::activeZone;

namespace {

// Two C functions share this: they must not call one another, so that whoever counts calls counts those of callers only.
void storeDimensions(int zone, long long* i, long long* j, long long* k)
{
    std::shared_ptr<Zone> const found = activeZone(zone);
    api::store<long long>(i, found ? found->i : -1);
    api::store<long long>(j, found ? found->j : -1);
    api::store<long long>(k, found ? found->k : -1);
}

} // namespace

bool VelUtilZoneCopyX(ArgList_s* list)
{
    return list != nullptr && api::answerOr(false, [&] {
               std::optional<NumberSet> const sources = list->arguments.numbers("SourceZones");
               std::shared_ptr<DataSet> const dataSet = api::session().activeDataSet();
               if (!sources || !dataSet) {
                   return api::session().refuse(sources ? "There is no data set."
                                                        : "SourceZones must be a set of zones.");
               }
               return api::session().perform(DuplicateZones(*dataSet, *sources));
           });
}

void VelUtilZoneGetIJK(int zone, long long* i, long long* j, long long* k)
{
    std::shared_ptr<Zone> const found = activeZone(zone);
    if (found && found->isDeferred()) {
        // If loading is refused, the dimensions stay -1.
        if (!api::session().perform(LoadDimensions(*api::session().activeDataSet(), zone))) {
            api::tellLoadFailure();
        }
    }
    storeDimensions(zone, i, j, k);
}

void VelUtilZoneGetMetrics(int zone, long long* i, long long* j, long long* k, void* unused1, void* unused2,
                           void* unused3)
{
    static_cast<void>(unused1);
    static_cast<void>(unused2);
    static_cast<void>(unused3);
    storeDimensions(zone, i, j, k);
}

bool VelUtilZoneGetName(int zone, char** name)
{
    api::store<char*>(name, nullptr);
    return name != nullptr && api::answerOr(false, [&] {
               std::shared_ptr<Zone> const found = activeZone(zone);
               if (!found) {
                   return false;
               }
               *name = api::copyText(found->name);
               return true;
           });
}

double VelUtilZoneGetSolutionTime(int zone)
{
    std::shared_ptr<Zone> const found = activeZone(zone);
    return found ? found->solutionTime : 0.0;
}

int VelUtilZoneGetStrandID(int zone)
{
    std::shared_ptr<Zone> const found = activeZone(zone);
    return found ? found->strand : staticStrand;
}

int VelUtilZoneGetType(int zone)
{
    std::shared_ptr<Zone> const found = activeZone(zone);
    return found ? static_cast<int>(found->type) : -1;
}

bool VelUtilZoneIsEnabled(int zone)
{
    std::shared_ptr<Zone> const found = activeZone(zone);
    return found && found->enabled;
}

bool VelUtilZoneIsFiniteElement(int zone)
{
    std::shared_ptr<Zone> const found = activeZone(zone);
    return found && !found->isOrdered();
}

bool VelUtilZoneIsLinear(int zone)
{
    std::shared_ptr<Zone> const found = activeZone(zone);
    return found && (found->isOrdered() ? found->dimensionality() <= 1 : found->type == ZoneType_FELineSeg);
}

bool VelUtilZoneIsOrdered(int zone)
{
    std::shared_ptr<Zone> const found = activeZone(zone);
    return found && found->isOrdered();
}
