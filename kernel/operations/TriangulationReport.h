#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace veldraw::kernel {

/// What is told of a triangulation: counts, and the text that they make in the message log.
struct TriangulationReport
{
    std::vector<std::string> sources; ///< names of zones
    double keepFactor = 0.0;
    std::int64_t triangles = 0;  ///< of the new zone
    std::int64_t points = 0;     ///< of the new zone
    std::int64_t duplicates = 0; ///< points at the same place as another one
    std::int64_t hidden = 0;     ///< points
    std::int64_t different = 0;  ///< points in the triangulation but for the crossings
    std::int64_t crossings = 0;  ///< of boundaries, where no point was
    std::int64_t mixed = 0;      ///< points of boundaries for which some values were interpolated
    std::int64_t boundaries = 0; ///< lines
    std::int64_t closed = 0;     ///< of the boundaries
    std::int64_t cut = 0;        ///< triangles outside the boundary
    std::int64_t slivers = 0;    ///< triangles that the keep factor took

    /// @param name of the operation
    std::string text(std::string const& name, double seconds) const;
};

} // namespace veldraw::kernel
