#include "app/plot/TextFit.h"

#include "app/plot/PlotTheme.h"

#include <QStringList>
#include <vtkNew.h>
#include <vtkStdString.h>
#include <vtkTextProperty.h>
#include <vtkTextRenderer.h>

#include <functional>

namespace veldraw::app {

namespace {

constexpr int smallestSize = 11;
constexpr int dotsPerInch = 72; // a pixel is a point

using Fits = std::function<bool(QString const&)>;

// A text of @p kept characters, of which the last ones are the end of the whole.
QString shortened(QString const& text, int kept)
{
    int const end = kept / 2;
    return text.left(kept - end) + QChar(0x2026) + text.right(end);
}

bool endsWord(QChar last, QChar next)
{
    return !last.isLetterOrNumber() || (last.isLower() && next.isUpper());
}

// The largest of 1 to @p most that holds; what holds for one number holds for the smaller ones.
int largest(int most, std::function<bool(int)> const& holds)
{
    int enough = 1;
    int tooMany = most + 1;
    while (tooMany - enough > 1) {
        int const middle = (tooMany + enough) / 2;
        (holds(middle) ? enough : tooMany) = middle;
    }
    return enough;
}

// How much of a text goes into its first line: up to the end of a word, unless that leaves most of the line empty.
int firstLine(QString const& text, Fits const& fits)
{
    int const most = largest(text.size(), [&](int count) { return fits(text.left(count).trimmed()); });
    for (int count = most; 3 * count > most; --count)
        if (count == text.size() || endsWord(text.at(count - 1), text.at(count)))
            return count;
    return most;
}

QStringList broken(QString text, Fits const& fits)
{
    QStringList lines;
    while (!text.isEmpty()) {
        int const count = firstLine(text, fits);
        lines << text.left(count).trimmed();
        text = text.mid(count).trimmed();
    }
    return lines;
}

} // namespace

QSizeF TextFit::sizeOf(QString const& text, vtkTextProperty& property, double pixelRatio)
{
    int box[4] = {0, 0, 0, 0};
    int const dots = static_cast<int>(dotsPerInch * pixelRatio);
    vtkNew<vtkTextProperty> level;
    level->ShallowCopy(&property);
    level->SetOrientation(0.0);
    if (!vtkTextRenderer::GetInstance()->GetBoundingBox(level, vtkStdString(text.toStdString()), box, dots))
        return {0.0, 0.0};
    return {box[1] - box[0] + 1.0, box[3] - box[2] + 1.0};
}

TextFit TextFit::into(double width, QString const& text, vtkTextProperty& property, double pixelRatio, int mostLines)
{
    vtkNew<vtkTextProperty> measured;
    measured->ShallowCopy(&property);
    Fits const fits = [&](QString const& tried) { return sizeOf(tried, *measured, pixelRatio).width() <= width; };
    for (int lines = 1; lines <= mostLines; ++lines)
        for (int size = PlotTheme::titleSize; size >= smallestSize; --size) {
            measured->SetFontSize(size);
            if (lines == 1 && !fits(text))
                continue;
            QStringList const cut = lines == 1 ? QStringList{text} : broken(text, fits);
            if (cut.size() <= lines)
                return {cut.join(QLatin1Char('\n')), size, true};
        }
    auto const shown = [&](int kept) {
        QString const tried = shortened(text, kept);
        return mostLines == 1 ? QStringList{tried} : broken(tried, fits);
    };
    int const kept = largest(text.size(), [&](int count) {
        QStringList const lines = shown(count);
        return lines.size() <= mostLines && (mostLines > 1 || fits(lines.first()));
    });
    return {shown(kept).join(QLatin1Char('\n')), smallestSize, false};
}

} // namespace veldraw::app
