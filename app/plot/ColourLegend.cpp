#include "app/plot/ColourLegend.h"

#include "app/plot/ColourMap.h"
#include "app/plot/PlotTheme.h"
#include "app/plot/TextFit.h"

#include <QStringList>
#include <vtkBrush.h>
#include <vtkContext2D.h>
#include <vtkObjectFactory.h>
#include <vtkPen.h>
#include <vtkRect.h>

#include <algorithm>
#include <cmath>

namespace veldraw::app {

namespace {

// Logical pixels.
constexpr double barWidth = 18.0;
constexpr double tickLength = 5.0;
constexpr double textGap = 5.0;
constexpr double sideGap = 10.0; // on both sides
constexpr double nameGap = 10.0;
constexpr double usualHeight = 330.0;
constexpr double betweenTicks = 48.0;
constexpr double betweenBands = 20.0;
constexpr double usualWidth = 124.0;
constexpr double smallestFrame = 110.0;

} // namespace

vtkStandardNewMacro(ColourLegend)

    ColourLegend::ColourLegend()
{
    PlotTheme::apply(*m_nameText, PlotTheme::text(), PlotTheme::titleSize, true);
    PlotTheme::apply(*m_labelText, PlotTheme::quietText(), PlotTheme::labelSize);
    m_nameText->SetVerticalJustificationToTop();
    m_labelText->SetVerticalJustificationToCentered();
}

void ColourLegend::show(QString const& name, FieldLook const& look)
{
    m_isShown = true;
    m_name = name;
    m_min = look.contourMin;
    m_max = look.contourMax;
    m_bands = look.contourBands;
    m_isLog = look.isLog;
    m_map = look.contourMap;
    colourBar();
}

void ColourLegend::hide()
{
    m_isShown = false;
}

// One colour a row, from the bottom up.
void ColourLegend::colourBar()
{
    auto const table = ColourMap::create(0.0, 1.0, m_bands, m_map);
    // Bands have many rows, as the picture is smoothed between the middles of rows when it is drawn larger.
    constexpr int rowsOfBand = 64;
    int const colours = isOneValue() ? 1 : static_cast<int>(table->GetNumberOfTableValues());
    int const count = m_bands > 0 ? colours * rowsOfBand : colours;
    m_colours->SetDimensions(1, count, 1);
    m_colours->AllocateScalars(VTK_UNSIGNED_CHAR, 4); // four, since rows of an image start at words
    for (int n = 0; n < count; ++n) {
        double rgba[4] = {0.0, 0.0, 0.0, 1.0};
        table->GetColor(isOneValue() ? 0.5 : (n + 0.5) / count, rgba);
        auto* const pixel = static_cast<unsigned char*>(m_colours->GetScalarPointer(0, n, 0));
        std::transform(rgba, rgba + 4, pixel,
                       [](double share) { return static_cast<unsigned char>(255.0 * share + 0.5); });
    }
    m_colours->Modified();
}

AxisTicks ColourLegend::ticksFor(double barHeight) const
{
    if (m_bands > 0)
        return ticksOfBands(barHeight);
    if (m_isLog)
        return AxisTicks::logarithmicAlong(m_min, m_max, barHeight, [](std::string const&) { return betweenBands; });
    return AxisTicks::create(m_min, m_max, std::clamp(static_cast<int>(barHeight / betweenTicks), 1, 10));
}

// The borders of the bands, or every second or third where they are too near to each other for their numbers.
AxisTicks ColourLegend::ticksOfBands(double barHeight) const
{
    AxisTicks const all = AxisTicks::ofBands(m_min, m_max, m_bands, m_isLog);
    auto const step =
        static_cast<std::size_t>(std::max(1.0, std::ceil(betweenBands * m_bands / std::max(barHeight, 1.0))));
    AxisTicks shown;
    for (std::size_t n = 0; n < all.values.size(); n += step) {
        shown.values.push_back(all.values[n]);
        shown.labels.push_back(all.labels[n]);
    }
    return shown;
}

double ColourLegend::widestLabel(AxisTicks const& ticks, double pixelRatio) const
{
    double widest = 0.0;
    for (std::string const& label : ticks.labels)
        widest = std::max(widest, TextFit::sizeOf(QString::fromStdString(label), *m_labelText, pixelRatio).width() /
                                      pixelRatio);
    return widest;
}

double ColourLegend::widthIn(QSizeF const& frame, double pixelRatio) const
{
    if (!m_isShown)
        return 0.0;
    double const labels = widestLabel(ticksFor(std::min(usualHeight, 0.6 * frame.height())), pixelRatio);
    double const needed = 2.0 * sideGap + barWidth + tickLength + textGap + labels;
    double const wanted = std::max(needed, std::min(usualWidth, 0.25 * frame.width()));
    return frame.height() < smallestFrame || frame.width() < smallestFrame + wanted ? 0.0 : wanted;
}

void ColourLegend::place(QRectF const& column, double pixelRatio)
{
    m_ratio = pixelRatio;
    m_bar = {};
    if (!m_isShown || column.width() < 1.0)
        return;
    QRectF const room = column.adjusted(sideGap * m_ratio, sideGap * m_ratio, -sideGap * m_ratio, -sideGap * m_ratio);
    int const lines = std::clamp(static_cast<int>(0.3 * room.height() / (PlotTheme::titleSize * m_ratio)), 1, 8);
    TextFit const fit = TextFit::into(room.width(), m_name, *m_nameText, m_ratio, lines);
    m_shownName = fit.text;
    m_nameText->SetFontSize(fit.size);
    double const nameHeight = TextFit::sizeOf(m_shownName, *m_nameText, m_ratio).height() + nameGap * m_ratio;
    double const height = std::min(room.height() - nameHeight, std::max(0.4 * room.height(), usualHeight * m_ratio));
    m_top = room.center().y() + 0.5 * (height + nameHeight);
    m_bar = QRectF(room.left(), m_top - nameHeight - height, barWidth * m_ratio, height);
    m_ticks = ticksFor(height / m_ratio);
}

bool ColourLegend::Paint(vtkContext2D* painter)
{
    if (!m_isShown || m_bar.isEmpty())
        return true;
    auto const left = static_cast<float>(m_bar.left());
    auto const bottom = static_cast<float>(m_bar.top());
    auto const width = static_cast<float>(m_bar.width());
    auto const height = static_cast<float>(m_bar.height());
    painter->DrawImage(vtkRectf(left, bottom, width, height), m_colours);
    QColor const line = PlotTheme::axis();
    painter->GetPen()->SetColorF(line.redF(), line.greenF(), line.blueF());
    painter->GetPen()->SetWidth(static_cast<float>(m_ratio));
    painter->GetPen()->SetLineType(vtkPen::SOLID_LINE);
    painter->GetBrush()->SetOpacity(0);
    painter->DrawRect(left, bottom, width, height);
    paintTicks(*painter);
    paintName(*painter);
    return true;
}

void ColourLegend::paintTicks(vtkContext2D& painter)
{
    auto const edge = static_cast<float>(m_bar.right());
    auto const end = static_cast<float>(m_bar.right() + tickLength * m_ratio);
    auto const text = static_cast<float>(m_bar.right() + (tickLength + textGap) * m_ratio);
    painter.ApplyTextProp(m_labelText);
    for (std::size_t n = 0; n < m_ticks.values.size(); ++n) {
        // Computed by halves, since the full difference may overflow.
        double const share = isOneValue() ? 0.5 : (0.5 * m_ticks.values[n] - 0.5 * m_min) / (0.5 * m_max - 0.5 * m_min);
        auto const y = static_cast<float>(m_bar.top() + std::clamp(share, 0.0, 1.0) * m_bar.height());
        painter.DrawLine(edge, y, end, y);
        painter.DrawString(text, y, m_ticks.labels[n].c_str());
    }
}

void ColourLegend::paintName(vtkContext2D& painter)
{
    painter.ApplyTextProp(m_nameText);
    painter.DrawString(static_cast<float>(m_bar.left()), static_cast<float>(m_top), m_shownName.toUtf8().constData());
}

} // namespace veldraw::app
