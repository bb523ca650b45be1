#include "dialogs/interpolation/KrigingDialog.h"

#include "dialogs/bindings/BindingList.h"
#include "dialogs/bindings/ButtonBinding.h"
#include "dialogs/bindings/ComboBoxPropertyBinding.h"
#include "dialogs/bindings/ListViewPropertyBinding.h"
#include "dialogs/bindings/RelevanceApplier.h"
#include "dialogs/bindings/TextFieldPropertyBinding.h"
#include "dialogs/frame/LaunchHelpAction.h"
#include "dialogs/interpolation/KrigingPropertiesManager.h"
#include "ui_KrigingDialog.h"

#include <QPushButton>

#include <set>
#include <string>

namespace veldraw::dialogs::data {

using sdk::ui::dialogs::propertybindings::BindingInterface;
using sdk::ui::dialogs::propertybindings::BindingList;
using sdk::ui::dialogs::propertybindings::ButtonBinding;
using sdk::ui::dialogs::propertybindings::ComboBoxPropertyBinding;
using sdk::ui::dialogs::propertybindings::ListViewPropertyBinding;
using sdk::ui::dialogs::propertybindings::RelevanceApplier;
using sdk::ui::dialogs::propertybindings::TextFieldPropertyBinding;
using sdk::ui::propertymanager::RelevanceInterface;

struct KrigingDialog::Impl
{
    explicit Impl(KrigingDialog& dialog);

    void bindSelections();
    void bindSettings();

    Ui::Kriging ui;
    KrigingPropertiesManager manager;
    BindingList bindings;
};

KrigingDialog::Impl::Impl(KrigingDialog& dialog)
{
    ui.setupUi(&dialog);
    QPushButton* const interpolateButton =
        ui.buttonBox->addButton(QStringLiteral("&Interpolate"), QDialogButtonBox::ActionRole);
    bindings.add<ButtonBinding>(*interpolateButton, [this] { manager.interpolate(); });
    bindSelections();
    bindSettings();
    bindings.add<RelevanceApplier>(manager.numPointsRelevance(), ui.krigingDlg_NumOfPoints_LineEdit,
                                   ui.krigingDlg_NumOfPoints_Label, RelevanceApplier::EnableDisable,
                                   BindingInterface::UpdateOnIdle);
    bindings.add<RelevanceApplier>(manager.interpolateButtonRelevance(), interpolateButton,
                                   RelevanceApplier::EnableDisable, BindingInterface::UpdateOnIdle);
}

void KrigingDialog::Impl::bindSelections()
{
    boost::shared_ptr<PropertyAbstract<std::set<int>>> const sourceZones = manager.sourceZones();
    boost::shared_ptr<PropertyAbstract<std::set<int>>> const variables = manager.variables();
    bindings.add<ListViewPropertyBinding>(ui.krigingDlg_SourceZone_ListView, manager.zoneModel(), sourceZones,
                                          BindingInterface::ModelUpdateDeferredOnBusy);
    bindings.add<ListViewPropertyBinding>(ui.krigingDlg_Variables_ListView, manager.variablesModel(), variables,
                                          BindingInterface::ModelUpdateDeferredOnBusy);
    bindings.add<ComboBoxPropertyBinding<int>>(ui.krigingDlg_DestZone_ComboBox, manager.zoneModel(),
                                               manager.destinationZone(), BindingInterface::ModelUpdateDeferredOnBusy);
}

// The choices before the numbers, unlike the form.
void KrigingDialog::Impl::bindSettings()
{
    bindings.add<ComboBoxPropertyBinding<PtSelection_e>>(
        ui.krigingDlg_PointSelection_ComboBox, manager.ptSelectionModel(), KrigingPropertiesManager::krigPtSelection(),
        BindingInterface::ModelUpdateDeferredOnBusy);
    bindings.add<ComboBoxPropertyBinding<Drift_e>>(ui.krigingDlg_Drift_ComboBox, manager.driftModel(),
                                                   KrigingPropertiesManager::krigDrift(),
                                                   BindingInterface::ModelUpdateDeferredOnBusy);
    bindings.add<TextFieldPropertyBinding<double>>(ui.krigingDlg_Range_LineEdit, KrigingPropertiesManager::krigRange());
    bindings.add<TextFieldPropertyBinding<double>>(ui.krigingDlg_ZeroValue_LineEdit,
                                                   KrigingPropertiesManager::krigZeroValue());
    bindings.add<TextFieldPropertyBinding<long long>>(ui.krigingDlg_NumOfPoints_LineEdit,
                                                      KrigingPropertiesManager::krigNumPoints());
}

KrigingDialog* KrigingDialog::s_instance = nullptr;

KrigingDialog& KrigingDialog::getInstance(QWidget& parent)
{
    if (!s_instance)
        s_instance = new KrigingDialog(parent);
    return *s_instance;
}

boost::shared_ptr<RelevanceInterface const> KrigingDialog::relevance()
{
    return KrigingPropertiesManager::relevance();
}

KrigingDialog::KrigingDialog(QWidget& parent)
    : QtDialogAbstract(parent, relevance())
    , m_impl(std::make_unique<Impl>(*this))
{
    setHelpAction(new common::LaunchHelpAction(std::string("interpolate_kriging.html"), *this));
}

KrigingDialog::~KrigingDialog()
{
    // First of all, so that getInstance() never returns a dialog that is being destroyed.
    s_instance = nullptr;
    m_impl.reset();
}

} // namespace veldraw::dialogs::data
