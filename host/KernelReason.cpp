#include "host/KernelReason.h"

#include "host/MessageLog.h"
#include "host/MessagePresenter.h"
#include "kernel/session/Session.h"
#include "platform/vdsdkbase/VelUtilDialog.h"

#include <new>
#include <optional>
#include <utility>

namespace veldraw::host {

KernelReason::KernelReason() noexcept
{
    kernel::Session& session = kernel::Session::instance();
    try {
        m_outer = session.lastError();
    } catch (std::bad_alloc const&) {
        m_outer.clear(); // no reason is better than the end of the program
    }
    session.setLastError({});
}

KernelReason::~KernelReason()
{
    kernel::Session& session = kernel::Session::instance();
    if (session.lastError().empty())
        session.setLastError(std::move(m_outer));
}

void KernelReason::tellFailure(char const* message) const noexcept
{
    std::optional<MessagePresenter::Details> details;
    try {
        std::string const reason = kernel::Session::instance().lastError();
        if (!MessagePresenter::isCapturing())
            MessageLog::instance().addUnlessJustSaid(MessageBoxType_Error, reason);
        details.emplace(reason);
    } catch (std::bad_alloc const&) {
        // The message is told without a reason; what failed is most likely told for lack of memory.
    }
    if (*message != '\0')
        VelUtilDialogErrMsg(message);
}

} // namespace veldraw::host
