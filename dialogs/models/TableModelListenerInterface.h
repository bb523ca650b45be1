#pragma once

#include "dialogs/property/DialogsApi.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

struct ModelIndex;
class TableModelInterface;

/// Hears what changed in a table. The table names itself, so that one listener can follow several.
class VDSDKDIALOGS_DATA_QT_API TableModelListenerInterface
{
public:
    /// Anything may be different: sizes, names, texts.
    virtual void dataChanged(TableModelInterface& model) = 0;
    /// The text of one cell is different.
    virtual void itemChanged(ModelIndex const& index, TableModelInterface& model) = 0;
    /// @param first zero-based number of the first new row, as it is now
    /// @param last of the last one
    virtual void rowsInserted(unsigned long long first, unsigned long long last, TableModelInterface& model) = 0;
    /// @param first zero-based number that the first removed row had
    /// @param last of the last one
    virtual void rowsRemoved(unsigned long long first, unsigned long long last, TableModelInterface& model) = 0;
    virtual ~TableModelListenerInterface() = default;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
