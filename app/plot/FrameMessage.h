#pragma once

#include <QCoreApplication>
#include <QString>

#include <exception>

namespace veldraw::app {

/// The text that a frame shows about its picture: what is missing and why, or how to read it.
struct FrameMessage
{
    Q_DECLARE_TR_FUNCTIONS(veldraw::app::FrameMessage)

public:
    /// In place of a picture that could not be drawn: why that failed.
    static FrameMessage ofFailure(std::exception const& failure);

    QString sentence;            ///< says why something is missing; empty: nothing is
    bool replacesPicture = true; ///< the sentence stands in place of the picture; false: over it
    QString remark = {};         ///< explains a picture in which nothing is missing; usually empty
    bool hasOwnStrip = false;    ///< the sentence stands above the picture, whose top it would hide otherwise
};

} // namespace veldraw::app
