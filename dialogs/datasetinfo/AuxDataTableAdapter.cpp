#include "dialogs/datasetinfo/AuxDataTableAdapter.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

namespace {

// As rich text, since the lines of others are never broken; what a text means as markup is its author's.
QString tipOn(QString const& text)
{
    constexpr int mostCharacters = 2000;
    QString const start = text.size() > mostCharacters ? text.left(mostCharacters) + QChar(0x2026) : text;
    return QStringLiteral("<p style=\"white-space: pre-wrap\">%1</p>").arg(start.toHtmlEscaped());
}

} // namespace

AuxDataTableAdapter::~AuxDataTableAdapter() = default;

QVariant AuxDataTableAdapter::data(QModelIndex const& modelIndex, int role) const
{
    if (role != Qt::ToolTipRole)
        return QTableModelAdapter::data(modelIndex, role);
    QString const text = QTableModelAdapter::data(modelIndex, Qt::DisplayRole).toString();
    return text.isEmpty() ? QVariant() : tipOn(text);
}

QVariant AuxDataTableAdapter::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical && role == Qt::AccessibleTextRole)
        return index(section, 0).data();
    return QTableModelAdapter::headerData(section, orientation, role);
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
