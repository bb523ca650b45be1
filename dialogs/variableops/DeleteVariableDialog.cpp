#include "dialogs/variableops/DeleteVariableDialog.h"

#include "dialogs/bindings/ActionOnSelection.h"
#include "dialogs/bindings/BindingList.h"
#include "dialogs/frame/LaunchHelpAction.h"
#include "dialogs/property/DataSetExistsRelevance.h"
#include "dialogs/variableops/DeleteVariablePropertiesManager.h"
#include "ui_DeleteVariableDialog.h"

#include <boost/make_shared.hpp>

#include <string>

namespace veldraw::dialogs::data {

using sdk::ui::dialogs::propertybindings::ActionOnSelection;
using sdk::ui::dialogs::propertybindings::BindingList;
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
    ActionOnSelection const choice{QStringLiteral("&Delete"), [this] { manager.deleteSelectedVariables(); },
                                   manager.variablesListModel(), manager.selectedVariables()};
    choice.bind(*ui.buttonBox, *ui.deleteVariable_Select_MList, bindings);
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
