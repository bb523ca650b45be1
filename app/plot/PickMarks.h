#pragma once

#include <vtkActor.h>
#include <vtkNew.h>
#include <vtkPolyDataMapper.h>

#include <array>
#include <vector>

namespace veldraw::app {

/// Shows which zones are picked: a box around each, with a handle at each corner. One actor draws all of them, since each
/// actor costs the renderer time.
class PickMarks
{
public:
    using Box = std::array<double, 6>; ///< low and high on X, Y, Z in the scene

    PickMarks();

    /// Replaces all marks by these boxes. @param inSpace false: draws rectangles in the plane
    void show(std::vector<Box> const& boxes, bool inSpace);

    vtkActor* actor() const { return m_actor; }

    PickMarks(PickMarks const&) = delete;
    PickMarks& operator=(PickMarks const&) = delete;

private:
    vtkNew<vtkPolyDataMapper> m_mapper;
    vtkNew<vtkActor> m_actor;
};

} // namespace veldraw::app
