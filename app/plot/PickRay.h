#pragma once

#include <array>

class vtkPolyData;
class vtkRenderer;

namespace veldraw::app {

/// What lies under a point of the screen: a ray from the eye into the scene.
///
/// A pick goes once through all drawn cells, on all cores, and keeps nothing for the next one: 10 million cells take some tens
/// of milliseconds, while a search tree over them would take seconds to build and more memory than the picture itself.
class PickRay
{
public:
    /// @param x, y device pixels of the renderer's window from its bottom left; the renderer must have been drawn or have its size
    PickRay(vtkRenderer& renderer, double x, double y);

    /// Distance from the eye's side of the scene to where the ray meets @p drawing, in units of the scene, or a negative
    /// number when it misses. Surfaces are met exactly, lines and points within @p pixels around the ray.
    double distanceTo(vtkPolyData& drawing, double pixels) const;

    /// A place of the scene as it is seen along the ray: two numbers across it, 0 on it, and the distance along it.
    std::array<double, 3> seen(std::array<double, 3> const& place) const;

    /// The place of the scene at a distance along the ray.
    std::array<double, 3> at(double distance) const;

    /// How far along the ray something counts as being at the same place.
    double resolution() const { return 1e-6 * m_length; }

private:
    friend class PickSearch;

    std::array<double, 3> m_origin{};
    std::array<double, 3> m_along{}; // unit vectors: into the scene, and two across
    std::array<double, 3> m_across{};
    std::array<double, 3> m_upward{};
    double m_length = 0.0;       // from the near to the far end of the scene
    double m_pixelAtStart = 0.0; // size of a pixel in the scene
    double m_pixelAtEnd = 0.0;
};

} // namespace veldraw::app
