#pragma once

#include "dialogs/models/ModelIndex.h"
#include "dialogs/property/DialogsApi.h"

#include <string>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

class TableModelListenerInterface;

/// A table of texts with names for its rows and columns. Rows and columns are zero-based, counts have 64 bits, texts are
/// UTF-8. What a call costs must not depend on the size of the table.
class VDSDKDIALOGS_DATA_QT_API TableModelInterface
{
public:
    virtual unsigned long long columnCount() const = 0;
    virtual unsigned long long rowCount() const = 0;
    virtual std::string columnName(unsigned long long column) const = 0;
    virtual std::string rowName(unsigned long long row) const = 0;
    virtual bool isEditable(ModelIndex const& index) const = 0;
    virtual std::string getStr(ModelIndex const& index) const = 0;
    /// @return whether the new text was taken
    virtual bool setStr(ModelIndex const& index, std::string const& text) = 0;
    /// The listener stays the caller's and must be removed before it goes. Adding it again changes nothing.
    virtual void addListener(TableModelListenerInterface* listener) = 0;
    virtual void removeListener(TableModelListenerInterface* listener) = 0;
    virtual ~TableModelInterface() = default;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
