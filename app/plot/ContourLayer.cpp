#include "app/plot/ContourLayer.h"

#include "app/plot/ColourMap.h"
#include "app/plot/ContourLines.h"
#include "app/plot/PlotTheme.h"

#include <vtkCellArrayIterator.h>
#include <vtkCellData.h>
#include <vtkContextScene.h>
#include <vtkIntArray.h>
#include <vtkMath.h>
#include <vtkProperty.h>
#include <vtkUnsignedCharArray.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace veldraw::app {

namespace {

constexpr double shortestLabelled = 0.06; // in the scene, whose longest side is 1
constexpr std::size_t mostLabels = 300;

struct Middle
{
    double length;
    std::array<double, 3> place;
};

// The point half way along a line.
Middle middleOf(vtkPoints& points, vtkIdType const* ids, vtkIdType count)
{
    std::vector<double> lengths{0.0};
    double here[3];
    double next[3];
    for (vtkIdType n = 1; n < count; ++n) {
        points.GetPoint(ids[n - 1], here);
        points.GetPoint(ids[n], next);
        lengths.push_back(lengths.back() + std::sqrt(vtkMath::Distance2BetweenPoints(here, next)));
    }
    double const half = 0.5 * lengths.back();
    auto const after = std::lower_bound(lengths.begin() + 1, lengths.end() - 1, half);
    auto const at = static_cast<vtkIdType>(after - lengths.begin());
    points.GetPoint(ids[at - 1], here);
    points.GetPoint(ids[at], next);
    double const step = *after - *(after - 1);
    double const share = step > 0.0 ? (half - *(after - 1)) / step : 0.0;
    Middle middle{lengths.back(), {}};
    for (std::size_t n = 0; n < 3; ++n)
        middle.place[n] = here[n] + share * (next[n] - here[n]);
    return middle;
}

vtkSmartPointer<vtkPolyData> noLines()
{
    auto none = vtkSmartPointer<vtkPolyData>::New();
    vtkNew<vtkPoints> points;
    vtkNew<vtkCellArray> lines;
    none->SetPoints(points);
    none->SetLines(lines);
    return none;
}

int levelOf(vtkPolyData& lines, vtkIdType line)
{
    return vtkIntArray::SafeDownCast(lines.GetCellData()->GetArray(ContourLines::levelName))->GetValue(line);
}

std::array<double, 3> rgbOf(QColor const& colour)
{
    return {colour.redF(), colour.greenF(), colour.blueF()};
}

std::vector<std::array<double, 3>> coloursOf(std::vector<float> const& levels, FieldLook const& look)
{
    auto const table = ColourMap::create(0.0, 1.0, 0, look.contourMap);
    std::vector<std::array<double, 3>> colours;
    for (float const level : levels) {
        std::array<double, 3> rgb{};
        table->GetColor(static_cast<double>(level), rgb.data());
        double const brightness = 0.299 * rgb[0] + 0.587 * rgb[1] + 0.114 * rgb[2];
        if (look.isFlooded)
            rgb = rgbOf(brightness < 0.35 ? PlotTheme::grid() : PlotTheme::mesh());
        colours.push_back(rgb);
    }
    return colours;
}

} // namespace

ContourLayer::ContourLayer(vtkRenderer& stage)
    : m_stage(stage)
    , m_lines(noLines())
{
    m_mapper->SetInputData(m_lines);
    m_mapper->SetColorModeToDirectScalars();
    m_mapper->SetScalarModeToUseCellData();
    // Before the surface that they lie in.
    m_mapper->setDepthOrder(0.0);
    m_mapper->SetResolveCoincidentTopologyToPolygonOffset();
    m_mapper->SetRelativeCoincidentTopologyLineOffsetParameters(-1.0, -8.0);
    m_actor->SetMapper(m_mapper);
    m_actor->GetProperty()->SetLighting(false);
    m_actor->GetProperty()->SetAmbient(0.0);
    m_actor->GetProperty()->SetDiffuse(1.0);
    m_actor->GetProperty()->SetLineWidth(1.5F);
    m_labelActor->GetScene()->AddItem(m_labels);
    m_labelActor->GetScene()->SetRenderer(&stage);
}

void ContourLayer::setPixelRatio(double ratio)
{
    m_labels->setPixelRatio(ratio);
    m_actor->GetProperty()->SetLineWidth(static_cast<float>(1.5 * ratio));
}

void ContourLayer::show(Drawings const& drawings, FieldLook const& look)
{
    if (look.lineLevels.empty()) {
        clear();
        return;
    }
    if (look.lineLevels != m_levels)
        m_ofZones.clear();
    m_levels = look.lineLevels;
    findLines(drawings);
    joinLines(drawings);
    colourLines(look);
    m_mapper->SetInputData(m_lines);
    m_labels->show(m_stage, labelsFor(look));
    m_stage.AddActor(m_actor);
    m_stage.AddActor(m_labelActor);
}

void ContourLayer::clear()
{
    m_stage.RemoveActor(m_actor);
    m_stage.RemoveActor(m_labelActor);
    m_labels->show(m_stage, {});
    m_ofZones.clear();
    m_levels.clear();
    m_lines = noLines();
    m_mapper->SetInputData(m_lines);
}

void ContourLayer::findLines(Drawings const& drawings)
{
    auto const before = std::exchange(m_ofZones, {});
    for (auto const& drawing : drawings) {
        if (!drawing->shares() || drawing->style().valuesAt != ValueLocation_Nodal)
            continue;
        auto const known = before.find(drawing->zone());
        bool const isKnown = known != before.end() && known->second.colouring == drawing->colouring();
        m_ofZones[drawing->zone()] =
            isKnown
                ? known->second
                : OfZone{drawing->colouring(), ContourLines::over(drawing->surface(), *drawing->shares(), m_levels)};
    }
}

void ContourLayer::joinLines(Drawings const& drawings)
{
    m_lines = noLines();
    vtkNew<vtkIntArray> levels;
    levels->SetName(ContourLines::levelName);
    for (auto const& drawing : drawings) {
        auto const found = m_ofZones.find(drawing->zone());
        if (found == m_ofZones.end() || found->second.lines->GetNumberOfLines() == 0)
            continue;
        vtkPolyData& lines = *found->second.lines;
        vtkPoints& all = *m_lines->GetPoints();
        m_lines->GetLines()->Append(lines.GetLines(), all.GetNumberOfPoints());
        all.InsertPoints(all.GetNumberOfPoints(), lines.GetNumberOfPoints(), 0, lines.GetPoints());
        for (vtkIdType n = 0; n < lines.GetNumberOfLines(); ++n)
            levels->InsertNextValue(levelOf(lines, n));
    }
    m_lines->GetCellData()->AddArray(levels);
}

// Over the colours of a contour a line stands out from its own colour; alone it has this colour.
void ContourLayer::colourLines(FieldLook const& look)
{
    std::vector<std::array<double, 3>> const colours = coloursOf(m_levels, look);
    vtkNew<vtkUnsignedCharArray> all;
    all->SetNumberOfComponents(3);
    for (vtkIdType line = 0; line < m_lines->GetNumberOfLines(); ++line) {
        auto const& rgb = colours[static_cast<std::size_t>(levelOf(*m_lines, line))];
        all->InsertNextTuple3(255.0 * rgb[0], 255.0 * rgb[1], 255.0 * rgb[2]);
    }
    m_lines->GetCellData()->SetScalars(all);
}

// One number for each line that is not too short, at its middle, those of long lines first.
std::vector<ContourLabels::Label> ContourLayer::labelsFor(FieldLook const& look) const
{
    if (!look.labelLines)
        return {};
    std::vector<std::pair<double, ContourLabels::Label>> found;
    auto const cells = vtk::TakeSmartPointer(m_lines->GetLines()->NewIterator());
    for (cells->GoToFirstCell(); !cells->IsDoneWithTraversal(); cells->GoToNextCell()) {
        vtkIdType count = 0;
        vtkIdType const* ids = nullptr;
        cells->GetCurrentCell(count, ids);
        if (count < 2)
            continue;
        Middle const middle = middleOf(*m_lines->GetPoints(), ids, count);
        auto const level = static_cast<std::size_t>(levelOf(*m_lines, cells->GetCurrentCellId()));
        if (middle.length >= shortestLabelled)
            found.push_back({middle.length, {middle.place, QString::fromStdString(look.lineLabels[level])}});
    }
    std::stable_sort(found.begin(), found.end(), [](auto const& a, auto const& b) { return a.first > b.first; });
    std::vector<ContourLabels::Label> labels;
    for (std::size_t n = 0; n < std::min(found.size(), mostLabels); ++n)
        labels.push_back(std::move(found[n].second));
    return labels;
}

} // namespace veldraw::app
