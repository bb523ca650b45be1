#pragma once

#include <QString>

namespace veldraw::app {

/// The text that a frame shows about its picture: what is missing and why, or how to read it.
struct FrameMessage
{
    QString sentence;            ///< says why something is missing; empty: nothing is
    bool replacesPicture = true; ///< the sentence stands in place of the picture; false: over it
    QString remark = {};         ///< explains a picture in which nothing is missing; usually empty
    bool hasOwnStrip = false;    ///< the sentence stands above the picture, whose top it would hide otherwise
};

} // namespace veldraw::app
