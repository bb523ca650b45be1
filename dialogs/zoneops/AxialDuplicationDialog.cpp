#include "dialogs/zoneops/AxialDuplicationDialog.h"

#include "dialogs/bindings/BindingList.h"
#include "dialogs/bindings/ButtonBinding.h"
#include "dialogs/bindings/SpinBoxIntPropertyBinding.h"
#include "dialogs/frame/LaunchHelpAction.h"
#include "dialogs/property/FieldPlotTypeDependentRelevance.h"
#include "dialogs/zoneops/AxialDuplicationPropertiesManager.h"
#include "dialogs/zoneops/AxialRotationBindings.h"
#include "ui_AxialDuplicationDialog.h"

#include <QPushButton>

#include <string>

namespace veldraw::dialogs::data {

using sdk::ui::dialogs::propertybindings::BindingInterface;
using sdk::ui::dialogs::propertybindings::BindingList;
using sdk::ui::dialogs::propertybindings::ButtonBinding;
using sdk::ui::dialogs::propertybindings::CheckButtonPropertyBinding;
using sdk::ui::dialogs::propertybindings::ComboBoxPropertyBinding;
using sdk::ui::dialogs::propertybindings::RadioButtonPropertyBinding;
using sdk::ui::dialogs::propertybindings::RelevanceApplier;
using sdk::ui::dialogs::propertybindings::SpinBoxDoublePropertyBinding;
using sdk::ui::dialogs::propertybindings::SpinBoxIntPropertyBinding;
using sdk::ui::propertymanager::AngleSpinBoxIncDecCalculator;
using sdk::ui::propertymanager::FieldPlotTypeDependentRelevance;
using sdk::ui::propertymanager::RelevanceInterface;

// The form's widgets are needed while the bindings are made, not longer.
struct AxialDuplicationDialog::Impl
{
    void bind(Ui::AxialDuplicationDialog& ui);
    void bindOffset(Ui::AxialDuplicationDialog& ui);
    void bindInstances(Ui::AxialDuplicationDialog& ui);

    AxialDuplicationPropertiesManager manager;
    BindingList relevanceAppliers;
    BindingList bindings;
};

void AxialDuplicationDialog::Impl::bind(Ui::AxialDuplicationDialog& ui)
{
    AxialRotationBindings<Ui::AxialDuplicationDialog> rotation(ui, manager.rotationManager(), bindings);
    rotation.bind();
    bindings.add<SpinBoxIntPropertyBinding>(ui.numberOfSegments, manager.numberOfSegmentsProperty(), nullptr);
    bindOffset(ui);
    bindInstances(ui);
    bindings.add<CheckButtonPropertyBinding>(ui.addZonesToExistingStrands_checkBox, manager.addZonesToExistingStrands(),
                                             false);
    QPushButton* const duplicateButton =
        ui.buttonBox->addButton(QStringLiteral("&Duplicate"), QDialogButtonBox::ActionRole);
    bindings.add<ButtonBinding>(*duplicateButton, [this] { manager.duplicateZones(); });
    relevanceAppliers.adopt(rotation.applyCartesian3DRelevance());
    relevanceAppliers.add<RelevanceApplier>(manager.partialRotationRelevance(), ui.numOfInstances,
                                            RelevanceApplier::EnableDisable, BindingInterface::UpdateOnIdle);
}

void AxialDuplicationDialog::Impl::bindOffset(Ui::AxialDuplicationDialog& ui)
{
    bindings.add<ComboBoxPropertyBinding<ThetaMode_e>>(
        ui.offsetAngleUnits, AxialRotationPropertiesManager::angleUnitsListModel(), manager.offsetAngleUnits(),
        BindingInterface::ModelUpdateDeferredOnBusy);
    bindings.add<SpinBoxDoublePropertyBinding>(
        ui.offsetAngle, manager.displayedOffsetAngle(),
        boost::make_shared<AngleSpinBoxIncDecCalculator>(manager.offsetAngleUnits()));
}

void AxialDuplicationDialog::Impl::bindInstances(Ui::AxialDuplicationDialog& ui)
{
    bindings.add<RadioButtonPropertyBinding<bool>>(ui.fullRotation_radioButton, manager.fullRotation(), true);
    bindings.add<RadioButtonPropertyBinding<bool>>(ui.partialRotation_radioButton, manager.fullRotation(), false);
    bindings.add<SpinBoxIntPropertyBinding>(ui.numOfInstances, manager.numInstances(), nullptr);
}

AxialDuplicationDialog* AxialDuplicationDialog::s_instance = nullptr;

AxialDuplicationDialog& AxialDuplicationDialog::getInstance(QWidget& parent)
{
    if (!s_instance)
        s_instance = new AxialDuplicationDialog(parent);
    return *s_instance;
}

boost::shared_ptr<RelevanceInterface const> AxialDuplicationDialog::relevance()
{
    static boost::shared_ptr<RelevanceInterface const> const rule =
        boost::make_shared<FieldPlotTypeDependentRelevance>();
    return rule;
}

AxialDuplicationDialog::AxialDuplicationDialog(QWidget& parent)
    : QtDialogAbstract(parent, relevance())
    , m_impl(std::make_unique<Impl>())
{
    Ui::AxialDuplicationDialog ui;
    ui.setupUi(this);
    m_impl->bind(ui);
    setHelpAction(new common::LaunchHelpAction(std::string("axial_duplication.html"), *this));
}

AxialDuplicationDialog::~AxialDuplicationDialog()
{
    // First of all, so that getInstance() never returns a dialog that is being destroyed.
    s_instance = nullptr;
    m_impl.reset();
}

} // namespace veldraw::dialogs::data
