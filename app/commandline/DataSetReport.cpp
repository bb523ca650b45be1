#include "app/commandline/DataSetReport.h"

#include "app/window/DataDescription.h"
#include "app/window/VariableRange.h"

namespace veldraw::app {

namespace {

// Empty when nothing is.
QString hiddenText(kernel::Zone const& zone)
{
    auto const countOf = [&zone](ValueLocation_e location) {
        auto const hidden = zone.hidden(location);
        return static_cast<long long>(hidden ? hidden->count() : 0);
    };
    long long const points = countOf(ValueLocation_Nodal);
    long long const cells = countOf(ValueLocation_CellCentered);
    return points + cells == 0 ? QString() : QStringLiteral(" (hidden: %1 points, %2 cells)").arg(points).arg(cells);
}

QString zoneLine(int number, kernel::Zone const& zone)
{
    QString line =
        QStringLiteral("  %1  %2  %3").arg(number).arg(QString::fromStdString(zone.name), zoneTypeText(zone.type));
    if (zone.isDeferred())
        line += QStringLiteral(", size not loaded");
    else if (zone.isOrdered())
        line += QStringLiteral(" %1 x %2 x %3").arg(zone.i).arg(zone.j).arg(zone.k);
    if (!zone.isDeferred())
        line += QStringLiteral(", %1 points, %2 cells").arg(zone.pointCount()).arg(zone.cellCount()) + hiddenText(zone);
    if (zone.strand != kernel::staticStrand)
        line += QStringLiteral(", strand %1, time %2").arg(zone.strand).arg(zone.solutionTime);
    return line + QLatin1Char('\n');
}

QString variableLine(kernel::DataSet const& dataSet, int number)
{
    return QStringLiteral("  %1  %2  %3 %4, %5\n")
        .arg(number)
        .arg(QString::fromStdString(dataSet.variable(number)->name), variableLocationText(dataSet, number),
             variableTypeText(dataSet, number), VariableRange(dataSet, number).reportText());
}

} // namespace

QString dataSetReport(QString const& file, kernel::DataSet const& dataSet)
{
    QString text = QStringLiteral("File: %1\n").arg(file);
    if (!dataSet.title().empty())
        text += QStringLiteral("Title: %1\n").arg(QString::fromStdString(dataSet.title()));
    text += QStringLiteral("Zones: %1\n").arg(dataSet.zoneCount());
    for (int zone = 1; zone <= dataSet.zoneCount(); ++zone)
        text += zoneLine(zone, *dataSet.zone(zone));
    text += QStringLiteral("Variables: %1\n").arg(dataSet.variableCount());
    for (int variable = 1; variable <= dataSet.variableCount(); ++variable)
        text += variableLine(dataSet, variable);
    return text;
}

} // namespace veldraw::app
