#pragma once

#include "kernel/base/Identifier.h"
#include "kernel/storage/Buffer.h"
#include "kernel/storage/RangeOfParts.h"
#include "kernel/storage/ValueLoader.h"
#include "kernel/storage/ValueRange.h"

#include <cstdint>
#include <memory>

namespace veldraw::kernel {

/// The fields that share one storage. Two fields share data exactly when they point at the same group; the group points
/// at a buffer, or at a loader that can bring it. Undo history holds buffers, never groups, so a share count is the number
/// of live fields on the group.
class ShareGroup
{
public:
    explicit ShareGroup(std::shared_ptr<Buffer> buffer);

    /// A group whose values are not loaded yet.
    /// @param size number of values; -1 while the zone's dimensions are not known
    ShareGroup(FieldDataType_e type, std::int64_t size, std::shared_ptr<ValueLoader> loader);

    bool isLoaded() const { return m_buffer != nullptr; }

    /// Type and number of the values, loaded or not; the number is -1 while it is not known.
    FieldDataType_e type() const { return m_type; }
    std::int64_t size() const { return m_size; }

    /// Stands for the present values: a change gives another number, and no other values ever have this one. What was worked
    /// out from the values holds as long as the number is the same.
    UniqueId revision() const { return m_revision; }

    /// Null while the values are not loaded.
    std::shared_ptr<Buffer const> buffer() const { return m_buffer; }

    /// Null when the values cannot be loaded (again).
    std::shared_ptr<ValueLoader> const& loader() const { return m_loader; }

    /// Whether the values are mapped from a file, or will be, and so many that nobody should go through all of them unasked.
    bool isMapped() const { return m_loader && m_loader->isMapped(); }

    /// Memory of the values; 0 while they are not loaded, and where a file stands for them.
    std::int64_t bytesInMemory() const { return !m_buffer || (canUnload() && isMapped()) ? 0 : m_buffer->bytes(); }

    /// Notes that somebody uses the values now. Belongs to the user-interface thread.
    void noteUse() noexcept;

    /// The moment of the last use, counted up over all groups; to have been loaded is a use.
    std::int64_t lastUse() const { return m_lastUse; }

    /// Takes the values that the loader has brought, for all fields of the group.
    void setLoaded(std::shared_ptr<Buffer> buffer) noexcept;

    /// Whether the values can be let go of: a loader can bring the same again, since nobody has altered them.
    bool canUnload() const { return m_buffer && m_loader && !m_isAltered; }

    /// Lets go of the values when it can. What was found out about their range stays known.
    void unload() noexcept;

    /// Whether somebody else holds the buffer, so that a write has to go to a copy.
    bool isHeld() const { return m_buffer.use_count() > 1; }

    /// Puts a copy of the same values in the place of a buffer that is held, to be written: the values are in memory then
    /// and never loaded again. An exact range holds on.
    void replaceByCopy(std::shared_ptr<Buffer> copy) noexcept;

    /// Writes one value as it is stored, in place, also when the buffer is held, and keeps the range up to date.
    /// @param index zero-based, not checked; the values are loaded
    /// @param counted values that count in the zone that it is changed in
    void writeBits(std::int64_t index, std::uint64_t bits, CountedValues const& counted) noexcept;

    /// Range of those of the finite values that count, computed on the first call after a change and kept; what is known of it
    /// while the values are not loaded.
    ValueRange range(CountedValues const& counted = {}) const;

    /// What is known of the range, to be put back when a change of values is taken back.
    KnownRange const& knownRange() const { return m_range; }
    void restoreRange(KnownRange const& range) noexcept;

    /// A new group over @p copy, which has the same values in memory of its own. An exact range holds for it too.
    std::shared_ptr<ShareGroup> branch(std::shared_ptr<Buffer> copy) const;

    /// A group that can take this one's place, should it go. It has the same memory, but does not count as a holder of the
    /// buffer, and values that can be loaded again it does not hold at all.
    std::shared_ptr<ShareGroup> makeReserve() const;

    ShareGroup(ShareGroup const&) = delete;
    ShareGroup& operator=(ShareGroup const&) = delete;

private:
    FieldDataType_e m_type = FieldDataType_Float;
    std::int64_t m_size = 0;
    UniqueId m_revision = nextUniqueId();
    std::shared_ptr<Buffer> m_buffer;
    std::shared_ptr<ValueLoader> m_loader;
    bool m_isAltered = false; // for good: steps of the history may write here again
    std::int64_t m_lastUse = 0;
    mutable KnownRange m_range;
    mutable RangeOfParts m_parts;
};

} // namespace veldraw::kernel
