#include "dialogs/bindings/ActionOnSelection.h"

#include "dialogs/bindings/BindingList.h"
#include "dialogs/bindings/ButtonBinding.h"
#include "dialogs/bindings/ListViewPropertyBinding.h"

#include <QDialogButtonBox>
#include <QListView>
#include <QPushButton>

namespace veldraw::sdk::ui::dialogs::propertybindings {

void ActionOnSelection::bind(QDialogButtonBox& box, QListView& view, BindingList& bindings) const
{
    bindings.add<ButtonBinding>(*box.addButton(text, QDialogButtonBox::ActionRole), action);
    bindings.add<ListViewPropertyBinding>(&view, list, selection, BindingInterface::ModelUpdateDeferredOnBusy);
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
