#pragma once

#include <vtkActor.h>
#include <vtkNew.h>
#include <vtkPolyDataMapper.h>

#include <array>
#include <vector>

namespace veldraw::app {

/// Shows which zones are picked: the box around each, with a handle at each corner. All are one thing to the renderer, since each
/// thing costs it time.
class PickMarks
{
public:
    using Box = std::array<double, 6>; ///< low and high on X, Y, Z in the scene

    PickMarks();

    /// Marks what lies in the boxes, and nothing else. @param inSpace false: rectangles over the plane
    void show(std::vector<Box> const& boxes, bool inSpace);

    vtkActor* actor() const { return m_actor; }

    PickMarks(PickMarks const&) = delete;
    PickMarks& operator=(PickMarks const&) = delete;

private:
    vtkNew<vtkPolyDataMapper> m_mapper;
    vtkNew<vtkActor> m_actor;
};

} // namespace veldraw::app
