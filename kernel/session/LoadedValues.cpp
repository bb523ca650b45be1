#include "kernel/session/LoadedValues.h"

#include "kernel/session/RoomForValues.h"

#include <algorithm>
#include <new>

namespace veldraw::kernel {

LoadedValues::LoadedValues(Session& session, std::int64_t limit)
    : m_session(session)
    , m_limit(limit)
{
}

void LoadedValues::setLimit(std::int64_t bytes) noexcept
{
    m_limit = bytes;
    if (m_session.isBusy()) {
        return;
    }
    try {
        auto const dataSets = m_session.pages().dataSets();
        if (!dataSets.empty()) {
            DeferredLoad const nothing(*dataSets.front());
            RoomForValues(m_session, nothing).keepWithinLimit();
        }
    } catch (std::bad_alloc const&) {
        return; // the next load tries again
    }
}

std::shared_ptr<ShownValues const> LoadedValues::declareShown(ShownValues values)
{
    m_shown.erase(
        std::remove_if(m_shown.begin(), m_shown.end(), [](auto const& declared) { return declared.expired(); }),
        m_shown.end());
    auto declared = std::make_shared<ShownValues const>(std::move(values));
    m_shown.push_back(declared);
    return declared;
}

std::vector<std::shared_ptr<ShownValues const>> LoadedValues::shown() const
{
    std::vector<std::shared_ptr<ShownValues const>> result;
    for (std::weak_ptr<ShownValues const> const& declared : m_shown) {
        if (auto values = declared.lock()) {
            result.push_back(std::move(values));
        }
    }
    return result;
}

} // namespace veldraw::kernel
