#include "app/plot/DrawingBatch.h"

#include "app/plot/PlotTheme.h"

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkProperty.h>

#include <algorithm>
#include <functional>

namespace veldraw::app {

namespace {

using Drawings = DrawingBatch::Drawings;

constexpr char depthOrderName[] = "depth order";

// The same array of all drawings, one after the other.
template <typename ArrayOf>
vtkSmartPointer<vtkFloatArray> joined(Drawings const& drawings, int components, ArrayOf const& arrayOf)
{
    auto all = vtkSmartPointer<vtkFloatArray>::New();
    all->SetNumberOfComponents(components);
    vtkIdType count = 0;
    for (ZoneDrawing const* const drawing : drawings)
        count += arrayOf(*drawing)->GetNumberOfValues();
    all->SetNumberOfTuples(count / components);
    float* target = count > 0 ? all->GetPointer(0) : nullptr;
    for (ZoneDrawing const* const drawing : drawings) {
        vtkFloatArray* const part = arrayOf(*drawing);
        if (part->GetNumberOfValues() > 0)
            target = std::copy_n(part->GetPointer(0), part->GetNumberOfValues(), target);
    }
    return all;
}

vtkFloatArray* floats(vtkDataArray* array)
{
    return vtkFloatArray::SafeDownCast(array);
}

template <typename CellsOf>
vtkSmartPointer<vtkCellArray> joinedCells(Drawings const& drawings, CellsOf const& cellsOf)
{
    auto all = vtkSmartPointer<vtkCellArray>::New();
    vtkIdType points = 0;
    for (ZoneDrawing const* const drawing : drawings) {
        vtkPolyData& surface = drawing->surface();
        if (cellsOf(surface)->GetNumberOfCells() > 0)
            all->Append(cellsOf(surface), points);
        points += surface.GetNumberOfPoints();
    }
    return all;
}

vtkSmartPointer<vtkPolyData> joinedShapes(Drawings const& drawings)
{
    auto all = vtkSmartPointer<vtkPolyData>::New();
    vtkNew<vtkPoints> points;
    points->SetData(joined(
        drawings, 3, [](ZoneDrawing const& drawing) { return floats(drawing.surface().GetPoints()->GetData()); }));
    all->SetPoints(points);
    all->SetVerts(joinedCells(drawings, [](vtkPolyData& surface) { return surface.GetVerts(); }));
    all->SetLines(joinedCells(drawings, [](vtkPolyData& surface) { return surface.GetLines(); }));
    all->SetPolys(joinedCells(drawings, [](vtkPolyData& surface) { return surface.GetPolys(); }));
    auto const normalsOf = [](ZoneDrawing const& drawing) {
        return floats(drawing.surface().GetPointData()->GetNormals());
    };
    if (normalsOf(*drawings.front()))
        all->GetPointData()->SetNormals(joined(drawings, 3, normalsOf));
    return all;
}

// Of the cells of all drawings, which are numbered kind by kind: all vertices, all lines, all polygons.
vtkSmartPointer<vtkFloatArray> joinedCellShares(Drawings const& drawings)
{
    auto all = vtkSmartPointer<vtkFloatArray>::New();
    vtkIdType count = 0;
    for (ZoneDrawing const* const drawing : drawings)
        count += drawing->shares()->GetNumberOfValues();
    all->SetNumberOfValues(count);
    float* target = all->GetPointer(0);
    std::vector<vtkIdType> taken(drawings.size(), 0);
    for (auto const countOf :
         {&vtkPolyData::GetNumberOfVerts, &vtkPolyData::GetNumberOfLines, &vtkPolyData::GetNumberOfPolys})
        for (std::size_t n = 0; n < drawings.size(); ++n) {
            vtkIdType const cells = (drawings[n]->surface().*countOf)();
            target = std::copy_n(drawings[n]->shares()->GetPointer(taken[n]), cells, target);
            taken[n] += cells;
        }
    return all;
}

vtkSmartPointer<vtkFloatArray> joinedShares(Drawings const& drawings, bool areNodal)
{
    if (drawings.size() == 1)
        return drawings.front()->shares();
    return areNodal ? joined(drawings, 1, [](ZoneDrawing const& drawing) { return drawing.shares(); })
                    : joinedCellShares(drawings);
}

// The number of each drawing at all of its points.
vtkSmartPointer<vtkFloatArray> spread(std::vector<float> const& numbers,
                                      std::vector<std::shared_ptr<ZoneGeometry const>> const& shapes)
{
    auto all = vtkSmartPointer<vtkFloatArray>::New();
    all->SetName(depthOrderName);
    for (std::size_t n = 0; n < numbers.size(); ++n)
        for (vtkIdType count = shapes[n]->drawing().GetNumberOfPoints(); count > 0; --count)
            all->InsertNextValue(numbers[n]);
    return all;
}

} // namespace

DrawingBatch::DrawingBatch(vtkLookupTable& colours)
{
    m_mapper->SetInterpolateScalarsBeforeMapping(true);
    m_mapper->SetLookupTable(&colours);
    m_mapper->UseLookupTableScalarRangeOn();
    m_actor->SetMapper(m_mapper);
}

void DrawingBatch::show(Drawings const& drawings, bool mesh)
{
    std::vector<std::shared_ptr<ZoneGeometry const>> shown;
    std::vector<kernel::UniqueId> colourings;
    for (ZoneDrawing const* const drawing : drawings) {
        shown.push_back(drawing->geometry());
        colourings.push_back(drawing->colouring());
    }
    bool const isOther = shown != m_shown;
    if (isOther)
        showShapes(drawings);
    if (isOther || colourings != m_colourings)
        showColours(drawings);
    m_shown = std::move(shown);
    m_colourings = std::move(colourings);
    styleActor(drawings.front()->style(), mesh);
}

void DrawingBatch::showShapes(Drawings const& drawings)
{
    if (drawings.size() > 1) {
        m_drawing = joinedShapes(drawings);
    } else {
        m_drawing = vtkSmartPointer<vtkPolyData>::New();
        m_drawing->ShallowCopy(&drawings.front()->surface());
    }
    m_mapper->SetInputData(m_drawing);
    m_depthOrders.clear();
}

void DrawingBatch::showColours(Drawings const& drawings)
{
    DrawingStyle const style = drawings.front()->style();
    m_mapper->SetScalarVisibility(style.isFlooded);
    bool const isNodal = style.valuesAt == ValueLocation_Nodal;
    vtkSmartPointer<vtkFloatArray> shares;
    if (style.isFlooded)
        shares = joinedShares(drawings, isNodal);
    m_drawing->GetPointData()->SetScalars(isNodal ? shares.Get() : nullptr);
    m_drawing->GetCellData()->SetScalars(isNodal ? nullptr : shares.Get());
}

void DrawingBatch::setDepthOrders(std::vector<float> const& orders)
{
    bool const areAlike = std::adjacent_find(orders.begin(), orders.end(), std::not_equal_to<>()) == orders.end();
    m_mapper->setDepthOrder(areAlike && !orders.empty() ? static_cast<double>(orders.front()) : -1.0);
    m_mapper->setDepthOrderArray(areAlike ? std::string() : depthOrderName);
    if (areAlike) {
        m_depthOrders.clear();
        m_drawing->GetPointData()->RemoveArray(depthOrderName);
    } else if (orders != m_depthOrders) {
        m_depthOrders = orders;
        m_drawing->GetPointData()->AddArray(spread(orders, m_shown));
    }
}

void DrawingBatch::styleActor(DrawingStyle const& style, bool mesh)
{
    vtkProperty* const property = m_actor->GetProperty();
    QColor const edges = PlotTheme::mesh();
    QColor const surface = style.hasPolygons || style.isFlooded ? PlotTheme::shade() : edges;
    property->SetColor(surface.redF(), surface.greenF(), surface.blueF());
    property->SetEdgeColor(edges.redF(), edges.greenF(), edges.blueF());
    property->SetEdgeVisibility(mesh);
    property->SetLineWidth(mesh ? 1.0F : 2.0F);
    property->SetLighting(style.isLit);
    // Without light the two shares are added: they must give the pure colour.
    property->SetAmbient(style.isLit ? 0.48 : 0.0);
    property->SetDiffuse(style.isLit ? 0.56 : 1.0);
    if (style.pointSize > 0.0F) {
        property->SetRenderPointsAsSpheres(true);
        property->SetPointSize(style.pointSize);
    }
}

} // namespace veldraw::app
