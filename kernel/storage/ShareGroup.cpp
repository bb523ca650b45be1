#include "kernel/storage/ShareGroup.h"

namespace veldraw::kernel {

ShareGroup::ShareGroup(std::shared_ptr<Buffer> buffer)
    : m_buffer(std::move(buffer))
{
    if (m_buffer) {
        m_type = m_buffer->type();
        m_size = m_buffer->size();
    }
}

ShareGroup::ShareGroup(FieldDataType_e type, std::int64_t size, std::shared_ptr<ValueLoader> loader)
    : m_type(type)
    , m_size(size)
    , m_loader(std::move(loader))
{
    if (m_loader) {
        m_range.give(m_loader->range());
    }
}

void ShareGroup::noteUse() noexcept
{
    static std::int64_t moment = 0;
    m_lastUse = ++moment;
}

void ShareGroup::setLoaded(std::shared_ptr<Buffer> buffer) noexcept
{
    noteUse();
    m_buffer.swap(buffer);
    m_revision = nextUniqueId();
    m_type = m_buffer->type();
    m_size = m_buffer->size();
    if (!isMapped()) {
        m_range.forgetUnlessExact();
    } else if (!m_range.range().isValid()) {
        m_range.leaveUnknown();
    }
}

void ShareGroup::unload() noexcept
{
    if (canUnload()) {
        m_buffer.reset();
        m_parts.forget();
    }
}

void ShareGroup::replaceByCopy(std::shared_ptr<Buffer> copy) noexcept
{
    m_buffer.swap(copy);
    m_loader.reset();
    m_range.forgetUnlessExact();
}

void ShareGroup::restoreRange(KnownRange const& range) noexcept
{
    m_range = range;
    if (!isMapped()) {
        m_range.forgetUnlessExact(); // an estimate from when the values were mapped
    }
}

void ShareGroup::writeBits(std::int64_t index, std::uint64_t bits, CountedValues const& counted) noexcept
{
    double const before = m_buffer->value(index);
    m_buffer->setBits(index, bits);
    double const after = m_buffer->value(index);
    m_isAltered = true;
    m_revision = nextUniqueId();
    m_parts.follow(index, before, after, counted);
    KnownRange known = m_range;
    m_range.follow(index, before, after, counted);
    if (isMapped() && !m_range.isKnownFor(counted)) { // mapped values are not read for a range
        known.makeEstimate(counted);
        m_range = known;
        m_range.follow(index, before, after, counted);
    }
}

ValueRange ShareGroup::range(CountedValues const& counted, Progress const* progress) const
{
    if (m_range.isKnownFor(counted)) {
        return m_range.range();
    }
    if (!m_buffer) {
        return m_range.estimate();
    }
    m_range.setComputed(m_parts.range(*m_buffer, counted, progress), counted);
    return m_range.range();
}

std::shared_ptr<ShareGroup> ShareGroup::branch(std::shared_ptr<Buffer> copy) const
{
    auto group = std::make_shared<ShareGroup>(std::move(copy));
    group->m_range = m_range;
    group->m_range.forgetUnlessExact();
    return group;
}

std::shared_ptr<ShareGroup> ShareGroup::makeReserve() const
{
    auto group = std::make_shared<ShareGroup>(m_type, m_size, m_loader);
    group->m_range = m_range;
    if (m_buffer && !canUnload()) {
        group->m_buffer = Buffer::adopt(m_type, m_size, m_buffer->mutableData(), m_buffer->stride(), m_buffer->owner());
        group->m_isAltered = m_isAltered;
    }
    return group;
}

} // namespace veldraw::kernel
