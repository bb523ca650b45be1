#include "app/vtk/ProgressObserver.h"

#include <vtkAlgorithm.h>

#include <utility>

namespace veldraw::app {

void ProgressObserver::watch(vtkAlgorithm& algorithm, kernel::Progress& progress)
{
    m_progress = &progress;
    watch(algorithm, std::as_const(progress));
}

void ProgressObserver::watch(vtkAlgorithm& algorithm, kernel::Progress const& interrupt)
{
    m_interrupt = &interrupt;
    algorithm.AddObserver(vtkCommand::ProgressEvent, this);
}

void ProgressObserver::Execute(vtkObject* caller, unsigned long, void*)
{
    auto* const algorithm = vtkAlgorithm::SafeDownCast(caller);
    if (!algorithm)
        return;
    if (m_progress)
        m_progress->reach(algorithm->GetProgress());
    m_isInterrupted = m_isInterrupted || m_interrupt->isInterrupted();
    if (m_isInterrupted)
        algorithm->SetAbortExecute(1);
}

} // namespace veldraw::app
