#pragma once

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// The view's side of an item model that presents a table with more rows than a Qt view can hold: the item model shows
/// `windowRowCount()` rows of the table from `firstRow()` on, and whoever scrolls moves that window. Row 0 of the item
/// model is the table's row `firstRow()`; row names are those of the table. A table that a view can hold whole is
/// presented whole: `firstRow()` is 0 then and stays so.
class RowWindowInterface
{
public:
    /// Rows of the whole table.
    virtual unsigned long long totalRowCount() const = 0;

    /// Rows that the item model shows, at most `totalRowCount()`.
    virtual int windowRowCount() const = 0;

    /// The table's row, zero-based, that is row 0 of the item model.
    virtual unsigned long long firstRow() const = 0;

    /// Moves the window so that it begins at a row, or as near as the end of the table allows. The item model keeps its
    /// size: it tells a change of all cells and of the row names, not a reset.
    virtual void setFirstRow(unsigned long long row) = 0;

    virtual ~RowWindowInterface() = default;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
