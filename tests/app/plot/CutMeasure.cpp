#include "tests/app/plot/CutMeasure.h"

#include "tests/app/support/SampleData.h"

#include <vtkIdList.h>
#include <vtkNew.h>

#include <algorithm>
#include <cmath>
#include <map>

namespace veldraw::tests {

namespace {

using Point = CutMeasure::Point;
using kernel::Connectivity;
using Numbers = std::vector<std::int64_t>;

Point minus(Point const& a, Point const& b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

double lengthOf(Point const& v)
{
    return std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
}

double triangleArea(Point const& a, Point const& b, Point const& c)
{
    Point const u = minus(b, a);
    Point const v = minus(c, a);
    return 0.5 * lengthOf({u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]});
}

app::FieldLook lookOf(kernel::DataSet const& dataSet)
{
    app::FieldLook look;
    look.inSpace = true;
    look.axes = {1, 2, 3};
    std::array<double, 3> min{};
    std::array<double, 3> max{};
    for (int axis = 0; axis < 3; ++axis) {
        kernel::ValueRange const range = dataSet.zone(1)->range(axis + 1);
        min[static_cast<std::size_t>(axis)] = range.min;
        max[static_cast<std::size_t>(axis)] = range.max;
    }
    look.space = app::PlotSpace(min, max, false);
    return look;
}

} // namespace

CutMeasure::CutMeasure(kernel::DataSet const& dataSet, kernel::Cut const& cut)
    : m_dataSet(dataSet)
    , m_geometry(app::ZoneGeometry::create(app::ZoneSource(dataSet, 1, lookOf(dataSet), &cut), nullptr, {}))
{
}

double CutMeasure::valueAt(std::int64_t point, int variable) const
{
    auto const group = m_dataSet.field(1, variable)->group();
    auto const value = [&group](std::int64_t n) { return group ? group->buffer()->value(n) : 0.0; };
    auto const at = static_cast<std::size_t>(point);
    if (m_geometry->mixes().empty())
        return value(m_geometry->points()[at]);
    app::ZoneShape::Mix const& mix = m_geometry->mixes()[at];
    return value(mix.first) + mix.share * (value(mix.second) - value(mix.first));
}

std::vector<std::int64_t> CutMeasure::cornersOf(std::int64_t cell) const
{
    vtkNew<vtkIdList> ids;
    drawing().GetCellPoints(cell, ids);
    return {ids->begin(), ids->end()};
}

double CutMeasure::area() const
{
    double sum = 0.0;
    for (std::int64_t cell = drawing().GetNumberOfLines(); cell < cellCount(); ++cell) {
        Numbers const corners = cornersOf(cell);
        for (std::size_t n = 2; n < corners.size(); ++n)
            sum += triangleArea(placeOf(corners[0]), placeOf(corners[n - 1]), placeOf(corners[n]));
    }
    return sum;
}

double CutMeasure::length() const
{
    double sum = 0.0;
    for (std::int64_t line = 0; line < drawing().GetNumberOfLines(); ++line) {
        Numbers const ends = cornersOf(line);
        sum += lengthOf(minus(placeOf(ends[0]), placeOf(ends[1])));
    }
    return sum;
}

std::vector<std::array<std::int64_t, 2>> CutMeasure::openSides() const
{
    std::map<std::array<std::int64_t, 2>, int> uses;
    for (std::int64_t cell = 0; cell < cellCount(); ++cell) {
        Numbers const corners = cornersOf(cell);
        for (std::size_t n = 0; n < corners.size(); ++n) {
            std::int64_t const next = corners[(n + 1) % corners.size()];
            ++uses[{std::min(corners[n], next), std::max(corners[n], next)}];
        }
    }
    std::vector<std::array<std::int64_t, 2>> open;
    for (auto const& [side, count] : uses)
        if (count % 2 != 0)
            open.push_back(side);
    return open;
}

namespace grids {

namespace {

void addVariables(kernel::DataSet& dataSet)
{
    for (char const* name : {"X", "Y", "Z", "P"})
        dataSet.addVariable(std::make_shared<kernel::Variable>(name));
}

void addFields(kernel::Zone& zone, std::vector<Point> const& points, Formula const& p)
{
    for (std::size_t axis = 0; axis < 3; ++axis) {
        std::vector<double> values;
        for (Point const& point : points)
            values.push_back(point[axis]);
        SampleData::addField(zone, values);
    }
    std::vector<double> values;
    std::transform(points.begin(), points.end(), std::back_inserter(values), p);
    SampleData::addField(zone, values);
}

std::vector<Point> places(int i, int j, int k)
{
    auto const share = [](int n, int count) { return count > 1 ? static_cast<double>(n) / (count - 1) : 0.0; };
    std::vector<Point> points;
    for (int c = 0; c < k; ++c)
        for (int b = 0; b < j; ++b)
            for (int a = 0; a < i; ++a)
                points.push_back({share(a, i), share(b, j), share(c, k)});
    return points;
}

using Brick = std::array<std::int64_t, 8>;

// Corners of all bricks of n x n x n, in the usual order, and whether each is an odd one.
std::vector<std::pair<Brick, bool>> bricks(int n)
{
    std::vector<std::pair<Brick, bool>> all;
    std::int64_t const row = n + 1;
    for (int c = 0; c < n; ++c)
        for (int b = 0; b < n; ++b)
            for (int a = 0; a < n; ++a) {
                std::int64_t const p = a + row * (b + row * c);
                std::int64_t const q = p + row * row;
                all.push_back({{p, p + 1, p + row + 1, p + row, q, q + 1, q + row + 1, q + row}, (a + b + c) % 2 != 0});
            }
    return all;
}

struct Lists
{
    Numbers offsets{0};
    Numbers indices;
    std::vector<Connectivity::Shape> shapes;
    Numbers faceOffsets;
    Numbers faces;

    void add(Brick const& brick, std::vector<int> const& corners)
    {
        for (int const corner : corners)
            indices.push_back(brick[static_cast<std::size_t>(corner)]);
        offsets.push_back(static_cast<std::int64_t>(indices.size()));
    }
};

std::shared_ptr<kernel::DataSet> dataSetOf(ZoneType_e type, std::vector<Point> const& points,
                                           std::shared_ptr<Lists> const& lists, Formula const& p)
{
    auto const cells = std::make_shared<Connectivity>();
    cells->cellCount = static_cast<std::int64_t>(lists->offsets.size()) - 1;
    cells->indexCount = static_cast<std::int64_t>(lists->indices.size());
    cells->offsets = lists->offsets.data();
    cells->indices = lists->indices.data();
    cells->shapes = lists->shapes.empty() ? nullptr : lists->shapes.data();
    cells->faceOffsets = lists->faceOffsets.empty() ? nullptr : lists->faceOffsets.data();
    cells->faceStream = lists->faces.empty() ? nullptr : lists->faces.data();
    cells->faceStreamSize = static_cast<std::int64_t>(lists->faces.size());
    cells->owner = lists;
    auto dataSet = std::make_shared<kernel::DataSet>("grid");
    addVariables(*dataSet);
    auto zone =
        std::make_shared<kernel::Zone>("grid", type, static_cast<std::int64_t>(points.size()), cells->cellCount, 0);
    zone->connectivity = cells;
    dataSet->addZone(zone);
    addFields(*zone, points, p);
    return dataSet;
}

void addPolyhedron(Lists& lists, Brick const& brick)
{
    lists.add(brick, {0, 1, 2, 3, 4, 5, 6, 7});
    lists.faceOffsets.push_back(static_cast<std::int64_t>(lists.faces.size()));
    lists.faces.push_back(6);
    // Every other face inside out, as files have them.
    for (std::array<int, 4> const& face :
         {std::array<int, 4>{0, 4, 7, 3}, {5, 6, 2, 1}, {0, 1, 5, 4}, {2, 6, 7, 3}, {0, 3, 2, 1}, {7, 6, 5, 4}}) {
        lists.faces.push_back(4);
        for (int const corner : face)
            lists.faces.push_back(brick[static_cast<std::size_t>(corner)]);
    }
}

} // namespace

std::shared_ptr<kernel::DataSet> ordered(int i, int j, int k, Formula const& p, Bend const& bend)
{
    std::vector<Point> points = places(i, j, k);
    if (bend)
        std::transform(points.begin(), points.end(), points.begin(), bend);
    auto dataSet = std::make_shared<kernel::DataSet>("grid");
    addVariables(*dataSet);
    auto zone = std::make_shared<kernel::Zone>("grid", ZoneType_Ordered, i, j, k);
    dataSet->addZone(zone);
    addFields(*zone, points, p);
    return dataSet;
}

std::shared_ptr<kernel::DataSet> elements(ZoneType_e type, int n, Formula const& p)
{
    auto const lists = std::make_shared<Lists>();
    for (auto const& [brick, isOdd] : bricks(n)) {
        if (type == ZoneType_FEPolyhedron) {
            addPolyhedron(*lists, brick);
        } else if (type == ZoneType_FEBrick) {
            lists->add(brick, {0, 1, 2, 3, 4, 5, 6, 7});
        } else if (isOdd) {
            for (auto const& tet :
                 {std::vector<int>{0, 1, 3, 4}, {1, 2, 3, 6}, {1, 4, 5, 6}, {3, 4, 6, 7}, {1, 3, 4, 6}})
                lists->add(brick, tet);
        } else {
            for (auto const& tet :
                 {std::vector<int>{0, 1, 2, 5}, {0, 2, 3, 7}, {0, 4, 5, 7}, {2, 5, 6, 7}, {0, 2, 5, 7}})
                lists->add(brick, tet);
        }
    }
    return dataSetOf(type, places(n + 1, n + 1, n + 1), lists, p);
}

std::shared_ptr<kernel::DataSet> mixed(Connectivity::Shape shape, int n, Formula const& p)
{
    auto const lists = std::make_shared<Lists>();
    std::vector<Point> points = places(n + 1, n + 1, n + 1);
    for (auto const& [brick, isOdd] : bricks(n)) {
        if (shape == Connectivity::Shape::Prism) {
            lists->add(brick, {0, 3, 1, 4, 7, 5});
            lists->add(brick, {1, 3, 2, 5, 7, 6});
            continue;
        }
        Point const low = points[static_cast<std::size_t>(brick[0])];
        Point const high = points[static_cast<std::size_t>(brick[6])];
        auto const middle = static_cast<std::int64_t>(points.size());
        points.push_back({(low[0] + high[0]) / 2, (low[1] + high[1]) / 2, (low[2] + high[2]) / 2});
        for (auto const& base :
             {std::vector<int>{0, 3, 7, 4}, {1, 5, 6, 2}, {0, 4, 5, 1}, {3, 2, 6, 7}, {0, 1, 2, 3}, {4, 7, 6, 5}}) {
            lists->add(brick, base);
            lists->indices.push_back(middle);
            ++lists->offsets.back();
        }
    }
    lists->shapes.assign(lists->offsets.size() - 1, shape);
    return dataSetOf(ZoneType_FEMixed, points, lists, p);
}

void hideCells(kernel::DataSet& dataSet, std::vector<int> const& cells)
{
    kernel::Zone& zone = *dataSet.zone(1);
    auto const marks = kernel::Buffer::allocate(FieldDataType_Byte, zone.cellCount());
    for (int const cell : cells)
        marks->setValue(cell, kernel::Blanking::hiddenCell);
    zone.blanking = std::make_shared<kernel::Blanking>(zone, kernel::Blanking::Marks{nullptr, marks});
}

} // namespace grids

} // namespace veldraw::tests
