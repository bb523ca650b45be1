#pragma once

#include <functional>
#include <string>

namespace veldraw::kernel::api {

/// Hears why values or dimensions could not be loaded that a C function was asked for. Its caller only learns that they are not
/// there, and often tells nobody.
using LoadFailureListener = std::function<void(std::string const& reason)>;

/// One listener for the process, called on the user-interface thread; empty (as at first) for none.
void setLoadFailureListener(LoadFailureListener listener);

/// Passes on why the session has just refused to load. Always false. Nothing is told while another operation computes: loading
/// is not tried then.
bool tellLoadFailure() noexcept;

} // namespace veldraw::kernel::api
