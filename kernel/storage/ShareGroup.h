#pragma once

#include "kernel/base/Identifier.h"
#include "kernel/storage/Buffer.h"
#include "kernel/storage/RangeOfParts.h"
#include "kernel/storage/ValueLoader.h"
#include "kernel/storage/ValueRange.h"

#include <cstdint>
#include <memory>
#include <string>

namespace veldraw::kernel {

/// The storage that one or more fields share: a buffer, or a loader that can bring it.
///
/// Two fields share their values exactly when they point at the same group, so the number of holders of a group is the
/// number of its fields. Whatever else needs the values (the undo history, a plot, a computation) holds the buffer and
/// never the group, since it would count as a field:
///
///     std::shared_ptr<Buffer const> const values = field.group()->buffer(); // null while nothing is loaded
///
/// Values are written through operations such as SetValue, which call writeBits() or replaceByCopy() in a step of the history.
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

    /// A number for the present values. It changes with every change of the values and is used for no other values, so a
    /// result that was computed from the values is valid as long as the revision is the same.
    UniqueId revision() const { return m_revision; }

    /// Null while the values are not loaded.
    std::shared_ptr<Buffer const> buffer() const { return m_buffer; }

    /// Null when the values cannot be loaded (again).
    std::shared_ptr<ValueLoader> const& loader() const { return m_loader; }

    /// Whether the values are mapped from a file, or will be. They are then so many that no code may read all of them
    /// unless the user has asked for it.
    bool isMapped() const { return m_loader && m_loader->isMapped(); }

    /// What has been lost of the values, which the loader knows (see ValueLoader::whatIsLost()). What is loaded again is whole.
    std::string whatIsLost() const { return m_buffer && m_loader ? m_loader->whatIsLost() : std::string(); }

    /// Bytes of memory that the values take; 0 while they are not loaded, and for mapped values that nobody has altered.
    std::int64_t bytesInMemory() const { return !m_buffer || (canUnload() && isMapped()) ? 0 : m_buffer->bytes(); }

    /// The same with the other components of the array that the memory is of: these go only when all of them do.
    std::int64_t bytesOfArrayInMemory() const { return bytesInMemory() == 0 ? 0 : m_buffer->bytesWithStride(); }

    /// Notes that the values are used now. To be called on the user-interface thread.
    void noteUse() noexcept;

    /// Place of the last use in the order of the uses of all groups; loading counts as a use.
    std::int64_t lastUse() const { return m_lastUse; }

    /// Takes the values that the loader has brought, for all fields of the group.
    void setLoaded(std::shared_ptr<Buffer> buffer) noexcept;

    /// Whether the values can be unloaded: nobody has altered them, and a loader can bring them again.
    bool canUnload() const { return m_buffer && m_loader && !m_isAltered; }

    /// Frees the values if canUnload(). What is known of their range stays known.
    void unload() noexcept;

    /// Whether somebody else holds the buffer, so that a write has to go to a copy.
    bool isHeld() const { return m_buffer.use_count() > 1; }

    /// Replaces a buffer that others hold by @p copy, which has the same values and can be written. From then on the values
    /// stay in memory and are never loaded again. An exact range stays known.
    void replaceByCopy(std::shared_ptr<Buffer> copy) noexcept;

    /// Writes the bits of one value in place and keeps the range up to date. Other holders of the buffer see the new value;
    /// where they must not, call replaceByCopy() first.
    /// @param index zero-based, not checked; the values are loaded
    /// @param counted values that count in the zone in which the value is changed
    void writeBits(std::int64_t index, std::uint64_t bits, CountedValues const& counted) noexcept;

    /// Range of the finite values that count. It is computed on the first call after a change and then kept. While the
    /// values are not loaded, nothing is computed: the result is what is known of the range.
    /// @param progress looked at for a cancel, unless null. @throws Interrupted, with the range not known
    ValueRange range(CountedValues const& counted = {}, Progress const* progress = nullptr) const;

    /// What is known of the range, to be put back when a change of values is taken back.
    KnownRange const& knownRange() const { return m_range; }
    void restoreRange(KnownRange const& range) noexcept;

    /// A new group over @p copy, which has the same values in memory of its own. An exact range is taken over.
    std::shared_ptr<ShareGroup> branch(std::shared_ptr<Buffer> copy) const;

    /// Another group with the same values, for a step of the history that may outlive this group (see RetiredStorage). It
    /// keeps the memory alive without being a holder of this group's buffer; values that can be loaded again are not kept
    /// at all.
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
