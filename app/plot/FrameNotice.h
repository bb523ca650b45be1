#pragma once

#include <QString>

namespace veldraw::app {

/// Why a frame does not show everything it was asked for, in one sentence.
struct FrameNotice
{
    QString sentence;          ///< empty = all is well
    bool coversPicture = true; ///< there is no picture; else the sentence stands beside it
};

} // namespace veldraw::app
