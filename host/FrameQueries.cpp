#include "platform/vdsdkcommon/FrameQueries.h"

#include "kernel/session/Session.h"

namespace veldraw::sdk {

using kernel::Session;

int plotTypeOfActiveFrame()
{
    auto const frame = Session::instance().activeFrame();
    return frame ? static_cast<int>(frame->plotType) : 0;
}

int variableAssignedInActiveFrame(char assignment)
{
    auto const frame = Session::instance().activeFrame();
    return frame ? frame->variableNumber(assignment) : 0;
}

int lineMapCountOfActiveFrame()
{
    auto const frame = Session::instance().activeFrame();
    return frame ? static_cast<int>(frame->lineMaps.size()) : 0;
}

} // namespace veldraw::sdk
