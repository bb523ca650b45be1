#include "app/window/LineMapTableModel.h"

#include "app/plot/CurveStyle.h"
#include "app/plot/PlotTheme.h"
#include "app/window/AssignmentPanel.h"

#include <optional>

namespace veldraw::app {

namespace {

QStringList const& lineTexts()
{
    static QStringList const texts{QStringLiteral("solid"),    QStringLiteral("dashed"),       QStringLiteral("dotted"),
                                   QStringLiteral("dash-dot"), QStringLiteral("dash-dot-dot"), QStringLiteral("none")};
    return texts;
}

int numberOf(QColor const& colour)
{
    return static_cast<int>(colour.rgb() & 0xFFFFFFU);
}

// The automatic colours, in their order, and black.
NumberChooser::Choices const& namedColours()
{
    static NumberChooser::Choices const colours = [] {
        NumberChooser::Choices named{{kernel::CurveLook::automaticColour, QStringLiteral("automatic")}};
        int index = 0;
        for (char const* const name : {"blue", "orange", "green", "purple", "red", "teal", "brown", "slate"})
            named.emplace_back(numberOf(PlotTheme::curve(index++)), QString::fromLatin1(name));
        named.emplace_back(0, QStringLiteral("black"));
        return named;
    }();
    return colours;
}

QString colourName(int colour)
{
    for (auto const& [number, name] : namedColours())
        if (number == colour)
            return name;
    return QLatin1Char('#') + QString::fromStdString(kernel::CurveLook::colourText(colour));
}

QString variableText(kernel::DataSet const& dataSet, kernel::UniqueId id)
{
    int const number = dataSet.variableNumber(id);
    return number == 0 ? AssignmentPanel::noneText()
                       : QStringLiteral("%1: ").arg(number) + QString::fromStdString(dataSet.variable(number)->name);
}

QString zoneText(kernel::DataSet const& dataSet, kernel::UniqueId id)
{
    int const number = dataSet.zoneNumber(id);
    return number == 0 ? AssignmentPanel::noneText()
                       : QStringLiteral("%1: ").arg(number) + QString::fromStdString(dataSet.zone(number)->name);
}

QString axisText(bool isSecond)
{
    return isSecond ? QStringLiteral("Y2") : QStringLiteral("Y");
}

std::optional<kernel::LineMapSettings> settingsOf(int column, QVariant const& value, int role)
{
    using Model = LineMapTableModel;
    kernel::LineMapSettings settings;
    bool const isChecked = value.toInt() == Qt::Checked;
    bool isNumber = true;
    if (role == Qt::CheckStateRole && column == Model::NumberColumn)
        settings.active = isChecked;
    else if (role == Qt::CheckStateRole && column == Model::SymbolsColumn)
        settings.symbols = std::optional<bool>(isChecked);
    else if (role != Qt::EditRole)
        return std::nullopt;
    else if (column == Model::ZoneColumn)
        settings.zone = value.toInt();
    else if (column == Model::XColumn)
        settings.x = value.toInt();
    else if (column == Model::YColumn)
        settings.y = value.toInt();
    else if (column == Model::ColourColumn)
        settings.colour = value.toInt();
    else if (column == Model::LineColumn)
        settings.style = static_cast<kernel::LineStyle>(value.toInt());
    else if (column == Model::WidthColumn)
        settings.width = value.toDouble(&isNumber);
    else if (column == Model::AxisColumn)
        settings.isOnSecondAxis = value.toInt() == 1;
    return isNumber ? std::optional<kernel::LineMapSettings>(settings) : std::nullopt;
}

} // namespace

LineMapTableModel::LineMapTableModel(kernel::Session& session, QObject* parent)
    : SnapshotTableModel({QStringLiteral("Show"), QStringLiteral("Name"), QStringLiteral("Zone"), QStringLiteral("X"),
                          QStringLiteral("Y"), QStringLiteral("Colour"), QStringLiteral("Line"),
                          QStringLiteral("Width"), QStringLiteral("Symbols"), QStringLiteral("Axis")},
                         true, parent)
    , m_session(session)
{
    refresh();
}

std::shared_ptr<kernel::Frame> LineMapTableModel::linePlot(kernel::Session const& session)
{
    auto const frame = session.activeFrame();
    bool const isLinePlot = frame && frame->dataSet && frame->plotType == PlotType_XYLine;
    return isLinePlot ? frame : nullptr;
}

std::vector<SnapshotTableModel::Row> LineMapTableModel::readRows() const
{
    std::vector<Row> rows;
    auto const frame = linePlot(m_session);
    if (!frame)
        return rows;
    kernel::DataSet const& dataSet = *frame->dataSet;
    for (kernel::LineMap const& map : frame->lineMaps) {
        bool const hasSymbols = map.look.symbols.value_or(frame->showSymbols);
        Row row;
        row.id = map.id;
        row.texts = QStringList{QString::number(rows.size() + 1),
                                QString::fromStdString(map.name),
                                zoneText(dataSet, map.zone),
                                variableText(dataSet, map.xVariable),
                                variableText(dataSet, map.yVariable),
                                colourName(map.look.colour),
                                lineTexts()[static_cast<int>(map.look.style)],
                                QString::number(map.look.width),
                                hasSymbols ? QStringLiteral("yes") : QStringLiteral("no"),
                                axisText(map.isOnSecondAxis)};
        row.isChecked = map.active;
        rows.push_back(std::move(row));
    }
    return rows;
}

kernel::LineMap const* LineMapTableModel::mapAt(int row) const
{
    auto const frame = linePlot(m_session);
    kernel::UniqueId const id = idAt(row);
    if (frame)
        for (kernel::LineMap const& map : frame->lineMaps)
            if (map.id == id)
                return &map;
    return nullptr;
}

NumberChooser::Choices LineMapTableModel::choices(QModelIndex const& index) const
{
    NumberChooser::Choices found;
    switch (index.column()) {
    case ZoneColumn:
        return AssignmentPanel::zoneChoices(m_session);
    case XColumn:
    case YColumn:
        return AssignmentPanel::variableChoices(m_session, {});
    case LineColumn:
        for (int style = 0; style < kernel::lineStyleCount; ++style)
            found.emplace_back(style, lineTexts()[style]);
        return found;
    case AxisColumn:
        return {{0, axisText(false)}, {1, axisText(true)}};
    case ColourColumn: {
        found = namedColours();
        int const colour = index.data(Qt::EditRole).toInt();
        if (colourName(colour).startsWith(QLatin1Char('#')))
            found.emplace_back(colour, colourName(colour));
        found.emplace_back(otherColour, QStringLiteral("other..."));
        return found;
    }
    default:
        return found;
    }
}

QVariant LineMapTableModel::numberAt(kernel::LineMap const& map, int column) const
{
    kernel::DataSet const& dataSet = *m_session.activeDataSet();
    switch (column) {
    case ZoneColumn:
        return dataSet.zoneNumber(map.zone);
    case XColumn:
        return dataSet.variableNumber(map.xVariable);
    case YColumn:
        return dataSet.variableNumber(map.yVariable);
    case ColourColumn:
        return map.look.colour;
    case LineColumn:
        return static_cast<int>(map.look.style);
    case WidthColumn:
        return map.look.width;
    case AxisColumn:
        return map.isOnSecondAxis ? 1 : 0;
    default:
        return {};
    }
}

QVariant LineMapTableModel::data(QModelIndex const& index, int role) const
{
    QVariant const usual = SnapshotTableModel::data(index, role);
    if (!index.isValid() || index.row() >= rowCount())
        return usual;
    bool const isSymbols = index.column() == SymbolsColumn;
    if (isSymbols && role == Qt::DisplayRole)
        return {};
    if (isSymbols && role == Qt::CheckStateRole)
        return knownText(index.row(), SymbolsColumn) == QStringLiteral("yes") ? Qt::Checked : Qt::Unchecked;
    bool const isColour = role == Qt::DecorationRole && index.column() == ColourColumn;
    bool const isNumber = role == Qt::EditRole && index.column() >= ZoneColumn;
    kernel::LineMap const* const map = isColour || isNumber ? mapAt(index.row()) : nullptr;
    if (!map)
        return usual;
    return isColour ? QVariant(CurveStyle::colour(*map, index.row())) : numberAt(*map, index.column());
}

Qt::ItemFlags LineMapTableModel::flags(QModelIndex const& index) const
{
    Qt::ItemFlags flags = SnapshotTableModel::flags(index);
    if (index.isValid() && index.column() == SymbolsColumn)
        flags |= Qt::ItemIsUserCheckable;
    else if (index.isValid() && index.column() > NameColumn)
        flags |= Qt::ItemIsEditable;
    return flags;
}

kernel::NumberSet LineMapTableModel::numbersWith(kernel::UniqueId map) const
{
    if (m_together.count(map) == 0)
        return {rowOf(map) + 1};
    kernel::NumberSet numbers;
    for (kernel::UniqueId const id : m_together)
        if (rowOf(id) >= 0)
            numbers.insert(rowOf(id) + 1);
    return numbers;
}

bool LineMapTableModel::edit(Row const& row, QModelIndex const& index, QVariant const& value, int role)
{
    if (index.column() == NameColumn)
        return SnapshotTableModel::edit(row, index, value, role);
    auto const frame = linePlot(m_session);
    auto const settings = settingsOf(index.column(), value, role);
    return frame && settings && m_session.perform(kernel::SetLineMaps(frame->id, numbersWith(row.id), *settings));
}

bool LineMapTableModel::rename(kernel::UniqueId id, QString const& name)
{
    auto const frame = linePlot(m_session);
    kernel::LineMapSettings settings;
    settings.name = name.toStdString();
    return frame && m_session.perform(kernel::SetLineMaps(frame->id, {rowOf(id) + 1}, settings));
}

} // namespace veldraw::app
