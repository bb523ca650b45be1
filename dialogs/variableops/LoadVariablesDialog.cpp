#include "dialogs/variableops/LoadVariablesDialog.h"

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
#include <vector>

namespace veldraw::dialogs::data {

using sdk::ui::dialogs::propertybindings::BindingInterface;
using sdk::ui::dialogs::propertybindings::ButtonBinding;
using sdk::ui::dialogs::propertybindings::ComboBoxPropertyBinding;
using sdk::ui::dialogs::propertybindings::ListViewPropertyBinding;
using sdk::ui::dialogs::propertybindings::RelevanceApplier;
using sdk::ui::propertymanager::DataSetExistsRelevance;
using sdk::ui::propertymanager::RelevanceInterface;

struct LoadVariablesDialog::Impl
{
    Impl(LoadVariablesDialog& dialog, int zone);
    ~Impl();

    void load();
    void bindAction(QPushButton& button);
    void bindList();

    Ui::LoadVariables ui;
    LoadVariablesPropertiesManager manager;
    std::vector<std::unique_ptr<BindingInterface>> bindings;
};

LoadVariablesDialog::Impl::Impl(LoadVariablesDialog& dialog, int zone)
    : manager(zone)
{
    ui.setupUi(&dialog);
    bindAction(*ui.LoadVariables_buttonBox->addButton(QStringLiteral("&Load"), QDialogButtonBox::ActionRole));
    bindings.push_back(std::make_unique<ComboBoxPropertyBinding<int>>(ui.LoadVariables_Zones_comboBox,
                                                                      manager.zonesListModel(), manager.zone(),
                                                                      BindingInterface::ModelUpdateDeferredOnBusy));
    bindList();
}

LoadVariablesDialog::Impl::~Impl()
{
    // In the order of their creation; the manager and the widgets are still there.
    for (std::unique_ptr<BindingInterface>& binding : bindings)
        binding.reset();
}

void LoadVariablesDialog::Impl::load()
{
    manager.loadSelectedVariables();
    // What is loaded leaves the list at once, even if the kernel has told nobody.
    manager.variablesListModel()->reset();
}

void LoadVariablesDialog::Impl::bindAction(QPushButton& button)
{
    bindings.push_back(std::make_unique<ButtonBinding>(button, [this] { load(); }));
    bindings.push_back(std::make_unique<RelevanceApplier>(
        manager.hasSelection(), &button, RelevanceApplier::EnableDisable, BindingInterface::UpdateOnIdle));
}

void LoadVariablesDialog::Impl::bindList()
{
    boost::shared_ptr<PropertyAbstract<std::set<int>>> const selection = manager.selectedVariables();
    auto list =
        std::make_unique<ListViewPropertyBinding>(ui.LoadVariables_Variables_listView, manager.variablesListModel(),
                                                  selection, BindingInterface::ModelUpdateDeferredOnBusy);
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    bindings.push_back(std::move(list));
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
    // First of all, so that nobody is handed a dialog that is being torn down.
    s_instance = nullptr;
    m_impl.reset();
}

} // namespace veldraw::dialogs::data
