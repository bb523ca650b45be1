#include "app/plot/VectorLayer.h"

#include "app/plot/FieldValues.h"
#include "app/plot/PlotTheme.h"

#include <vtkArrowSource.h>
#include <vtkCellArray.h>
#include <vtkFloatArray.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkProperty.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace veldraw::app {

namespace {

// In the scene, whose longest side is 1.
constexpr double boxSide = 0.035;
constexpr double longestArrow = 0.055;
constexpr double overSurface = 0.01; // of a plane plot, towards the eye

using Vector = std::array<double, 3>;

// A box of the scene; the scene is about one unit wide, so that 20 bits are enough for each side.
std::uint64_t boxOf(double const* place)
{
    std::uint64_t box = 0;
    for (int axis = 0; axis < 3; ++axis)
        box = box << 20U | (static_cast<std::uint64_t>(std::lround(place[axis] / boxSide) + 500000) & 0xFFFFFU);
    return box;
}

double distanceFromMiddle(double const* place)
{
    double sum = 0.0;
    for (int axis = 0; axis < 3; ++axis) {
        double const inBoxes = place[axis] / boxSide;
        sum += (inBoxes - std::round(inBoxes)) * (inBoxes - std::round(inBoxes));
    }
    return sum;
}

Vector middleOf(vtkPolyData& surface, vtkIdType cell)
{
    vtkIdType count = 0;
    vtkIdType const* ids = nullptr;
    surface.GetCellPoints(cell, count, ids);
    Vector middle{};
    for (vtkIdType n = 0; n < count; ++n)
        for (int axis = 0; axis < 3; ++axis)
            middle[static_cast<std::size_t>(axis)] +=
                surface.GetPoints()->GetData()->GetComponent(ids[n], axis) / static_cast<double>(count);
    return middle;
}

Vector placeOf(vtkPolyData& surface, ValueLocation_e location, vtkIdType at)
{
    if (location == ValueLocation_CellCentered)
        return middleOf(surface, at);
    Vector place{};
    surface.GetPoint(at, place.data());
    return place;
}

// Where the components of the vector stand, if they all stand at the same places.
std::optional<ValueLocation_e> locationOf(kernel::DataSet const& dataSet, int zone, FieldLook const& look)
{
    std::optional<ValueLocation_e> location;
    for (int const variable : look.vector) {
        kernel::Field const* const field = dataSet.field(zone, variable);
        if (!field || field->isPassive())
            continue;
        if (location && *location != field->location())
            return {};
        location = field->location();
    }
    return location;
}

double component(FieldValues const& values, ZoneGeometry const& geometry, ValueLocation_e location, vtkIdType at)
{
    auto const n = static_cast<std::size_t>(at);
    if (location == ValueLocation_CellCentered)
        return values.at(geometry.cells().empty() ? at : geometry.cells()[n]);
    if (geometry.mixes().empty())
        return values.at(geometry.points().empty() ? at : geometry.points()[n]);
    ZoneShape::Mix const& mix = geometry.mixes()[n];
    return (1.0 - mix.share) * values.at(mix.first) + mix.share * values.at(mix.second);
}

vtkSmartPointer<vtkFloatArray> namedArray(char const* name, int components)
{
    auto array = vtkSmartPointer<vtkFloatArray>::New();
    array->SetName(name);
    array->SetNumberOfComponents(components);
    return array;
}

vtkSmartPointer<vtkPolyData> noArrows()
{
    auto none = vtkSmartPointer<vtkPolyData>::New();
    vtkNew<vtkPoints> points;
    none->SetPoints(points);
    none->GetPointData()->AddArray(namedArray(VectorLayer::directionName, 3));
    none->GetPointData()->AddArray(namedArray(VectorLayer::lengthName, 1));
    return none;
}

vtkFloatArray& dataOf(vtkPolyData& arrows, char const* name)
{
    return *vtkFloatArray::SafeDownCast(arrows.GetPointData()->GetArray(name));
}

// From 0 to 1 along the first axis.
void drawFlatArrow(vtkPolyData& arrow)
{
    constexpr double half = 0.025;
    constexpr double neck = 0.68;
    constexpr double barb = 0.12;
    vtkNew<vtkPoints> corners;
    for (auto const& [x, y] :
         {std::pair(0.0, -half), std::pair(neck, -half), std::pair(neck, half), std::pair(0.0, half),
          std::pair(neck - 0.04, -barb), std::pair(1.0, 0.0), std::pair(neck - 0.04, barb)})
        corners->InsertNextPoint(x, y, 0.0);
    vtkNew<vtkCellArray> parts;
    parts->InsertNextCell({0, 1, 2, 3});
    parts->InsertNextCell({4, 5, 6});
    arrow.SetPoints(corners);
    arrow.SetPolys(parts);
}

} // namespace

VectorLayer::VectorLayer(vtkRenderer& stage)
    : m_stage(stage)
    , m_arrows(noArrows())
{
    drawFlatArrow(*m_flatArrow);
    m_mapper->SetInputData(m_arrows);
    m_mapper->SetOrientationArray(directionName);
    m_mapper->SetOrientationModeToDirection();
    m_mapper->SetScaleArray(lengthName);
    m_mapper->SetScaleModeToScaleByMagnitude();
    m_mapper->ScalarVisibilityOff();
    m_actor->SetMapper(m_mapper);
    QColor const dark = PlotTheme::mesh();
    m_actor->GetProperty()->SetColor(dark.redF(), dark.greenF(), dark.blueF());
}

void VectorLayer::show(kernel::DataSet const& dataSet, Drawings const& drawings, FieldLook const& look)
{
    if (!look.showVectors) {
        clear();
        return;
    }
    m_arrows = noArrows();
    auto const before = std::exchange(m_ofZones, {});
    for (auto const& drawing : drawings) {
        auto const known = before.find(drawing->zone());
        if (known != before.end())
            m_ofZones.insert(*known);
        addArrows(dataSet, *drawing, look);
    }
    setLengths(look.areVectorsEqual);
    vtkNew<vtkArrowSource> solid;
    solid->SetTipResolution(12);
    solid->SetTipRadius(0.14);
    solid->SetShaftRadius(0.04);
    if (look.inSpace)
        m_mapper->SetSourceConnection(solid->GetOutputPort());
    else
        m_mapper->SetSourceData(m_flatArrow);
    m_mapper->SetInputData(m_arrows);
    m_actor->GetProperty()->SetLighting(look.inSpace);
    m_stage.AddActor(m_actor);
}

void VectorLayer::clear()
{
    m_stage.RemoveActor(m_actor);
    m_ofZones.clear();
    m_longest = 0.0;
    m_arrows = noArrows();
    m_mapper->SetInputData(m_arrows);
}

// Of all points in a box the one nearest to its middle, so that arrows stand about as far from each other everywhere.
std::shared_ptr<VectorLayer::Anchors const> VectorLayer::anchorsOf(ZoneDrawing const& drawing, ValueLocation_e location)
{
    auto const known = m_ofZones.find(drawing.zone());
    if (known != m_ofZones.end() && known->second.geometry == drawing.geometry() && known->second.location == location)
        return known->second.anchors;
    vtkPolyData& surface = drawing.surface();
    bool const isNodal = location == ValueLocation_Nodal;
    std::unordered_map<std::uint64_t, std::pair<double, vtkIdType>> nearest;
    vtkIdType const count = isNodal ? surface.GetNumberOfPoints() : surface.GetNumberOfCells();
    for (vtkIdType n = 0; n < count; ++n) {
        Vector const place = placeOf(surface, location, n);
        if (!std::isfinite(place[0] + place[1] + place[2]))
            continue;
        double const distance = distanceFromMiddle(place.data());
        auto const [found, isNew] = nearest.try_emplace(boxOf(place.data()), distance, n);
        if (!isNew && distance < found->second.first)
            found->second = {distance, n};
    }
    auto anchors = std::make_shared<Anchors>();
    for (auto const& [box, anchor] : nearest)
        anchors->push_back(anchor.second);
    std::sort(anchors->begin(), anchors->end());
    m_ofZones[drawing.zone()] = {drawing.geometry(), location, anchors};
    return anchors;
}

void VectorLayer::addArrows(kernel::DataSet const& dataSet, ZoneDrawing const& drawing, FieldLook const& look)
{
    auto const location = locationOf(dataSet, drawing.zoneNumber(), look);
    if (!location)
        return;
    std::vector<FieldValues> values;
    for (int const variable : look.vector)
        values.emplace_back(dataSet.field(drawing.zoneNumber(), variable));
    auto const anchors = anchorsOf(drawing, *location);
    for (vtkIdType const anchor : *anchors) {
        Vector direction{};
        double square = 0.0;
        double inScene = 0.0;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            if (look.vector[axis] == 0)
                continue;
            double const number = component(values[axis], *drawing.geometry(), *location, anchor);
            square += number * number;
            direction[axis] = number / look.space.unit(static_cast<int>(axis));
            inScene += direction[axis] * direction[axis];
        }
        if (!std::isfinite(square) || !(inScene > 0.0) || !std::isfinite(inScene))
            continue;
        Vector place = placeOf(drawing.surface(), *location, anchor);
        if (!look.inSpace)
            place[2] += overSurface;
        double const length = std::sqrt(inScene);
        m_arrows->GetPoints()->InsertNextPoint(place.data());
        dataOf(*m_arrows, directionName)
            .InsertNextTuple3(direction[0] / length, direction[1] / length, direction[2] / length);
        dataOf(*m_arrows, lengthName).InsertNextValue(static_cast<float>(std::sqrt(square)));
    }
}

void VectorLayer::setLengths(bool areEqual)
{
    vtkFloatArray& lengths = dataOf(*m_arrows, lengthName);
    m_longest = 0.0;
    for (vtkIdType n = 0; n < lengths.GetNumberOfValues(); ++n)
        m_longest = std::max(m_longest, static_cast<double>(lengths.GetValue(n)));
    for (vtkIdType n = 0; n < lengths.GetNumberOfValues(); ++n) {
        double const share = areEqual ? 1.0 : static_cast<double>(lengths.GetValue(n)) / m_longest;
        lengths.SetValue(n, static_cast<float>(longestArrow * share));
    }
}

} // namespace veldraw::app
