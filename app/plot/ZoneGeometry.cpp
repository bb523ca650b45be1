#include "app/plot/ZoneGeometry.h"

#include "app/plot/CutShape.h"
#include "app/plot/FiniteElementShape.h"
#include "app/plot/IndexCut.h"
#include "app/plot/OrderedShape.h"
#include "app/plot/SmoothNormals.h"
#include "app/vtk/ProgressObserver.h"
#include "kernel/base/Parallel.h"
#include "kernel/compute/PointSequence.h"

#include <vtkFloatArray.h>
#include <vtkIdList.h>
#include <vtkIdTypeArray.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyDataNormals.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <numeric>

namespace veldraw::app {

namespace {

constexpr char pointNumberName[] = "number of the point";

bool isFinite(std::array<double, 3> const& position)
{
    return std::isfinite(position[0]) && std::isfinite(position[1]) && std::isfinite(position[2]);
}

// A one-dimensional ordered zone is a curve or a list of scattered points; where its file did not say which, the points tell.
bool isScattered(ZoneSource const& source)
{
    kernel::Zone const& zone = source.zone();
    if (!zone.isOrdered() || source.key().cut)
        return false;
    if (zone.isScattered)
        return true;
    if (zone.dimensionality() > 1 || zone.pointCount() < 3)
        return zone.pointCount() < 2;
    kernel::PointSequence points;
    for (std::int64_t n = 0; n < zone.pointCount(); ++n)
        points.add(source.scenePosition(n));
    return points.jump();
}

// The cells of @p array all of whose points have a place. Counts on through the shape's cells, and notes the kept ones.
vtkSmartPointer<vtkCellArray> keepPlaced(vtkCellArray* array, vtkPoints& points, std::int64_t& drawn,
                                         ZoneShape const& shape, ZoneGeometry::Numbers& cells)
{
    auto kept = vtkSmartPointer<vtkCellArray>::New();
    auto const isPlaced = [&points](vtkIdType id) { return std::isfinite(points.GetPoint(id)[0]); };
    vtkNew<vtkIdList> ids;
    for (vtkIdType n = 0; array && n < array->GetNumberOfCells(); ++n, ++drawn) {
        array->GetCellAtId(n, ids);
        if (!std::all_of(ids->begin(), ids->end(), isPlaced))
            continue;
        kept->InsertNextCell(ids);
        cells.push_back(shape.cellOf(drawn));
    }
    return kept;
}

struct PlacedPoints
{
    vtkSmartPointer<vtkPoints> points;
    bool areAllPlaced = true; ///< else those without a place are no numbers
};

std::array<double, 3> placeOf(ZoneShape::Mix const& mix, ZoneSource const& source)
{
    auto place = source.scenePosition(mix.first);
    auto const second = source.scenePosition(mix.second);
    for (std::size_t axis = 0; axis < place.size(); ++axis)
        place[axis] += mix.share * (second[axis] - place[axis]);
    return place;
}

// @param mixes in the place of the numbers, where there are any
PlacedPoints placePoints(std::int64_t count, std::vector<std::int64_t> const& numbers,
                         std::vector<ZoneShape::Mix> const& mixes, ZoneSource const& source)
{
    auto const placed = [&](std::int64_t n) {
        auto const at = static_cast<std::size_t>(n);
        return mixes.empty() ? source.scenePosition(numbers.empty() ? n : numbers[at]) : placeOf(mixes[at], source);
    };
    vtkNew<vtkFloatArray> scene;
    scene->SetNumberOfComponents(3);
    scene->SetNumberOfTuples(count);
    float* const target = count > 0 ? scene->GetPointer(0) : nullptr;
    std::atomic<bool> areAllPlaced{true};
    auto const work = [&](std::int64_t first, std::int64_t last, std::int64_t) {
        for (std::int64_t n = first; n < last; ++n) {
            auto position = placed(n);
            if (!isFinite(position)) {
                areAllPlaced = false;
                position.fill(std::numeric_limits<double>::quiet_NaN());
            }
            for (int axis = 0; axis < 3; ++axis)
                target[3 * n + axis] = static_cast<float>(position[static_cast<std::size_t>(axis)]);
        }
    };
    kernel::parallelFor(count, work, kernel::grainOfFreshMemory(count));
    PlacedPoints result{vtkSmartPointer<vtkPoints>::New(), areAllPlaced};
    result.points->SetData(scene);
    return result;
}

// Points without a place are in no cell, but the graphics card needs finite coordinates.
void zeroUnplaced(vtkPoints& points)
{
    for (vtkIdType n = 0; n < points.GetNumberOfPoints(); ++n)
        if (!std::isfinite(points.GetPoint(n)[0]))
            points.SetPoint(n, 0.0, 0.0, 0.0);
}

// Stores at each point its number in the zone, for a filter that duplicates points.
void numberPoints(vtkPolyData& drawing, ZoneGeometry::Numbers const& points)
{
    vtkNew<vtkIdTypeArray> numbers;
    numbers->SetNumberOfValues(drawing.GetNumberOfPoints());
    if (points.empty())
        std::iota(numbers->Begin(), numbers->End(), vtkIdType(0));
    else
        std::copy(points.begin(), points.end(), numbers->Begin());
    numbers->SetName(pointNumberName);
    drawing.GetPointData()->AddArray(numbers);
}

// Removes these numbers again.
ZoneGeometry::Numbers takeNumbers(vtkPolyData& drawing)
{
    auto* const notes = vtkIdTypeArray::SafeDownCast(drawing.GetPointData()->GetArray(pointNumberName));
    ZoneGeometry::Numbers numbers(notes->Begin(), notes->End());
    drawing.GetPointData()->RemoveArray(pointNumberName);
    return numbers;
}

// Points are doubled at sharp edges.
vtkSmartPointer<vtkPolyData> withSplitNormals(vtkPolyData* drawing, kernel::Progress const& progress)
{
    vtkNew<vtkPolyDataNormals> normals;
    vtkNew<ProgressObserver> observer;
    observer->watch(*normals, progress);
    normals->SetInputData(drawing);
    normals->SetFeatureAngle(35.0);
    normals->ConsistencyOff();
    normals->AutoOrientNormalsOff();
    normals->Update();
    progress.check();
    return normals->GetOutput();
}

// Whether the points are the same but for where the space puts them, and normals stay what they are.
bool isMerelyMoved(GeometryKey const& now, GeometryKey const& before)
{
    auto const scale = [&](int axis) { return now.space.unit(axis) / before.space.unit(axis); };
    return now.hasSamePlaces(before) && (!now.inSpace || (scale(0) == scale(1) && scale(0) == scale(2)));
}

std::int64_t cornersOf(GeometryKey const& key)
{
    return key.cells ? key.cells->indexCount : 0;
}

// Most points and cells are looked at once and left.
std::int64_t workOfCut(GeometryKey const& key)
{
    std::int64_t const points =
        key.type == ZoneType_Ordered ? key.dimensions[0] * key.dimensions[1] * key.dimensions[2] : key.dimensions[0];
    return (points + cornersOf(key)) / 8;
}

} // namespace

ZoneGeometry::ZoneGeometry(GeometryKey key)
    : m_key(std::move(key))
{
}

std::shared_ptr<ZoneGeometry const> ZoneGeometry::create(ZoneSource const& source, ZoneGeometry const* before,
                                                         kernel::Progress const& progress)
{
    std::shared_ptr<ZoneGeometry> geometry(new ZoneGeometry(source.key()));
    if (before && geometry->takeOver(source, *before))
        return geometry;
    geometry->build(source, progress);
    return geometry;
}

bool ZoneGeometry::takeOver(ZoneSource const& source, ZoneGeometry const& before)
{
    if (!m_key.hasSameCells(before.m_key))
        return false;
    m_isOfPoints = isScattered(source);
    if (m_isOfPoints != before.m_isOfPoints)
        return false;
    m_shape = before.m_shape;
    if (!isMerelyMoved(m_key, before.m_key))
        return false;
    m_ownPoints = before.m_ownPoints;
    m_ownCells = before.m_ownCells;
    m_drawing = vtkSmartPointer<vtkPolyData>::New();
    m_drawing->ShallowCopy(before.m_drawing);
    PlacedPoints const placed = placePoints(before.m_drawing->GetNumberOfPoints(), points(), mixes(), source);
    if (!placed.areAllPlaced)
        zeroUnplaced(*placed.points);
    m_drawing->SetPoints(placed.points);
    findBounds(placed.areAllPlaced);
    return true;
}

void ZoneGeometry::build(ZoneSource const& source, kernel::Progress const& progress)
{
    if (!m_shape)
        makeShape(source, progress);
    progress.check();
    PlacedPoints const placed = placePoints(m_shape->pointCount, m_shape->points, m_shape->mixes, source);
    m_drawing = vtkSmartPointer<vtkPolyData>::New();
    m_drawing->SetPoints(placed.points);
    if (m_shape->vertices)
        m_drawing->SetVerts(m_shape->vertices);
    if (m_shape->lines)
        m_drawing->SetLines(m_shape->lines);
    if (m_shape->polygons)
        m_drawing->SetPolys(m_shape->polygons);
    if (!placed.areAllPlaced)
        leaveOutUnplaced(*placed.points);
    if (isLit())
        addNormals(!source.zone().isOrdered() && !m_key.cut, progress);
    findBounds(placed.areAllPlaced);
}

void ZoneGeometry::makeShape(ZoneSource const& source, kernel::Progress const& progress)
{
    kernel::Zone const& zone = source.zone();
    m_isOfPoints = isScattered(source);
    if (m_key.cut)
        m_shape = std::make_shared<ZoneShape>(CutShape::create(zone, *m_key.cut, source.levels(), progress));
    else
        m_shape = std::make_shared<ZoneShape>(zone.isOrdered() ? OrderedShape::create(zone, m_isOfPoints, progress)
                                                               : FiniteElementShape::create(zone, progress));
}

// Slices show the very colours of their values, which a light would change.
bool ZoneGeometry::isLit() const
{
    bool const canBeLit = !m_key.cut || m_key.cut->kind == kernel::CutKind::IsoSurface;
    return canBeLit && m_key.inSpace && m_drawing->GetNumberOfPolys() > 0;
}

// Now, since others only read. Where all of an ordered zone is drawn, each point is in a cell, and points are quicker to look through.
void ZoneGeometry::findBounds(bool areAllPlaced)
{
    m_drawing->ComputeBounds();
    if (areAllPlaced && m_key.type == ZoneType_Ordered && !m_key.blanking && !m_key.cut)
        m_drawing->GetBounds(m_bounds.data());
    else
        m_drawing->GetCellsBounds(m_bounds.data());
}

void ZoneGeometry::leaveOutUnplaced(vtkPoints& points)
{
    Numbers cells;
    std::int64_t drawn = 0;
    m_drawing->SetVerts(keepPlaced(m_shape->vertices, points, drawn, *m_shape, cells));
    m_drawing->SetLines(keepPlaced(m_shape->lines, points, drawn, *m_shape, cells));
    m_drawing->SetPolys(keepPlaced(m_shape->polygons, points, drawn, *m_shape, cells));
    m_ownCells = std::make_shared<Numbers>(std::move(cells));
    zeroUnplaced(points);
}

// Faces of an ordered volume do not share points, so that its edges are sharp without more points.
void ZoneGeometry::addNormals(bool hasSharpEdges, kernel::Progress const& progress)
{
    if (!hasSharpEdges) {
        m_drawing->GetPointData()->SetNormals(SmoothNormals::create(*m_drawing, progress));
        return;
    }
    numberPoints(*m_drawing, m_shape->points);
    m_drawing = withSplitNormals(m_drawing, progress);
    m_ownPoints = std::make_shared<Numbers>(takeNumbers(*m_drawing));
}

std::int64_t ZoneGeometry::work(GeometryKey const& key, ZoneGeometry const* before)
{
    if (before && key.hasSameCells(before->m_key)) {
        std::int64_t const points = before->m_drawing->GetNumberOfPoints();
        return isMerelyMoved(key, before->m_key)
                   ? points
                   : points + before->m_drawing->GetNumberOfCells() * (key.inSpace ? 4 : 1);
    }
    if (key.cut && key.cut->isOfIndex())
        return IndexCut::work(key.dimensions, key.cut->axis());
    if (key.cut)
        return workOfCut(key);
    if (key.type != ZoneType_Ordered)
        return key.dimensions[0] + cornersOf(key);
    auto const [i, j, k] = key.dimensions;
    std::int64_t const surface = i * j + j * k + i * k;
    return key.inSpace ? 4 * surface : surface;
}

long long ZoneGeometry::bytes() const
{
    return static_cast<long long>(m_drawing->GetActualMemorySize()) * 1024 +
           static_cast<long long>((points().capacity() + cells().capacity()) * sizeof(std::int64_t)) +
           static_cast<long long>(mixes().capacity() * sizeof(ZoneShape::Mix));
}

} // namespace veldraw::app
