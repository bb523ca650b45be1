#include "host/ActiveZones.h"
#include "kernel/api/LoadFailure.h"
#include "kernel/operations/LoadVariables.h"
#include "kernel/session/Session.h"
#include "platform/vdsdkcommon/DataSetQueries.h"

namespace veldraw::sdk {

using host::ActiveZones;
using kernel::ValueRange;

namespace {

// The question for all active zones is asked again and again.
ValueRange rangeOver(int var, Set const& zones)
{
    constexpr long long few = 16;
    if (zones.size() > few && zones == ActiveZones::now().zones())
        return ActiveZones::now().range(var).range();
    auto const dataSet = kernel::Session::instance().activeDataSet();
    kernel::JoinedRange joined;
    for (int const number : zones.members()) {
        if (auto const zone = dataSet ? dataSet->zone(number) : nullptr)
            joined.add(*zone, var);
    }
    return joined.range();
}

// A loader that fails leaves the range unknown.
void loadWhereUnknown(int var, Set const& zones)
{
    auto const dataSet = kernel::Session::instance().activeDataSet();
    kernel::NumberSet unknown;
    for (int zone : zones.members()) {
        kernel::Field const* const field = dataSet ? dataSet->field(zone, var) : nullptr;
        if (field && !field->isLoaded() && !dataSet->zone(zone)->range(var).isValid())
            unknown.insert(zone);
    }
    if (!unknown.empty() && !kernel::Session::instance().perform(kernel::LoadVariables(*dataSet, unknown, {var})))
        kernel::api::tellLoadFailure();
}

} // namespace

bool isVarRangeEstimatedForAnyActiveZones(int var)
{
    return ActiveZones::now().range(var).isEstimated();
}

bool getVarMinMaxForZone(int var, int zone, bool loadIfNeeded, double& min, double& max)
{
    return getVarMinMaxForZoneSet(var, Set(zone), loadIfNeeded, min, max);
}

bool getVarMinMaxForZoneSet(int var, Set const& zones, bool loadIfNeeded, double& min, double& max)
{
    if (loadIfNeeded)
        loadWhereUnknown(var, zones);
    ValueRange const range = rangeOver(var, zones);
    if (!range.isValid())
        return false;
    min = range.min;
    max = range.max;
    return true;
}

} // namespace veldraw::sdk
