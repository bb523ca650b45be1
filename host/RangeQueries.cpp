#include "kernel/api/LoadFailure.h"
#include "kernel/operations/LoadVariables.h"
#include "kernel/session/Session.h"
#include "platform/vdsdkcommon/DataSetQueries.h"

#include <algorithm>

namespace veldraw::sdk {

using kernel::ValueRange;

namespace {

ValueRange rangeOf(int var, int zone)
{
    auto const dataSet = kernel::Session::instance().activeDataSet();
    auto const found = dataSet ? dataSet->zone(zone) : nullptr;
    return found ? found->range(var) : ValueRange();
}

// A loader that fails leaves the range unknown.
void loadWhereUnknown(int var, Set const& zones)
{
    auto const dataSet = kernel::Session::instance().activeDataSet();
    kernel::NumberSet unknown;
    for (int zone : zones.members()) {
        kernel::Field const* const field = dataSet ? dataSet->field(zone, var) : nullptr;
        if (field && !field->isLoaded() && !rangeOf(var, zone).isValid())
            unknown.insert(zone);
    }
    if (!unknown.empty() && !kernel::Session::instance().perform(kernel::LoadVariables(*dataSet, unknown, {var})))
        kernel::api::tellLoadFailure();
}

} // namespace

bool isVarRangeEstimatedForAnyActiveZones(int var)
{
    Set::Members const zones = getActiveZones().members();
    return std::any_of(zones.begin(), zones.end(),
                       [var](int zone) { return rangeOf(var, zone).state == ValueRange::State::Estimated; });
}

bool getVarMinMaxForZone(int var, int zone, bool loadIfNeeded, double& min, double& max)
{
    return getVarMinMaxForZoneSet(var, Set(zone), loadIfNeeded, min, max);
}

bool getVarMinMaxForZoneSet(int var, Set const& zones, bool loadIfNeeded, double& min, double& max)
{
    if (loadIfNeeded)
        loadWhereUnknown(var, zones);
    ValueRange all;
    for (int zone : zones.members()) {
        ValueRange const range = rangeOf(var, zone);
        if (!range.isValid())
            continue;
        all.min = all.isValid() ? std::min(all.min, range.min) : range.min;
        all.max = all.isValid() ? std::max(all.max, range.max) : range.max;
        all.state = range.state;
    }
    if (!all.isValid())
        return false;
    min = all.min;
    max = all.max;
    return true;
}

} // namespace veldraw::sdk
