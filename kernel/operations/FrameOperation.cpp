#include "kernel/operations/FrameOperation.h"

#include "kernel/frames/Pages.h"

namespace veldraw::kernel {

std::string FrameOperation::find(Pages const& pages)
{
    m_frame = pages.frame(m_id);
    return m_frame ? "" : noFrame;
}

} // namespace veldraw::kernel
