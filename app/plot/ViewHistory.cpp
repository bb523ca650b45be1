#include "app/plot/ViewHistory.h"

namespace veldraw::app {

void ViewHistory::keep(ViewPoint const& view)
{
    m_later.clear();
    if (!m_earlier.empty() && m_earlier.back() == view)
        return;
    m_earlier.push_back(view);
    if (m_earlier.size() > most)
        m_earlier.erase(m_earlier.begin());
}

std::optional<ViewPoint> ViewHistory::back(ViewPoint const& now)
{
    return step(m_earlier, m_later, now);
}

std::optional<ViewPoint> ViewHistory::on(ViewPoint const& now)
{
    return step(m_later, m_earlier, now);
}

// A view that is kept but was not changed after all leads nowhere.
std::optional<ViewPoint> ViewHistory::step(std::vector<ViewPoint>& from, std::vector<ViewPoint>& to,
                                           ViewPoint const& now)
{
    while (!from.empty() && from.back() == now)
        from.pop_back();
    if (from.empty())
        return std::nullopt;
    ViewPoint const view = from.back();
    from.pop_back();
    to.push_back(now);
    return view;
}

} // namespace veldraw::app
