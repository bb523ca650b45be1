#include "kernel/compute/Progress.h"

#include "kernel/compute/Interrupted.h"

#include <algorithm>

namespace veldraw::kernel {

double Progress::fraction() const
{
    std::int64_t const total = m_total;
    return total > 0 ? std::min(1.0, static_cast<double>(m_done) / static_cast<double>(total)) : 0;
}

void Progress::check() const
{
    if (m_interrupted) {
        throw Interrupted();
    }
}

} // namespace veldraw::kernel
