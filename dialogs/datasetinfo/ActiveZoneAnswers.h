#pragma once

#include "platform/vdsdkuicommon/StateChangeActionPerformer.h"
#include "platform/vdtoolbox/Set.h"

#include <optional>

namespace veldraw::sdk::ui::propertymanager {

/// What the kernel says of all that the active frame shows. Each question goes through all zones of the frame, which can be 100,000,
/// so an answer is kept until a state change may alter it, for whoever else asks.
class ActiveZoneAnswers
{
public:
    ActiveZoneAnswers();
    ~ActiveZoneAnswers();
    ActiveZoneAnswers(ActiveZoneAnswers const&) = delete;
    ActiveZoneAnswers& operator=(ActiveZoneAnswers const&) = delete;

    /// Whether an answer is still the one that was given at this revision.
    long long revision() const { return m_revision; }

    /// Whether the active frame has line maps to show, if it is a line plot, or field maps otherwise.
    bool hasActiveMaps();
    /// The zones that a range of active zones is of: of the active line maps of a line plot, else those that are drawn.
    toolbox::Set const& zones();
    /// Whether the range of a variable is estimated in any active zone. Kept for one variable.
    bool isRangeEstimated(int var);

private:
    void forget();

    long long m_revision = 0;
    std::optional<bool> m_hasActiveMaps;
    std::optional<toolbox::Set> m_zones;
    std::optional<bool> m_isRangeEstimated;
    int m_estimatedVar = 0;
    common::StateChangeActionPerformer m_performer;
};

} // namespace veldraw::sdk::ui::propertymanager
