#include "kernel/frames/Page.h"

namespace veldraw::kernel {

Page::Page()
    : id(nextUniqueId())
{
}

} // namespace veldraw::kernel
