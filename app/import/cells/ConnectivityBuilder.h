#pragma once

#include "kernel/data/Connectivity.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace veldraw::app {

/// Collects cells one by one, for grids whose cells cannot be taken over as they are.
class ConnectivityBuilder
{
public:
    using Shape = kernel::Connectivity::Shape;

    /// @param source number of the cell of the file that this one comes from, zero-based
    void add(Shape shape, std::int64_t const* points, std::int64_t count, std::int64_t source);

    /// @param faces a face stream: number of faces, then for each its number of points and its points
    void addPolyhedron(std::int64_t const* points, std::int64_t count, std::int64_t const* faces,
                       std::int64_t facesSize, std::int64_t source);

    /// Source cell of each cell.
    std::vector<std::int64_t> const& sources() const { return m_sources; }

    /// What was collected; the builder is of no use afterwards. Shapes are always there.
    std::shared_ptr<kernel::Connectivity> finish();

private:
    struct Arrays
    {
        std::vector<std::int64_t> offsets{0};
        std::vector<std::int64_t> indices;
        std::vector<Shape> shapes;
        std::vector<std::int64_t> faceOffsets;
        std::vector<std::int64_t> faceStream;
    };

    std::shared_ptr<Arrays> m_arrays = std::make_shared<Arrays>();
    std::vector<std::int64_t> m_sources;
};

} // namespace veldraw::app
