#include "platform/vdsdkbase/VelUtilFourier.h"

#include "kernel/api/ApiSupport.h"

using namespace veldraw::kernel;

namespace {

constexpr std::int64_t fewestPoints = 4;

bool canBeTransformed(DataSet const* dataSet, int number)
{
    std::shared_ptr<Zone> const zone = dataSet == nullptr ? nullptr : dataSet->zone(number);
    return zone && zone->enabled && zone->isOrdered() && zone->dimensionality() == 1 &&
           zone->pointCount() >= fewestPoints;
}

} // namespace

bool VelUtilFourierTransformIsValidZone(int zone)
{
    return canBeTransformed(api::session().activeDataSet().get(), zone);
}

bool VelUtilFourierTransformIsValidZoneByDataSetID(long long dataSetID, int zone)
{
    return canBeTransformed(api::session().dataSet(dataSetID).get(), zone);
}
