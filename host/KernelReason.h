#pragma once

#include "platform/PlatformApi.h"

#include <string>

namespace veldraw::host {

/// Why the kernel refuses something in this scope, for the message about what fails by it.
///
/// A refusal from before the scope is never its reason, so that none is given for what failed by something else. Scopes
/// nest: whoever opened the outer one still finds its reason when nothing was refused in the inner one.
class VELDRAW_PLATFORM_API KernelReason
{
public:
    KernelReason() noexcept;
    ~KernelReason();
    KernelReason(KernelReason const&) = delete;
    KernelReason& operator=(KernelReason const&) = delete;

    /// Tells a failure as an error; the reason, if there is one, goes to the message log and under "Show Details".
    /// @param message UTF-8; an empty one shows nothing
    void tellFailure(char const* message) const noexcept;

private:
    std::string m_outer;
};

} // namespace veldraw::host
