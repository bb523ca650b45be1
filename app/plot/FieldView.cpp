#include "app/plot/FieldView.h"

#include "app/plot/ContourFlood.h"
#include "app/plot/PlotTheme.h"
#include "app/plot/ShownZones.h"
#include "app/plot/ZoneRanges.h"
#include "kernel/frames/FrameDefaults.h"

#include <QStringList>
#include <vtkContextScene.h>
#include <vtkRenderWindow.h>

#include <algorithm>
#include <utility>

namespace veldraw::app {

namespace {

using BlankingConstraints = std::vector<kernel::BlankingConstraint>;

QString variableName(kernel::DataSet const& dataSet, int number)
{
    auto const variable = dataSet.variable(number);
    return variable ? QString::fromStdString(variable->name) : QString();
}

std::array<kernel::UniqueId, 3> identifiersOf(kernel::DataSet const& dataSet, std::array<int, 3> const& variables)
{
    std::array<kernel::UniqueId, 3> identifiers{};
    for (std::size_t n = 0; n < variables.size(); ++n)
        if (auto const variable = dataSet.variable(variables[n]))
            identifiers[n] = variable->id;
    return identifiers;
}

// Why the contour is missing in some zones, if their values are not loaded or their range is not known yet.
QString contourGap(kernel::Frame const& frame, std::vector<int> const& zones, bool isShown)
{
    int const variable = frame.variableNumber('C');
    for (int const zone : zones) {
        kernel::Field const* const field = frame.dataSet->field(zone, variable);
        if (field && !field->isLoaded())
            return FieldView::tr("The contour variable \"%1\" is not loaded in all zones.")
                .arg(variableName(*frame.dataSet, variable));
        if (field && field->group() && field->group()->isMapped() && !isShown)
            return FieldView::tr("The range of the contour variable \"%1\" is not known.")
                .arg(variableName(*frame.dataSet, variable));
    }
    return {};
}

bool showsCuts(kernel::Frame const& frame)
{
    return frame.showCuts &&
           std::any_of(frame.cuts.begin(), frame.cuts.end(), [](kernel::Cut const& cut) { return cut.isShown; });
}

// What is drawn of the zones: where there are cuts, the outer surfaces of volumes would hide them.
ZoneScene::Items itemsOf(kernel::Frame const& frame, std::vector<int> const& zones)
{
    bool const isCut = showsCuts(frame);
    ZoneScene::Items items;
    for (int const zone : zones)
        if (!isCut || frame.dataSet->zone(zone)->dimensionality() < 3)
            items.push_back({zone, nullptr});
    for (kernel::Cut const& cut : frame.cuts)
        for (int const zone : zones)
            if (isCut && cut.isShown && frame.dataSet->zone(zone)->dimensionality() > 1)
                items.push_back({zone, &cut});
    return items;
}

} // namespace

FieldView::FieldView(bool inSpace, std::function<void()> ready)
    : m_inSpace(inSpace)
    , m_scene(*m_stage, std::move(ready))
    , m_contourLines(*m_stage)
    , m_vectors(*m_stage)
{
    setBehind(*m_stage, false);
    m_legendActor->GetScene()->AddItem(m_legend);
    m_legendActor->GetScene()->SetRenderer(&ground());
    ground().AddActor(m_legendActor);
}

FieldView::~FieldView() = default;

void FieldView::addTo(vtkRenderWindow& window)
{
    FrameView::addTo(window);
    window.AddRenderer(m_stage);
}

void FieldView::removeFrom(vtkRenderWindow& window)
{
    window.RemoveRenderer(m_stage);
    FrameView::removeFrom(window);
}

std::vector<vtkRenderer*> FieldView::renderers() const
{
    std::vector<vtkRenderer*> all = FrameView::renderers();
    all.push_back(m_stage);
    return all;
}

void FieldView::setTransparent(bool isTransparent)
{
    FrameView::setTransparent(isTransparent);
    setBehind(*m_stage, isTransparent);
}

void FieldView::setArea(ViewArea const& viewArea)
{
    FrameView::setArea(viewArea);
    m_contourLines.setPixelRatio(viewArea.pixelRatio);
    m_margins = margins();
    double const widthBefore = m_stageWidth;
    double const heightBefore = m_stageHeight;
    double const ratio = viewArea.pixelRatio;
    m_stageWidth = std::max(1.0, viewArea.width - ratio * (m_margins.left() + m_margins.right()));
    m_stageHeight = std::max(1.0, viewArea.height - ratio * (m_margins.bottom() + m_margins.top()));
    double const left =
        viewArea.fraction.left() + viewArea.fraction.width() * ratio * m_margins.left() / viewArea.width;
    double const bottom =
        viewArea.fraction.top() + viewArea.fraction.height() * ratio * m_margins.bottom() / viewArea.height;
    m_stage->SetViewport(std::clamp(left, 0.0, 1.0), std::clamp(bottom, 0.0, 1.0),
                         std::clamp(left + viewArea.fraction.width() * m_stageWidth / viewArea.width, 0.0, 1.0),
                         std::clamp(bottom + viewArea.fraction.height() * m_stageHeight / viewArea.height, 0.0, 1.0));
    placeLegend();
    if (m_isFitted && (widthBefore != m_stageWidth || heightBefore != m_stageHeight))
        fit();
}

QPointF FieldView::onStage(QPointF const& inArea) const
{
    double const ratio = area().pixelRatio;
    return {(inArea.x() * area().width - ratio * m_margins.left()) / m_stageWidth,
            (inArea.y() * area().height - ratio * m_margins.bottom()) / m_stageHeight};
}

void FieldView::clear()
{
    m_scene.clear();
    m_contourLines.clear();
    m_vectors.clear();
    m_legend->hide();
}

FrameMessage FieldView::show(kernel::Frame const& frame)
{
    clearMarks();
    bool const wasShown = std::exchange(m_isShown, false);
    QString const reason = obstacle(frame);
    if (!reason.isEmpty()) {
        clear();
        return {reason, true};
    }
    kernel::DataSet const& dataSet = *frame.dataSet;
    std::vector<int> const shown = shownZones(frame, m_inSpace);
    m_look = lookOf(frame, shown);
    auto const axesBefore = std::exchange(m_shownAxes, identifiersOf(dataSet, m_look.axes));
    bool const isComplete = m_scene.show(dataSet, itemsOf(frame, shown), m_look);
    m_contourLines.show(m_scene.drawings(), m_look);
    m_vectors.show(dataSet, m_scene.drawings(), m_look);
    updateLegend(variableName(dataSet, m_look.contourVariable));
    setArea(area());
    updateAxes({variableName(dataSet, m_look.axes[0]), variableName(dataSet, m_look.axes[1]),
                variableName(dataSet, m_look.axes[2])});
    m_isShown = true;
    bool const wasStretched = std::exchange(m_isStretched, frame.stretchAxes);
    placeView(m_shownAxes != axesBefore || m_isStretched != wasStretched || (!wasShown && m_viewSpace != m_look.space));
    return {isComplete ? gap(frame, shown) : tr("Drawing\u2026"), false, remark()};
}

// Says which part of the data the picture does not show.
QString FieldView::gap(kernel::Frame const& frame, std::vector<int> const& zones) const
{
    if (zones.size() < zonesWithPoints(frame).size())
        return tr("Zones whose coordinates are not loaded, or that have too many points, are not shown.");
    if (!frame.stretchAxes && kernel::isMereLine({space().length(0), space().length(1), space().length(2)}))
        return tr("To scale this is too thin to be seen. Plot > Stretch Axes gives each axis a scale of its own.");
    QString const inBlanking = gapInBlanking(frame, zones);
    if (!inBlanking.isEmpty())
        return inBlanking;
    QString const inCuts = gapInCuts(frame, zones);
    if (!inCuts.isEmpty())
        return inCuts;
    QString const inVectors = frame.showVectors ? gapInVectors(frame, zones) : QString();
    if (!inVectors.isEmpty())
        return inVectors;
    QString const inContour = frame.hasContour() ? contourGap(frame, zones, hasContour()) : QString();
    if (!inContour.isEmpty() || !frame.hasContour() || hasContour())
        return inContour;
    return frame.variableNumber('C') == 0 ? tr("No variable is assigned to the contour.")
                                          : tr("The contour variable has no values in the enabled zones.");
}

QString FieldView::gapInBlanking(kernel::Frame const& frame, std::vector<int> const& zones) const
{
    for (kernel::BlankingConstraint const& constraint : frame.valueBlanking.inForce(*frame.dataSet)) {
        int const variable = frame.dataSet->variableNumber(constraint.variable);
        for (int const zone : zones)
            if (!hasValues(*frame.dataSet, zone, variable))
                return tr("The variable \"%1\" of value blanking is not loaded in all zones.")
                    .arg(variableName(*frame.dataSet, variable));
    }
    bool const isSeen = std::any_of(m_scene.drawings().begin(), m_scene.drawings().end(),
                                    [](auto const& drawing) { return drawing->cellCount() > 0; });
    return isSeen || m_look.blankings.size() < zones.size() || showsCuts(frame)
               ? QString()
               : tr("Value blanking leaves out all cells.");
}

QString FieldView::gapInVectors(kernel::Frame const& frame, std::vector<int> const& zones) const
{
    bool isAssigned = false;
    for (int const variable : m_look.vector) {
        isAssigned = isAssigned || variable != 0;
        for (int const zone : zones)
            if (variable != 0 && !hasValues(*frame.dataSet, zone, variable))
                return tr("The vector variable \"%1\" is not loaded in all zones.")
                    .arg(variableName(*frame.dataSet, variable));
    }
    if (!isAssigned)
        return tr("No variable is assigned to the vector. Plot > Assign Vector... chooses them.");
    return m_vectors.arrows().GetNumberOfPoints() > 0 || isWaiting()
               ? QString()
               : tr("The vector is 0 or has no values everywhere in the enabled zones.");
}

QString FieldView::gapInCuts(kernel::Frame const& frame, std::vector<int> const& zones) const
{
    if (!showsCuts(frame))
        return {};
    for (kernel::Cut const& cut : frame.cuts) {
        int const variable = frame.dataSet->variableNumber(cut.variable);
        bool const needsValues = cut.isShown && cut.kind == kernel::CutKind::IsoSurface;
        if (needsValues && !std::all_of(zones.begin(), zones.end(),
                                        [&](int zone) { return hasValues(*frame.dataSet, zone, variable); }))
            return tr("The variable \"%1\" of an iso-surface is not loaded in all zones.")
                .arg(variableName(*frame.dataSet, variable));
    }
    auto const isDrawn = [](auto const& drawing) { return drawing->cellCount() > 0; };
    return std::any_of(m_scene.drawings().begin(), m_scene.drawings().end(), isDrawn)
               ? QString()
               : tr("No slice meets the zones. Plot > Slices shows their surfaces again.");
}

QString FieldView::remark() const
{
    QStringList remarks;
    if (m_look.space.isStretched())
        remarks << tr("Axes stretched, not to scale");
    if (m_vectors.longest() > 0.0 && !m_look.areVectorsEqual)
        remarks << tr("Longest arrow: %1").arg(m_vectors.longest(), 0, 'g', 4);
    if (!m_look.blankings.empty())
        remarks << tr("Cells left out by their values");
    remarks << ContourFlood::remarks(m_look);
    return remarks.join(QStringLiteral("; "));
}

// A view that the user has moved keeps showing the same part of the data; a fitted view is fitted again.
void FieldView::placeView(bool isNew)
{
    if (isNew || (m_isFitted && m_viewSpace != m_look.space))
        fit();
    else if (m_viewSpace != m_look.space)
        carryView(m_viewSpace);
    m_viewSpace = m_look.space;
}

QString FieldView::obstacle(kernel::Frame const& frame) const
{
    if (!frame.dataSet)
        return tr("This frame has no data set.");
    std::array<QString, 3> const letters = {tr("X"), tr("Y"), tr("Z")};
    std::array<int, 3> const axes = frame.axisVariables();
    for (std::size_t n = 0; n < (m_inSpace ? 3U : 2U); ++n)
        if (axes[n] == 0)
            return tr("No variable is assigned to the %1 axis.").arg(letters[n]);
    if (frame.dataSet->zoneCount() == 0)
        return tr("The data set has no zones.");
    if (frame.dataSet->enabledZones().empty())
        return tr("No zone is enabled.");
    if (frame.zonesInSight().empty())
        return tr("No time strand has begun at the time %1.").arg(frame.solutionTime);
    std::vector<int> const all = zonesWithPoints(frame);
    if (all.empty())
        return tr("The enabled zones have no points.");
    std::vector<int> const zones = shownZones(frame, m_inSpace);
    if (!zones.empty())
        return obstacleInZones(frame, zones);
    for (std::size_t n = 0; n < (m_inSpace ? 3U : 2U); ++n)
        if (!hasValues(*frame.dataSet, all.front(), axes[n]))
            return tr("The variable on the %1 axis is not loaded.").arg(letters[n]);
    return tr("The enabled zones have too many points to be drawn.");
}

QString FieldView::obstacleInZones(kernel::Frame const& frame, std::vector<int> const& zones) const
{
    std::array<QString, 3> const letters = {tr("X"), tr("Y"), tr("Z")};
    std::array<int, 3> const axes = frame.axisVariables();
    for (std::size_t n = 0; n < (m_inSpace ? 3U : 2U); ++n) {
        bool const atPoints = std::any_of(zones.begin(), zones.end(), [&](int zone) {
            kernel::Field const* const field = frame.dataSet->field(zone, axes[n]);
            return field && field->location() == ValueLocation_Nodal;
        });
        if (!atPoints)
            return tr("The variable on the %1 axis has values at cells, not at points.").arg(letters[n]);
        if (!ZoneRanges::ofCoordinate(*frame.dataSet, zones, axes[n]).isValid())
            return tr("The variable on the %1 axis has no finite values.").arg(letters[n]);
    }
    return {};
}

FieldLook FieldView::lookOf(kernel::Frame const& frame, std::vector<int> const& zones) const
{
    FieldLook look;
    look.inSpace = m_inSpace;
    look.axes = frame.axisVariables();
    if (!m_inSpace)
        look.axes[2] = 0;
    std::array<double, 3> min{};
    std::array<double, 3> max{};
    std::vector<int> const placed = zonesOfAllMoments(frame, zones);
    for (std::size_t n = 0; n < (m_inSpace ? 3U : 2U); ++n) {
        kernel::ValueRange const range = ZoneRanges::ofCoordinate(*frame.dataSet, placed, look.axes[n]);
        min[n] = range.min;
        max[n] = range.max;
    }
    look.space = PlotSpace(min, max, frame.stretchAxes);
    look.isParallel = frame.parallelProjection;
    look.mesh = frame.showMesh;
    look.vector = {frame.variableNumber('U'), frame.variableNumber('V'), m_inSpace ? frame.variableNumber('W') : 0};
    look.showVectors = frame.showVectors;
    look.areVectorsEqual = frame.equalVectors;
    for (int const zone : zones)
        if (auto blanking = frame.blankingOf(zone); blanking != frame.dataSet->zone(zone)->blanking)
            look.blankings[zone] = std::move(blanking);
    ContourFlood::set(look, frame, zones);
    return look;
}

bool FieldView::dependsOn(kernel::Frame const& frame, int variable) const
{
    std::array<int, 3> const axes = frame.axisVariables();
    auto const isOf = [&](kernel::Cut const& cut) {
        return cut.variable != 0 && frame.dataSet && frame.dataSet->variableNumber(cut.variable) == variable;
    };
    auto const isBlanking = [&](kernel::BlankingConstraint const& constraint) {
        return frame.dataSet->variableNumber(constraint.variable) == variable;
    };
    auto const constraints = frame.dataSet ? frame.valueBlanking.inForce(*frame.dataSet) : BlankingConstraints();
    return std::find(axes.begin(), axes.end(), variable) != axes.end() ||
           std::any_of(constraints.begin(), constraints.end(), isBlanking) ||
           (showsCuts(frame) && std::any_of(frame.cuts.begin(), frame.cuts.end(), isOf)) ||
           (frame.showVectors &&
            std::find(m_look.vector.begin(), m_look.vector.end(), variable) != m_look.vector.end()) ||
           (frame.hasContour() && frame.variableNumber('C') == variable);
}

void FieldView::updateLegend(QString const& name)
{
    if (hasContour())
        m_legend->show(name, m_look);
    else
        m_legend->hide();
}

double FieldView::legendWidth() const
{
    double const ratio = area().pixelRatio;
    return m_legend->widthIn(QSizeF(area().width, area().height) / ratio, ratio);
}

void FieldView::placeLegend()
{
    double const width = legendWidth() * area().pixelRatio;
    m_legend->place(QRectF(area().width - width, 0.0, width, area().height), area().pixelRatio);
}

} // namespace veldraw::app
