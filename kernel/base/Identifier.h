#pragma once

namespace veldraw::kernel {

/// Process-unique number of a page, frame, data set, zone, variable or map. 0 stands for "none".
using UniqueId = long long;

/// A fresh identifier; none is ever handed out twice in a process, not even after its owner has gone.
UniqueId nextUniqueId();

} // namespace veldraw::kernel
