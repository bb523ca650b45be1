#include "app/plot/FrameMessage.h"

#include <new>

namespace veldraw::app {

FrameMessage FrameMessage::ofFailure(std::exception const& failure)
{
    bool const lacksMemory = dynamic_cast<std::bad_alloc const*>(&failure) != nullptr;
    QString const reason = lacksMemory ? tr("there is not enough memory for it.") : QString::fromUtf8(failure.what());
    return {tr("This frame cannot be drawn: %1").arg(reason), true};
}

} // namespace veldraw::app
