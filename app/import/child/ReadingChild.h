#pragma once

#include "app/handover/HandedGrid.h"
#include "app/handover/ReadRequest.h"
#include "app/import/child/ReaderProcess.h"
#include "app/import/child/SharedSegment.h"
#include "kernel/base/Progress.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::app {

/// What a file gave: a description that has been held against the memory that goes with it.
struct ReadResult
{
    HandedData data;
    std::vector<SharedSegment> segments;
};

/// Has files read by a process of its own, so that whatever they do to the reader is done to that process, and believes nothing that it says
/// unseen.
///
/// A process that has read a file well is kept for the next one of the same thread, such as the pieces of a multi-block file or values that
/// are loaded one after the other; operations have threads of their own, so that it does not outlive them. What such a process does not read
/// is tried once more by a new one: no file suffers from another.
class ReadingChild
{
public:
    using Choose = std::function<ReadChoice(FoundArrays const&)>;

    /// @param program another one than the usual one, for tests
    explicit ReadingChild(std::string program = ReaderProcess::usualProgram());

    /// @param choose   is asked at most once which arrays to read, for requests where there is a choice
    /// @param progress gets the reader's; its interrupt ends the reader at once
    /// @throws ImportError the reader refused the file, has come to an end, took too long or made no sense; kernel::Interrupted
    ReadResult read(ReadRequest const& request, ReaderLimits const& limits, Choose const& choose,
                    kernel::Progress& progress) const;

    /// Ends the process that is kept for this thread, so that what files have done to it reaches no other ones.
    static void endKept();

private:
    std::string m_program;
};

} // namespace veldraw::app
