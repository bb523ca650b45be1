#include "platform/exception/InvalidPropertyValueException.h"

namespace veldraw {

InvalidPropertyValueException::InvalidPropertyValueException(std::string const& message)
    : ExceptionBase(message)
{
}

InvalidPropertyValueException::~InvalidPropertyValueException() noexcept = default;

} // namespace veldraw
