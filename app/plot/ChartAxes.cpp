#include "app/plot/ChartAxes.h"

#include "app/plot/LinePoints.h"
#include "app/plot/PenColour.h"
#include "app/plot/PlaneAxes.h"
#include "app/plot/PlotTheme.h"

#include <vtkAxis.h>

#include <algorithm>
#include <cmath>

namespace veldraw::app {

namespace {

using Kind = kernel::LineAxisKind;

constexpr std::array<Kind, kernel::lineAxisCount> allAxes{Kind::X, Kind::Y, Kind::Y2};

int positionOf(Kind kind)
{
    return kind == Kind::X ? vtkAxis::BOTTOM : kind == Kind::Y ? vtkAxis::LEFT : vtkAxis::RIGHT;
}

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
    return ChartAxes::tr("%1, %2 and %3 more").arg(names[0], names[1]).arg(names.size() - 2);
}

bool areDisjoint(std::set<kernel::UniqueId> const& a, std::set<kernel::UniqueId> const& b)
{
    return std::none_of(a.begin(), a.end(), [&b](kernel::UniqueId id) { return b.count(id) != 0; });
}

bool differ(double a, double b)
{
    return a < b || a > b;
}

} // namespace

ChartAxes::ChartAxes(vtkChartXY& chart)
    : m_chart(chart)
{
    for (Kind const kind : allAxes) {
        vtkAxis& styled = axis(kind);
        styled.SetBehavior(vtkAxis::FIXED);
        setColour(*styled.GetPen(), PlotTheme::axis());
        setColour(*styled.GetGridPen(), PlotTheme::grid());
        PlotTheme::apply(*styled.GetLabelProperties(), PlotTheme::quietText(), PlotTheme::labelSize);
        PlotTheme::apply(*styled.GetTitleProperties(), PlotTheme::text(), PlotTheme::titleSize, true);
    }
    axis(Kind::Y2).SetGridVisible(false); // lines of two axes would be read as those of one
}

vtkAxis& ChartAxes::axis(Kind kind) const
{
    return *m_chart.GetAxis(positionOf(kind));
}

void ChartAxes::begin(kernel::Frame const& frame)
{
    std::array<bool, kernel::lineAxisCount> const scales{frame.logX, frame.logY, frame.logY2};
    for (Kind const kind : allAxes) {
        auto const n = static_cast<std::size_t>(kind);
        kernel::LineAxis const& setting = frame.lineAxes.at(kind);
        Placed& now = m_now[n];
        now = {};
        now.isLogarithmic = scales[n];
        now.isFixed = setting.isFixed && (!scales[n] || setting.min > 0.0);
        now.fixed = {setting.min, setting.max};
        if (scales[n] && now.isFixed)
            now.fixed = {std::log10(setting.min), std::log10(setting.max)};
        m_names[n].clear();
        m_titles[n] = QString::fromStdString(setting.title);
    }
}

std::array<bool, 2> ChartAxes::scalesOf(kernel::LineMap const& map) const
{
    return {at(Kind::X).isLogarithmic, at(map.isOnSecondAxis ? Kind::Y2 : Kind::Y).isLogarithmic};
}

void ChartAxes::add(kernel::LineMap const& map, std::array<QString, 2> const& names, vtkTable& points)
{
    std::array<Kind, 2> const kinds{Kind::X, map.isOnSecondAxis ? Kind::Y2 : Kind::Y};
    for (std::size_t n = 0; n < kinds.size(); ++n) {
        at(kinds[n]).isUsed = true;
        at(kinds[n]).variables.insert(n == 0 ? map.xVariable : map.yVariable);
        m_names[static_cast<std::size_t>(kinds[n])] << names[n];
    }
    for (vtkIdType row = 0; row < points.GetNumberOfRows(); ++row) {
        std::array<double, 2> const point{LinePoints::number(points, row, 0), LinePoints::number(points, row, 1)};
        if (!std::isfinite(point[0]) || !std::isfinite(point[1]))
            continue;
        for (std::size_t n = 0; n < kinds.size(); ++n)
            at(kinds[n]).include(point[n]);
    }
}

void ChartAxes::Placed::include(double place)
{
    min = isValid ? std::min(min, place) : place;
    max = isValid ? std::max(max, place) : place;
    isValid = true;
}

bool ChartAxes::Placed::hasOtherLimits(Placed const& other) const
{
    return differ(min, other.min) || differ(max, other.max);
}

bool ChartAxes::Placed::showsOther(Placed const& other) const
{
    return isLogarithmic != other.isLogarithmic || areDisjoint(variables, other.variables);
}

bool ChartAxes::Placed::hasOtherRange(Placed const& other) const
{
    return isFixed != other.isFixed ||
           (isFixed && (differ(fixed[0], other.fixed[0]) || differ(fixed[1], other.fixed[1])));
}

bool ChartAxes::hasOtherLimits() const
{
    bool isOther = false;
    for (std::size_t n = 0; n < m_now.size(); ++n)
        isOther = isOther || m_now[n].hasOtherLimits(m_before[n]);
    return isOther;
}

void ChartAxes::place(bool isNew)
{
    axis(Kind::Y).SetVisible(isUsed(Kind::Y) || !isUsed(Kind::Y2));
    axis(Kind::Y2).SetVisible(isUsed(Kind::Y2));
    bool isOther = hasOtherLimits() && (isNew || m_isFitted);
    for (Kind const kind : allAxes)
        isOther = isOther || (isUsed(kind) && before(kind).isUsed && at(kind).showsOther(before(kind)));
    if (isOther)
        fit();
    for (Kind const kind : allAxes)
        if (isUsed(kind) && (!before(kind).isUsed || at(kind).hasOtherRange(before(kind))))
            fit(kind);
    m_before = m_now;
}

void ChartAxes::fit(Kind kind)
{
    Placed const& now = at(kind);
    constexpr double airBeside = 0.02;
    constexpr double airAbove = 0.06;
    if (now.isFixed)
        axis(kind).SetRange(now.fixed[0], now.fixed[1]);
    else if (now.isValid) {
        auto const limits = roomy(now.min, now.max, kind == Kind::X ? airBeside : airAbove);
        axis(kind).SetRange(limits[0], limits[1]);
    }
}

void ChartAxes::fit()
{
    for (Kind const kind : allAxes)
        fit(kind);
    m_isFitted = true;
}

void ChartAxes::pan(QPointF const& step)
{
    m_isFitted = false;
    for (Kind const kind : allAxes) {
        vtkAxis& moved = axis(kind);
        double const shift = (kind == Kind::X ? step.x() : step.y()) * (moved.GetMaximum() - moved.GetMinimum());
        moved.SetRange(moved.GetMinimum() - shift, moved.GetMaximum() - shift);
    }
}

void ChartAxes::zoom(double factor, QPointF const& fixed)
{
    m_isFitted = false;
    for (Kind const kind : allAxes) {
        vtkAxis& scaled = axis(kind);
        double const share = kind == Kind::X ? fixed.x() : fixed.y();
        double const width = scaled.GetMaximum() - scaled.GetMinimum();
        double const stays = scaled.GetMinimum() + share * width;
        scaled.SetRange(stays - share * width / factor, stays + (1.0 - share) * width / factor);
    }
}

void ChartAxes::label(QSizeF const& size, double pixelRatio)
{
    constexpr int mostLines = 3;
    for (Kind const kind : allAxes) {
        auto const n = static_cast<std::size_t>(kind);
        QString const title = m_titles[n].isEmpty() ? joinedNames(m_names[n]) : m_titles[n];
        double const length = kind == Kind::X ? size.width() : size.height();
        PlaneAxes::setTitle(axis(kind), title, length, pixelRatio, mostLines);
        PlaneAxes::setTicks(axis(kind), length, pixelRatio, at(kind).isLogarithmic);
    }
}

kernel::LineAxis ChartAxes::between(Kind kind, double from, double to) const
{
    vtkAxis& cut = axis(kind);
    double const width = cut.GetMaximum() - cut.GetMinimum();
    auto const valueAt = [&](double share) {
        double const place = cut.GetMinimum() + share * width;
        return at(kind).isLogarithmic ? std::pow(10.0, place) : place;
    };
    kernel::LineAxis found;
    found.isFixed = true;
    found.min = valueAt(std::min(from, to));
    found.max = valueAt(std::max(from, to));
    return found;
}

} // namespace veldraw::app
