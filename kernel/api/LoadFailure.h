#pragma once

#include <functional>
#include <string>

namespace veldraw::kernel::api {

/// Function that is called with the reason when a C function could not load values or dimensions. The caller of the C function
/// only learns that they are not there.
using LoadFailureListener = std::function<void(std::string const& reason)>;

/// Sets the listener of the process, which is called on the user-interface thread. Empty for none, as at first.
void setLoadFailureListener(LoadFailureListener listener);

/// Calls the listener with the session's last error. Does not call it while another operation computes, when loading is
/// always refused. @return false
bool tellLoadFailure() noexcept;

} // namespace veldraw::kernel::api
