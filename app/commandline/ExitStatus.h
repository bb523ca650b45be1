#pragma once

namespace veldraw::app {

// What the program ends with.
constexpr int fine = 0;
constexpr int failed = 1;     ///< told on standard error
constexpr int wrongUsage = 2; ///< the command line is wrong, and nothing was done

} // namespace veldraw::app
