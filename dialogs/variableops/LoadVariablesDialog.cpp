#include "dialogs/variableops/LoadVariablesDialog.h"

#include "dialogs/bindings/BindingList.h"
#include "dialogs/bindings/ButtonBinding.h"
#include "dialogs/bindings/ComboBoxPropertyBinding.h"
#include "dialogs/bindings/ListViewPropertyBinding.h"
#include "dialogs/bindings/RelevanceApplier.h"
#include "dialogs/frame/LaunchHelpAction.h"
#include "dialogs/property/DataSetExistsRelevance.h"
#include "dialogs/variableops/LoadVariablesPropertiesManager.h"
#include "ui_LoadVariablesDialog.h"

#include <QPushButton>

#include <boost/make_shared.hpp>

#include <set>
#include <string>

namespace veldraw::dialogs::data {

using sdk::ui::dialogs::propertybindings::BindingInterface;
using sdk::ui::dialogs::propertybindings::BindingList;
using sdk::ui::dialogs::propertybindings::ButtonBinding;
using sdk::ui::dialogs::propertybindings::ComboBoxPropertyBinding;
using sdk::ui::dialogs::propertybindings::ListViewPropertyBinding;
using sdk::ui::dialogs::propertybindings::RelevanceApplier;
using sdk::ui::propertymanager::DataSetExistsRelevance;
using sdk::ui::propertymanager::RelevanceInterface;

struct LoadVariablesDialog::Impl
{
    Impl(LoadVariablesDialog& dialog, int zone);

    void load();
    void bindAction(QPushButton& button);
    void bindList();

    Ui::LoadVariables ui;
    LoadVariablesPropertiesManager manager;
    BindingList bindings;
};

LoadVariablesDialog::Impl::Impl(LoadVariablesDialog& dialog, int zone)
    : manager(zone)
{
    ui.setupUi(&dialog);
    bindAction(*ui.LoadVariables_buttonBox->addButton(QStringLiteral("&Load"), QDialogButtonBox::ActionRole));
    bindings.add<ComboBoxPropertyBinding<int>>(ui.LoadVariables_Zones_comboBox, manager.zonesListModel(),
                                               manager.zone(), BindingInterface::ModelUpdateDeferredOnBusy);
    bindList();
}

void LoadVariablesDialog::Impl::load()
{
    manager.loadSelectedVariables();
    // What is loaded leaves the list at once, even if the kernel has told nobody.
    manager.variablesListModel()->reset();
}

void LoadVariablesDialog::Impl::bindAction(QPushButton& button)
{
    bindings.add<ButtonBinding>(button, [this] { load(); });
    bindings.add<RelevanceApplier>(manager.hasSelection(), &button, RelevanceApplier::EnableDisable,
                                   BindingInterface::UpdateOnIdle);
}

void LoadVariablesDialog::Impl::bindList()
{
    boost::shared_ptr<PropertyAbstract<std::set<int>>> const selection = manager.selectedVariables();
    auto list =
        std::make_unique<ListViewPropertyBinding>(ui.LoadVariables_Variables_listView, manager.variablesListModel(),
                                                  selection, BindingInterface::ModelUpdateDeferredOnBusy);
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    bindings.adopt(std::move(list));
}

LoadVariablesDialog* LoadVariablesDialog::s_instance = nullptr;

LoadVariablesDialog& LoadVariablesDialog::getInstance(QWidget& parent, int zone)
{
    if (!s_instance)
        s_instance = new LoadVariablesDialog(parent, zone);
    return *s_instance;
}

boost::shared_ptr<RelevanceInterface const> LoadVariablesDialog::relevance()
{
    static boost::shared_ptr<RelevanceInterface const> const rule = boost::make_shared<DataSetExistsRelevance>();
    return rule;
}

LoadVariablesDialog::LoadVariablesDialog(QWidget& parent, int zone)
    : QtDialogAbstract(parent, relevance())
    , m_impl(std::make_unique<Impl>(*this, zone))
{
    setHelpAction(new common::LaunchHelpAction(std::string("load_variable.html"), *this));
}

LoadVariablesDialog::~LoadVariablesDialog()
{
    // First of all, so that getInstance() never returns a dialog that is being destroyed.
    s_instance = nullptr;
    m_impl.reset();
}

} // namespace veldraw::dialogs::data
