#pragma once

#include <QString>

namespace veldraw::app {

/// Why a frame does not show everything it was asked for, in one sentence, and what else has to be known to read it.
struct FrameNotice
{
    QString sentence;          ///< empty = all is well
    bool coversPicture = true; ///< there is no picture; else the sentence stands beside it
    QString remark = {};       ///< about a picture in which nothing is missing; seldom there
    bool standsAbove = false;  ///< the sentence has a strip of its own above a picture that has something at its top
};

} // namespace veldraw::app
