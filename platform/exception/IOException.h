#pragma once

#include "platform/PlatformApi.h"
#include "platform/exception/ExceptionBase.h"

#include <string>

namespace veldraw {

/// Something could not be read or written.
class VELDRAW_PLATFORM_API IOException : public virtual ExceptionBase
{
public:
    /// @param message UTF-8, may be empty
    explicit IOException(std::string const& message);
    ~IOException() noexcept override;
};

} // namespace veldraw
