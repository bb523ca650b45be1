#include "host/KernelBridge.h"

#include "host/KernelStateChangeEvent.h"
#include "kernel/frames/Session.h"
#include "platform/vdsdkcommon/StateChangeEventObservable.h"

namespace veldraw::host {

namespace {

bool isForwarding = false;
kernel::EventHub::Subscription subscription{};

void forward(kernel::StateChangeEvent const& event)
{
    sdk::integration::StateChangeEventObservable::getInstance().notify(KernelStateChangeEvent(event));
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
    if (!isForwarding)
        return;
    isForwarding = false;
    kernel::Session::instance().events().unsubscribe(subscription);
    kernel::StateChangeEvent last;
    last.kind = StateChange_KernelGoesDown;
    forward(last);
}

} // namespace veldraw::host
