#pragma once

namespace veldraw::app {

/// Takes from this process what reading files does not need: it ends with its parent, leaves no core file, and can afterwards neither write nor
/// remove files, nor use the network, nor start programs, nor end others. What a system does not know is left as it is. Files can still be
/// opened for reading.
void enterSandbox();

} // namespace veldraw::app
