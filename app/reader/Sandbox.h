#pragma once

namespace veldraw::app {

/// Takes from this process what reading files does not need: it ends with its parent, leaves no core file, and can afterwards neither write nor
/// remove files, nor use the network, nor start programs, nor end others. What a system does not know is left as it is. Files can still be
/// opened for reading.
/// @return whether the system filters calls, without which files could still be written and others ended
bool enterSandbox();

} // namespace veldraw::app
