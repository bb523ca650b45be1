#pragma once

#include <vtkCommand.h>

#include <functional>

class vtkAlgorithm;

namespace veldraw::app {

/// Hands on how far a reader or writer of VTK has come, and stops it when nobody wants to wait any more.
class ProgressObserver : public vtkCommand
{
public:
    static ProgressObserver* New() { return new ProgressObserver; }

    /// To be called with 0..1; its answer false stops @p algorithm.
    void watch(vtkAlgorithm& algorithm, std::function<bool(double)> progress);

    bool isCancelled() const { return m_isCancelled; }

    void Execute(vtkObject* caller, unsigned long event, void* data) override;

private:
    std::function<bool(double)> m_progress;
    bool m_isCancelled = false;
};

} // namespace veldraw::app
