#include "tests/app/support/SampleSolid.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <numeric>
#include <random>
#include <vector>

namespace veldraw::tests {

namespace {

using kernel::Connectivity;
using kernel::Zone;
using Shape = Connectivity::Shape;

struct Arrays
{
    std::vector<std::int64_t> offsets = {0};
    std::vector<std::int64_t> indices;
    std::vector<Shape> shapes;
};

/// Cells on the points of a lattice and on further ones in the middles of cubes.
class Lattice
{
public:
    explicit Lattice(int n)
        : m_edge(n + 1)
        , m_names(static_cast<std::size_t>(m_edge * m_edge * m_edge + n * n * n + 5))
    {
        std::iota(m_names.begin(), m_names.end(), 0);
        std::shuffle(m_names.begin(), m_names.end(), std::mt19937(7));
    }

    void add(Shape shape, std::initializer_list<std::int64_t> points)
    {
        for (std::int64_t const point : points)
            m_arrays->indices.push_back(m_names[static_cast<std::size_t>(point)]);
        m_arrays->offsets.push_back(static_cast<std::int64_t>(m_arrays->indices.size()));
        m_arrays->shapes.push_back(shape);
    }

    // Corners by the bits of their numbers.
    void addCube(int i, int j, int k, Shape shape)
    {
        std::array<std::int64_t, 8> p{};
        for (int corner = 0; corner < 8; ++corner)
            p[static_cast<std::size_t>(corner)] =
                i + (corner & 1) + m_edge * (j + (corner >> 1 & 1) + m_edge * (k + (corner >> 2)));
        switch (shape) {
        case Shape::Tetrahedron:
            addTetrahedra(p, (i + j + k) % 2 == 1);
            break;
        case Shape::Pyramid:
            addPyramids(p, m_edge * m_edge * m_edge + m_middles++);
            break;
        case Shape::Prism:
            add(shape, {p[0], p[3], p[1], p[4], p[7], p[5]});
            add(shape, {p[0], p[2], p[3], p[4], p[6], p[7]});
            break;
        default:
            add(Shape::Brick, {p[0], p[1], p[3], p[2], p[4], p[5], p[7], p[6]});
        }
    }

    std::int64_t lastPoint() const { return static_cast<std::int64_t>(m_names.size()) - 1; }

    std::shared_ptr<Zone> zone(ZoneType_e type) const
    {
        auto cells = std::make_shared<Connectivity>();
        cells->cellCount = static_cast<std::int64_t>(m_arrays->shapes.size());
        cells->indexCount = static_cast<std::int64_t>(m_arrays->indices.size());
        cells->offsets = m_arrays->offsets.data();
        cells->indices = m_arrays->indices.data();
        cells->shapes = type == ZoneType_FEMixed ? m_arrays->shapes.data() : nullptr;
        cells->owner = m_arrays;
        auto zone = std::make_shared<Zone>("Solid", type, lastPoint() + 1, cells->cellCount, 0);
        zone->connectivity = cells;
        return zone;
    }

private:
    using Corners = std::array<std::int64_t, 8>;

    void addTetrahedra(Corners const& p, bool otherWay)
    {
        constexpr int cuts[2][5][4] = {{{0, 1, 3, 5}, {0, 3, 2, 6}, {0, 5, 4, 6}, {3, 5, 7, 6}, {0, 3, 5, 6}},
                                       {{1, 3, 2, 7}, {1, 0, 2, 4}, {1, 5, 4, 7}, {2, 6, 7, 4}, {1, 2, 4, 7}}};
        for (auto const& cell : cuts[otherWay ? 1 : 0]) {
            auto const point = [&](int corner) { return p[static_cast<std::size_t>(cell[corner])]; };
            add(Shape::Tetrahedron, {point(0), point(1), point(2), point(3)});
        }
    }

    void addPyramids(Corners const& p, std::int64_t top)
    {
        constexpr int sides[6][4] = {{0, 1, 3, 2}, {4, 5, 7, 6}, {0, 1, 5, 4},
                                     {2, 3, 7, 6}, {0, 2, 6, 4}, {1, 3, 7, 5}};
        for (auto const& side : sides) {
            auto const point = [&](int corner) { return p[static_cast<std::size_t>(side[corner])]; };
            add(Shape::Pyramid, {point(0), point(1), point(2), point(3), top});
        }
    }

    std::int64_t m_edge;
    std::int64_t m_middles = 0;
    std::vector<std::int64_t> m_names;
    std::shared_ptr<Arrays> m_arrays = std::make_shared<Arrays>();
};

template <typename ShapeOf>
void addCubes(Lattice& lattice, int n, ShapeOf const& shapeOf)
{
    int cube = 0;
    for (int k = 0; k < n; ++k)
        for (int j = 0; j < n; ++j)
            for (int i = 0; i < n; ++i, ++cube)
                if (cube % 31 != 15)
                    lattice.addCube(i, j, k, shapeOf(cube));
}

} // namespace

std::shared_ptr<Zone> SampleSolid::cubes(int n, ZoneType_e type, Shape shape)
{
    Lattice lattice(n);
    addCubes(lattice, n, [shape](int) { return shape; });
    return lattice.zone(type);
}

std::shared_ptr<Zone> SampleSolid::everything(int n, bool withLine)
{
    constexpr std::array<Shape, 3> shapes = {Shape::Brick, Shape::Prism, Shape::Pyramid};
    Lattice lattice(n);
    std::int64_t const last = lattice.lastPoint();
    lattice.add(Shape::Triangle, {last, last - 1, last - 2});
    // Prisms on prisms, so that triangles meet triangles.
    addCubes(lattice, n, [&](int cube) { return shapes[static_cast<std::size_t>((cube % n + cube / n % n) % 3)]; });
    if (withLine)
        lattice.add(Shape::LineSegment, {last - 3, last - 4});
    return lattice.zone(ZoneType_FEMixed);
}

} // namespace veldraw::tests
