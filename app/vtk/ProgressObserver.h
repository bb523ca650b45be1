#pragma once

#include "kernel/base/Progress.h"

#include <vtkCommand.h>

class vtkAlgorithm;

namespace veldraw::app {

/// Hands on how far a reader or writer of VTK has come, and stops it when nobody wants to wait any more.
class ProgressObserver : public vtkCommand
{
public:
    static ProgressObserver* New() { return new ProgressObserver; }

    /// @p progress is to outlive the run of @p algorithm, which its interrupt stops.
    void watch(vtkAlgorithm& algorithm, kernel::Progress& progress);

    /// The same for work whose length nobody sees.
    void watch(vtkAlgorithm& algorithm, kernel::Progress const& interrupt);

    /// Whether it was stopped.
    bool isInterrupted() const { return m_isInterrupted; }

    void Execute(vtkObject* caller, unsigned long event, void* data) override;

private:
    kernel::Progress* m_progress = nullptr; // null where nobody counts
    kernel::Progress const* m_interrupt = nullptr;
    bool m_isInterrupted = false;
};

} // namespace veldraw::app
