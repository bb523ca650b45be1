#include "platform/vdsdkcommon/ActionReporter.h"

#include "host/KernelReason.h"
#include "platform/vdsdkbase/VelUtilDialog.h"

namespace veldraw::sdk {

char velUtilActionReporter(std::function<char()> const& action, std::string const& failureMessage,
                           std::string const& successMessage)
{
    host::KernelReason const reason;
    char const result = action();
    if (!result)
        reason.tellFailure(failureMessage.c_str());
    if (result && !successMessage.empty())
        VelUtilDialogMessageBox(successMessage.c_str(), MessageBoxType_Information);
    return result;
}

} // namespace veldraw::sdk
