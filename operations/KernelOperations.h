#pragma once

#include "operations/Registry.h"

namespace veldraw::operations {

/// A registry with all operations on data sets and frames. They work on the active frame of the session behind the C functions, and on its
/// data set. Whoever has more, such as opening files, adds it.
Registry kernelOperations();

} // namespace veldraw::operations
