#pragma once

#include "kernel/base/Progress.h"
#include "kernel/storage/Buffer.h"
#include "kernel/storage/ValueRange.h"

#include <cstdint>
#include <memory>
#include <string>

namespace veldraw::kernel {

/// Brings the values of a share group when they are needed, for instance from a file. A file reader derives from it and
/// gives an object of it to the group that it makes.
class ValueLoader
{
public:
    ValueLoader() = default;
    virtual ~ValueLoader() = default;

    /// The values, with the type and number that the group was made with. Called again when the values are needed after an
    /// unload. It may run on a worker thread, but never twice at a time. An implementation calls Progress::check() often, so
    /// that the user can cancel, and may count values as done, at most as many as there are.
    /// @throws std::runtime_error with a reason for the user, std::bad_alloc, Interrupted
    virtual std::shared_ptr<Buffer> load(Progress& progress) = 0;

    /// What is known of the range without reading the values: nothing, an estimate, or the exact limits. Exact limits are kept
    /// when the values have been loaded. Others are then computed on demand, except for mapped values.
    virtual ValueRange range() const { return {}; }

    /// Whether load() maps the values, so that the system reads a piece of the file when it is accessed. The kernel then never
    /// reads all values on its own account: an estimated range is kept, an unknown one stays unknown. Nor does it require
    /// memory for the values before it loads them.
    virtual bool isMapped() const { return false; }

    /// Whether load() would still bring the values: not when the file that has them has been changed or removed. Quick.
    virtual bool canLoad() const { return true; }

    /// What has been lost of the values that load() has brought last, in words for the user, such as that their file has been cut short
    /// while it was mapped; empty as long as nothing has. Whoever has made something of the values asks afterwards, and drops it then.
    /// On any thread.
    virtual std::string whatIsLost() const { return {}; }

    /// Memory for an array whose values come together.
    struct Array
    {
        void const* identity = nullptr; ///< the same for all loaders of the array; null: the values come alone
        std::int64_t bytes = 0;         ///< that load() would take; 0 while the array is in memory
    };

    /// The array that load() brings, where the values are a part of one.
    virtual Array array() const { return {}; }

    ValueLoader(ValueLoader const&) = delete;
    ValueLoader& operator=(ValueLoader const&) = delete;
};

} // namespace veldraw::kernel
