#include "tests/kernel/support/SpatialData.h"

#include "kernel/operations/SetPlotType.h"
#include "tests/kernel/support/SampleData.h"

#include <numeric>

namespace veldraw::tests {

using namespace kernel;
using Shape = Connectivity::Shape;

namespace sample {

SpatialVariables const inSpace{{1, 2, 3}, {4, 5, 6}, true, true};
SpatialVariables const inPlane{{1, 2, 0}, {4, 5, 0}, false, true};
SpatialVariables const noVector{{1, 2, 3}, {}, true, false};

namespace {

constexpr int variableCount = 7;
constexpr std::int64_t pointsOfCells = 16;

void fillAtRandom(Zone& zone, unsigned seed, FieldDataType_e type)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> distribution(-1.0, 1.0);
    for (int variable = 0; variable < variableCount; ++variable) {
        std::vector<double> numbers(static_cast<std::size_t>(zone.pointCount()));
        std::generate(numbers.begin(), numbers.end(), [&] { return distribution(random); });
        zone.fields.push_back(field(numbers, type));
    }
}

/// Cells, with the memory that they point at.
struct OwnedCells
{
    std::vector<std::int64_t> offsets{0};
    std::vector<std::int64_t> indices;
    std::vector<Shape> shapes;
    std::vector<std::int64_t> faceOffsets;
    std::vector<std::int64_t> faceStream;

    /// A cell of the points @p first, @p first + 1 and so on.
    void add(Shape shape, std::int64_t first, std::int64_t size)
    {
        for (std::int64_t corner = 0; corner < size; ++corner) {
            indices.push_back(first + corner);
        }
        offsets.push_back(static_cast<std::int64_t>(indices.size()));
        shapes.push_back(shape);
        faceOffsets.push_back(-1);
    }

    /// A polyhedron over the points @p first to @p first + 4: a pyramid by its faces.
    void addPyramidByFaces(std::int64_t first)
    {
        add(Shape::Polyhedron, first, 5);
        faceOffsets.back() = static_cast<std::int64_t>(faceStream.size());
        for (std::int64_t const entry : {5, 4, 0, 3, 2, 1, 3, 0, 1, 4, 3, 1, 2, 4, 3, 2, 3, 4, 3, 3, 0, 4}) {
            faceStream.push_back(entry);
        }
        for (std::size_t at = static_cast<std::size_t>(faceOffsets.back()) + 1; at < faceStream.size();) {
            std::int64_t const corners = faceStream[at++];
            for (std::int64_t corner = 0; corner < corners; ++corner) {
                faceStream[at++] += first;
            }
        }
    }

    static std::shared_ptr<Connectivity const> share(OwnedCells cells)
    {
        auto const owned = std::make_shared<OwnedCells>(std::move(cells));
        auto connectivity = std::make_shared<Connectivity>();
        connectivity->cellCount = static_cast<std::int64_t>(owned->shapes.size());
        connectivity->indexCount = static_cast<std::int64_t>(owned->indices.size());
        connectivity->offsets = owned->offsets.data();
        connectivity->indices = owned->indices.data();
        connectivity->shapes = owned->shapes.data();
        if (!owned->faceStream.empty()) {
            connectivity->faceOffsets = owned->faceOffsets.data();
            connectivity->faceStream = owned->faceStream.data();
            connectivity->faceStreamSize = static_cast<std::int64_t>(owned->faceStream.size());
        }
        connectivity->owner = owned;
        return connectivity;
    }
};

void addCells(DataSet& dataSet, ZoneType_e type, unsigned seed, OwnedCells cells)
{
    auto const count = static_cast<std::int64_t>(cells.shapes.size());
    auto zone = std::make_shared<Zone>("cells " + std::to_string(type), type, pointsOfCells, count, 0);
    zone->connectivity = OwnedCells::share(std::move(cells));
    fillAtRandom(*zone, seed, FieldDataType_Double);
    dataSet.addZone(zone);
}

OwnedCells cellsOf(Shape shape, std::int64_t size)
{
    OwnedCells cells;
    cells.add(shape, 0, size);
    cells.add(shape, pointsOfCells - size, size);
    return cells;
}

} // namespace

std::shared_ptr<DataSet> emptySpace()
{
    auto dataSet = std::make_shared<DataSet>("Space");
    for (char const* name : {"X", "Y", "Z", "U", "V", "W", "P"}) {
        dataSet->addVariable(std::make_shared<Variable>(name));
    }
    return dataSet;
}

std::shared_ptr<Zone> addOrdered(DataSet& dataSet, std::int64_t i, std::int64_t j, std::int64_t k, FieldDataType_e type)
{
    auto zone = std::make_shared<Zone>("ordered", ZoneType_Ordered, i, j, k);
    fillAtRandom(*zone, static_cast<unsigned>(dataSet.zoneCount()), type);
    dataSet.addZone(zone);
    return zone;
}

std::shared_ptr<DataSet> everyKindOfCells(unsigned seed)
{
    auto dataSet = emptySpace();
    addCells(*dataSet, ZoneType_FELineSeg, seed, cellsOf(Shape::LineSegment, 2));
    addCells(*dataSet, ZoneType_FETriangle, seed + 1, cellsOf(Shape::Triangle, 3));
    addCells(*dataSet, ZoneType_FEQuad, seed + 2, cellsOf(Shape::Quad, 4));
    addCells(*dataSet, ZoneType_FETetra, seed + 3, cellsOf(Shape::Tetrahedron, 4));
    addCells(*dataSet, ZoneType_FEBrick, seed + 4, cellsOf(Shape::Brick, 8));
    addCells(*dataSet, ZoneType_FEPolygon, seed + 5, cellsOf(Shape::Polygon, 5));
    OwnedCells polyhedra;
    polyhedra.addPyramidByFaces(0);
    polyhedra.addPyramidByFaces(8);
    addCells(*dataSet, ZoneType_FEPolyhedron, seed + 6, polyhedra);
    OwnedCells mixed;
    mixed.add(Shape::Pyramid, 0, 5);
    mixed.add(Shape::Prism, 4, 6);
    mixed.add(Shape::Tetrahedron, 10, 4);
    mixed.add(Shape::Brick, 8, 8);
    mixed.add(Shape::Triangle, 1, 3);
    addCells(*dataSet, ZoneType_FEMixed, seed + 7, mixed);
    addOrdered(*dataSet, 5, 1, 1);
    addOrdered(*dataSet, 3, 4, 1);
    addOrdered(*dataSet, 3, 1, 4);
    addOrdered(*dataSet, 3, 2, 4);
    return dataSet;
}

std::vector<double> values(DataSet const& dataSet, int zone, int variable)
{
    Field const& field = *dataSet.field(zone, variable);
    std::vector<double> numbers(static_cast<std::size_t>(dataSet.zone(zone)->valueCount(field.location())));
    for (std::size_t at = 0; at < numbers.size() && !field.isPassive(); ++at) {
        numbers[at] = field.group()->buffer()->value(static_cast<std::int64_t>(at));
    }
    return numbers;
}

std::shared_ptr<Frame> show(Session& session, std::shared_ptr<DataSet> const& dataSet)
{
    auto frame = std::make_shared<Frame>("Frame 1", Rectangle{});
    frame->dataSet = dataSet;
    session.openPage({frame});
    session.perform(SetPlotType(frame->id, PlotType_Cartesian3D));
    for (int component = 0; component < 3; ++component) {
        session.perform(AssignVariable(frame->id, static_cast<char>('X' + component), 1 + component));
        session.perform(AssignVariable(frame->id, static_cast<char>('U' + component), 4 + component));
    }
    session.history().clear();
    return frame;
}

} // namespace sample

} // namespace veldraw::tests
