#pragma once

#include "kernel/data/DimensionsLoader.h"
#include "kernel/storage/Buffer.h"
#include "kernel/storage/ValueLoader.h"

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

namespace veldraw::kernel {

/// What loaders have brought before somebody wanted it, by the loaders.
struct FetchedValues
{
    std::map<std::shared_ptr<ValueLoader>, std::shared_ptr<Buffer>> values;
    std::map<std::shared_ptr<DimensionsLoader>, ZoneDimensions> dimensions;
};

/// Loaders whose values are not loaded.
struct MissingValues
{
    struct Values
    {
        std::shared_ptr<ValueLoader> loader;
        std::int64_t bytes; ///< that they take; 0 where nobody knows yet
    };

    std::vector<Values> values;
    std::vector<std::shared_ptr<DimensionsLoader>> dimensions;
};

} // namespace veldraw::kernel
