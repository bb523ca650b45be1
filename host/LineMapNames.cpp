#include "kernel/session/Session.h"
#include "platform/vdsdkcommon/Names.h"

#include <cstddef>

namespace veldraw::sdk {

std::string lineMapNameForFrame(long long frameID, int lineMap)
{
    auto const frame = kernel::Session::instance().frame(frameID);
    if (!frame || lineMap < 1 || static_cast<std::size_t>(lineMap) > frame->lineMaps.size())
        return std::string();
    return frame->lineMaps[static_cast<std::size_t>(lineMap) - 1].name;
}

} // namespace veldraw::sdk
