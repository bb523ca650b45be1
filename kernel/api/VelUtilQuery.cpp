#include "platform/vdsdkbase/VelUtilQuery.h"

#include "kernel/api/ApiSupport.h"

#include <algorithm>

using namespace veldraw::kernel;

bool VelUtilInterruptIsSet(void)
{
    return api::session().isInterrupted();
}

bool VelUtilQueryOkToSmooth(void)
{
    std::shared_ptr<Frame> const frame = api::session().activeFrame();
    if (!frame || !frame->dataSet || frame->plotType == PlotType_Sketch) {
        return false;
    }
    auto const isEnabled = [](auto const& each) { return each->enabled; };
    auto const& zones = frame->dataSet->zones();
    auto const& variables = frame->dataSet->variables();
    return std::any_of(zones.begin(), zones.end(), isEnabled) &&
           std::any_of(variables.begin(), variables.end(), isEnabled);
}
