#include "host/KernelReason.h"

#include "host/MessageLog.h"
#include "host/MessagePresenter.h"
#include "kernel/session/Session.h"
#include "platform/vdsdkbase/VelUtilDialog.h"

#include <new>
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

void KernelReason::tellFailure(std::string const& message) const
{
    std::string const reason = kernel::Session::instance().lastError();
    MessageLog::instance().addUnlessJustSaid(MessageBoxType_Error, reason);
    MessagePresenter::Details const details(reason);
    if (!message.empty())
        VelUtilDialogErrMsg(message.c_str());
}

} // namespace veldraw::host
