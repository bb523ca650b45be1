#include "platform/vdsdkcommon/UndoState.h"

#include "kernel/session/Session.h"

namespace veldraw::sdk {

namespace {

char const* stepName(UndoStateCategory_e category)
{
    switch (category) {
    case UndoStateCategory_FrameContents:
        return "Frame Contents";
    }
    return "Changes";
}

} // namespace

UndoState::UndoState(UndoStateCategory_e category, bool /*ownStepWhenEmpty*/, bool /*includesData*/,
                     AppLock::ImplicitMacroRecording recording)
    : m_lock(recording)
{
    kernel::Session::instance().history().beginGroup(stepName(category));
}

UndoState::~UndoState()
{
    kernel::Session::instance().history().endGroup();
}

} // namespace veldraw::sdk
