#include "app/plot/ZoneDrawing.h"

#include "app/plot/FieldValues.h"
#include "app/plot/FiniteElementShape.h"
#include "app/plot/OrderedShape.h"
#include "app/plot/PlotTheme.h"
#include "kernel/compute/Parallel.h"

#include <vtkCellData.h>
#include <vtkFloatArray.h>
#include <vtkIdList.h>
#include <vtkIdTypeArray.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkPolyDataNormals.h>
#include <vtkProperty.h>

#include <algorithm>
#include <numeric>

namespace veldraw::app {

namespace {

constexpr char numberName[] = "number of the point";

using Positions = std::array<FieldValues, 3>;

Positions positionsOf(kernel::DataSet const& dataSet, int zone, FieldLook const& look)
{
    return {FieldValues(dataSet.field(zone, look.axes[0])), FieldValues(dataSet.field(zone, look.axes[1])),
            FieldValues(dataSet.field(zone, look.axes[2]))};
}

std::array<double, 3> scenePosition(Positions const& positions, std::int64_t point, FieldLook const& look)
{
    std::array<double, 3> scene{};
    for (int axis = 0; axis < 3; ++axis)
        if (look.axes[static_cast<std::size_t>(axis)] > 0)
            scene[static_cast<std::size_t>(axis)] =
                look.space.toScene(axis, positions[static_cast<std::size_t>(axis)].at(point));
    return scene;
}

bool isFinite(std::array<double, 3> const& position)
{
    return std::isfinite(position[0]) && std::isfinite(position[1]) && std::isfinite(position[2]);
}

double distance(std::array<double, 3> const& a, std::array<double, 3> const& b)
{
    return std::sqrt((a[0] - b[0]) * (a[0] - b[0]) + (a[1] - b[1]) * (a[1] - b[1]) + (a[2] - b[2]) * (a[2] - b[2]));
}

// A one-dimensional ordered zone is a curve or a list of scattered points; where its file did not say which, the points tell.
// On a curve neighbours are close compared with the whole, or there are few and the way along them is short.
bool isScattered(kernel::Zone const& zone, Positions const& positions, FieldLook const& look)
{
    if (zone.isScattered)
        return true;
    if (zone.dimensionality() > 1 || zone.pointCount() < 3)
        return zone.pointCount() < 2;
    std::array<double, 3> low = {1e30, 1e30, 1e30};
    std::array<double, 3> high = {-1e30, -1e30, -1e30};
    std::array<double, 3> last{};
    double way = 0.0;
    double longestStep = 0.0;
    bool first = true;
    for (std::int64_t n = 0; n < zone.pointCount(); ++n) {
        auto const here = scenePosition(positions, n, look);
        if (!isFinite(here))
            continue;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            low[axis] = std::min(low[axis], here[axis]);
            high[axis] = std::max(high[axis], here[axis]);
        }
        double const step = first ? 0.0 : distance(last, here);
        way += step;
        longestStep = std::max(longestStep, step);
        last = here;
        first = false;
    }
    double const diagonal = first ? 0.0 : distance(low, high);
    return longestStep > 0.2 * diagonal && way > 3.0 * diagonal;
}

// Takes the cells out that touch a point without a position, from @p array and from the list of cells.
vtkSmartPointer<vtkCellArray> keepPlaced(vtkCellArray* array, std::vector<bool> const& placed, std::int64_t& drawn,
                                         ZoneShape const& shape, std::vector<std::int64_t>& cells)
{
    if (!array)
        return nullptr;
    auto kept = vtkSmartPointer<vtkCellArray>::New();
    vtkNew<vtkIdList> ids;
    for (vtkIdType n = 0; n < array->GetNumberOfCells(); ++n, ++drawn) {
        array->GetCellAtId(n, ids);
        bool const whole = std::all_of(ids->begin(), ids->end(),
                                       [&placed](vtkIdType id) { return placed[static_cast<std::size_t>(id)]; });
        if (!whole)
            continue;
        kept->InsertNextCell(ids);
        cells.push_back(shape.cellOf(drawn));
    }
    return kept->GetNumberOfCells() > 0 ? kept : nullptr;
}

void leaveOutUnplaced(ZoneShape& shape, std::vector<bool> const& placed)
{
    std::vector<std::int64_t> cells;
    std::int64_t drawn = 0;
    auto const vertices = keepPlaced(shape.vertices, placed, drawn, shape, cells);
    auto const lines = keepPlaced(shape.lines, placed, drawn, shape, cells);
    shape.polygons = keepPlaced(shape.polygons, placed, drawn, shape, cells);
    shape.vertices = vertices;
    shape.lines = lines;
    shape.cells = std::move(cells);
}

vtkSmartPointer<vtkPoints> placePoints(ZoneShape& shape, Positions const& positions, FieldLook const& look)
{
    auto points = vtkSmartPointer<vtkPoints>::New();
    points->SetDataTypeToFloat();
    points->SetNumberOfPoints(shape.pointCount);
    std::vector<bool> placed;
    for (std::int64_t n = 0; n < shape.pointCount; ++n) {
        auto const scene = scenePosition(positions, shape.pointOf(n), look);
        if (isFinite(scene)) {
            points->SetPoint(n, scene.data());
            continue;
        }
        if (placed.empty())
            placed.assign(static_cast<std::size_t>(shape.pointCount), true);
        placed[static_cast<std::size_t>(n)] = false;
        points->SetPoint(n, 0.0, 0.0, 0.0);
    }
    if (!placed.empty())
        leaveOutUnplaced(shape, placed);
    return points;
}

// A note at each point which one it was, for a filter that doubles points.
void numberPoints(vtkPolyData& drawing)
{
    vtkNew<vtkIdTypeArray> numbers;
    numbers->SetNumberOfValues(drawing.GetNumberOfPoints());
    std::iota(numbers->Begin(), numbers->End(), vtkIdType(0));
    numbers->SetName(numberName);
    drawing.GetPointData()->AddArray(numbers);
}

// Takes the notes off again, and has the shape tell of the points that there are now.
void followNumbers(vtkPolyData& drawing, ZoneShape& shape)
{
    auto* const numbers = vtkIdTypeArray::SafeDownCast(drawing.GetPointData()->GetArray(numberName));
    if (drawing.GetNumberOfPoints() > shape.pointCount) {
        std::vector<std::int64_t> followed;
        followed.reserve(static_cast<std::size_t>(numbers->GetNumberOfValues()));
        for (vtkIdType n = 0; n < numbers->GetNumberOfValues(); ++n)
            followed.push_back(shape.pointOf(numbers->GetValue(n)));
        shape.points = std::move(followed);
        shape.pointCount = drawing.GetNumberOfPoints();
    }
    drawing.GetPointData()->RemoveArray(numberName);
}

// Normals make a curved surface look smooth. At sharp edges points are doubled; faces of an ordered volume do not share points,
// so its edges stay sharp without.
vtkSmartPointer<vtkPolyData> withNormals(vtkPolyData* drawing, bool hasSharpEdges)
{
    vtkNew<vtkPolyDataNormals> normals;
    normals->SetInputData(drawing);
    normals->SetSplitting(hasSharpEdges);
    normals->SetFeatureAngle(35.0);
    normals->ConsistencyOff();
    normals->AutoOrientNormalsOff();
    normals->Update();
    return normals->GetOutput();
}

vtkSmartPointer<vtkPolyData> light(vtkPolyData* drawing, ZoneShape& shape, bool hasSharpEdges)
{
    if (!hasSharpEdges)
        return withNormals(drawing, false);
    numberPoints(*drawing);
    auto lit = withNormals(drawing, true);
    followNumbers(*lit, shape);
    return lit;
}

float pointSize(std::int64_t count)
{
    return count < 3000 ? 7.0F : count < 50000 ? 4.0F : 2.0F;
}

} // namespace

ZoneDrawing::ZoneDrawing(kernel::DataSet const& dataSet, int number, FieldLook const& look)
    : m_zone(number)
{
    auto const zone = dataSet.zone(number);
    Positions const positions = positionsOf(dataSet, number, look);
    ZoneShape shape = zone->isOrdered() ? OrderedShape::create(*zone, isScattered(*zone, positions, look))
                                        : FiniteElementShape::create(dataSet, number);
    m_connectivity = shape.connectivity;

    auto drawing = vtkSmartPointer<vtkPolyData>::New();
    drawing->SetPoints(placePoints(shape, positions, look));
    if (shape.vertices)
        drawing->SetVerts(shape.vertices);
    if (shape.lines)
        drawing->SetLines(shape.lines);
    if (shape.polygons)
        drawing->SetPolys(shape.polygons);
    if (look.inSpace && shape.polygons)
        drawing = light(drawing, shape, !zone->isOrdered());
    kernel::Field const* const contour = dataSet.field(number, look.contourVariable);
    if (contour) {
        m_slots = std::move(contour->location() == ValueLocation_Nodal ? shape.points : shape.cells);
        colour(*drawing, *contour, look);
    }

    m_mapper->SetInputData(drawing);
    m_mapper->SetScalarVisibility(contour != nullptr);
    m_mapper->SetInterpolateScalarsBeforeMapping(true);
    m_mapper->SetLookupTable(look.colours);
    m_mapper->UseLookupTableScalarRangeOn();
    m_actor->SetMapper(m_mapper);
    styleActor(look);
}

ZoneDrawing::~ZoneDrawing() = default;

void ZoneDrawing::recolour(kernel::DataSet const& dataSet, FieldLook const& look)
{
    if (kernel::Field const* const contour = dataSet.field(m_zone, look.contourVariable))
        colour(*m_mapper->GetInput(), *contour, look);
}

// The contour variable as a share of the common range, so that single precision is enough for any offset.
void ZoneDrawing::colour(vtkPolyData& drawing, kernel::Field const& field, FieldLook const& look) const
{
    FieldValues const values(&field);
    bool const nodal = field.location() == ValueLocation_Nodal;
    std::int64_t const count = nodal ? drawing.GetNumberOfPoints() : drawing.GetNumberOfCells();
    double const width = look.contourMax - look.contourMin;
    vtkNew<vtkFloatArray> shares;
    shares->SetNumberOfValues(count);
    float* const target = shares->GetPointer(0);
    kernel::parallelFor(count, [&](std::int64_t first, std::int64_t last, std::int64_t) {
        for (std::int64_t n = first; n < last; ++n) {
            double const value = values.at(m_slots.empty() ? n : m_slots[static_cast<std::size_t>(n)]);
            double const share = width > 0.0 ? (value - look.contourMin) / width : value - value + 0.5;
            target[n] = static_cast<float>(share);
        }
    });
    if (nodal)
        drawing.GetPointData()->SetScalars(shares);
    else
        drawing.GetCellData()->SetScalars(shares);
}

void ZoneDrawing::setDepthOrder(std::size_t position, std::size_t count)
{
    // As far from its neighbours as 50 zones stand, if there are no more: nearer ones a wall between them would not hide.
    constexpr double usual = 50.0;
    if (count > 1)
        m_mapper->setDepthOrder(static_cast<double>(count - 1 - position) /
                                std::max(usual, static_cast<double>(count)));
}

void ZoneDrawing::styleActor(FieldLook const& look)
{
    vtkProperty* const property = m_actor->GetProperty();
    QColor const shade = PlotTheme::shade();
    QColor const mesh = PlotTheme::mesh();
    property->SetColor(shade.redF(), shade.greenF(), shade.blueF());
    property->SetEdgeColor(mesh.redF(), mesh.greenF(), mesh.blueF());
    property->SetEdgeVisibility(look.mesh);
    property->SetLineWidth(look.mesh ? 1.0F : 2.0F);

    vtkPolyData* const drawing = m_mapper->GetInput();
    bool const flat = !look.inSpace || drawing->GetNumberOfPolys() == 0;
    property->SetLighting(!flat);
    // Without light the two shares are added: they must give the pure colour.
    property->SetAmbient(flat ? 0.0 : 0.48);
    property->SetDiffuse(flat ? 1.0 : 0.56);
    if (drawing->GetNumberOfVerts() > 0) {
        property->SetRenderPointsAsSpheres(true);
        property->SetPointSize(pointSize(drawing->GetNumberOfVerts()));
    }
    if (drawing->GetNumberOfPolys() == 0 && !m_mapper->GetScalarVisibility())
        property->SetColor(mesh.redF(), mesh.greenF(), mesh.blueF());
}

long long ZoneDrawing::cellCount() const
{
    return m_mapper->GetInput()->GetNumberOfCells();
}

long long ZoneDrawing::bytes() const
{
    return static_cast<long long>(m_mapper->GetInput()->GetActualMemorySize()) * 1024 +
           static_cast<long long>(m_slots.capacity() * sizeof(m_slots.front()));
}

} // namespace veldraw::app
