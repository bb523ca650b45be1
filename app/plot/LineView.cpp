#include "app/plot/LineView.h"

#include "app/plot/CurveStyle.h"
#include "app/plot/LinePoints.h"
#include "app/plot/PlotTheme.h"
#include "app/plot/TextFit.h"

#include <vtkContextScene.h>
#include <vtkDoubleArray.h>
#include <vtkPen.h>
#include <vtkPlotLine.h>
#include <vtkTable.h>
#include <vtkTextProperty.h>

#include <algorithm>
#include <cmath>
#include <map>

namespace veldraw::app {

namespace {

constexpr std::int64_t longestCurve = 200000000; // the order of the points on a curve is a list in memory

// Whether there are curves to be shown, but neither as lines nor as symbols.
bool showsNothing(kernel::Frame const& frame)
{
    auto const& maps = frame.lineMaps;
    auto const isActive = [](kernel::LineMap const& map) { return map.active; };
    auto const isSeen = [&](kernel::LineMap const& map) { return map.active && CurveStyle::isSeen(frame, map); };
    return std::any_of(maps.begin(), maps.end(), isActive) && std::none_of(maps.begin(), maps.end(), isSeen);
}

} // namespace

LineView::LineView()
    : m_axes(*m_chart)
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
    PlotTheme::apply(*m_chart->GetTitleProperties(), PlotTheme::text(), PlotTheme::titleSize, true);
    m_chart->SetShowLegend(false); // it has one of ours above it
    m_chart->SetLayoutStrategy(vtkChart::FILL_RECT);
    m_chart->SetHiddenAxisBorder(24);
}

void LineView::setArea(ViewArea const& viewArea)
{
    FrameView::setArea(viewArea);
    for (std::size_t n = 0; n < m_curves.size(); ++n)
        m_curves[n].plot->SetWidth(static_cast<float>(m_shown[n].width * viewArea.pixelRatio));
    placeLegend();
    labelAxes();
}

// Estimates of what the axes leave: the chart itself knows only once it is drawn.
void LineView::labelAxes()
{
    double const ratio = area().pixelRatio;
    double const beside = m_axes.isUsed(kernel::LineAxisKind::Y2) ? 200.0 : 110.0;
    double const width = std::max(area().width - beside * ratio, 0.6 * area().width);
    double const chart = area().height - m_legend->height();
    double const height = std::max(chart - 70.0 * ratio, 0.6 * chart);
    m_axes.label({width, height}, ratio);
    TextFit const title = TextFit::into(width, m_title, *m_chart->GetTitleProperties(), ratio);
    m_chart->GetTitleProperties()->SetFontSize(title.size);
    m_chart->SetTitle(title.text.toStdString());
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
    m_title = QString::fromStdString(frame.lineAxes.title);
    m_legend->show({});
    bool const wasShown = m_axes.hasValues();
    m_axes.begin(frame);
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
    tellApart();
    m_legend->show(m_curves);
    if (!m_axes.hasValues())
        return {m_leftOut > 0 ? tr("The curves have no positive values for a logarithmic axis.")
                              : tr("The curves have no finite values."),
                true};
    setArea(area());
    m_axes.place(!wasShown);
    labelAxes();
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

// Why a line map has no curve; empty if it has one.
QString LineView::reasonAgainst(kernel::DataSet const& dataSet, kernel::LineMap const& map)
{
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
    return {};
}

QString LineView::addCurve(kernel::Frame const& frame, kernel::LineMap const& map, int index)
{
    kernel::DataSet const& dataSet = *frame.dataSet;
    QString const reason = reasonAgainst(dataSet, map);
    if (!reason.isEmpty())
        return reason;
    int const zone = dataSet.zoneNumber(map.zone);
    int const x = dataSet.variableNumber(map.xVariable);
    int const y = dataSet.variableNumber(map.yVariable);
    LinePoints const points = LinePoints::create(dataSet, zone, x, y, map.indices, m_axes.scalesOf(map));
    if (!points.table)
        return tr("One variable has values at points and the other in cells.");

    vtkNew<vtkPlotLine> curve;
    curve->SetInputData(points.table, 0, 1);
    CurveStyle::apply(*curve, frame, map, CurveStyle::colour(map, index), area().pixelRatio);
    if (points.table->GetNumberOfRows() == 1)
        curve->SetMarkerStyle(vtkPlotPoints::CIRCLE); // a line of one point is not seen
    m_chart->AddPlot(curve);
    constexpr int besideSecondAxis = 1; // a corner of the chart
    if (map.isOnSecondAxis)
        m_chart->SetPlotCorner(curve, besideSecondAxis);
    QString const name = QString::fromStdString(map.name.empty() ? dataSet.variable(y)->name : map.name);
    curve->SetLabel(name.toStdString());
    m_curves.push_back({name, curve.Get()});
    auto const nameOf = [&](int variable) { return QString::fromStdString(dataSet.variable(variable)->name); };
    m_shown.push_back({name, {nameOf(x), nameOf(y)}, points.table, map.look.width, map.isOnSecondAxis});
    m_leftOut += points.notPositive;
    m_axes.add(map, m_shown.back().variables, *points.table);
    return {};
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
    if (!m_axes.hasValues())
        return;
    m_axes.fit();
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
    m_axes.pan(inBox(to) - inBox(from));
    labelAxes();
}

void LineView::zoom(double factor, QPointF const& at)
{
    m_axes.zoom(factor, inBox(at));
    labelAxes();
}

} // namespace veldraw::app
