#include "dialogs/smoothing/TriangulateDialog.h"

#include "dialogs/bindings/BindingList.h"
#include "dialogs/bindings/ButtonBinding.h"
#include "dialogs/bindings/CheckButtonPropertyBinding.h"
#include "dialogs/bindings/ListViewPropertyBinding.h"
#include "dialogs/bindings/RelevanceApplier.h"
#include "dialogs/bindings/SpinBoxDoublePropertyBinding.h"
#include "dialogs/frame/LaunchHelpAction.h"
#include "dialogs/property/PlotTypeDependentRelevance.h"
#include "dialogs/smoothing/TriangulatePropertiesManager.h"
#include "ui_TriangulateDialog.h"

#include <QPushButton>

#include <boost/make_shared.hpp>

#include <set>
#include <string>

namespace veldraw::dialogs::data {

using sdk::ui::dialogs::propertybindings::BindingInterface;
using sdk::ui::dialogs::propertybindings::BindingList;
using sdk::ui::dialogs::propertybindings::ButtonBinding;
using sdk::ui::dialogs::propertybindings::CheckButtonPropertyBinding;
using sdk::ui::dialogs::propertybindings::ListViewPropertyBinding;
using sdk::ui::dialogs::propertybindings::RelevanceApplier;
using sdk::ui::dialogs::propertybindings::SpinBoxDoublePropertyBinding;
using sdk::ui::propertymanager::PlotTypeDependentRelevance;
using sdk::ui::propertymanager::RelevanceInterface;
using sdk::ui::propertymanager::SpinBoxIncDecCalculatorBase;
using sdk::ui::propertymanager::TriangulatePropertiesManager;

struct TriangulateDialog::Impl
{
    explicit Impl(TriangulateDialog& owner);

    void bindSelections();
    void bindSettings();
    void applyBoundaryRules();
    void addButton();

    TriangulateDialog& dialog;
    Ui::TriangulateDialog ui;
    TriangulatePropertiesManager manager;
    BindingList appliers;
    BindingList bindings;
};

TriangulateDialog::Impl::Impl(TriangulateDialog& owner)
    : dialog(owner)
{
    ui.setupUi(&dialog);
    bindSelections();
    bindSettings();
    applyBoundaryRules();
    addButton();
    dialog.setHelpAction(new common::LaunchHelpAction(std::string("triangulate.html"), dialog));
    ui.sourceZonesListView->setFocus();
}

void TriangulateDialog::Impl::bindSelections()
{
    boost::shared_ptr<PropertyAbstract<std::set<int>>> const sourceZones = manager.sourceZones();
    boost::shared_ptr<PropertyAbstract<std::set<int>>> const boundaryZones = manager.boundaryZones();
    bindings.add<ListViewPropertyBinding>(ui.sourceZonesListView, manager.sourceZonesModel(), sourceZones,
                                          BindingInterface::ModelUpdateDeferredOnBusy);
    bindings.add<ListViewPropertyBinding>(ui.boundaryZonesListView, manager.boundaryZonesModel(), boundaryZones,
                                          BindingInterface::ModelUpdateDeferredOnBusy);
}

void TriangulateDialog::Impl::bindSettings()
{
    bindings.add<CheckButtonPropertyBinding>(ui.useBoundaryZonesCheckBox,
                                             TriangulatePropertiesManager::useBoundaryZones(), false);
    bindings.add<CheckButtonPropertyBinding>(ui.includeBoundaryPointsCheckBox,
                                             TriangulatePropertiesManager::includeBoundaryPoints(), false);
    bindings.add<SpinBoxDoublePropertyBinding>(ui.triangleKeepFactorSpinBox,
                                               TriangulatePropertiesManager::triangleKeepFactor(),
                                               boost::shared_ptr<SpinBoxIncDecCalculatorBase>());
}

void TriangulateDialog::Impl::applyBoundaryRules()
{
    appliers.add<RelevanceApplier>(manager.boundaryChoicesRelevance(), ui.useBoundaryZonesCheckBox,
                                   RelevanceApplier::EnableDisable, BindingInterface::UpdateOnIdle);
    appliers.add<RelevanceApplier>(manager.boundaryListRelevance(), ui.boundaryZonesLabel, ui.boundaryZonesListView,
                                   ui.includeBoundaryPointsCheckBox, RelevanceApplier::EnableDisable,
                                   BindingInterface::UpdateOnIdle);
}

void TriangulateDialog::Impl::addButton()
{
    QPushButton* const button = ui.buttonBox->addButton(QStringLiteral("&Triangulate"), QDialogButtonBox::ActionRole);
    bindings.add<ButtonBinding>(*button, [this] { manager.triangulate(); });
    appliers.add<RelevanceApplier>(manager.triangulateButtonRelevance(), button, RelevanceApplier::EnableDisable,
                                   BindingInterface::UpdateOnIdle);
}

TriangulateDialog* TriangulateDialog::s_instance = nullptr;

TriangulateDialog& TriangulateDialog::getInstance(QWidget& parent)
{
    if (!s_instance)
        s_instance = new TriangulateDialog(parent);
    return *s_instance;
}

boost::shared_ptr<RelevanceInterface const> TriangulateDialog::relevance()
{
    static boost::shared_ptr<RelevanceInterface const> const rule =
        boost::make_shared<PlotTypeDependentRelevance>(PlotType_Cartesian2D);
    return rule;
}

// The frame gets no rule: the controls stay usable in any plot, and the kernel refuses where it has to.
TriangulateDialog::TriangulateDialog(QWidget& parent)
    : QtDialogAbstract(parent, boost::shared_ptr<RelevanceInterface const>())
    , m_impl(std::make_unique<Impl>(*this))
{
}

TriangulateDialog::~TriangulateDialog()
{
    // First of all, so that getInstance() never returns a dialog that is being destroyed.
    s_instance = nullptr;
    m_impl.reset();
}

} // namespace veldraw::dialogs::data
