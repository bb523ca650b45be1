#pragma once

namespace veldraw::kernel {

/// Process-unique number of a page, frame, data set, zone, variable or map. 0 stands for "none".
using UniqueId = long long;

/// A new identifier. No identifier is given out twice in a process.
UniqueId nextUniqueId();

} // namespace veldraw::kernel
