#pragma once

#include "platform/vdsdkbase/VelUtilFrame.h"

namespace veldraw::dialogs::common {

/// A walk over all plot frames of the page, each of which counts as the active one in its turn. The walk is ended in every case, also
/// where there was no frame to begin with:
///
///     for (FrameWalk walk; walk.hasFrame(); walk.next())
///         look();
class FrameWalk
{
public:
    FrameWalk()
        : m_hasFrame(VelUtilFrameLightweightLoopStart())
    {
    }
    ~FrameWalk() { VelUtilFrameLightweightLoopEnd(); }
    FrameWalk(FrameWalk const&) = delete;
    FrameWalk& operator=(FrameWalk const&) = delete;

    bool hasFrame() const { return m_hasFrame; }
    void next() { m_hasFrame = VelUtilFrameLightweightLoopNext(); }

private:
    bool m_hasFrame;
};

} // namespace veldraw::dialogs::common
