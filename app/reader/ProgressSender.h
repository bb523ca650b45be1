#pragma once

#include "app/handover/ByteWriter.h"
#include "app/handover/Channel.h"

#include <vtkAlgorithm.h>
#include <vtkCommand.h>

#include <algorithm>

namespace veldraw::app {

/// Tells another process how far a reader of VTK has come.
class ProgressSender : public vtkCommand
{
public:
    static ProgressSender* New() { return new ProgressSender; }

    /// For algorithms that others make this an observer of. @param channel outlives their runs
    void sendTo(Channel& channel) { m_channel = &channel; }

    /// @param channel outlives the run of @p algorithm
    void watch(vtkAlgorithm& algorithm, Channel& channel)
    {
        sendTo(channel);
        algorithm.AddObserver(vtkCommand::ProgressEvent, this);
    }

    void Execute(vtkObject* caller, unsigned long, void*) override
    {
        auto* const algorithm = vtkAlgorithm::SafeDownCast(caller);
        if (!algorithm)
            return;
        ByteWriter fraction;
        fraction.number(std::clamp(algorithm->GetProgress(), 0.0, 1.0));
        m_channel->send(Message::Kind::Progress, fraction.bytes());
    }

private:
    Channel* m_channel = nullptr;
};

} // namespace veldraw::app
