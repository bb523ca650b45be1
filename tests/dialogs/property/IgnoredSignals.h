#pragma once

namespace veldraw::tests {

// Listeners that only count as connected.
inline void ignoreSignal() {}
inline void ignoreValue(int) {}

} // namespace veldraw::tests
