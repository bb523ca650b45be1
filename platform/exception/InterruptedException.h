#pragma once

#include "platform/PlatformApi.h"
#include "platform/exception/ExceptionBase.h"

namespace veldraw {

/// The user stopped what was running. It has no text: who stopped it needs not be told.
class VELDRAW_PLATFORM_API InterruptedException : public virtual ExceptionBase
{
public:
    InterruptedException();
    ~InterruptedException() noexcept override;
};

} // namespace veldraw
