#include "host/IdleHold.h"

#include "host/IdleQueue.h"

namespace veldraw::host {

using sdk::ui::common::IdleQueue;

IdleHold::IdleHold()
{
    IdleQueue::instance().hold();
}

IdleHold::~IdleHold()
{
    IdleQueue::instance().release();
}

} // namespace veldraw::host
