#include "app/plot/PlaceText.h"

#include "app/plot/TickLabels.h"

#include <QStringList>

#include <utility>

namespace veldraw::app {

namespace {

constexpr int digitsOfTip = 7; // those of single precision

// The indices of a point of an ordered zone, one-based.
QString indicesOf(kernel::Zone const& zone, std::int64_t point)
{
    return QStringLiteral("%1, %2, %3")
        .arg(point % zone.i + 1)
        .arg(point / zone.i % zone.j + 1)
        .arg(point / (zone.i * zone.j) + 1);
}

} // namespace

QString PlaceText::ofNumber(double number, int digits)
{
    return digits > 0 ? QString::number(number, 'g', digits)
                      : QString::fromStdString(TickLabels::exactly({number}).front());
}

QString PlaceText::ofZone(kernel::DataSet const& dataSet, kernel::Zone const& zone)
{
    return tr("Zone %1: %2").arg(dataSet.zoneNumber(zone.id)).arg(QString::fromStdString(zone.name));
}

std::pair<QString, QString> PlaceText::ofPart(kernel::Zone const& zone, ZonePlace const& place,
                                              std::array<int, 3> const& axes)
{
    std::int64_t const nearest = nearestPoint(zone, place, axes);
    if (zone.isOrdered())
        return {tr("I, J, K"), indicesOf(zone, nearest)};
    return {tr("Cell, Node"), QStringLiteral("%1, %2").arg(place.cell + 1).arg(nearest + 1)};
}

QString PlaceText::ofValue(PlaceValue const& value, int digits)
{
    switch (value.state) {
    case PlaceValue::State::Passive:
        return tr("passive");
    case PlaceValue::State::NotLoaded:
        return tr("not loaded");
    default:
        return ofNumber(value.value, digits);
    }
}

QString PlaceText::tip(kernel::Frame const& frame, ZonePlace const& place)
{
    int const number = frame.dataSet ? frame.dataSet->zoneNumber(place.zone) : 0;
    auto const zone = number > 0 ? frame.dataSet->zone(number) : nullptr;
    if (!zone || !hasPlace(*zone, place))
        return {};
    QString text = QStringLiteral("<b>%1</b>").arg(ofZone(*frame.dataSet, *zone).toHtmlEscaped());
    auto const add = [&text](QString const& name, QString const& value) {
        text += QStringLiteral("<br>%1 = %2").arg(name.toHtmlEscaped(), value);
    };
    auto const addVariable = [&](int variable) {
        if (auto const found = frame.dataSet->variable(variable))
            add(QString::fromStdString(found->name), ofValue(valueAt(*zone, variable, place), digitsOfTip));
    };
    std::array<int, 3> const axes = frame.axisVariables();
    for (int const axis : axes)
        addVariable(axis);
    auto const [name, value] = ofPart(*zone, place, axes);
    add(name, value);
    addVariable(frame.variableNumber('C'));
    return QStringLiteral("<p style='white-space:pre'>%1</p>").arg(text);
}

} // namespace veldraw::app
