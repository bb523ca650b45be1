#include "tests/kernel/support/ExactCell.h"

#include <cmath>
#include <stdexcept>

namespace veldraw::tests {

using namespace kernel;

namespace {

using Exact = std::array<long double, 3>;
using Matrix = std::array<Exact, 3>; // of columns

long double determinant(Exact const& a, Exact const& b, Exact const& c)
{
    return a[0] * (b[1] * c[2] - b[2] * c[1]) - b[0] * (a[1] * c[2] - a[2] * c[1]) + c[0] * (a[1] * b[2] - a[2] * b[1]);
}

/// By Cramer's rule. @return false for a singular matrix
bool solve(Matrix const& columns, Exact const& right, Exact& solution)
{
    long double const whole = determinant(columns[0], columns[1], columns[2]);
    for (std::size_t at = 0; at < 3; ++at) {
        Matrix replaced = columns;
        replaced[at] = right;
        solution[at] = determinant(replaced[0], replaced[1], replaced[2]) / whole;
    }
    return std::isfinite(solution[0]) && std::isfinite(solution[1]) && std::isfinite(solution[2]);
}

/// Share of a brick's corner, or its derivative along one axis.
long double share(std::size_t corner, Exact const& at, int derivedAlong = -1)
{
    bool const isUpper[3] = {corner % 4 == 1 || corner % 4 == 2, corner % 4 >= 2, corner >= 4};
    long double product = 1;
    for (int axis = 0; axis < 3; ++axis) {
        long double const along = at[static_cast<std::size_t>(axis)];
        product *= axis == derivedAlong ? (isUpper[axis] ? 1 : -1) : (isUpper[axis] ? along : 1 - along);
    }
    return product;
}

} // namespace

ExactCell::ExactCell(sample::CellLists const& cells, std::size_t cell, std::vector<double> const& values)
{
    auto const cornerAt = [&](std::int64_t point) {
        Point const& place = cells.points[static_cast<std::size_t>(point)];
        return Corner{{place[0], place[1], place[2]}, values[static_cast<std::size_t>(point)]};
    };
    std::vector<Corner> c;
    for (std::int64_t at = cells.offsets[cell]; at < cells.offsets[cell + 1]; ++at) {
        c.push_back(cornerAt(cells.indices[static_cast<std::size_t>(at)]));
        m_box.add(cells.points[static_cast<std::size_t>(cells.indices[static_cast<std::size_t>(at)])]);
    }
    auto const above = [](Corner corner) { // of a cell in the plane, to make it a solid
        corner.place[2] += 1;
        return corner;
    };
    if (Connectivity::isFace(cells.shapes[cell])) {
        m_box.high[2] += 1;
    }
    switch (cells.shapes[cell]) {
    case Shape::Triangle:
        c.push_back(c[2]);
        [[fallthrough]];
    case Shape::Quad:
        m_bricks.push_back({c[0], c[1], c[2], c[3], above(c[0]), above(c[1]), above(c[2]), above(c[3])});
        break;
    case Shape::Tetrahedron:
        m_bricks.push_back({c[0], c[1], c[2], c[2], c[3], c[3], c[3], c[3]});
        break;
    case Shape::Pyramid:
        m_bricks.push_back({c[0], c[1], c[2], c[3], c[4], c[4], c[4], c[4]});
        break;
    case Shape::Prism:
        m_bricks.push_back({c[0], c[1], c[2], c[2], c[3], c[4], c[5], c[5]});
        break;
    case Shape::Brick:
        m_bricks.push_back({c[0], c[1], c[2], c[3], c[4], c[5], c[6], c[7]});
        break;
    case Shape::Polygon: {
        Corner const middle = meanOf(c);
        for (std::size_t at = 0; at < c.size(); ++at) {
            Corner const& next = c[(at + 1) % c.size()];
            m_bricks.push_back({middle, c[at], next, next, above(middle), above(c[at]), above(next), above(next)});
        }
        break;
    }
    case Shape::Polyhedron: {
        Corner const middle = meanOf(c);
        auto const* stream = cells.faceStream.data() + cells.faceOffsets[cell];
        for (std::int64_t face = *stream++; face > 0; --face) {
            std::vector<Corner> corners;
            for (std::int64_t size = *stream++; size > 0; --size) {
                corners.push_back(cornerAt(*stream++));
            }
            Corner const center = meanOf(corners);
            for (std::size_t at = 0; at < corners.size(); ++at) {
                Corner const& next = corners[(at + 1) % corners.size()];
                m_bricks.push_back({center, corners[at], next, next, middle, middle, middle, middle});
            }
        }
        break;
    }
    case Shape::LineSegment:
        throw std::logic_error("no area");
    }
}

ExactCell::Corner ExactCell::meanOf(std::vector<Corner> const& corners)
{
    Corner mean{};
    for (Corner const& corner : corners) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            mean.place[axis] += corner.place[axis] / static_cast<long double>(corners.size());
        }
        mean.value += corner.value / static_cast<long double>(corners.size());
    }
    return mean;
}

ExactCell::Inside ExactCell::at(Point const& place) const
{
    constexpr double nearby = 1e-3;
    Box box = m_box;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        box.low[axis] -= nearby;
        box.high[axis] += nearby;
    }
    Inside best{-1, 0};
    for (std::size_t brick = 0; brick < m_bricks.size() && box.contains(place); ++brick) {
        Inside const here = atBrick(m_bricks[brick], place);
        best = here.margin > best.margin ? here : best;
    }
    return best;
}

ExactCell::Inside ExactCell::atBrick(Brick const& brick, Point const& place)
{
    Inside best{-1, 0};
    for (std::size_t start = 0; start < 8; ++start) {
        Exact at{0.2L + 0.3L * static_cast<long double>(start % 3),
                 0.2L + 0.3L * static_cast<long double>(start / 3 % 3),
                 0.2L + 0.3L * static_cast<long double>(start / 9)};
        long double miss = 1;
        bool isNear = true;
        for (int step = 0; step < 40 && isNear && miss > 1e-17L; ++step) {
            Exact missing{place[0], place[1], place[2]};
            Matrix columns{};
            for (std::size_t axis = 0; axis < 3; ++axis) {
                for (std::size_t corner = 0; corner < 8; ++corner) {
                    missing[axis] -= share(corner, at) * brick[corner].place[axis];
                    for (std::size_t along = 0; along < 3; ++along) {
                        columns[along][axis] += share(corner, at, static_cast<int>(along)) * brick[corner].place[axis];
                    }
                }
            }
            Exact stride{};
            if (!solve(columns, missing, stride)) {
                break;
            }
            for (std::size_t axis = 0; axis < 3; ++axis) {
                at[axis] += stride[axis];
            }
            miss = std::max({std::abs(stride[0]), std::abs(stride[1]), std::abs(stride[2])});
            isNear = std::max({std::abs(at[0]), std::abs(at[1]), std::abs(at[2])}) < 4;
        }
        long double margin = 1;
        Inside here{0, 0};
        for (long double const coordinate : at) {
            margin = std::min({margin, coordinate, 1 - coordinate});
        }
        for (std::size_t corner = 0; corner < 8; ++corner) {
            here.value += share(corner, at) * brick[corner].value;
        }
        here.margin = margin;
        if (isNear && miss < 1e-12L && here.margin > best.margin) {
            best = here;
        }
        if (best.margin > 0) {
            return best;
        }
    }
    return best;
}

} // namespace veldraw::tests
