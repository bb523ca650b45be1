#include "app/import/cells/ConnectivityBuilder.h"

namespace veldraw::app {

void ConnectivityBuilder::add(Shape shape, std::int64_t const* points, std::int64_t count, std::int64_t source)
{
    m_arrays->indices.insert(m_arrays->indices.end(), points, points + count);
    m_arrays->offsets.push_back(static_cast<std::int64_t>(m_arrays->indices.size()));
    m_arrays->shapes.push_back(shape);
    m_arrays->faceOffsets.push_back(-1);
    m_sources.push_back(source);
}

void ConnectivityBuilder::addPolyhedron(std::int64_t const* points, std::int64_t count, std::int64_t const* faces,
                                        std::int64_t facesSize, std::int64_t source)
{
    add(Shape::Polyhedron, points, count, source);
    m_arrays->faceOffsets.back() = static_cast<std::int64_t>(m_arrays->faceStream.size());
    m_arrays->faceStream.insert(m_arrays->faceStream.end(), faces, faces + facesSize);
}

std::shared_ptr<kernel::Connectivity> ConnectivityBuilder::finish()
{
    auto cells = std::make_shared<kernel::Connectivity>();
    cells->cellCount = static_cast<std::int64_t>(m_arrays->shapes.size());
    cells->indexCount = static_cast<std::int64_t>(m_arrays->indices.size());
    cells->offsets = m_arrays->offsets.data();
    cells->indices = m_arrays->indices.data();
    cells->shapes = m_arrays->shapes.data();
    if (!m_arrays->faceStream.empty()) {
        cells->faceOffsets = m_arrays->faceOffsets.data();
        cells->faceStream = m_arrays->faceStream.data();
        cells->faceStreamSize = static_cast<std::int64_t>(m_arrays->faceStream.size());
    }
    cells->owner = m_arrays;
    return cells;
}

} // namespace veldraw::app
