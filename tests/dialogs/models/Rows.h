#pragma once

#include "dialogs/models/ListModelInterface.h"

#include <QAbstractItemModel>

#include <string>

namespace veldraw::tests {

/// A whole list as one text: "1=Alpha | 2=Beta", the value and the display text of each row.
template <typename T>
std::string rows(sdk::ui::dialogs::propertybindings::models::ListModelInterface<T> const& list)
{
    std::string text;
    for (int row = 0; row < list.size(); ++row)
        text += (row == 0 ? "" : " | ") + std::to_string(static_cast<int>(list.get(row))) + "=" + list.getStr(row);
    return text;
}

/// The same of an item model.
inline std::string rows(QAbstractItemModel const& model)
{
    QString text;
    for (int row = 0; row < model.rowCount(); ++row) {
        QModelIndex const index = model.index(row, 0);
        text += (row == 0 ? QString() : QStringLiteral(" | ")) + index.data(Qt::UserRole).toString() +
                QLatin1Char('=') + index.data(Qt::DisplayRole).toString();
    }
    return text.toStdString();
}

} // namespace veldraw::tests
