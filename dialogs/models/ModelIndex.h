#pragma once

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// A cell of a table, zero-based. Wider than Qt's index: a table can have more rows than an int counts.
struct ModelIndex
{
    ModelIndex(unsigned long long theRow, unsigned long long theColumn)
        : row(theRow)
        , column(theColumn)
    {
    }

    unsigned long long row;
    unsigned long long column;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
