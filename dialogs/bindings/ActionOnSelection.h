#pragma once

#include "dialogs/models/ListModelInterface.h"
#include "dialogs/property/PropertyAbstract.h"

#include <QString>

#include <boost/shared_ptr.hpp>

#include <functional>
#include <set>

class QDialogButtonBox;
class QListView;

namespace veldraw::sdk::ui::dialogs::propertybindings {

class BindingList;

/// What a dialog consists of that does something with things chosen from a list: the list, the choice and the button.
struct ActionOnSelection
{
    QString text; ///< of the button
    std::function<void()> action;
    boost::shared_ptr<models::ListModelInterface<int> const> list;
    boost::shared_ptr<PropertyAbstract<std::set<int>>> selection;

    /// Adds the button to its box and appends two bindings: of the button to the action, then of the view to list and selection.
    void bind(QDialogButtonBox& box, QListView& view, BindingList& bindings) const;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
