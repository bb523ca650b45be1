#pragma once

#include "kernel/data/Buffer.h"
#include "kernel/data/ValueRange.h"

#include <array>
#include <cstdint>
#include <memory>

namespace veldraw::kernel {

/// The fields that share one storage. Two fields share data exactly when they point at the same group; the group points
/// at a buffer. Undo history holds buffers, never groups, so a share count is the number of live fields on the group.
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

    /// Range of the finite values at the cells of an ordered zone with these point dimensions: the slots that no cell
    /// has are left out. Kept as range() is.
    ValueRange const& cellRange(std::int64_t i, std::int64_t j, std::int64_t k) const;

    /// A range known without looking at the values, for instance from a file's header.
    void setKnownRange(ValueRange const& range);

    /// A new group over the same buffer, with what is known of its range: no value is copied until one of the two is
    /// written.
    std::shared_ptr<ShareGroup> branch() const;

    ShareGroup(ShareGroup const&) = delete;
    ShareGroup& operator=(ShareGroup const&) = delete;

private:
    using Dimensions = std::array<std::int64_t, 3>;

    void forgetRange();

    std::shared_ptr<Buffer> m_buffer;
    mutable ValueRange m_range;
    mutable bool m_rangeIsKnown = false;
    bool m_rangeIsGiven = false;      // told by setKnownRange(), so it holds for cells as well
    mutable Dimensions m_rangeDims{}; // what the computed range is of; zeros: of all values
};

} // namespace veldraw::kernel
