#pragma once

namespace veldraw {

// Listeners that only count as connected.
inline void ignoreSignal() {}
inline void ignoreValue(int) {}

} // namespace veldraw
