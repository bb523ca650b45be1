#include "tests/kernel/support/RandomZones.h"

#include "kernel/data/Blanking.h"
#include "tests/kernel/support/SampleData.h"
#include "tests/support/SpecialNumbers.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace veldraw::tests {

using namespace kernel;
using Shape = Connectivity::Shape;

namespace {

bool isOfWholeNumbers(FieldDataType_e type)
{
    return type != FieldDataType_Float && type != FieldDataType_Double;
}

/// The least and the greatest number of a type of whole numbers.
std::array<double, 2> limitsOf(FieldDataType_e type)
{
    switch (type) {
    case FieldDataType_Int32:
        return {-2147483648.0, 2147483647.0};
    case FieldDataType_Int16:
        return {-32768.0, 32767.0};
    case FieldDataType_Byte:
        return {0.0, 255.0};
    default:
        return {0.0, 1.0};
    }
}

sample::CellLists lineOf(int edge)
{
    sample::CellLists cells = sample::fillOf(Shape::Quad, edge, 0.0, 0);
    sample::CellLists line;
    line.points = cells.points;
    for (std::int64_t point = 0; point + 1 < static_cast<std::int64_t>(line.points.size()); ++point) {
        line.add(Shape::LineSegment, {point, point + 1});
    }
    return line;
}

/// Where the cells of an ordered zone of so many cells along each axis have their values: as if they were points.
std::vector<std::size_t> slotsOfOrderedCells(std::size_t edge, bool isFlat)
{
    std::vector<std::size_t> slots;
    for (std::size_t k = 0; k < (isFlat ? 1 : edge); ++k) {
        for (std::size_t j = 0; j < edge; ++j) {
            for (std::size_t i = 0; i < edge; ++i) {
                slots.push_back(i + (edge + 1) * (j + (edge + 1) * k));
            }
        }
    }
    return slots;
}

std::vector<std::int64_t> cornersOf(sample::CellLists const& cells, std::size_t cell)
{
    return {cells.indices.begin() + cells.offsets[cell], cells.indices.begin() + cells.offsets[cell + 1]};
}

std::shared_ptr<Buffer const> bytes(std::vector<bool> const& isMarked, unsigned char mark)
{
    auto const buffer = Buffer::allocate(FieldDataType_Byte, static_cast<std::int64_t>(isMarked.size()));
    for (std::size_t at = 0; at < isMarked.size(); ++at) {
        buffer->setValue(static_cast<std::int64_t>(at), isMarked[at] ? mark : 0);
    }
    return buffer;
}

} // namespace

std::vector<std::size_t> RandomZone::slots(ValueLocation_e location) const
{
    if (location == ValueLocation_CellCentered) {
        return cellSlots;
    }
    std::vector<std::size_t> all(cells.points.size());
    std::iota(all.begin(), all.end(), std::size_t{0});
    return all;
}

RandomZone::Place RandomZone::place(ValueLocation_e location, std::size_t number) const
{
    if (location == ValueLocation_Nodal) {
        return cells.points[number];
    }
    std::vector<Point> const corners = cells.cornersOf(number);
    std::array<long double, 3> sum{};
    for (Point const& corner : corners) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            sum[axis] += corner[axis];
        }
    }
    Place mean{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        mean[axis] = static_cast<double>(sum[axis] / static_cast<long double>(corners.size()));
    }
    return mean;
}

sample::CellLists RandomZones::cellsOf(ZoneType_e type, int edge, bool isFlat)
{
    switch (type) {
    case ZoneType_FELineSeg:
        return lineOf(edge);
    case ZoneType_FETriangle:
        return sample::fillOf(Shape::Triangle, edge, 0.0, 0);
    case ZoneType_FEPolygon:
        return sample::fillOf(Shape::Polygon, edge, 0.0, 0);
    case ZoneType_FETetra:
        return sample::fillOf(Shape::Tetrahedron, edge, 0.0, 0);
    case ZoneType_FEPolyhedron:
        return sample::fillOf(Shape::Polyhedron, edge, 0.0, 0);
    case ZoneType_FEMixed:
        return sample::mixedFill(edge, 0.0, 0);
    default:
        return sample::fillOf(isFlat ? Shape::Quad : Shape::Brick, edge, 0.0, 0);
    }
}

void RandomZones::moveEachPoint(sample::CellLists& cells, bool isFlat, bool inSinglePrecision)
{
    for (Point& point : cells.points) {
        for (std::size_t axis = 0; axis < (isFlat ? 2U : 3U); ++axis) {
            double const moved = point[axis] + between(-0.2, 0.2);
            point[axis] = inSinglePrecision ? static_cast<double>(static_cast<float>(moved)) : moved;
        }
    }
}

RandomZone RandomZones::make(ZoneType_e type, int edge)
{
    bool const isFlat = type == ZoneType_FELineSeg || type == ZoneType_FETriangle || type == ZoneType_FEQuad ||
                        type == ZoneType_FEPolygon || (type == ZoneType_Ordered && happens(0.5));
    bool const inSinglePrecision = happens(0.5);
    RandomZone made;
    made.cells = cellsOf(type, edge, isFlat);
    moveEachPoint(made.cells, isFlat, inSinglePrecision);
    std::size_t const cellCount = made.cells.shapes.size();
    made.zone = made.cells.zone(type, inSinglePrecision ? FieldDataType_Float : FieldDataType_Double);
    if (type == ZoneType_Ordered) {
        auto const ordered =
            std::make_shared<Zone>("ordered", type, edge + 1, edge + 1, isFlat ? std::int64_t{1} : edge + 1);
        ordered->fields = made.zone->fields;
        made.zone = ordered;
        made.cellSlots = slotsOfOrderedCells(static_cast<std::size_t>(edge), isFlat);
    } else {
        made.cellSlots.resize(cellCount);
        std::iota(made.cellSlots.begin(), made.cellSlots.end(), std::size_t{0});
    }
    made.isHiddenPoint.assign(made.cells.points.size(), false);
    made.isHiddenCell.assign(cellCount, false);
    return made;
}

RandomZone RandomZones::pointsOf(RandomZone const& other)
{
    RandomZone made;
    made.cells.points = other.cells.points;
    auto const count = static_cast<std::int64_t>(made.cells.points.size());
    made.zone = std::make_shared<Zone>("points", ZoneType_Ordered, count, 1, 1);
    made.zone->fields = {other.zone->fields[0], other.zone->fields[1], other.zone->fields[2]};
    made.isHiddenPoint.assign(made.cells.points.size(), false);
    for (std::int64_t point = 0; point + 1 < count; ++point) {
        made.cells.add(Shape::LineSegment, {point, point + 1});
        made.cellSlots.push_back(static_cast<std::size_t>(point));
        made.isHiddenCell.push_back(false);
    }
    return made;
}

void RandomZones::hideSome(RandomZone& zone)
{
    sample::CellLists const& cells = zone.cells;
    bool const marksPoints = happens(0.5);
    std::vector<bool>& marked = marksPoints ? zone.isHiddenPoint : zone.isHiddenCell;
    for (std::size_t at = 1; at < marked.size(); ++at) {
        marked[at] = happens(marksPoints ? 0.05 : 0.3);
    }
    Blanking::Marks marks;
    if (marksPoints) {
        marks.ofPoints = bytes(marked, Blanking::hiddenPoint);
        for (std::size_t cell = 0; cell < zone.isHiddenCell.size(); ++cell) { // one of whose corners is marked
            for (std::int64_t const corner : cornersOf(cells, cell)) {
                zone.isHiddenCell[cell] = zone.isHiddenCell[cell] || marked[static_cast<std::size_t>(corner)];
            }
        }
    } else {
        marks.ofCells = bytes(marked, Blanking::hiddenCell);
        std::vector<bool> isShown(zone.isHiddenPoint.size(), false);
        std::vector<bool> hasCells = isShown;
        for (std::size_t cell = 0; cell < marked.size(); ++cell) {
            for (std::int64_t const corner : cornersOf(cells, cell)) {
                auto const point = static_cast<std::size_t>(corner);
                isShown[point] = isShown[point] || !marked[cell];
                hasCells[point] = true;
            }
        }
        for (std::size_t point = 0; point < isShown.size(); ++point) { // all of whose cells are marked
            zone.isHiddenPoint[point] = hasCells[point] && !isShown[point];
        }
    }
    zone.zone->blanking = std::make_shared<Blanking>(*zone.zone, marks);
}

double RandomZones::number(FieldDataType_e type)
{
    switch (type) {
    case FieldDataType_Float:
        return static_cast<double>(static_cast<float>(between(-300.0, 300.0)));
    case FieldDataType_Double:
        return between(-300.0, 300.0);
    case FieldDataType_Int32:
        return below(200001) - 100000;
    case FieldDataType_Int16:
        return below(65536) - 32768;
    case FieldDataType_Byte:
        return below(256);
    case FieldDataType_Bit:
        break;
    }
    return below(2);
}

void RandomZones::addValues(RandomZone& zone, FieldDataType_e type, ValueLocation_e location, bool withGaps)
{
    std::vector<double> numbers(static_cast<std::size_t>(zone.zone->valueCount(location)));
    for (double& one : numbers) {
        bool const isGap = withGaps && !isOfWholeNumbers(type) && &one != numbers.data() && happens(0.04);
        double const gaps[] = {notANumber, infinity, -infinity};
        one = isGap ? oneOf(gaps) : number(type);
    }
    zone.zone->fields.push_back(sample::field(numbers, type, location));
    zone.numbers.push_back(std::move(numbers));
}

bool holds(double found, double wanted, FieldDataType_e type, double tolerance)
{
    if (!isOfWholeNumbers(type)) {
        double const ofType = type == FieldDataType_Float ? 6e-8 * std::abs(wanted) : 0.0;
        return std::abs(found - wanted) <= tolerance + ofType;
    }
    auto const [least, greatest] = limitsOf(type);
    return found >= std::clamp(std::round(wanted - tolerance), least, greatest) &&
           found <= std::clamp(std::round(wanted + tolerance), least, greatest) && found == std::round(found);
}

} // namespace veldraw::tests
