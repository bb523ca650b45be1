#include "dialogs/datasetinfo/DataSetTotals.h"

#include "platform/vdsdkbase/VelUtilDataSet.h"
#include "platform/vdsdkbase/VelUtilTypes.h"
#include "platform/vdsdkbase/VelUtilZone.h"

namespace veldraw::sdk::ui::propertymanager {

namespace {

constexpr long long unknown = -1;

long long productOf(long long i, long long j, long long k)
{
    bool const isKnown = i != unknown && j != unknown && k != unknown;
    return isKnown ? i * j * k : unknown;
}

// Between the points of one dimension; a dimension of one point has the extent of the elements, not none.
long long cellsAlong(long long dimension)
{
    return dimension == 1 || dimension == unknown ? dimension : dimension - 1;
}

long long sumOf(long long total, long long count)
{
    return total == unknown || count == unknown ? unknown : total + count;
}

} // namespace

DataSetTotals totalsOfZone(int zone)
{
    long long i = 0;
    long long j = 0;
    long long k = 0;
    VelUtilZoneGetMetrics(zone, &i, &j, &k, nullptr, nullptr, nullptr);
    if (VelUtilZoneGetType(zone) != ZoneType_Ordered)
        return {i, j};
    return {productOf(i, j, k), productOf(cellsAlong(i), cellsAlong(j), cellsAlong(k))};
}

DataSetTotals totalsOfEnabledZones()
{
    DataSetTotals totals;
    int const zones = VelUtilDataSetGetNumZones();
    for (int zone = 1; zone <= zones; ++zone) {
        if (!VelUtilZoneIsEnabled(zone))
            continue;
        DataSetTotals const counts = totalsOfZone(zone);
        totals.points = sumOf(totals.points, counts.points);
        totals.elements = sumOf(totals.elements, counts.elements);
    }
    return totals;
}

} // namespace veldraw::sdk::ui::propertymanager
