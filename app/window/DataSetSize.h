#pragma once

#include "kernel/data/DataSet.h"

#include <cstdint>

namespace veldraw::app {

/// Points of all zones that know how many they have.
std::int64_t pointCount(kernel::DataSet const& dataSet);

/// Cells of all zones that know how many they have.
std::int64_t cellCount(kernel::DataSet const& dataSet);

/// Bytes of the loaded values of a data set, by where they are.
struct ValueBytes
{
    std::int64_t inMemory = 0;
    std::int64_t mapped = 0; ///< of files; the system brings the pages that are read into memory
};

/// Storage that fields share counts once.
ValueBytes valueBytes(kernel::DataSet const& dataSet);

} // namespace veldraw::app
