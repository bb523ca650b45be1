#pragma once

namespace veldraw::kernel {

/// Something noted with a step of the history, by whoever wants to know what has become of it.
struct StepNote
{
    bool isUndone = false; ///< the step has been taken back, and not been done again
};

} // namespace veldraw::kernel
