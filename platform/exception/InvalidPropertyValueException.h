#pragma once

#include "platform/PlatformApi.h"
#include "platform/exception/ExceptionBase.h"

#include <string>

namespace veldraw {

/// A property refused a value. The text says why; with an empty one the refusal is silent.
class VELDRAW_PLATFORM_API InvalidPropertyValueException : public virtual ExceptionBase
{
public:
    /// @param message UTF-8, may be empty
    explicit InvalidPropertyValueException(std::string const& message);
    ~InvalidPropertyValueException() noexcept override;
};

} // namespace veldraw
