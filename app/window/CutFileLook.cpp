#include "app/window/CutFileLook.h"

#include "app/files/MappedMemory.h"
#include "host/MessagePresenter.h"
#include "platform/vdsdkcommon/AppLock.h"

namespace veldraw::app {

CutFileLook::CutFileLook(int pause, QObject* parent)
    : QObject(parent)
{
    connect(&m_timer, &QTimer::timeout, this, &CutFileLook::look);
    m_timer.start(pause);
}

// Not while an operation runs, which asks by itself.
void CutFileLook::look()
{
    if (sdk::AppLock::depth() > 0)
        return;
    std::vector<std::string> const files = takeCutFiles();
    if (!files.empty())
        host::MessagePresenter::present(cutFileWarning(files), MessageBoxType_Warning);
}

} // namespace veldraw::app
