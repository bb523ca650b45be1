#include "dialogs/fourier/FourierTransformDialog.h"

#include "dialogs/bindings/BindingList.h"
#include "dialogs/bindings/ButtonBinding.h"
#include "dialogs/bindings/CheckButtonPropertyBinding.h"
#include "dialogs/bindings/ComboBoxPropertyBinding.h"
#include "dialogs/bindings/ListViewPropertyBinding.h"
#include "dialogs/bindings/RelevanceApplier.h"
#include "dialogs/fourier/FourierTransformPropertiesManager.h"
#include "dialogs/frame/LaunchHelpAction.h"
#include "ui_FourierTransformDialog.h"

#include <QItemSelectionModel>
#include <QPushButton>

#include <string>

namespace veldraw::dialogs::data {

using sdk::ui::dialogs::propertybindings::BindingInterface;
using sdk::ui::dialogs::propertybindings::BindingList;
using sdk::ui::dialogs::propertybindings::ButtonBinding;
using sdk::ui::dialogs::propertybindings::CheckButtonPropertyBinding;
using sdk::ui::dialogs::propertybindings::ComboBoxPropertyBinding;
using sdk::ui::dialogs::propertybindings::ListViewPropertyBinding;
using sdk::ui::dialogs::propertybindings::RelevanceApplier;
using sdk::ui::propertymanager::FourierTransformPropertiesManager;
using sdk::ui::propertymanager::RelevanceInterface;

struct FourierTransformDialog::Impl
{
    explicit Impl(FourierTransformDialog& owner);
    ~Impl();

    void bindSelections();
    void bindOptions();
    void selectFirstZone();
    QPushButton* transformButton() const { return ui.buttonBox->button(QDialogButtonBox::Apply); }

    FourierTransformDialog& dialog;
    Ui::FourierTransform ui;
    FourierTransformPropertiesManager manager;
    BindingList bindings;
    BindingList appliers;
};

FourierTransformDialog::Impl::Impl(FourierTransformDialog& owner)
    : dialog(owner)
{
    ui.setupUi(&dialog);
    transformButton()->setText(QStringLiteral("&Transform"));
    bindSelections();
    bindings.add<ButtonBinding>(*transformButton(), [this] { manager.transform(); });
    bindOptions();
    appliers.add<RelevanceApplier>(manager.transformButtonRelevance(), transformButton(),
                                   RelevanceApplier::EnableDisable, BindingInterface::UpdateOnIdle);
    selectFirstZone();
    dialog.setHelpAction(new common::LaunchHelpAction(std::string("fourier_transform.html"), dialog));
}

// The button follows its rule until the last binding has gone.
FourierTransformDialog::Impl::~Impl()
{
    bindings.clear();
}

void FourierTransformDialog::Impl::bindSelections()
{
    bindings.add<ComboBoxPropertyBinding<int>>(ui.independentVariablesComboBox, manager.variableModel(),
                                               manager.independentVariable(),
                                               BindingInterface::ModelUpdateDeferredOnBusy);
    bindings.add<ComboBoxPropertyBinding<WindowFunction_e>>(ui.windowFunctionComboBox, manager.windowFunctionModel(),
                                                            FourierTransformPropertiesManager::windowFunction(),
                                                            BindingInterface::ModelUpdateDeferredOnBusy);
    bindings.add<ListViewPropertyBinding>(ui.dependentVariablesListView, manager.variableModel(),
                                          manager.dependentVariables(), BindingInterface::ModelUpdateDeferredOnBusy);
    bindings.add<ListViewPropertyBinding>(ui.sourceZonesListView, manager.sourceZonesModel(), manager.sourceZones(),
                                          BindingInterface::ModelUpdateDeferredOnBusy);
}

void FourierTransformDialog::Impl::bindOptions()
{
    bindings.add<CheckButtonPropertyBinding>(ui.includeConjugatesCheckBox,
                                             FourierTransformPropertiesManager::includeConjugates(), false);
    bindings.add<CheckButtonPropertyBinding>(ui.latestResultZonesCheckBox,
                                             FourierTransformPropertiesManager::replaceLatestResultZones(), false);
    bindings.add<CheckButtonPropertyBinding>(ui.latestResultVariablesCheckBox,
                                             FourierTransformPropertiesManager::replaceLatestResultVars(), false);
    bindings.add<CheckButtonPropertyBinding>(ui.obeySourceZoneBlankingCheckBox,
                                             FourierTransformPropertiesManager::obeySourceZoneBlanking(), false);
    bindings.add<ComboBoxPropertyBinding<FourierPlotDisplayType_e>>(
        ui.plotPlacementComboBox, manager.plotDisplayModel(), FourierTransformPropertiesManager::plotDisplay(),
        BindingInterface::ModelUpdateDeferredOnBusy);
}

// Through the view, so that its binding hears of it.
void FourierTransformDialog::Impl::selectFirstZone()
{
    QListView& zones = *ui.sourceZonesListView;
    zones.selectionModel()->select(zones.model()->index(0, 0), QItemSelectionModel::Select);
}

FourierTransformDialog* FourierTransformDialog::s_instance = nullptr;

FourierTransformDialog& FourierTransformDialog::instance(QWidget& parent)
{
    if (!s_instance)
        s_instance = new FourierTransformDialog(parent);
    return *s_instance;
}

boost::shared_ptr<RelevanceInterface const> FourierTransformDialog::relevance()
{
    return FourierTransformPropertiesManager::relevance();
}

// The frame gets no rule: the lists show by themselves what there is to transform, and the button has a rule of its own.
FourierTransformDialog::FourierTransformDialog(QWidget& parent)
    : QtDialogAbstract(parent, boost::shared_ptr<RelevanceInterface const>())
    , m_impl(std::make_unique<Impl>(*this))
{
}

FourierTransformDialog::~FourierTransformDialog()
{
    // First of all, so that instance() never returns a dialog that is being destroyed.
    s_instance = nullptr;
    m_impl.reset();
}

} // namespace veldraw::dialogs::data
