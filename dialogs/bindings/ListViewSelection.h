#pragma once

#include "dialogs/models/ListModelInterface.h"

#include <QItemSelection>

#include <set>

class QAbstractItemModel;

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Conversions between a set of values and the selected rows of a list. Both work on ranges of rows, since lists can have
/// 100,000 rows.

/// The rows that hold the values; a value may stand on several rows, or on none. Neighbouring rows become one range.
/// @param itemModel shows @p list, row by row
QItemSelection selectionOfValues(std::set<int> const& values, models::ListModelInterface<int> const& list,
                                 QAbstractItemModel const& itemModel);

/// The values on the selected rows; headings don't count.
std::set<int> valuesOfSelection(QItemSelection const& selection, models::ListModelInterface<int> const& list);

} // namespace veldraw::sdk::ui::dialogs::propertybindings
