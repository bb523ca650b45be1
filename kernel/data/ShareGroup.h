#pragma once

#include "kernel/data/Buffer.h"
#include "kernel/data/ValueRange.h"

#include <memory>

namespace veldraw::kernel {

/// The fields that share one storage. Two fields share data exactly when they point at the same group; the group points at
/// a buffer. Undo history holds buffers, never groups, so a share count is the number of live fields on the group.
class ShareGroup
{
public:
    explicit ShareGroup(std::shared_ptr<Buffer> buffer);

    std::shared_ptr<Buffer const> buffer() const { return m_buffer; }

    /// Puts another buffer in place, for all fields of the group; the range is forgotten.
    void replaceBuffer(std::shared_ptr<Buffer> buffer);

    /// The buffer for writing: the group's own if nobody else holds it, else a private copy put in its place.
    /// The range is forgotten. @throws std::bad_alloc
    Buffer& writableBuffer();

    /// Range of the finite values, computed on the first call after a change and kept.
    ValueRange const& range() const;

    /// A range known without looking at the values, for instance from a file's header.
    void setKnownRange(ValueRange const& range);

    ShareGroup(ShareGroup const&) = delete;
    ShareGroup& operator=(ShareGroup const&) = delete;

private:
    std::shared_ptr<Buffer> m_buffer;
    mutable ValueRange m_range;
    mutable bool m_rangeIsKnown = false;
};

} // namespace veldraw::kernel
