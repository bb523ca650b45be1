#include "app/import/raw/SharedArray.h"

namespace veldraw::app {

std::shared_ptr<kernel::Buffer> SharedArray::take(int component, std::function<Components()> const& load)
{
    std::lock_guard<std::mutex> const lock(m_mutex);
    auto const number = static_cast<std::size_t>(component);
    if (number < m_parts.size()) {
        Part& part = m_parts[number];
        if (auto const owner = part.owner.lock()) {
            part.owner.reset();
            return kernel::Buffer::adopt(part.type, part.size, part.data, part.stride, owner);
        }
    }
    Components const all = load();
    m_parts.clear();
    for (auto const& buffer : all)
        m_parts.push_back({buffer->owner(), buffer->type(), buffer->size(), buffer->stride(), buffer->mutableData()});
    m_parts.at(number).owner.reset();
    return all[number];
}

bool SharedArray::isAtHand(int component)
{
    std::lock_guard<std::mutex> const lock(m_mutex);
    auto const number = static_cast<std::size_t>(component);
    return number < m_parts.size() && !m_parts[number].owner.expired();
}

} // namespace veldraw::app
