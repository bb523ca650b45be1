#include "host/KernelAccess.h"

#include "kernel/session/Session.h"

namespace veldraw::host {

std::shared_ptr<kernel::DataSet> KernelAccess::dataSetOf(long long frameID)
{
    auto const frame = kernel::Session::instance().frame(frameID);
    return frame ? frame->dataSet : nullptr;
}

long long KernelAccess::activeFrameID()
{
    auto const frame = kernel::Session::instance().activeFrame();
    return frame ? frame->id : 0;
}

std::shared_ptr<kernel::Zone> KernelAccess::zone(int number)
{
    auto const dataSet = kernel::Session::instance().activeDataSet();
    return dataSet ? dataSet->zone(number) : nullptr;
}

bool KernelAccess::isEnabled(kernel::LineMap const& lineMap, kernel::DataSet const& dataSet)
{
    auto const zone = dataSet.zone(dataSet.zoneNumber(lineMap.zone));
    return zone && zone->enabled;
}

} // namespace veldraw::host
