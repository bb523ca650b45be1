#include "kernel/base/Identifier.h"

#include <atomic>

namespace veldraw::kernel {

UniqueId nextUniqueId()
{
    static std::atomic<UniqueId> last{0};
    return ++last;
}

} // namespace veldraw::kernel
