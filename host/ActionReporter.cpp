#include "platform/vdsdkcommon/ActionReporter.h"

#include "host/MessageLog.h"
#include "kernel/frames/Session.h"
#include "platform/vdsdkbase/VelUtilDialog.h"

namespace veldraw::sdk {

char velUtilActionReporter(std::function<char()> const& action, std::string const& failureMessage,
                           std::string const& successMessage)
{
    kernel::Session& session = kernel::Session::instance();
    session.setLastError({}); // an earlier refusal is not this action's reason
    char const result = action();
    if (!result && !session.lastError().empty())
        host::MessageLog::instance().add(MessageBoxType_Error, session.lastError());
    if (!result && !failureMessage.empty())
        VelUtilDialogErrMsg(failureMessage.c_str());
    if (result && !successMessage.empty())
        VelUtilDialogMessageBox(successMessage.c_str(), MessageBoxType_Information);
    return result;
}

} // namespace veldraw::sdk
