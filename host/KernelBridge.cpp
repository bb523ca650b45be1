#include "host/KernelBridge.h"

#include "host/KernelStateChangeEvent.h"
#include "kernel/frames/Session.h"
#include "platform/vdsdkcommon/StateChangeEventObservable.h"

namespace veldraw::host {

namespace {

bool isForwarding = false;
kernel::EventHub::Subscription subscription{};

void endForwarding()
{
    isForwarding = false;
    kernel::Session::instance().events().unsubscribe(subscription);
}

void forward(kernel::StateChangeEvent const& event)
{
    sdk::integration::StateChangeEventObservable::getInstance().notify(KernelStateChangeEvent(event));
    if (event.kind == StateChange_KernelGoesDown && isForwarding)
        endForwarding(); // nothing may follow it
}

} // namespace

void KernelBridge::install()
{
    if (isForwarding)
        return;
    subscription = kernel::Session::instance().events().subscribe(forward);
    isForwarding = true;
}

void KernelBridge::shutDown()
{
    if (isForwarding)
        kernel::Session::instance().goDown();
}

} // namespace veldraw::host
