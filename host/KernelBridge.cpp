#include "host/KernelBridge.h"

#include "host/KernelStateChangeEvent.h"
#include "host/MessageLog.h"
#include "kernel/api/LoadFailure.h"
#include "kernel/session/Session.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/StateChangeEventObservable.h"

namespace veldraw::host {

namespace {

bool isForwarding = false;
kernel::EventHub::Subscription subscription{};

void noteLoadFailure(std::string const& reason)
{
    MessageLog::instance().addUnlessJustSaid(MessageBoxType_Error, reason);
}

void endForwarding()
{
    isForwarding = false;
    kernel::api::setLoadFailureListener({});
    kernel::Session::instance().setRemarkListener({});
    kernel::Session::instance().journal().setRule({});
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
    kernel::api::setLoadFailureListener(noteLoadFailure);
    kernel::Session::instance().setRemarkListener(
        [](std::string const& text) { MessageLog::instance().add(MessageBoxType_Information, text); });
    kernel::Session::instance().journal().setRule(&sdk::AppLock::isRecording);
    isForwarding = true;
}

void KernelBridge::shutDown()
{
    if (isForwarding)
        kernel::Session::instance().goDown();
}

} // namespace veldraw::host
