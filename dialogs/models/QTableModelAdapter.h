#pragma once

#include "dialogs/models/IndexWindow.h"
#include "dialogs/models/TableModelInterface.h"
#include "dialogs/models/TableModelListenerInterface.h"
#include "dialogs/property/DialogsApi.h"

#include <QAbstractTableModel>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// Shows a table to a Qt item view. Display and edit role are both the table's text, headers its names.
///
/// A Qt view cannot hold as many rows as a table can have, so it gets a window of them that can be moved:
///
///     int const row = adapter.showRow(2999999999ull); // moves the window if it must
///     view.setCurrentIndex(adapter.index(row, 0));
///
/// When the window moves, the rows that leave it are removed and those that come are inserted, so that selection, current
/// cell and open editor stay with the cells that they belong to as long as these are in the window. A table of no more than
/// `mostAtOnce` rows is shown whole and nothing moves. All that holds for columns too.
///
/// When the table changes as a whole but keeps its size, Qt is told of changed texts and names, so that the view stays where
/// it is; when the size is another one the model is reset and the window begins with the first row.
///
/// The table must outlive the adapter.
class VDSDKDIALOGS_DATA_QT_API QTableModelAdapter : public QAbstractTableModel, public TableModelListenerInterface
{
    Q_OBJECT

public:
    /// Most rows or columns that a view gets.
    static constexpr int mostAtOnce = 1000000;

    explicit QTableModelAdapter(TableModelInterface& model, QObject* parentObject = nullptr);
    /// @param windowSize most rows or columns at once, 1 or more; for views that want fewer
    QTableModelAdapter(TableModelInterface& model, int windowSize, QObject* parentObject = nullptr);
    ~QTableModelAdapter() override;

    // ---- what Qt asks, in rows and columns of the window -----------------------------------------------------------
    int rowCount(QModelIndex const& parentIndex = QModelIndex()) const override;
    int columnCount(QModelIndex const& parentIndex = QModelIndex()) const override;
    QVariant data(QModelIndex const& modelIndex, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    /// @return whether the table took the text
    bool setData(QModelIndex const& modelIndex, QVariant const& value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(QModelIndex const& modelIndex) const override;

    // ---- the window -------------------------------------------------------------------------------------------------
    /// Rows of the table; columns by totalColumns(). Zero-based numbers of the table's rows have 64 bits.
    unsigned long long totalRows() const { return m_rows.total(); }
    unsigned long long totalColumns() const { return m_columns.total(); }
    /// Whether the view has all rows, so that there is no window to move.
    bool showsAllRows() const { return m_rows.showsAll(); }
    bool showsAllColumns() const { return m_columns.showsAll(); }
    /// The table's row that is the window's first, and the last one that can be.
    unsigned long long firstRow() const { return m_rows.first(); }
    unsigned long long lastFirstRow() const { return m_rows.lastFirst(); }
    unsigned long long firstColumn() const { return m_columns.first(); }
    unsigned long long lastFirstColumn() const { return m_columns.lastFirst(); }
    /// Moves the window; a row beyond lastFirstRow() is that one.
    void setFirstRow(unsigned long long row);
    void setFirstColumn(unsigned long long column);
    /// The table's row behind a row of the window.
    unsigned long long tableRow(int windowRow) const { return m_rows.thing(windowRow); }
    unsigned long long tableColumn(int windowColumn) const { return m_columns.thing(windowColumn); }
    /// The window's row that shows a row of the table, -1 while that is outside.
    int windowRow(unsigned long long tableRow) const { return m_rows.inWindow(tableRow); }
    int windowColumn(unsigned long long tableColumn) const { return m_columns.inWindow(tableColumn); }
    /// Moves the window to where the row stands in its middle, unless the window has it already.
    /// @return the window's row, -1 when the table has no such row
    int showRow(unsigned long long tableRow);
    int showColumn(unsigned long long tableColumn);
    /// The table's cell behind an index of this model.
    ModelIndex tableIndex(QModelIndex const& modelIndex) const;

Q_SIGNALS:
    /// After the window has moved, and after the table got another size.
    void windowChanged();

private:
    void dataChanged(TableModelInterface& model) override;
    void itemChanged(ModelIndex const& index, TableModelInterface& model) override;
    void rowsInserted(unsigned long long first, unsigned long long last, TableModelInterface& model) override;
    void rowsRemoved(unsigned long long first, unsigned long long last, TableModelInterface& model) override;

    bool isCell(QModelIndex const& modelIndex) const;
    void reset();
    void moveWindow(IndexWindow& window, unsigned long long first, Qt::Orientation orientation);
    void moveTowardsEnd(IndexWindow& window, int count, Qt::Orientation orientation);
    void moveTowardsStart(IndexWindow& window, int count, Qt::Orientation orientation);
    void jump(IndexWindow& window, unsigned long long first, Qt::Orientation orientation);
    void beginRemove(int first, int count, Qt::Orientation orientation);
    void endRemove(Qt::Orientation orientation);
    void beginInsert(int first, int count, Qt::Orientation orientation);
    void endInsert(Qt::Orientation orientation);

    TableModelInterface& m_model;
    IndexWindow m_rows;
    IndexWindow m_columns;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
