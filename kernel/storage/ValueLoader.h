#pragma once

#include "kernel/base/Progress.h"
#include "kernel/storage/Buffer.h"
#include "kernel/storage/ValueRange.h"

#include <memory>

namespace veldraw::kernel {

/// Brings the values of a share group when they are wanted, for instance from a file; made by whoever registers the group.
class ValueLoader
{
public:
    ValueLoader() = default;
    virtual ~ValueLoader() = default;

    /// The values, of the type and number that the group was made with. Called as often as they are wanted again after
    /// an unload; may run on a worker thread, never twice at a time. It looks at the cancel often (Progress::check()), and
    /// may count values as done, at most as many as there are.
    /// @throws std::runtime_error with a reason for the user, std::bad_alloc, Interrupted
    virtual std::shared_ptr<Buffer> load(Progress& progress) = 0;

    /// What is known of the range without reading the values: nothing, an estimate, or the exact limits. Once the values
    /// are loaded, exact limits are kept, and others computed when they are asked for; not so while they are mapped.
    virtual ValueRange range() const { return {}; }

    /// Whether load() maps the values, so that they come from the file piece by piece as they are looked at. Nothing of
    /// the kernel goes through all of them unasked then: an estimated range is kept, an unknown one stays unknown. No
    /// memory is asked for beforehand either.
    virtual bool isMapped() const { return false; }

    ValueLoader(ValueLoader const&) = delete;
    ValueLoader& operator=(ValueLoader const&) = delete;
};

} // namespace veldraw::kernel
