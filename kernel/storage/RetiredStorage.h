#pragma once

#include "kernel/storage/ShareGroup.h"

#include <memory>

namespace veldraw::kernel {

/// The storage of fields that a step of the history takes out of a data set and puts back, all on one group.
///
/// A group that other fields still use is remembered without being held, so that share counts stay true; should it have
/// gone by the time the fields come back, they get a group of their own over the same memory, and still share it among
/// themselves. Nothing here stands in the way of a write in place or of an unload. A group that nobody else uses is held.
class RetiredStorage
{
public:
    /// The number of no storage, where steps number theirs.
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

    /// Counts one more field that will be taken out; to be called for each before prepare().
    void addField() { ++m_fields; }

    /// Allocates what taking the fields out and putting them back needs, while they still stand in the data set.
    /// @throws std::bad_alloc
    void prepare()
    {
        std::shared_ptr<ShareGroup> const group = m_group.lock();
        if (group.use_count() - 1 > m_fields) {
            m_reserve = group->makeReserve();
        }
    }

    /// Bytes of values that are kept in memory for these fields alone, as far as this can tell: not while the fields stand in
    /// the data set, not while others use the same memory, not where a file stands for it.
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

    /// Takes over the group of a field that goes out.
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

    /// Lets go of a group that fields are on again; to be called when all of them are back.
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
