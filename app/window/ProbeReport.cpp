#include "app/window/ProbeReport.h"

#include "app/plot/PlaceText.h"

#include <QStringList>

#include <cmath>

namespace veldraw::app {

namespace {

constexpr int shownDigits = 10;

ProbeReport::Line wordsLine(QString const& name, QString const& words)
{
    return {name, words, words};
}

ProbeReport::Line numberLine(QString const& name, double number)
{
    return {name, PlaceText::ofNumber(number, shownDigits), PlaceText::ofNumber(number, 0)};
}

QString nameOfVariable(ProbedPlace const& place, int variable)
{
    auto const data = place.dataSet.lock();
    auto const found = data ? data->variable(variable) : nullptr;
    return found ? QString::fromStdString(found->name) : QString();
}

ProbeReport::Line positionLine(ProbedPlace const& place)
{
    std::array<double, 3> const position = *place.position();
    std::array<int, 3> const axes = place.axisVariables();
    QStringList shown;
    QStringList exact;
    for (std::size_t axis = 0; axis < axes.size(); ++axis)
        if (axes[axis] > 0) {
            shown << PlaceText::ofNumber(position[axis], shownDigits);
            exact << PlaceText::ofNumber(position[axis], 0);
        }
    QString const between = QStringLiteral(", ");
    return {QStringLiteral("Position"), shown.join(between), exact.join(between)};
}

ProbeReport::Line variableLine(ProbedPlace const& place, kernel::Zone const& zone, int variable)
{
    PlaceValue const value = valueAt(zone, variable, place.place);
    QString const note =
        value.isOfCell && value.state == PlaceValue::State::Known ? QStringLiteral(" (of the cell)") : QString();
    return {nameOfVariable(place, variable), PlaceText::ofValue(value, shownDigits) + note,
            PlaceText::ofValue(value, 0)};
}

} // namespace

ProbeReport::Lines ProbeReport::ofPlace(ProbedPlace const& place)
{
    auto const data = place.dataSet.lock();
    auto const zone = place.zone();
    if (!data || !zone)
        return {wordsLine(QStringLiteral("Zone"), QStringLiteral("not there any more"))};
    Lines lines;
    QString const number = QString::number(data->zoneNumber(zone->id));
    lines.push_back(
        wordsLine(QStringLiteral("Zone"), number + QStringLiteral(": ") + QString::fromStdString(zone->name)));
    auto const [part, index] = PlaceText::ofPart(*zone, place.place, place.axisVariables());
    lines.push_back(wordsLine(part, index));
    lines.push_back(positionLine(place));
    for (int variable = 1; variable <= data->variableCount(); ++variable)
        lines.push_back(variableLine(place, *zone, variable));
    return lines;
}

ProbeReport::Lines ProbeReport::ofDistance(ProbedPlace const& from, ProbedPlace const& to)
{
    auto const start = from.position();
    auto const end = to.position();
    if (!start || !end || from.axes != to.axes || from.dataSet.lock() != to.dataSet.lock())
        return {};
    Lines lines;
    std::array<int, 3> const axes = to.axisVariables();
    std::array<double, 3> way{};
    for (std::size_t axis = 0; axis < axes.size(); ++axis)
        if (axes[axis] > 0) {
            way[axis] = (*end)[axis] - (*start)[axis];
            lines.push_back(numberLine(QStringLiteral("d") + nameOfVariable(to, axes[axis]), way[axis]));
        }
    lines.push_back(numberLine(QStringLiteral("Length"), std::hypot(std::hypot(way[0], way[1]), way[2])));
    return lines;
}

QString ProbeReport::text(Lines const& lines)
{
    QString text;
    for (Line const& line : lines)
        text += line.name + QLatin1Char('\t') + line.exact + QLatin1Char('\n');
    return text;
}

} // namespace veldraw::app
