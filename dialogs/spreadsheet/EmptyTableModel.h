#pragma once

#include "dialogs/models/TableModelAbstract.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// What is shown while there is nothing to show: a table without rows and columns.
class EmptyTableModel : public TableModelAbstract
{
public:
    unsigned long long columnCount() const override { return 0; }
    unsigned long long rowCount() const override { return 0; }
    std::string columnName(unsigned long long) const override { return std::string(); }
    std::string rowName(unsigned long long) const override { return std::string(); }
    std::string getStr(ModelIndex const&) const override { return std::string(); }
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
