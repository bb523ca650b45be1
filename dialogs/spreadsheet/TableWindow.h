#pragma once

#include "dialogs/spreadsheet/CellRange.h"
#include "dialogs/spreadsheet/TableCells.h"

#include <QObject>

#include <optional>
#include <vector>

class QScrollBar;

namespace veldraw::dialogs::common {
class TableViewWithPreferredDimensions;
}

namespace veldraw::sdk::ui::propertymanager {

/// A view on a table that may be longer than a Qt view can hold: position, current cell and selection in 64-bit numbers of
/// the whole table. It moves the window of rows and columns that the item model shows so that the user meets no border.
///
/// What the user selects with the view's own means is taken over. A selection that reaches from the first to the last row of
/// the window, such as a click on a column's name, stands for all rows of the table; the same holds for columns.
class TableWindow : public QObject
{
    Q_OBJECT

public:
    using Cell = TableCells::Cell;
    using Ranges = std::vector<CellRange>;
    using View = veldraw::dialogs::common::TableViewWithPreferredDimensions;
    using Adapter = dialogs::propertybindings::models::QTableModelAdapter;

    /// Belongs to the view, which already shows the adapter and is destroyed before it.
    TableWindow(View& view, Adapter& adapter);
    ~TableWindow() override;

    /// The one of a view, null if it has none.
    static TableWindow* of(QObject const& view);

    // ---- the two directions: vertical counts rows, horizontal columns ----------------------------------------------
    unsigned long long total(Qt::Orientation direction) const;
    /// Whether the view holds all there is, so that its own scroll bar reaches everything.
    bool showsAll(Qt::Orientation direction) const;
    /// The first row or column in view, how many fit whole, and the last one with which the view can begin.
    unsigned long long position(Qt::Orientation direction) const;
    int pageSize(Qt::Orientation direction) const;
    unsigned long long lastPosition(Qt::Orientation direction) const;
    /// Scrolls; a position beyond the last one is that.
    void scrollTo(Qt::Orientation direction, unsigned long long position);

    // ---- current cell and selection --------------------------------------------------------------------------------
    std::optional<Cell> current() const { return m_current; }
    /// What is selected: nothing, one rectangle, or pieces that were picked with Control and may overlap.
    Ranges const& selection() const { return m_selection; }
    /// Goes to a cell and brings it into view; what is being typed in another cell is taken. Cells beyond the table are
    /// ignored.
    /// @param extend selects from where the selection began to the cell, instead of the cell
    void setCurrent(Cell const& cell, bool extend);
    /// Selects whole rows, or whole columns, from where the selection began to a place, and goes there.
    void extendLines(Qt::Orientation direction, unsigned long long place);
    /// Sets the cell from which a selection is extended. The selection itself is left to the view.
    /// @param adds keeps what is selected outside the window
    void beginAt(Cell const& cell, bool adds);

Q_SIGNALS:
    /// After scrolling, and after the table got another size.
    void positionChanged();

private:
    void onCurrentChanged(QModelIndex const& index);
    void onSelectionChanged();
    void onWindowChanged();
    void onScrolled();
    void makeRoom(Qt::Orientation direction);
    void moveWindow(Qt::Orientation direction, unsigned long long first);
    void moveWindowAround(Qt::Orientation direction, unsigned long long center);
    void ensureInWindow(Qt::Orientation direction, unsigned long long place);
    bool isInTable(Cell const& cell) const;
    void select(Cell const& anchor, Cell const& current, CellRange const& range);
    bool wouldLose(Cell const& cell, Qt::Orientation direction, unsigned long long newFirst) const;
    void showSelection();
    void showCurrent();
    Ranges rangesInView() const;
    void addElsewhere(Ranges& selected) const;
    bool reachesOverAll(CellRange const& range) const;
    CellRange window() const;

    QScrollBar& scrollBar(Qt::Orientation direction) const;
    unsigned long long first(Qt::Orientation direction) const;
    unsigned long long lastFirst(Qt::Orientation direction) const;
    int windowSize(Qt::Orientation direction) const;
    int inWindow(Qt::Orientation direction, unsigned long long place) const;

    View& m_view;
    Adapter& m_adapter;
    std::optional<Cell> m_current;
    std::optional<Cell> m_anchor; // where the selection began
    Ranges m_selection;
    bool m_isMoving = false; // signals of the view come from this class, not from the user
    bool m_willMakeRoom = false;
};

} // namespace veldraw::sdk::ui::propertymanager
