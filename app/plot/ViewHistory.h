#pragma once

#include "app/plot/ViewPoint.h"

#include <optional>
#include <vector>

namespace veldraw::app {

/// The views that a plot had, to go back to and on again. It has nothing to do with the history of the data.
class ViewHistory
{
public:
    /// Keeps a view that is about to change. What could be gone on to is forgotten.
    void keep(ViewPoint const& view);

    /// Goes one view back, or on. @param now the present view, to which the other direction leads @return none where there is no other
    std::optional<ViewPoint> back(ViewPoint const& now);
    std::optional<ViewPoint> on(ViewPoint const& now);

    static constexpr std::size_t most = 200; ///< views; older ones are forgotten

private:
    static std::optional<ViewPoint> step(std::vector<ViewPoint>& from, std::vector<ViewPoint>& to,
                                         ViewPoint const& now);

    std::vector<ViewPoint> m_earlier;
    std::vector<ViewPoint> m_later;
};

} // namespace veldraw::app
