#include "platform/exception/InterruptedException.h"

namespace veldraw {

InterruptedException::InterruptedException() = default;

InterruptedException::~InterruptedException() noexcept = default;

} // namespace veldraw
