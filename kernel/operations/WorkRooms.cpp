#include "kernel/operations/WorkRooms.h"

namespace veldraw::kernel {

std::unique_ptr<WorkRoom> WorkRooms::take()
{
    {
        std::lock_guard<std::mutex> const lock(m_mutex);
        if (!m_free.empty()) {
            std::unique_ptr<WorkRoom> room = std::move(m_free.back());
            m_free.pop_back();
            return room;
        }
    }
    return std::make_unique<WorkRoom>(
        WorkRoom{ZeroedArray<double>(2 * (m_length / 2 + 1)), ZeroedArray<std::complex<double>>(m_others)});
}

void WorkRooms::giveBack(std::unique_ptr<WorkRoom> room)
{
    std::lock_guard<std::mutex> const lock(m_mutex);
    m_free.push_back(std::move(room));
}

} // namespace veldraw::kernel
