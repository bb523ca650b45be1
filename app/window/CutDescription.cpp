#include "app/window/CutDescription.h"

#include <array>
#include <cmath>

namespace veldraw::app {

using kernel::Cut;
using kernel::CutKind;

namespace {

QString variableName(kernel::Frame const& frame, int number)
{
    auto const variable = frame.dataSet ? frame.dataSet->variable(number) : nullptr;
    return variable ? QString::fromStdString(variable->name) : QString();
}

} // namespace

QString CutDescription::kindText(CutKind kind)
{
    static std::array<QString, kernel::cutKindCount> const texts{QStringLiteral("Slice at &X"),
                                                                 QStringLiteral("Slice at &Y"),
                                                                 QStringLiteral("Slice at &Z"),
                                                                 QStringLiteral("Slice at index &I"),
                                                                 QStringLiteral("Slice at index &J"),
                                                                 QStringLiteral("Slice at index &K"),
                                                                 QStringLiteral("&Plane"),
                                                                 QStringLiteral("Iso-&surface")};
    return texts[static_cast<std::size_t>(kind)];
}

QString CutDescription::positionText(Cut const& cut, kernel::Frame const& frame)
{
    if (cut.isOfIndex())
        return QString(QLatin1Char("IJK"[cut.axis()]));
    if (cut.kind == CutKind::Plane)
        return QStringLiteral("Distance");
    if (cut.kind == CutKind::IsoSurface) {
        int const number = frame.dataSet ? frame.dataSet->variableNumber(cut.variable) : 0;
        QString const name = variableName(frame, number);
        return name.isEmpty() ? QStringLiteral("Value") : name;
    }
    QString const name = variableName(frame, frame.axisVariables()[static_cast<std::size_t>(cut.axis())]);
    return name.isEmpty() ? QString(QLatin1Char("XYZ"[cut.axis()])) : name;
}

QString CutDescription::textOf(Cut const& cut, kernel::Frame const& frame)
{
    if (cut.kind == CutKind::Plane) {
        auto const digits = [](double number) { return QString::number(number, 'g', 3); };
        return QStringLiteral("Plane (%1, %2, %3)")
            .arg(digits(cut.normal[0]), digits(cut.normal[1]), digits(cut.normal[2]));
    }
    double const shown = cut.isOfIndex() ? std::round(cut.position) : cut.position;
    return QStringLiteral("%1 = %2").arg(positionText(cut, frame), QString::number(shown, 'g', 6));
}

} // namespace veldraw::app
