#include "app/vtk/ProgressObserver.h"

#include <vtkAlgorithm.h>

namespace veldraw::app {

void ProgressObserver::watch(vtkAlgorithm& algorithm, std::function<bool(double)> progress)
{
    m_progress = std::move(progress);
    algorithm.AddObserver(vtkCommand::ProgressEvent, this);
}

void ProgressObserver::Execute(vtkObject* caller, unsigned long, void*)
{
    auto* const algorithm = vtkAlgorithm::SafeDownCast(caller);
    if (!algorithm)
        return;
    m_isCancelled = m_isCancelled || (m_progress && !m_progress(algorithm->GetProgress()));
    if (m_isCancelled)
        algorithm->SetAbortExecute(1);
}

} // namespace veldraw::app
