#pragma once

#include <QObject>
#include <QPair>
#include <QSet>
#include <QString>

class QAbstractItemView;
class QModelIndex;

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Keeps the selection of a table with the names of its rows, which stand in the first column: rows come and go, and the table may become
/// that of another owner. What is gone is selected again when it comes back, until the user selects something else.
class NamedRowsSelection : public QObject
{
public:
    /// Belongs to the view, which has its model already.
    explicit NamedRowsSelection(QAbstractItemView& view);
    ~NamedRowsSelection() override;

private:
    /// The name of a row, and a column.
    using Cell = QPair<QString, int>;

    static Cell cellOf(QModelIndex const& index);
    void note();
    void restore();

    QAbstractItemView& m_view;
    QSet<Cell> m_selected;
    Cell m_current = Cell(QString(), -1);
    bool m_isRestoring = false;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
