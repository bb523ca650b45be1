#include "platform/vdsdkcommon/AppLock.h"

#include "host/IdleQueue.h"

namespace veldraw::sdk {

namespace {

int openLocks = 0;
int openLocksThatForbidRecording = 0;

} // namespace

AppLock::AppLock(ImplicitMacroRecording recording)
    : m_recording(recording)
{
    ++openLocks;
    if (m_recording == DoNotRecord)
        ++openLocksThatForbidRecording;
}

AppLock::~AppLock()
{
    --openLocks;
    if (m_recording == DoNotRecord)
        --openLocksThatForbidRecording;
    // What wanted to run at idle meanwhile has been waiting for this.
    if (openLocks == 0)
        ui::common::IdleQueue::instance().arm();
}

int AppLock::depth()
{
    return openLocks;
}

bool AppLock::isRecording()
{
    return openLocksThatForbidRecording == 0;
}

} // namespace veldraw::sdk
