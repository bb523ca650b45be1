#include "app/plot/LineView.h"

#include "app/plot/CurveStyle.h"
#include "app/plot/LinePoints.h"
#include "app/plot/PenColour.h"
#include "app/plot/PlaneAxes.h"
#include "app/plot/PlotTheme.h"
#include "app/plot/TickLabels.h"

#include <QStringList>
#include <vtkAxis.h>
#include <vtkContextScene.h>
#include <vtkDoubleArray.h>
#include <vtkPen.h>
#include <vtkPlotLine.h>
#include <vtkTable.h>

#include <algorithm>
#include <cmath>
#include <map>

namespace veldraw::app {

namespace {

constexpr std::int64_t longestCurve = 200000000; // the order of the points on a curve is a list in memory

// Limits with air around the curve, and a width of their own where all values are equal.
std::array<double, 2> roomy(double min, double max, double air)
{
    double const width = max > min ? max - min : std::max(1e-12, std::abs(min)) * 0.1;
    return {min - air * width, max + air * width};
}

QString joinedNames(QStringList names)
{
    constexpr int most = 3;
    names.removeDuplicates();
    if (names.size() <= most)
        return names.join(QStringLiteral(", "));
    return LineView::tr("%1, %2 and %3 more").arg(names[0], names[1]).arg(names.size() - 2);
}

// Whether there are curves to be shown, but neither as lines nor as symbols.
bool showsNothing(kernel::Frame const& frame)
{
    auto const& maps = frame.lineMaps;
    auto const isActive = [](kernel::LineMap const& map) { return map.active; };
    auto const isSeen = [&](kernel::LineMap const& map) { return map.active && CurveStyle::isSeen(frame, map); };
    return std::any_of(maps.begin(), maps.end(), isActive) && std::none_of(maps.begin(), maps.end(), isSeen);
}

bool areDisjoint(std::set<kernel::UniqueId> const& a, std::set<kernel::UniqueId> const& b)
{
    return std::none_of(a.begin(), a.end(), [&b](kernel::UniqueId id) { return b.count(id) != 0; });
}

} // namespace

LineView::LineView()
{
    styleChart();
    m_actor->GetScene()->AddItem(m_chart);
    m_actor->GetScene()->AddItem(m_legend);
    m_actor->GetScene()->SetRenderer(&ground());
    ground().AddActor(m_actor);
}

LineView::~LineView() = default;

void LineView::styleChart()
{
    for (int const position : {vtkAxis::LEFT, vtkAxis::BOTTOM}) {
        vtkAxis* const axis = m_chart->GetAxis(position);
        axis->SetBehavior(vtkAxis::FIXED);
        setColour(*axis->GetPen(), PlotTheme::axis());
        setColour(*axis->GetGridPen(), PlotTheme::grid());
        PlotTheme::apply(*axis->GetLabelProperties(), PlotTheme::quietText(), PlotTheme::labelSize);
        PlotTheme::apply(*axis->GetTitleProperties(), PlotTheme::text(), PlotTheme::titleSize, true);
    }
    m_chart->SetShowLegend(false); // it has one of ours above it
    m_chart->SetLayoutStrategy(vtkChart::FILL_RECT);
    m_chart->SetHiddenAxisBorder(24);
}

void LineView::setArea(ViewArea const& viewArea)
{
    FrameView::setArea(viewArea);
    for (int n = 0; n < m_chart->GetNumberOfPlots(); ++n)
        m_chart->GetPlot(n)->SetWidth(
            static_cast<float>(m_shown[static_cast<std::size_t>(n)].width * viewArea.pixelRatio));
    placeLegend();
    labelAxes();
}

// Estimates of what the axes leave: the chart itself knows only once it is drawn.
void LineView::labelAxes()
{
    constexpr int mostLines = 3;
    double const ratio = area().pixelRatio;
    double const width = std::max(area().width - 110.0 * ratio, 0.6 * area().width);
    double const chart = area().height - m_legend->height();
    double const height = std::max(chart - 70.0 * ratio, 0.6 * chart);
    vtkAxis& bottom = *m_chart->GetAxis(vtkAxis::BOTTOM);
    vtkAxis& left = *m_chart->GetAxis(vtkAxis::LEFT);
    PlaneAxes::setTitle(bottom, m_titles[0], width, ratio, mostLines);
    PlaneAxes::setTitle(left, m_titles[1], height, ratio, mostLines);
    PlaneAxes::setTicks(bottom, width, ratio, m_scales[0]);
    PlaneAxes::setTicks(left, height, ratio, m_scales[1]);
}

void LineView::placeLegend()
{
    m_legend->place({area().width, area().height}, area().pixelRatio);
    auto const height = static_cast<float>(area().height - m_legend->height());
    m_chart->SetSize(vtkRectf(0.0F, 0.0F, static_cast<float>(area().width), height));
}

FrameMessage LineView::show(kernel::Frame const& frame)
{
    m_chart->ClearPlots();
    m_curves.clear();
    m_shown.clear();
    m_leftOut = 0;
    m_scales = {frame.logX, frame.logY};
    m_legend->show({});
    bool const wasShown = m_limits.isValid;
    m_limits = {};
    m_variables = {};
    if (!frame.dataSet)
        return {tr("This frame has no data set."), true};
    if (showsNothing(frame))
        return {tr("Neither lines nor symbols are switched on."), true};
    QString reason = tr("No line map is active.");
    int index = -1;
    bool hasAll = true;
    for (kernel::LineMap const& map : frame.lineMaps) {
        ++index;
        if (!map.active)
            continue;
        QString const missing = addCurve(frame, map, index);
        hasAll = hasAll && missing.isEmpty();
        if (!missing.isEmpty())
            reason = missing;
    }
    if (m_chart->GetNumberOfPlots() == 0)
        return {reason, true};
    setTitles(frame);
    tellApart();
    m_legend->show(m_curves);
    if (!m_limits.isValid)
        return {m_leftOut > 0 ? tr("The curves have no positive values for a logarithmic axis.")
                              : tr("The curves have no finite values."),
                true};
    setArea(area());
    placeView(!wasShown && m_viewLimits != m_limits);
    return {hasAll ? QString() : reason, false, remark(), true};
}

// Curves of one name, such as those of several variables in one zone, are named with their variables too.
void LineView::tellApart()
{
    std::map<QString, int> counts;
    for (Curve const& curve : m_shown)
        ++counts[curve.name];
    for (std::size_t n = 0; n < m_shown.size(); ++n) {
        QString const name = m_shown[n].name;
        if (counts[name] == 1)
            continue;
        m_shown[n].name = name + QStringLiteral(": ") + m_shown[n].variables[1];
        m_curves[n].name = m_shown[n].name;
        m_curves[n].plot->SetLabel(m_shown[n].name.toStdString());
    }
}

QString LineView::remark() const
{
    if (m_leftOut == 0)
        return {};
    return m_leftOut == 1 ? tr("1 point is not shown: its value is not positive, and an axis is logarithmic.")
                          : tr("%1 points are not shown: their values are not positive, and an axis is logarithmic.")
                                .arg(m_leftOut);
}

// A view that the user has moved stays where it is, also when curves are added or removed. With other variables the view is
// fitted again, and so it is with another scale.
void LineView::placeView(bool isNew)
{
    isNew = isNew || m_scales != m_viewScales;
    for (std::size_t axis = 0; axis < 2; ++axis)
        isNew = isNew || areDisjoint(m_variables[axis], m_viewVariables[axis]);
    if (isNew || (m_isFitted && m_viewLimits != m_limits))
        fit();
    m_viewLimits = m_limits;
    m_viewVariables = m_variables;
    m_viewScales = m_scales;
}

QString LineView::addCurve(kernel::Frame const& frame, kernel::LineMap const& map, int index)
{
    kernel::DataSet const& dataSet = *frame.dataSet;
    int const zone = dataSet.zoneNumber(map.zone);
    int const x = dataSet.variableNumber(map.xVariable);
    int const y = dataSet.variableNumber(map.yVariable);
    if (x == 0)
        return tr("No variable is assigned to the X axis.");
    if (y == 0)
        return tr("No variable is assigned to the Y axis.");
    if (zone == 0)
        return tr("No zone is assigned to the line map.");
    if (dataSet.zone(zone)->pointCount() <= 0)
        return tr("The zone of the line map has no points.");
    if (dataSet.zone(zone)->pointCount() > longestCurve)
        return tr("The zone of the line map has too many points to be drawn.");
    for (int const variable : {x, y})
        if (dataSet.field(zone, variable)->isPassive())
            return tr("The variable \"%1\" has no values in the zone of the line map.")
                .arg(QString::fromStdString(dataSet.variable(variable)->name));
    for (int const variable : {x, y})
        if (!dataSet.field(zone, variable)->isLoaded())
            return tr("The variable \"%1\" is not loaded.")
                .arg(QString::fromStdString(dataSet.variable(variable)->name));
    LinePoints const points = LinePoints::create(dataSet, zone, x, y, map.indices, m_scales);
    if (!points.table)
        return tr("One variable has values at points and the other in cells.");

    vtkNew<vtkPlotLine> curve;
    curve->SetInputData(points.table, 0, 1);
    CurveStyle::apply(*curve, frame, map, CurveStyle::colour(map, index), area().pixelRatio);
    if (points.table->GetNumberOfRows() == 1)
        curve->SetMarkerStyle(vtkPlotPoints::CIRCLE); // a line of one point is not seen
    m_chart->AddPlot(curve);
    QString const name = QString::fromStdString(map.name.empty() ? dataSet.variable(y)->name : map.name);
    curve->SetLabel(name.toStdString());
    m_curves.push_back({name, curve.Get()});
    auto const nameOf = [&](int variable) { return QString::fromStdString(dataSet.variable(variable)->name); };
    m_shown.push_back({name, {nameOf(x), nameOf(y)}, points.table, map.look.width});
    m_leftOut += points.notPositive;
    m_variables[0].insert(map.xVariable);
    m_variables[1].insert(map.yVariable);
    include(*points.table);
    return {};
}

void LineView::include(vtkTable& points)
{
    for (vtkIdType n = 0; n < points.GetNumberOfRows(); ++n) {
        std::array<double, 2> const point = {LinePoints::number(points, n, 0), LinePoints::number(points, n, 1)};
        if (!std::isfinite(point[0]) || !std::isfinite(point[1]))
            continue;
        for (std::size_t axis = 0; axis < 2; ++axis) {
            m_limits.min[axis] = m_limits.isValid ? std::min(m_limits.min[axis], point[axis]) : point[axis];
            m_limits.max[axis] = m_limits.isValid ? std::max(m_limits.max[axis], point[axis]) : point[axis];
        }
        m_limits.isValid = true;
    }
}

void LineView::setTitles(kernel::Frame const& frame)
{
    QStringList xNames;
    QStringList yNames;
    for (kernel::LineMap const& map : frame.lineMaps) {
        auto const x = frame.dataSet->variable(frame.dataSet->variableNumber(map.xVariable));
        auto const y = frame.dataSet->variable(frame.dataSet->variableNumber(map.yVariable));
        if (!map.active || !x || !y)
            continue;
        xNames << QString::fromStdString(x->name);
        yNames << QString::fromStdString(y->name);
    }
    m_titles = {joinedNames(xNames), joinedNames(yNames)};
}

bool LineView::dependsOn(kernel::Frame const& frame, int variable) const
{
    if (!frame.dataSet)
        return false;
    return std::any_of(frame.lineMaps.begin(), frame.lineMaps.end(), [&](kernel::LineMap const& map) {
        return frame.dataSet->variableNumber(map.xVariable) == variable ||
               frame.dataSet->variableNumber(map.yVariable) == variable;
    });
}

void LineView::fit()
{
    if (!m_limits.isValid)
        return;
    auto const x = roomy(m_limits.min[0], m_limits.max[0], 0.02);
    auto const y = roomy(m_limits.min[1], m_limits.max[1], 0.06);
    m_chart->GetAxis(vtkAxis::BOTTOM)->SetRange(x[0], x[1]);
    m_chart->GetAxis(vtkAxis::LEFT)->SetRange(y[0], y[1]);
    m_isFitted = true;
    labelAxes();
}

QPointF LineView::inBox(QPointF const& inArea) const
{
    int const* const first = m_chart->GetPoint1();
    int const* const last = m_chart->GetPoint2();
    double const width = std::max(1, last[0] - first[0]);
    double const height = std::max(1, last[1] - first[1]);
    return {(inArea.x() * area().width - first[0]) / width, (inArea.y() * area().height - first[1]) / height};
}

void LineView::pan(QPointF const& from, QPointF const& to)
{
    m_isFitted = false;
    QPointF const step = inBox(to) - inBox(from);
    auto const move = [](vtkAxis& axis, double share) {
        double const shift = share * (axis.GetMaximum() - axis.GetMinimum());
        axis.SetRange(axis.GetMinimum() - shift, axis.GetMaximum() - shift);
    };
    move(*m_chart->GetAxis(vtkAxis::BOTTOM), step.x());
    move(*m_chart->GetAxis(vtkAxis::LEFT), step.y());
    labelAxes();
}

void LineView::zoom(double factor, QPointF const& at)
{
    m_isFitted = false;
    QPointF const fixed = inBox(at);
    auto const scale = [factor](vtkAxis& axis, double share) {
        double const width = axis.GetMaximum() - axis.GetMinimum();
        double const stays = axis.GetMinimum() + share * width;
        axis.SetRange(stays - share * width / factor, stays + (1.0 - share) * width / factor);
    };
    scale(*m_chart->GetAxis(vtkAxis::BOTTOM), fixed.x());
    scale(*m_chart->GetAxis(vtkAxis::LEFT), fixed.y());
    labelAxes();
}

} // namespace veldraw::app
