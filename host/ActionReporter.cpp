#include "platform/vdsdkcommon/ActionReporter.h"

#include "host/MessageLog.h"
#include "host/MessagePresenter.h"
#include "kernel/session/Session.h"
#include "platform/vdsdkbase/VelUtilDialog.h"

namespace veldraw::sdk {

namespace {

void tellFailure(std::string const& message, std::string const& reason)
{
    if (!reason.empty())
        host::MessageLog::instance().add(MessageBoxType_Error, reason);
    host::MessagePresenter::Details const details(reason);
    if (!message.empty())
        VelUtilDialogErrMsg(message.c_str());
}

} // namespace

char velUtilActionReporter(std::function<char()> const& action, std::string const& failureMessage,
                           std::string const& successMessage)
{
    kernel::Session& session = kernel::Session::instance();
    session.setLastError({}); // an earlier refusal is not this action's reason
    char const result = action();
    if (!result)
        tellFailure(failureMessage, session.lastError());
    if (result && !successMessage.empty())
        VelUtilDialogMessageBox(successMessage.c_str(), MessageBoxType_Information);
    return result;
}

} // namespace veldraw::sdk
