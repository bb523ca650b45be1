#pragma once

#include "platform/PlatformApi.h"
#include "platform/vdsdkcommon/AppLock.h"

namespace veldraw::sdk {

/// What an undo step is about; it names the step.
enum UndoStateCategory_e
{
    UndoStateCategory_FrameContents = 11
};

/// Makes the kernel calls of a scope one undo step. It nests: the outermost names the step. A scope without a change
/// leaves no step behind.
class VELDRAW_PLATFORM_API UndoState
{
public:
    /// @param category names the step
    /// @param ownStepWhenEmpty unused: a scope without a change never leaves a step
    /// @param includesData unused: the history covers frames, style and data alike
    /// @param recording whether a journal of the user's actions takes the scope down; an AppLock is held for the scope
    UndoState(UndoStateCategory_e category, bool ownStepWhenEmpty, bool includesData,
              AppLock::ImplicitMacroRecording recording);
    ~UndoState();

    UndoState(UndoState const&) = delete;
    UndoState& operator=(UndoState const&) = delete;

private:
    AppLock m_lock;
};

} // namespace veldraw::sdk
