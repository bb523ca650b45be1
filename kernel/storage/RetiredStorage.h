#pragma once

#include "kernel/storage/ShareGroup.h"

#include <memory>

namespace veldraw::kernel {

/// The storage of fields that a step of the history takes out of a data set and puts back, all on one group.
///
/// A group that other fields still use is not held, so that share counts stay true. If that group no longer exists when the
/// fields come back, they get a reserve group over the same memory, which they still share among themselves. The reserve
/// prevents neither a write in place nor an unload. A group that no other field uses is held.
class RetiredStorage
{
public:
    /// In lists of storage numbers: no storage.
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    explicit RetiredStorage(std::shared_ptr<ShareGroup> const& group)
        : m_group(group)
    {
    }

    /// A group that no field is on yet.
    static RetiredStorage ofNewGroup(std::shared_ptr<ShareGroup> group)
    {
        RetiredStorage storage(group);
        storage.m_reserve = std::move(group);
        return storage;
    }

    /// Counts a field that will be taken out. To be called for each of them before prepare().
    void addField() { ++m_fields; }

    /// Allocates what is needed to take the fields out and put them back. To be called while they are in the data set.
    /// @throws std::bad_alloc
    void prepare()
    {
        std::shared_ptr<ShareGroup> const group = m_group.lock();
        if (group.use_count() - 1 > m_fields) {
            m_reserve = group->makeReserve();
        }
    }

    /// Bytes of values that are kept in memory only for these fields: 0 while the fields are in the data set, while other
    /// fields use the same memory, and for mapped values.
    std::int64_t heldBytes() const noexcept
    {
        if (!m_reserve || !m_reserve->isLoaded()) {
            return 0;
        }
        std::shared_ptr<ShareGroup> const group = m_group.lock();
        bool const isOfOthers = group && group != m_reserve && group->isLoaded() &&
                                group->buffer()->owner() == m_reserve->buffer()->owner();
        return isOfOthers ? 0 : m_reserve->bytesInMemory();
    }

    /// Takes the group of a field that is taken out.
    void retire(std::shared_ptr<ShareGroup> const& group) noexcept
    {
        m_group = group;
        if (!m_reserve) {
            m_reserve = group; // only fields that go out are on it
        }
    }

    /// The group for a field that comes back.
    std::shared_ptr<ShareGroup> revive() noexcept
    {
        std::shared_ptr<ShareGroup> group = m_group.lock();
        if (!group) {
            group = m_reserve;
        }
        m_group = group;
        return group;
    }

    /// Drops the reserve. To be called when all fields are back on the group.
    void release() noexcept
    {
        if (m_group.lock() == m_reserve) {
            m_reserve.reset();
        }
    }

private:
    std::weak_ptr<ShareGroup> m_group;
    std::shared_ptr<ShareGroup> m_reserve; // for when the group has gone; no field is on it while the fields are out
    long m_fields = 0;
};

} // namespace veldraw::kernel
