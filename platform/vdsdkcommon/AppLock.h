#pragma once

#include "platform/PlatformApi.h"

namespace veldraw::sdk {

/// Holds the application's lock for a scope. Whatever reads the kernel from a widget's event, or changes it, takes it
/// first. It nests and belongs to the user-interface thread. While it is held nothing runs at idle.
class VELDRAW_PLATFORM_API AppLock
{
public:
    /// Whether a journal of the user's actions takes down what happens under the lock.
    enum ImplicitMacroRecording
    {
        RecordAsUsual = 0,
        DoNotRecord = 1
    };

    explicit AppLock(ImplicitMacroRecording recording);
    ~AppLock();

    /// Number of locks that are held.
    static int depth();

    /// False while any lock is held that forbids recording.
    static bool isRecording();

    AppLock(AppLock const&) = delete;
    AppLock& operator=(AppLock const&) = delete;

private:
    ImplicitMacroRecording m_recording;
};

} // namespace veldraw::sdk
