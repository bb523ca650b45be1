#pragma once

#include <vtkActor.h>
#include <vtkNew.h>

namespace veldraw::app {

/// Shows that a zone is picked: the box around it, with a handle at each corner.
class PickMark
{
public:
    /// @param bounds of the zone in the scene, low and high on X, Y, Z; @param inSpace false: a rectangle over the plane
    PickMark(double const* bounds, bool inSpace);

    vtkActor* actor() const { return m_actor; }

private:
    vtkNew<vtkActor> m_actor;
};

} // namespace veldraw::app
