#pragma once

#include "dialogs/models/QTableModelAdapter.h"

#include <QModelIndex>

#include <algorithm>

class QTableView;

namespace veldraw::sdk::ui::propertymanager {

/// The cells of the whole table behind a view, whose item model may show a part of it only. Made for the moment of use.
class TableCells
{
public:
    using Cell = dialogs::propertybindings::models::ModelIndex;

    explicit TableCells(QTableView const& view);

    unsigned long long rowCount() const;
    unsigned long long columnCount() const;

    /// The table's cell behind a valid index of the item model.
    Cell cell(QModelIndex const& index) const;

    /// Has the item model show a cell of the table. @return its index, invalid when there is no such cell
    QModelIndex show(Cell const& cell) const;

private:
    QAbstractItemModel const* const m_items;                                // null for a view without a model
    dialogs::propertybindings::models::QTableModelAdapter* const m_adapter; // null when the items are the whole table
};

/// Saturating subtraction, for positions and counts, which have no sign.
/// @return @p number less @p by, and 0 where that would be below 0
inline unsigned long long subtractSaturating(unsigned long long number, unsigned long long by)
{
    return number - std::min(number, by);
}

} // namespace veldraw::sdk::ui::propertymanager
