#include "kernel/operations/FrameOperation.h"

#include "kernel/frames/Pages.h"

namespace veldraw::kernel {

std::string FrameOperation::find(Pages const& pages)
{
    m_frame = pages.frame(m_id);
    return m_frame ? "" : noFrame;
}

std::string FrameDataOperation::find(Pages const& pages)
{
    bool const hasData = FrameOperation::find(pages).empty() && frame()->dataSet;
    return hasData ? "" : "There is no data set.";
}

} // namespace veldraw::kernel
