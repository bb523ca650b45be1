#include "platform/exception/InvalidArgumentException.h"

namespace veldraw {

InvalidArgumentException::InvalidArgumentException(std::string const& message)
    : ExceptionBase(message)
{
}

InvalidArgumentException::~InvalidArgumentException() noexcept = default;

} // namespace veldraw
