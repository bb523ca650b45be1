#include "app/window/DataDescription.h"

#include <QLocale>
#include <QStringList>

#include <set>

namespace veldraw::app {

namespace {

QString dataTypeText(FieldDataType_e type)
{
    switch (type) {
    case FieldDataType_Float:
        return QStringLiteral("float");
    case FieldDataType_Double:
        return QStringLiteral("double");
    case FieldDataType_Int32:
        return QStringLiteral("32-bit");
    case FieldDataType_Int16:
        return QStringLiteral("16-bit");
    case FieldDataType_Byte:
        return QStringLiteral("byte");
    case FieldDataType_Bit:
        return QStringLiteral("bit");
    }
    return {};
}

// One text over all zones with values: the common one, "mixed", or "passive".
template <typename TextOfField>
QString commonText(kernel::DataSet const& dataSet, int variable, TextOfField textOfField)
{
    QString common;
    for (int zone = 1; zone <= dataSet.zoneCount(); ++zone) {
        kernel::Field const* const field = dataSet.field(zone, variable);
        if (!field || field->isPassive())
            continue;
        QString const text = textOfField(*field);
        if (!common.isEmpty() && common != text)
            return QStringLiteral("mixed");
        common = text;
    }
    return common.isEmpty() ? QStringLiteral("passive") : common;
}

} // namespace

QString zoneTypeText(ZoneType_e type)
{
    switch (type) {
    case ZoneType_Ordered:
        return QStringLiteral("ordered");
    case ZoneType_FETriangle:
        return QStringLiteral("triangles");
    case ZoneType_FEQuad:
        return QStringLiteral("quads");
    case ZoneType_FETetra:
        return QStringLiteral("tetrahedra");
    case ZoneType_FEBrick:
        return QStringLiteral("bricks");
    case ZoneType_FELineSeg:
        return QStringLiteral("line segments");
    case ZoneType_FEPolygon:
        return QStringLiteral("polygons");
    case ZoneType_FEPolyhedron:
        return QStringLiteral("polyhedra");
    case ZoneType_FEMixed:
        return QStringLiteral("mixed cells");
    }
    return {};
}

QString zoneSizeText(kernel::Zone const& zone)
{
    if (zone.isDeferred())
        return QStringLiteral("not loaded");
    if (zone.isOrdered())
        return QString::fromUtf8("%1 × %2 × %3").arg(zone.i).arg(zone.j).arg(zone.k);
    return QStringLiteral("%1 points, %2 cells").arg(countText(zone.pointCount()), countText(zone.cellCount()));
}

QString plotTypeText(PlotType_e type)
{
    switch (type) {
    case PlotType_Cartesian3D:
        return QStringLiteral("3D Cartesian");
    case PlotType_Cartesian2D:
        return QStringLiteral("2D Cartesian");
    case PlotType_XYLine:
        return QStringLiteral("XY Line");
    case PlotType_Sketch:
        return QStringLiteral("Sketch");
    case PlotType_PolarLine:
        return QStringLiteral("Polar Line");
    }
    return {};
}

QString variableTypeText(kernel::DataSet const& dataSet, int variable)
{
    return commonText(dataSet, variable, [](kernel::Field const& field) { return dataTypeText(field.type()); });
}

QString variableLocationText(kernel::DataSet const& dataSet, int variable)
{
    return commonText(dataSet, variable, [](kernel::Field const& field) {
        return field.location() == ValueLocation_Nodal ? QStringLiteral("nodal") : QStringLiteral("cell");
    });
}

QString pickText(kernel::Session const& session)
{
    constexpr int mostNumbers = 8;
    std::set<kernel::UniqueId> picked;
    for (kernel::Pick const& pick : session.picks())
        picked.insert(pick.zone);
    QStringList numbers;
    QString name;
    auto const dataSet = session.activeDataSet();
    for (int zone = 1; dataSet && zone <= dataSet->zoneCount(); ++zone) {
        if (picked.count(dataSet->zone(zone)->id) == 0)
            continue;
        numbers << QString::number(zone);
        name = QString::fromStdString(dataSet->zone(zone)->name);
    }
    if (numbers.isEmpty())
        return QStringLiteral("No zone is picked");
    if (numbers.size() == 1)
        return QStringLiteral("Picked zone %1: ").arg(numbers.front()) + name;
    if (numbers.size() > mostNumbers)
        return QStringLiteral("Picked %1 zones").arg(numbers.size());
    return QStringLiteral("Picked zones ") + numbers.join(QStringLiteral(", "));
}

QString countText(std::int64_t count)
{
    QString text = QString::number(count);
    for (int position = text.size() - 3; position > 0; position -= 3)
        text.insert(position, QChar(0x2009));
    return text;
}

QString memoryText(std::int64_t bytes)
{
    return QLocale().formattedDataSize(bytes, 1, QLocale::DataSizeTraditionalFormat);
}

} // namespace veldraw::app
