#pragma once

#include <functional>
#include <string>

namespace veldraw::kernel::api {

/// Called with the reason when a C function could not load the values or dimensions that it was asked for. The caller of the C
/// function does not get the reason.
using LoadFailureListener = std::function<void(std::string const& reason)>;

/// One listener for the process, called on the user-interface thread; empty (as at first) for none.
void setLoadFailureListener(LoadFailureListener listener);

/// Calls the listener with the reason for which the session has just refused to load, except while another operation
/// computes, when loading is not tried. @return false
bool tellLoadFailure() noexcept;

} // namespace veldraw::kernel::api
