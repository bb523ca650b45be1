#include "platform/vdsdkuicommon/IdleDispatcher.h"

#include "host/IdleQueue.h"

namespace veldraw::sdk::ui::common {

namespace {

// Far above what settles by itself: actions that still follow one another by then never end.
constexpr int roundLimit = 100;

} // namespace

void IdleDispatcher::flush()
{
    for (int round = 0; round < roundLimit && runRound(); ++round) {
    }
}

bool IdleDispatcher::runRound()
{
    return IdleQueue::instance().runRound();
}

int IdleDispatcher::pendingCount()
{
    return IdleQueue::instance().pendingCount();
}

} // namespace veldraw::sdk::ui::common
