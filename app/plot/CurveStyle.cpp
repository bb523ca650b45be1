#include "app/plot/CurveStyle.h"

#include "app/plot/PenColour.h"
#include "app/plot/PlotTheme.h"

#include <vtkPlotLine.h>

namespace veldraw::app {

namespace {

bool hasLine(kernel::Frame const& frame, kernel::LineMap const& map)
{
    return frame.showLines && map.look.style != kernel::LineStyle::None;
}

bool hasSymbols(kernel::Frame const& frame, kernel::LineMap const& map)
{
    return map.look.symbols.value_or(frame.showSymbols);
}

int penOf(kernel::LineStyle style)
{
    static constexpr int pens[] = {vtkPen::SOLID_LINE,    vtkPen::DASH_LINE,         vtkPen::DOT_LINE,
                                   vtkPen::DASH_DOT_LINE, vtkPen::DASH_DOT_DOT_LINE, vtkPen::NO_PEN};
    return pens[static_cast<std::size_t>(style)];
}

} // namespace

QColor CurveStyle::colour(kernel::LineMap const& map, int index)
{
    bool const isAutomatic = map.look.colour == kernel::CurveLook::automaticColour;
    return isAutomatic ? PlotTheme::curve(index) : QColor::fromRgb(static_cast<QRgb>(map.look.colour));
}

bool CurveStyle::isSeen(kernel::Frame const& frame, kernel::LineMap const& map)
{
    return hasLine(frame, map) || hasSymbols(frame, map);
}

void CurveStyle::apply(vtkPlotLine& curve, kernel::Frame const& frame, kernel::LineMap const& map, QColor const& colour,
                       double pixelRatio)
{
    setColour(*curve.GetPen(), colour);
    curve.GetPen()->SetLineType(hasLine(frame, map) ? penOf(map.look.style) : static_cast<int>(vtkPen::NO_PEN));
    curve.SetMarkerStyle(hasSymbols(frame, map) ? vtkPlotPoints::CIRCLE : vtkPlotPoints::NONE);
    curve.SetMarkerSize(static_cast<float>(7.0 * pixelRatio));
}

} // namespace veldraw::app
