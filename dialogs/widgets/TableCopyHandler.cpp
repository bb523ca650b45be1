#include "dialogs/widgets/TableCopyHandler.h"

#include <QApplication>
#include <QClipboard>
#include <QItemSelection>
#include <QKeyEvent>
#include <QTableView>

namespace veldraw::ui {

namespace {

QRect rectangle(QItemSelectionRange const& range)
{
    return QRect(range.left(), range.top(), range.width(), range.height());
}

// By ranges: a list of the selected cells of a long table would not fit.
QRect rectangle(QItemSelection const& selection)
{
    QRect all;
    for (QItemSelectionRange const& range : selection)
        all |= rectangle(range);
    return all;
}

bool contains(QItemSelection const& selection, int row, int column)
{
    for (QItemSelectionRange const& range : selection)
        if (rectangle(range).contains(column, row))
            return true;
    return false;
}

} // namespace

TableCopyHandler::TableCopyHandler(QTableView* table)
    : QObject(table)
    , m_table(*table)
{
    table->installEventFilter(this);
}

TableCopyHandler::~TableCopyHandler() = default;

void TableCopyHandler::setSelectedText(std::function<QString()> const& selectedText)
{
    m_selectedText = selectedText;
}

bool TableCopyHandler::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        copyToClipboard();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void TableCopyHandler::copyToClipboard()
{
    QString const text = m_selectedText ? m_selectedText() : textOfView();
    if (!text.isNull())
        QApplication::clipboard()->setText(text);
}

QString TableCopyHandler::textOfView() const
{
    if (!m_table.selectionModel() || !m_table.selectionModel()->hasSelection())
        return QString();
    QItemSelection const selection = m_table.selectionModel()->selection();
    QRect const all = rectangle(selection);
    QString text = QStringLiteral("");
    for (int row = all.top(); row <= all.bottom(); ++row) {
        if (row > all.top())
            text += QLatin1Char('\n');
        for (int column = all.left(); column <= all.right(); ++column) {
            if (column > all.left())
                text += QLatin1Char('\t');
            if (contains(selection, row, column))
                text += m_table.model()->index(row, column).data(Qt::EditRole).toString();
        }
    }
    return text;
}

} // namespace veldraw::ui
