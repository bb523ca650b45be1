#include "dialogs/smoothing/SmoothDialog.h"

#include "dialogs/bindings/BindingList.h"
#include "dialogs/bindings/ButtonBinding.h"
#include "dialogs/bindings/ComboBoxPropertyBinding.h"
#include "dialogs/bindings/RelevanceApplier.h"
#include "dialogs/bindings/TextFieldPropertyBinding.h"
#include "dialogs/frame/LaunchHelpAction.h"
#include "dialogs/smoothing/SmoothPropertiesManager.h"
#include "ui_SmoothDialog.h"

#include <QPushButton>

#include <string>

namespace veldraw::dialogs::data {

using sdk::ui::dialogs::propertybindings::BindingInterface;
using sdk::ui::dialogs::propertybindings::BindingList;
using sdk::ui::dialogs::propertybindings::ButtonBinding;
using sdk::ui::dialogs::propertybindings::ComboBoxPropertyBinding;
using sdk::ui::dialogs::propertybindings::RelevanceApplier;
using sdk::ui::dialogs::propertybindings::TextFieldPropertyBinding;
using sdk::ui::propertymanager::RelevanceInterface;

struct SmoothDialog::Impl
{
    explicit Impl(SmoothDialog& dialog);

    void bindSettings();
    void bindSelections();

    Ui::SmoothDialog ui;
    SmoothPropertiesManager manager;
    BindingList appliers;
    BindingList bindings;
};

SmoothDialog::Impl::Impl(SmoothDialog& dialog)
{
    ui.setupUi(&dialog);
    QPushButton* const smoothButton = ui.buttonBox->addButton(QStringLiteral("&Smooth"), QDialogButtonBox::ActionRole);
    bindSettings();
    bindings.add<ButtonBinding>(*smoothButton, [this] { manager.smooth(); });
    bindSelections();
    appliers.add<RelevanceApplier>(manager.boundaryRelevance(), ui.smoothDlg_Boundary_Label,
                                   ui.smoothDlg_Boundary_ComboBox, RelevanceApplier::EnableDisable,
                                   BindingInterface::UpdateOnIdle);
}

// From the bottom of the form to its top.
void SmoothDialog::Impl::bindSettings()
{
    bindings.add<ComboBoxPropertyBinding<BoundaryCondition_e>>(ui.smoothDlg_Boundary_ComboBox, manager.boundaryModel(),
                                                               SmoothPropertiesManager::boundaryCondition(),
                                                               BindingInterface::ModelUpdateDeferredOnBusy);
    bindings.add<TextFieldPropertyBinding<double>>(ui.smoothDlg_Coefficent_LineEdit,
                                                   SmoothPropertiesManager::smoothWeight());
    bindings.add<TextFieldPropertyBinding<int>>(ui.smoothDlg_NumOfPasses_LineEdit,
                                                SmoothPropertiesManager::numberOfPasses());
}

void SmoothDialog::Impl::bindSelections()
{
    bindings.add<ComboBoxPropertyBinding<int>>(ui.smoothDlg_Zone_ComboBox, manager.zoneModel(),
                                               SmoothPropertiesManager::selectedZone(),
                                               BindingInterface::ModelUpdateDeferredOnBusy);
    bindings.add<ComboBoxPropertyBinding<int>>(ui.smoothDlg_Variable_ComboBox, manager.variableModel(),
                                               SmoothPropertiesManager::selectedVariable(),
                                               BindingInterface::ModelUpdateDeferredOnBusy);
}

SmoothDialog* SmoothDialog::s_instance = nullptr;

SmoothDialog& SmoothDialog::getInstance(QWidget& parent)
{
    if (!s_instance)
        s_instance = new SmoothDialog(parent);
    return *s_instance;
}

boost::shared_ptr<RelevanceInterface const> SmoothDialog::relevance()
{
    return SmoothPropertiesManager::relevance();
}

SmoothDialog::SmoothDialog(QWidget& parent)
    : QtDialogAbstract(parent, relevance())
    , m_impl(std::make_unique<Impl>(*this))
{
    setHelpAction(new common::LaunchHelpAction(std::string("alter_smooth.html"), *this));
}

SmoothDialog::~SmoothDialog()
{
    // First of all, so that getInstance() never returns a dialog that is being destroyed.
    s_instance = nullptr;
    m_impl.reset();
}

} // namespace veldraw::dialogs::data
