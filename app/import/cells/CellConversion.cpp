#include "app/import/cells/CellConversion.h"

#include "app/files/ImportError.h"
#include "app/vtk/CellShapes.h"
#include "kernel/operations/ReportText.h"

#include <vtkCellType.h>
#include <vtkCellTypes.h>

#include <array>

namespace veldraw::app {

using Shape = kernel::Connectivity::Shape;

namespace {

// The straight cell that shares the corners of a curved one; -1 where there is none. Corners come first in all of them.
int straightCellOf(unsigned char type)
{
    switch (type) {
    case VTK_QUADRATIC_EDGE:
    case VTK_CUBIC_LINE:
    case VTK_LAGRANGE_CURVE:
    case VTK_BEZIER_CURVE:
        return VTK_LINE;
    case VTK_QUADRATIC_TRIANGLE:
    case VTK_BIQUADRATIC_TRIANGLE:
    case VTK_LAGRANGE_TRIANGLE:
    case VTK_BEZIER_TRIANGLE:
        return VTK_TRIANGLE;
    case VTK_QUADRATIC_QUAD:
    case VTK_BIQUADRATIC_QUAD:
    case VTK_QUADRATIC_LINEAR_QUAD:
    case VTK_LAGRANGE_QUADRILATERAL:
    case VTK_BEZIER_QUADRILATERAL:
        return VTK_QUAD;
    case VTK_QUADRATIC_TETRA:
    case VTK_LAGRANGE_TETRAHEDRON:
    case VTK_BEZIER_TETRAHEDRON:
        return VTK_TETRA;
    case VTK_QUADRATIC_HEXAHEDRON:
    case VTK_TRIQUADRATIC_HEXAHEDRON:
    case VTK_BIQUADRATIC_QUADRATIC_HEXAHEDRON:
    case VTK_LAGRANGE_HEXAHEDRON:
    case VTK_BEZIER_HEXAHEDRON:
        return VTK_HEXAHEDRON;
    case VTK_QUADRATIC_WEDGE:
    case VTK_QUADRATIC_LINEAR_WEDGE:
    case VTK_BIQUADRATIC_QUADRATIC_WEDGE:
    case VTK_LAGRANGE_WEDGE:
    case VTK_BEZIER_WEDGE:
        return VTK_WEDGE;
    case VTK_QUADRATIC_PYRAMID:
    case VTK_TRIQUADRATIC_PYRAMID:
    case VTK_LAGRANGE_PYRAMID:
    case VTK_BEZIER_PYRAMID:
        return VTK_PYRAMID;
    default:
        return -1;
    }
}

bool hasKernelShape(unsigned char type)
{
    return type == VTK_LINE || type == VTK_TRIANGLE || type == VTK_QUAD || type == VTK_TETRA ||
           type == VTK_HEXAHEDRON || type == VTK_PYRAMID || type == VTK_WEDGE || type == VTK_POLYGON ||
           type == VTK_POLYHEDRON;
}

} // namespace

bool isKernelCell(unsigned char vtkType, std::int64_t pointCount)
{
    if (!hasKernelShape(vtkType))
        return false;
    int const corners = kernel::Connectivity::cornerCount(kernelShapeOf(vtkType));
    return corners == 0 ? pointCount >= 3 : pointCount == corners;
}

Shape kernelShapeOf(unsigned char vtkType)
{
    for (auto shape : {Shape::LineSegment, Shape::Triangle, Shape::Quad, Shape::Tetrahedron, Shape::Brick,
                       Shape::Pyramid, Shape::Prism, Shape::Polygon}) {
        if (vtkCellTypeOf(shape) == vtkType)
            return shape;
    }
    return Shape::Polyhedron;
}

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

void CellConversion::add(CellList const& list)
{
    for (std::int64_t cell = 0; cell < list.count; ++cell, ++m_source)
        addCell(list, cell);
}

void CellConversion::addCell(CellList const& list, std::int64_t cell)
{
    unsigned char const type = list.types[static_cast<std::size_t>(cell)];
    std::int64_t const size = list.sizeOf(cell);
    std::int64_t const* const points = list.pointsOf(cell);
    if (type == VTK_EMPTY_CELL || type == VTK_VERTEX || type == VTK_POLY_VERTEX) {
        m_vertices += type == VTK_EMPTY_CELL ? 0 : 1;
        return;
    }
    if (isKernelCell(type, size)) {
        if (type == VTK_POLYHEDRON)
            m_cells.addPolyhedron(points, size, list.faceStream + list.faceOffsets[cell], list.faceStreamSizeOf(cell),
                                  m_source);
        else
            m_cells.add(kernelShapeOf(type), points, size, m_source);
        return;
    }
    if ((type == VTK_POLYGON || type == VTK_POLY_LINE || type == VTK_TRIANGLE_STRIP) &&
        size < (type == VTK_POLY_LINE ? 2 : 3)) {
        ++m_degenerate;
        return;
    }
    if (addReordered(type, points, size) || addDecomposed(type, points, size) || addCorners(type, points, size))
        return;
    throw ImportError("its cell " + std::to_string(m_source + 1) + " of type " +
                      vtkCellTypes::GetClassNameFromTypeId(type) + " with " + kernel::counted(size, "point") +
                      " cannot be read");
}

bool CellConversion::addReordered(unsigned char type, std::int64_t const* points, std::int64_t size)
{
    if (type == VTK_PIXEL && size == 4) {
        std::array<std::int64_t, 4> const quad{points[0], points[1], points[3], points[2]};
        m_cells.add(Shape::Quad, quad.data(), 4, m_source);
        return true;
    }
    if (type == VTK_VOXEL && size == 8) {
        std::array<std::int64_t, 8> const brick{points[0], points[1], points[3], points[2],
                                                points[4], points[5], points[7], points[6]};
        m_cells.add(Shape::Brick, brick.data(), 8, m_source);
        return true;
    }
    return false;
}

bool CellConversion::addDecomposed(unsigned char type, std::int64_t const* points, std::int64_t size)
{
    if (type == VTK_POLY_LINE) {
        for (std::int64_t n = 0; n + 1 < size; ++n)
            m_cells.add(Shape::LineSegment, points + n, 2, m_source);
    } else if (type == VTK_TRIANGLE_STRIP) {
        for (std::int64_t n = 0; n + 2 < size; ++n) {
            // Every other triangle of a strip runs the other way round.
            std::array<std::int64_t, 3> const triangle{points[n], points[n + 1 + n % 2], points[n + 2 - n % 2]};
            m_cells.add(Shape::Triangle, triangle.data(), 3, m_source);
        }
    } else {
        return false;
    }
    ++m_decomposed;
    return true;
}

bool CellConversion::addCorners(unsigned char type, std::int64_t const* points, std::int64_t size)
{
    if (type == VTK_QUADRATIC_POLYGON && size >= 6) {
        m_cells.add(Shape::Polygon, points, size / 2, m_source);
        ++m_linearised;
        return true;
    }
    int const straight = straightCellOf(type);
    if (straight < 0)
        return false;
    Shape const shape = kernelShapeOf(static_cast<unsigned char>(straight));
    int const corners = kernel::Connectivity::cornerCount(shape);
    if (size < corners)
        return false;
    m_cells.add(shape, points, corners, m_source);
    ++m_linearised;
    return true;
}

std::vector<std::string> CellConversion::remarks() const
{
    std::vector<std::string> result;
    if (m_linearised > 0)
        result.push_back(kernel::counted(m_linearised, "cell") +
                         " of higher order became straight; their inner points belong to no cell");
    if (m_decomposed > 0)
        result.push_back(
            kernel::counted(m_decomposed, "polyline or triangle strip was", "polylines or triangle strips were") +
            " taken apart");
    if (m_vertices > 0)
        result.push_back(kernel::counted(m_vertices, "vertex", "vertices") + " among other cells left out");
    if (m_degenerate > 0)
        result.push_back(kernel::counted(m_degenerate, "cell") + " with too few points left out");
    return result;
}

} // namespace veldraw::app
