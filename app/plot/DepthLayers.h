#pragma once

#include <array>
#include <vector>

namespace veldraw::app {

/// Which of several drawings that may be at the same place lies on top.
///
/// A renderer tells some thousand depths apart where surfaces meet, so layers are not spent on drawings that lie apart: a drawing has
/// the layer above all earlier ones whose bounds share room with its own, and 0 without any.
class DepthLayers
{
public:
    /// Low and high end along each axis; a low end above the high one bounds nothing.
    using Bounds = std::array<double, 6>;

    /// The layer of each drawing, from 0 for the lowest. Bounds that merely touch share no room, as those of tiles side by side.
    /// @param bounds in the scene, in the order of the drawings, the last on top
    static std::vector<int> of(std::vector<Bounds> const& bounds);
};

} // namespace veldraw::app
