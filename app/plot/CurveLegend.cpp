#include "app/plot/CurveLegend.h"

#include "app/plot/PenColour.h"
#include "app/plot/PlotTheme.h"
#include "app/plot/TextFit.h"

#include <vtkBrush.h>
#include <vtkContext2D.h>
#include <vtkObjectFactory.h>
#include <vtkPen.h>
#include <vtkRect.h>

#include <algorithm>
#include <numeric>
#include <utility>

namespace veldraw::app {

namespace {

// Logical pixels.
constexpr double boxMargin = 8.0; // around the box
constexpr double padding = 6.0;
constexpr double sampleWidth = 24.0;
constexpr double sampleHeight = 10.0;
constexpr double sampleGap = 6.0;
constexpr double columnGap = 14.0;
constexpr double rowGap = 4.0;
constexpr double narrowColumn = 140.0; // where names lose their middle anyway

constexpr double mostOfTheArea = 0.4;
constexpr int smallestLabel = PlotTheme::labelSize - 1;

std::size_t ceilOfQuotient(std::size_t count, std::size_t parts)
{
    return (count + parts - 1) / parts;
}

} // namespace

vtkStandardNewMacro(CurveLegend)

    CurveLegend::CurveLegend()
{
    PlotTheme::apply(*m_text, PlotTheme::text(), PlotTheme::labelSize);
    m_text->SetVerticalJustificationToTop();
}

void CurveLegend::show(std::vector<Curve> curves)
{
    m_curves = std::move(curves);
    layOut();
}

void CurveLegend::place(QSizeF const& area, double pixelRatio)
{
    if (area == m_area && pixelRatio == m_ratio)
        return;
    m_area = area;
    m_ratio = pixelRatio;
    layOut();
}

void CurveLegend::layOut()
{
    m_cells.clear();
    m_box = {};
    m_text->SetFontSize(PlotTheme::labelSize);
    QSizeF const room(m_area.width() - 2.0 * (boxMargin + padding) * m_ratio,
                      mostOfTheArea * m_area.height() - (boxMargin + 2.0 * padding) * m_ratio);
    if (m_curves.empty() || rowsIn(room) == 0 || textWidth(room, 1) < narrowColumn * m_ratio / 2.0)
        return;
    bool const canList = m_curves.size() <= rowsIn(room);
    constexpr int linesOfWholeNames = 8;
    if ((canList && list(room, linesOfWholeNames, false)) || placeInColumns(room))
        return;
    for (int lines = linesOfWholeNames - 1; canList && lines > 1; --lines)
        if (list(room, lines, true))
            return;
    countTheRest(room);
}

// Places the names one below the other. @return false if there is not enough room
bool CurveLegend::list(QSizeF const& room, int mostLines, bool canShorten)
{
    m_cells.clear();
    int size = PlotTheme::labelSize;
    bool areWhole = true;
    for (Curve const& curve : m_curves) {
        TextFit const fit = TextFit::into(textWidth(room, 1), curve.name, *m_text, m_ratio, mostLines);
        m_cells.push_back({fit.text, curve.plot});
        size = std::min(size, fit.size);
        areWhole = areWhole && fit.isWhole;
    }
    m_text->SetFontSize(size);
    arrange(1);
    return (areWhole || canShorten) && contentHeight() <= room.height();
}

// Places all names, uncut and in one line each, in as few columns as possible. @return false if they are too wide
bool CurveLegend::placeInColumns(QSizeF const& room)
{
    for (int const size : {PlotTheme::labelSize, smallestLabel}) {
        m_text->SetFontSize(size);
        std::size_t const columns = ceilOfQuotient(m_curves.size(), rowsIn(room));
        if (widestName() > textWidth(room, columns))
            continue;
        m_cells.clear();
        for (Curve const& curve : m_curves)
            m_cells.push_back({curve.name, curve.plot});
        arrange(columns);
        return true;
    }
    return false;
}

// Places as many names as there is room for, in one line each, and leaves out the middle of long ones.
void CurveLegend::countTheRest(QSizeF const& room)
{
    m_text->SetFontSize(smallestLabel);
    std::size_t const rows = rowsIn(room);
    auto const mostColumns = static_cast<std::size_t>(std::max(1.0, room.width() / (narrowColumn * m_ratio)));
    std::size_t const columns = std::min(mostColumns, ceilOfQuotient(m_curves.size(), rows));
    std::size_t const count = m_curves.size() <= rows * columns ? m_curves.size() : rows * columns - 1;
    m_cells.clear();
    for (std::size_t n = 0; n < count; ++n)
        m_cells.push_back(
            {TextFit::into(textWidth(room, columns), m_curves[n].name, *m_text, m_ratio).text, m_curves[n].plot});
    if (count < m_curves.size())
        m_cells.push_back({tr("and %1 more").arg(m_curves.size() - count), nullptr});
    arrange(columns);
}

void CurveLegend::arrange(std::size_t columns)
{
    std::size_t const rows = ceilOfQuotient(m_cells.size(), columns);
    m_rowHeights.assign(rows, 0.0);
    m_columnWidth = 0.0;
    for (std::size_t n = 0; n < m_cells.size(); ++n) {
        m_cells[n].size = TextFit::sizeOf(m_cells[n].text, *m_text, m_ratio);
        m_rowHeights[n % rows] = std::max(m_rowHeights[n % rows], m_cells[n].size.height() + rowGap * m_ratio);
        m_columnWidth = std::max(m_columnWidth, m_cells[n].size.width() + (sampleWidth + sampleGap) * m_ratio);
    }
    auto const shown = static_cast<double>(ceilOfQuotient(m_cells.size(), rows));
    QSizeF const content(shown * m_columnWidth + (shown - 1.0) * columnGap * m_ratio, contentHeight());
    QSizeF const size = content + 2.0 * padding * m_ratio * QSizeF(1.0, 1.0);
    QRectF const exact(
        QPointF(0.5 * (m_area.width() - size.width()), m_area.height() - boxMargin * m_ratio - size.height()), size);
    // Lines between two pixels are lost at some sizes: sides go through the middles of pixels.
    m_box = QRectF(exact.toRect()).translated(0.5, 0.5);
}

// Of one line each.
std::size_t CurveLegend::rowsIn(QSizeF const& room) const
{
    double const row = TextFit::sizeOf(QStringLiteral("Ag"), *m_text, m_ratio).height() + rowGap * m_ratio;
    return static_cast<std::size_t>(std::max(0.0, room.height() / row));
}

double CurveLegend::textWidth(QSizeF const& room, std::size_t columns) const
{
    auto const count = static_cast<double>(columns);
    return (room.width() - (count - 1.0) * columnGap * m_ratio) / count - (sampleWidth + sampleGap) * m_ratio;
}

double CurveLegend::widestName() const
{
    double widest = 0.0;
    for (Curve const& curve : m_curves)
        widest = std::max(widest, TextFit::sizeOf(curve.name, *m_text, m_ratio).width());
    return widest;
}

double CurveLegend::contentHeight() const
{
    return std::accumulate(m_rowHeights.begin(), m_rowHeights.end(), 0.0);
}

double CurveLegend::height() const
{
    return m_box.isEmpty() ? 0.0 : m_area.height() - m_box.top();
}

QStringList CurveLegend::shownNames() const
{
    QStringList names;
    for (Cell const& cell : m_cells)
        names << cell.text;
    return names;
}

bool CurveLegend::Paint(vtkContext2D* painter)
{
    if (m_box.isEmpty())
        return true;
    setColour(*painter->GetPen(), PlotTheme::border());
    painter->GetPen()->SetWidth(static_cast<float>(m_ratio));
    painter->GetPen()->SetLineType(vtkPen::SOLID_LINE);
    painter->GetBrush()->SetOpacity(0);
    painter->DrawRect(static_cast<float>(m_box.left()), static_cast<float>(m_box.top()),
                      static_cast<float>(m_box.width()), static_cast<float>(m_box.height()));
    double left = m_box.left() + padding * m_ratio;
    for (std::size_t first = 0; first < m_cells.size(); first += m_rowHeights.size()) {
        double top = m_box.bottom() - padding * m_ratio; // the area's origin is at the bottom
        for (std::size_t row = 0; row < m_rowHeights.size() && first + row < m_cells.size(); ++row) {
            paintCell(*painter, m_cells[first + row], left, top - 0.5 * m_rowHeights[row]);
            top -= m_rowHeights[row];
        }
        left += m_columnWidth + columnGap * m_ratio;
    }
    return true;
}

void CurveLegend::paintCell(vtkContext2D& painter, Cell const& cell, double left, double middle) const
{
    if (cell.plot)
        cell.plot->PaintLegend(
            &painter,
            vtkRectf(static_cast<float>(left), static_cast<float>(middle - 0.5 * sampleHeight * m_ratio),
                     static_cast<float>(sampleWidth * m_ratio), static_cast<float>(sampleHeight * m_ratio)),
            0);
    painter.ApplyTextProp(m_text);
    painter.DrawString(static_cast<float>(left + (sampleWidth + sampleGap) * m_ratio),
                       static_cast<float>(middle + 0.5 * cell.size.height()), cell.text.toUtf8().constData());
}

} // namespace veldraw::app
