#pragma once

#include "platform/PlatformApi.h"
#include "platform/exception/ExceptionBase.h"

#include <string>

namespace veldraw {

/// An argument cannot be used. Bindings swallow it without a message.
class VELDRAW_PLATFORM_API InvalidArgumentException : public virtual ExceptionBase
{
public:
    /// @param message UTF-8, may be empty
    explicit InvalidArgumentException(std::string const& message);
    ~InvalidArgumentException() noexcept override;
};

} // namespace veldraw
