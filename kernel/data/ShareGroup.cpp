#include "kernel/data/ShareGroup.h"

#include "kernel/data/RangeOfBuffer.h"

namespace veldraw::kernel {

ShareGroup::ShareGroup(std::shared_ptr<Buffer> buffer)
    : m_buffer(std::move(buffer))
{
}

void ShareGroup::replaceBuffer(std::shared_ptr<Buffer> buffer)
{
    m_buffer = std::move(buffer);
    forgetRange();
}

Buffer& ShareGroup::writableBuffer()
{
    if (m_buffer.use_count() > 1) {
        m_buffer = m_buffer->clone();
    }
    forgetRange();
    return *m_buffer;
}

ValueRange const& ShareGroup::range() const
{
    if (!m_rangeIsKnown || (!m_rangeIsGiven && m_rangeDims != Dimensions{})) {
        m_range = rangeOfBuffer(*m_buffer);
        m_rangeDims = {};
        m_rangeIsKnown = true;
    }
    return m_range;
}

ValueRange const& ShareGroup::cellRange(std::int64_t i, std::int64_t j, std::int64_t k) const
{
    Dimensions const dims{i, j, k};
    if (!m_rangeIsKnown || (!m_rangeIsGiven && m_rangeDims != dims)) {
        m_range = rangeOfCells(*m_buffer, dims);
        m_rangeDims = dims;
        m_rangeIsKnown = true;
    }
    return m_range;
}

void ShareGroup::setKnownRange(ValueRange const& range)
{
    m_range = range;
    m_rangeIsKnown = range.isValid();
    m_rangeIsGiven = m_rangeIsKnown;
}

std::shared_ptr<ShareGroup> ShareGroup::branch() const
{
    auto group = std::make_shared<ShareGroup>(m_buffer);
    group->m_range = m_range;
    group->m_rangeIsKnown = m_rangeIsKnown;
    group->m_rangeIsGiven = m_rangeIsGiven;
    group->m_rangeDims = m_rangeDims;
    return group;
}

void ShareGroup::forgetRange()
{
    m_range = {};
    m_rangeIsKnown = false;
    m_rangeIsGiven = false;
}

} // namespace veldraw::kernel
