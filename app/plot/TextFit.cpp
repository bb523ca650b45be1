#include "app/plot/TextFit.h"

#include "app/plot/PlotTheme.h"

#include <vtkNew.h>
#include <vtkStdString.h>
#include <vtkTextProperty.h>
#include <vtkTextRenderer.h>

#include <algorithm>

namespace veldraw::app {

namespace {

constexpr int smallestSize = 11;
constexpr int dotsPerInch = 72; // a pixel is a point

double widthOf(QString const& text, int size, vtkTextProperty& property, double pixelRatio)
{
    vtkNew<vtkTextProperty> measured;
    measured->ShallowCopy(&property);
    measured->SetFontSize(size);
    int box[4] = {0, 0, 0, 0};
    int const dots = static_cast<int>(dotsPerInch * pixelRatio);
    if (!vtkTextRenderer::GetInstance()->GetBoundingBox(measured, vtkStdString(text.toStdString()), box, dots))
        return 0.0;
    return box[1] - box[0] + 1;
}

// A text of @p kept characters, of which the last ones are the end of the whole.
QString shortened(QString const& text, int kept)
{
    int const end = kept / 2;
    return text.left(kept - end) + QChar(0x2026) + text.right(end);
}

} // namespace

TextFit TextFit::into(double width, QString const& text, vtkTextProperty& property, double pixelRatio)
{
    auto const fits = [&](QString const& tried, int size) {
        return widthOf(tried, size, property, pixelRatio) <= width;
    };
    for (int size = PlotTheme::titleSize; size >= smallestSize; --size)
        if (fits(text, size))
            return {text, size};
    int tooMany = text.size(); // the number of characters is found by halving
    int enough = 2;
    while (tooMany - enough > 1) {
        int const middle = (tooMany + enough) / 2;
        (fits(shortened(text, middle), smallestSize) ? enough : tooMany) = middle;
    }
    return {shortened(text, enough), smallestSize};
}

} // namespace veldraw::app
