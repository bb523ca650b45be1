#include "dialogs/variableops/DeleteVariableDialog.h"

#include "dialogs/bindings/BindingList.h"
#include "dialogs/bindings/ButtonBinding.h"
#include "dialogs/bindings/ListViewPropertyBinding.h"
#include "dialogs/frame/LaunchHelpAction.h"
#include "dialogs/property/DataSetExistsRelevance.h"
#include "dialogs/variableops/DeleteVariablePropertiesManager.h"
#include "ui_DeleteVariableDialog.h"

#include <QPushButton>

#include <boost/make_shared.hpp>

#include <set>
#include <string>

namespace veldraw::dialogs::data {

using sdk::ui::dialogs::propertybindings::BindingInterface;
using sdk::ui::dialogs::propertybindings::BindingList;
using sdk::ui::dialogs::propertybindings::ButtonBinding;
using sdk::ui::dialogs::propertybindings::ListViewPropertyBinding;
using sdk::ui::propertymanager::DataSetExistsRelevance;
using sdk::ui::propertymanager::DeleteVariablePropertiesManager;
using sdk::ui::propertymanager::RelevanceInterface;

struct DeleteVariableDialog::Impl
{
    explicit Impl(DeleteVariableDialog& dialog);

    Ui::DeleteVariableDialog ui;
    DeleteVariablePropertiesManager manager;
    BindingList bindings;
};

DeleteVariableDialog::Impl::Impl(DeleteVariableDialog& dialog)
{
    ui.setupUi(&dialog);
    QPushButton* const deleteButton = ui.buttonBox->addButton(QStringLiteral("&Delete"), QDialogButtonBox::ActionRole);
    bindings.add<ButtonBinding>(*deleteButton, [this] { manager.deleteSelectedVariables(); });
    boost::shared_ptr<PropertyAbstract<std::set<int>>> const selection = manager.selectedVariables();
    bindings.add<ListViewPropertyBinding>(ui.deleteVariable_Select_MList, manager.variablesListModel(), selection,
                                          BindingInterface::ModelUpdateDeferredOnBusy);
}

DeleteVariableDialog* DeleteVariableDialog::s_instance = nullptr;

DeleteVariableDialog& DeleteVariableDialog::getInstance(QWidget& parent)
{
    if (!s_instance)
        s_instance = new DeleteVariableDialog(parent);
    return *s_instance;
}

boost::shared_ptr<RelevanceInterface const> DeleteVariableDialog::relevance()
{
    static boost::shared_ptr<RelevanceInterface const> const rule = boost::make_shared<DataSetExistsRelevance>();
    return rule;
}

DeleteVariableDialog::DeleteVariableDialog(QWidget& parent)
    : QtDialogAbstract(parent, relevance())
    , m_impl(std::make_unique<Impl>(*this))
{
    setHelpAction(new common::LaunchHelpAction(std::string("delete_variable.html"), *this));
}

DeleteVariableDialog::~DeleteVariableDialog()
{
    // First of all, so that getInstance() never returns a dialog that is being destroyed.
    s_instance = nullptr;
    m_impl.reset();
}

} // namespace veldraw::dialogs::data
