#include "dialogs/widgets/StepSignals.h"

namespace veldraw::ui {

boost::signals2::connection StepSignals::connectIncrement(boost::function<void(int)> const& slot)
{
    return m_increment.connect(slot);
}

boost::signals2::connection StepSignals::connectDecrement(boost::function<void(int)> const& slot)
{
    return m_decrement.connect(slot);
}

void StepSignals::tell(int steps)
{
    if (steps > 0)
        m_increment(steps);
    else if (steps < 0)
        m_decrement(-steps);
}

} // namespace veldraw::ui
